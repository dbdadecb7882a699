// Looking for lines in a report's real window: the filter row above its table and locating as one types.
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

#include "desktop/report/sample_report.h"

namespace tz::test {
namespace {

class ReportFilter : public SampleReport {
 protected:
  void OpenUnits() { Open(10203, {{ParameterKey::account, "1122"}, {ParameterKey::unposted, "1"}}); }
  QLineEdit& Field(const char* id) { return control<QLineEdit>(Window(), QString::fromLatin1(id)); }
  void Type(const char* id, const char* text) {
    Field(id).clear();
    QInputMethodEvent typed;
    typed.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(&Field(id), &typed);
  }
  bool Becomes(const char* label, const std::string& text) {
    const bool told = QTest::qWaitFor([&] { return Told(label) == text; });
    EXPECT_TRUE(told) << Told(label);
    return told;
  }
  // The lines of the report for which something holds.
  std::vector<std::int64_t> Lines(const std::function<bool(std::int64_t)>& holds) {
    std::vector<std::int64_t> rows;
    for (std::int64_t row = 0; row < View().RowCount(); ++row) {
      if (Report().grid.RowKindAt(row) == RowKind::line && holds(row)) rows.push_back(row);
    }
    return rows;
  }
  std::vector<std::int64_t> ShownLines() {
    return Lines([this](std::int64_t row) { return View().Rows().Shows(row); });
  }
  std::vector<std::int64_t> WithText(std::string_view text) {
    return Lines([&](std::int64_t row) { return Report().grid.TextAt(row, 2).find(text) != std::string_view::npos; });
  }
  std::vector<std::int64_t> WithAmount(double from, double to) {
    return Lines([&](std::int64_t row) {
      const double amount = std::abs(Report().grid.NumberAt(row, 3) + Report().grid.NumberAt(row, 4));
      return amount >= from && amount <= to;
    });
  }
  // Of the table's menu at a cell.
  bool OffersFilter(std::int64_t row, int column, bool take) {
    View().SetCurrent(row, column);
    Press(Qt::Key_Menu);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return false;
    bool offered = false;
    for (QAction* action : menu->actions()) {
      if (!action->text().startsWith(QStringLiteral("按此筛选"))) continue;
      offered = action->isEnabled();
      if (take) action->trigger();
    }
    delete menu;
    return offered;
  }
  std::string Note(std::size_t shown) {
    const auto all = Lines([](std::int64_t) { return true; }).size();
    return "显示 " + std::to_string(shown) + " 条，隐藏 " + std::to_string(all - shown) + " 条分录。合计为全部分录";
  }
};

TEST_F(ReportFilter, HidesLinesAndSaysSoAndChangesNoTotal) {
  OpenUnits();
  const std::string before = ReportLedger::json(Report());
  Press(Qt::Key_2, Qt::ControlModifier);
  Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(Field("filterText").hasFocus());
  Type("filterText", "货款");
  const auto found = WithText("货款");
  ASSERT_GT(found.size(), 1U);
  Becomes("filterNote", Note(found.size()));
  EXPECT_EQ(ShownLines(), found) << "folded blocks open for it";
  const auto& grid = Report().grid;
  for (std::int64_t place = 0; place < View().Rows().Count(); ++place) {
    const std::int64_t row = View().Rows().RowAt(place);
    if (grid.RowKindAt(row) != RowKind::heading) continue;
    const GridBlock* block = View().Blocks().Holding(*View().Blocks().Walked(), row);
    EXPECT_TRUE(std::ranges::any_of(found, [&](auto line) { return block->contains(line); })) << "no block without one";
  }
  EXPECT_TRUE(View().Rows().Shows(View().RowCount() - 1)) << "the total stays";
  EXPECT_EQ(ReportLedger::json(Report()), before);
  // What is selected of it is what is seen.
  View().setFocus();
  Press(Qt::Key_A, Qt::ControlModifier);
  const std::string selected = "已选 " + std::to_string(found.size()) + " 条分录";
  EXPECT_TRUE(QTest::qWaitFor([&] { return Told("selection").starts_with(selected); })) << Told("selection");
  for (QAction* action : View().actions()) {
    if (action->text().startsWith(QStringLiteral("复制选中行的合计"))) action->trigger();
  }
  EXPECT_EQ(fromQt(QApplication::clipboard()->text()), Told("selection"));
  // A new computation takes the filter along, and a report with other rows too.
  Window().Recompute();
  Becomes("filterNote", Note(found.size()));
  EXPECT_EQ(ShownLines(), found);

  // Voucher numbers, wide figures among them; the direction of a line is no text to be found.
  Type("filterText", "转-００02");
  const auto voucher = Lines([&](auto row) { return grid.TextAt(row, 1).find("转-0002") != std::string_view::npos; });
  ASSERT_FALSE(voucher.empty());
  Becomes("filterNote", Note(voucher.size()));
  EXPECT_EQ(ShownLines(), voucher);
  Type("filterText", "借");
  Becomes("filterNote", Note(WithText("借").size()));

  Field("filterText").setFocus();
  QTest::keyClick(&Field("filterText"), Qt::Key_Escape);
  EXPECT_EQ(View().Rows().Count(), View().RowCount());
  EXPECT_EQ(Told("filterNote"), "");
  QTest::keyClick(&Field("filterText"), Qt::Key_Escape);
  EXPECT_FALSE(Field("filterText").isVisible());
  EXPECT_TRUE(View().hasFocus());
}

TEST_F(ReportFilter, TakesAmountsAsTheyAreTypedAndUnpostedLines) {
  OpenUnits();
  click(Window(), "filterButton");
  Type("filterFrom", "100,000");
  Type("filterTo", "２０００００.00");
  Becomes("filterNote", Note(WithAmount(100'000, 200'000).size()));
  EXPECT_EQ(ShownLines(), WithAmount(100'000, 200'000));
  // Wrong ones are told and change nothing.
  Type("filterTo", "2oo");
  Becomes("filterNote", "“2oo”不是金额");
  EXPECT_TRUE(Field("filterTo").toolTip().contains(QStringLiteral("不是金额")));
  EXPECT_EQ(ShownLines(), WithAmount(100'000, 200'000));
  Type("filterTo", "1");
  Becomes("filterNote", "起始金额大于终止金额");
  Field("filterFrom").clear();
  Type("filterTo", "");
  QTest::keyClick(&Field("filterTo"), Qt::Key_Return);
  EXPECT_EQ(View().Rows().Count(), View().RowCount());
  control<QCheckBox>(Window(), "filterUnposted").click();
  const auto unposted = Lines([this](auto row) { return Report().grid.BackgroundAt(row) == lightGreen; });
  EXPECT_EQ(ShownLines(), unposted);
  control<QCheckBox>(Window(), "filterUnposted").click();
  // Nothing found is no empty report: the table says why, and the way back is at hand.
  Type("filterText", "没有这样的文字");
  Becomes("filterNote", Note(0));
  EXPECT_EQ(View().Rows().Count(), 0);
  EXPECT_GT(View().RowCount(), 0);
  EXPECT_EQ(View().Current(), GridCell{});
  View().setFocus();
  Press(Qt::Key_Escape);
  EXPECT_EQ(View().Rows().Count(), View().RowCount());
  click(Window(), "filterClose");
  EXPECT_FALSE(Field("filterText").isVisible());
}

TEST_F(ReportFilter, TheMenuFiltersByWhatALineShowsAndKeepsTheLine) {
  OpenUnits();
  const auto& grid = Report().grid;
  const std::int64_t line = WithText("货款").front();
  const int side = grid.TypeAt(line, 3) == CTzGrid::CellType::number ? 3 : 4;
  for (std::int64_t row = 0; row < View().RowCount(); ++row) {
    if (grid.RowKindAt(row) == RowKind::line) continue;
    for (const int column : {2, 3, 6}) EXPECT_FALSE(OffersFilter(row, column, true)) << row << ',' << column;
    if (grid.RowKindAt(row) == RowKind::total) break;
  }
  EXPECT_FALSE(OffersFilter(line, 5, true)) << "the direction";
  EXPECT_FALSE(OffersFilter(line, 6, true)) << "the balance";
  EXPECT_FALSE(Field("filterText").isVisible());
  for (const int column : {0, 1, 2, side}) {
    EXPECT_TRUE(OffersFilter(line, column, true)) << column;
    EXPECT_TRUE(View().Rows().Shows(line)) << column;
    EXPECT_LT(ShownLines().size(), Lines([](auto) { return true; }).size()) << column;
  }
  EXPECT_EQ(Field("filterText").text(), View().ShownText(line, 2)) << "the amount narrows it further";
  EXPECT_EQ(Field("filterFrom").text(), View().ShownText(line, side));
  EXPECT_TRUE(OffersFilter(line, 1, true));
  EXPECT_EQ(Field("filterFrom").text(), View().ShownText(line, side));
  EXPECT_TRUE(View().Rows().Shows(line));
}

TEST_F(ReportFilter, LocatesInFoldedBlocksAndCountsWhatTheFilterHides) {
  OpenUnits();
  const auto found = WithText("货款");
  const auto places = [](std::size_t of) { return "第 1 处，共 " + std::to_string(of) + " 处"; };
  const auto hidden = [](std::size_t of) { return "；另有 " + std::to_string(of) + " 处被筛选隐藏"; };
  Press(Qt::Key_2, Qt::ControlModifier);
  Press(Qt::Key_Home, Qt::ControlModifier);
  ASSERT_TRUE(ShownLines().empty());
  QInputMethodEvent committed;
  committed.setCommitString(QStringLiteral("货款"));
  QApplication::sendEvent(&View(), &committed);
  Becomes("located", places(found.size()));
  EXPECT_EQ(View().Current(), (GridCell{found[0], 2}));
  EXPECT_TRUE(View().Rows().Shows(found[0])) << "its block opens";
  EXPECT_FALSE(View().Rows().Shows(found.back()));
  QTest::keyClick(&Field("locate"), Qt::Key_Up);
  EXPECT_EQ(View().Current(), (GridCell{found.back(), 2}));
  EXPECT_TRUE(View().Rows().Shows(found.back()));

  Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  const std::string voucher(Report().grid.TextAt(found[1], 1));
  Type("filterText", voucher.c_str());
  const auto left =
      Lines([&](auto row) { return Report().grid.TextAt(row, 1).find(voucher) != std::string_view::npos; });
  const auto both = static_cast<std::size_t>(
      std::ranges::count_if(left, [&](auto row) { return std::ranges::find(found, row) != found.end(); }));
  ASSERT_LT(both, found.size());
  Becomes("filterNote", Note(left.size()));
  EXPECT_TRUE(Told("located").ends_with("，共 " + std::to_string(both) + " 处" + hidden(found.size() - both)));
  EXPECT_TRUE(View().Rows().Shows(View().Current().row));
  EXPECT_EQ(Told("status"),
            "共 " + std::to_string(View().RowCount()) + " 行，显示 " + std::to_string(View().Rows().Count()) + " 行");
  // Lines that are kept and folded are not said to be shown.
  Press(Qt::Key_2, Qt::ControlModifier);
  EXPECT_TRUE(Told("filterNote").starts_with(std::to_string(left.size()) + " 条符合，折叠的未显示；"))
      << Told("filterNote");
  const auto others = Lines([&](auto row) { return std::ranges::find(found, row) == found.end(); });
  ASSERT_FALSE(others.empty());
  Type("filterText", std::string(Report().grid.TextAt(others.front(), 2)).c_str());
  Becomes("located", "没有找到" + hidden(found.size()));
}

TEST_F(ReportFilter, TypingLocatesAndCounts) {
  OpenUnits();
  const auto found = WithText("货款");
  const auto told = [&](std::size_t number) {
    return "第 " + std::to_string(number) + " 处，共 " + std::to_string(found.size()) + " 处";
  };
  View().SetCurrent(found[1] - 1, 0);
  QInputMethodEvent composing(QStringLiteral("huokuan"), {});
  QApplication::sendEvent(&View(), &composing);
  EXPECT_TRUE(Field("locate").isVisible());
  EXPECT_TRUE(View().hasFocus()) << "a text that is being composed keeps its focus";
  QInputMethodEvent committed;
  committed.setCommitString(QStringLiteral("货款"));
  QApplication::sendEvent(&View(), &committed);
  EXPECT_TRUE(Field("locate").hasFocus());
  Becomes("located", told(2));
  EXPECT_EQ(View().Current(), (GridCell{found[1], 2}));
  QTest::keyClick(&Field("locate"), Qt::Key_Return);
  EXPECT_EQ(View().Current().row, found[2]);
  QTest::keyClick(&Field("locate"), Qt::Key_Return, Qt::ShiftModifier);
  QTest::keyClick(&Field("locate"), Qt::Key_Return, Qt::ShiftModifier);
  QTest::keyClick(&Field("locate"), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(View().Current().row, found.back()) << "round the end";
  Becomes("located", told(found.size()));
  QTest::keyClick(&Field("locate"), Qt::Key_Escape);
  EXPECT_FALSE(Field("locate").isVisible());
  EXPECT_TRUE(View().hasFocus());
  Press(Qt::Key_F3);
  EXPECT_TRUE(Field("locate").isVisible()) << "the last text is gone on with";
  QTest::keyClick(&Field("locate"), Qt::Key_Escape);

  // A figure with or without separators, in the rows that are shown.
  const std::int64_t line = found.front();
  const int side = Report().grid.TypeAt(line, 3) == CTzGrid::CellType::number ? 3 : 4;
  const QString figure = View().ShownText(line, side).remove(QLatin1Char(','));
  Press(Qt::Key_Home, Qt::ControlModifier);
  QTest::keyClicks(&View(), figure.left(1));
  QTest::keyClicks(&Field("locate"), figure.mid(1));
  EXPECT_TRUE(QTest::qWaitFor([&] {
    return View().ShownText(View().Current().row, View().Current().column).remove(QLatin1Char(',')).contains(figure);
  }));
  Type("locate", "没有这样的文字");
  Becomes("located", "没有找到");
}

}  // namespace
}  // namespace tz::test
