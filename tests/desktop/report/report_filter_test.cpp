// Looking for lines in a report's real window: the filter row above its table and locating as one types.
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
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
    if (action->text().startsWith(QStringLiteral("复制选中分录的合计"))) action->trigger();
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
  // A line's own text and amount, from the table's menu.
  const std::int64_t line = WithText("货款").front();
  emit View().filterByWanted(line, 2);
  EXPECT_EQ(Field("filterText").text(), View().ShownText(line, 2));
  EXPECT_TRUE(View().Rows().Shows(line));
  const int side = Report().grid.TypeAt(line, 3) == CTzGrid::CellType::number ? 3 : 4;
  emit View().filterByWanted(line, side);
  EXPECT_EQ(Field("filterText").text(), "");
  const double amount = Report().grid.NumberAt(line, side);
  EXPECT_EQ(ShownLines(), WithAmount(amount, amount));
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
