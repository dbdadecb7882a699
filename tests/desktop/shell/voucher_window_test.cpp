// From a line of a ledger to its voucher, from voucher to voucher, and from its lines on to the ledgers behind them; by
// clicks and keys in the real windows.
#include "desktop/report/voucher_window.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QToolBar>

#include "core/voucher/capital_amount.h"
#include "desktop/manual/open_manual.h"
#include "desktop/page/preview_dialog.h"
#include "desktop/report/sample_report.h"
#include "desktop/report/voucher_paper.h"
#include "desktop/report/voucher_sheet.h"
#include "desktop/shell/launch.h"

namespace tz::test {
namespace {

constexpr int detailCommand = static_cast<int>(WindowCommand::detail);

class VoucherWindowTest : public SampleReport {
 protected:
  VoucherWindowTest() : launcher_(everybody(), findReport) {}
  ~VoucherWindowTest() override {
    launcher_.CloseAll();
    deleteClosed();
  }

  ReportWindow& open(int command, std::vector<std::pair<ParameterKey, std::string>> conditions) {
    Request request;
    conditions.insert(conditions.begin(), {{ParameterKey::from, "1"}, {ParameterKey::to, "12"}});
    for (const auto& [key, text] : conditions) request.set(key, text);
    auto* window = launcher_.LaunchFromReport({.command = command, .conditions = request}, nullptr);
    if (window == nullptr) throw std::runtime_error("no window");
    EXPECT_TRUE(waitActive(window));
    return *window;
  }
  [[nodiscard]] VoucherWindow* voucher() const {
    return qobject_cast<VoucherWindow*>(launcher_.SlotOf(VoucherWindow::templateId));
  }
  [[nodiscard]] ReportWindow* ledger(int command) const {
    return qobject_cast<ReportWindow*>(launcher_.SlotOf(command));
  }
  static VoucherSheet& sheet(const VoucherWindow& window) { return window.Paper()->Sheet(); }
  static std::string told(const VoucherWindow& window, const char* label) {
    return fromQt(control<QLabel>(window, QString::fromLatin1(label)).text());
  }
  // The current line as a person copies it.
  static std::string copied(VoucherWindow& window) {
    QTest::keyClick(&sheet(window), Qt::Key_C, Qt::ControlModifier);
    return fromQt(QGuiApplication::clipboard()->text());
  }
  static std::int64_t firstRow(const ReportWindow& window, RowKind kind) {
    const auto& grid = window.Shown()->report.grid;
    for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
      if (grid.RowKindAt(row) == kind) return row;
    }
    return -1;
  }
  // The voucher of the first such line of the sample company.
  VoucherWindow& show(const std::string& lineWhere, Book book = Book::posted) {
    const std::string tables = book == Book::posted ? "Reg" : "Unreg";
    const auto found = g_pDB->QRYGetData(Sql("SELECT s.lId, s.lTieId FROM " + tables + "Sub s, " + tables +
                                             "Main m WHERE m.lTieId = s.lTieId AND m.byPeroid > 0 AND " + lineWhere +
                                             " ORDER BY s.lId LIMIT 1"));
    if (found.rows == 0) throw std::runtime_error("no line with " + lineWhere);
    auto* window = launcher_.OpenVoucher({book, std::stoll(found.at(0, 0)), std::stoll(found.at(0, 1))}, &asker_);
    if (window == nullptr) throw std::runtime_error("no voucher");
    EXPECT_TRUE(waitActive(window));
    return *window;
  }

  QWidget asker_;
  ReportLauncher launcher_;
};

TEST_F(VoucherWindowTest, OpensFromEveryLineAndStandsOnIt) {
  ReportWindow& report = open(10184, {{ParameterKey::account, "1221"}, {ParameterKey::unposted, "1"}});
  const auto& shown = report.Shown()->report;
  std::int64_t lines = 0;
  QPointer<VoucherWindow> window;
  for (std::int64_t row = 0; row < shown.grid.GetRows(); ++row) {
    const auto line = shown.subjects.line(row);
    if (!line || (line->book == Book::posted && ++lines % 7 != 1)) continue;
    report.activateWindow();
    ASSERT_TRUE(waitActive(&report));
    ASSERT_TRUE(report.Grid().SetCurrent(row, 2));
    if (lines % 2 == 0) {
      QTest::keyClick(&report.Grid(), Qt::Key_Return);
    } else {
      QTest::mouseDClick(report.Grid().viewport(), Qt::LeftButton, {}, report.Grid().CellRect(row, 2).center());
    }
    ASSERT_NE(voucher(), nullptr) << messages_.takeLast();
    if (window == nullptr) window = voucher();
    EXPECT_EQ(voucher(), window) << "one window for all";
    EXPECT_TRUE(waitActive(window));
    const Voucher& voucher = *window->Shown();
    EXPECT_EQ(voucher.book, line->book);
    EXPECT_EQ(voucher.head.lTieId, line->voucher);
    EXPECT_EQ(voucher.lines[static_cast<std::size_t>(sheet(*window).CurrentRow())].entry.lId, line->line);
    EXPECT_EQ(window->focusWidget(), &sheet(*window));
    EXPECT_EQ(told(*window, "voucherBook"), line->book == Book::unposted ? "未记帐" : "已记帐");
    EXPECT_NE(told(*window, "voucherNumber").find(std::string(shown.grid.TextAt(row, 1))), std::string::npos);
  }
  EXPECT_GT(lines, 20);
  EXPECT_EQ(launcher_.Windows().size(), 2);
  QTest::keyClick(&sheet(*window), Qt::Key_F1);
  ASSERT_NE(openManual(), nullptr);
  EXPECT_EQ(openManual()->Place().page, "vouchers");
  closeManual();
  // Closed, it is made anew.
  window->close();
  deleteClosed();
  EXPECT_EQ(voucher(), nullptr);
  QTest::mouseClick(report.ToolBar().widgetForAction(report.ActionOf(detailCommand)), Qt::LeftButton);
  EXPECT_NE(voucher(), nullptr);
  report.close();
  deleteClosed();
  EXPECT_TRUE(voucher()->isVisible()) << "it outlives the ledger";
}

TEST_F(VoucherWindowTest, RowsWithoutVoucherRefuse) {
  ReportWindow& report = open(
      10190, {{ParameterKey::account, "122101"}, {ParameterKey::dept, Person().first}, {ParameterKey::person, "李明"}});
  const auto refusal = [&](RowKind kind) {
    EXPECT_TRUE(report.Grid().SetCurrent(firstRow(report, kind), 2));
    QTest::keyClick(&report.Grid(), Qt::Key_D, Qt::ControlModifier);
    const auto caption = messages_.all.empty() ? "" : messages_.all.back().caption;
    return caption + "|" + messages_.takeLast();
  };
  EXPECT_EQ(refusal(RowKind::opening), "辅助核算|期初数无法联查凭证");
  EXPECT_EQ(refusal(RowKind::monthTotal), "岚川财务软件|请选择凭证记录!");
  EXPECT_EQ(voucher(), nullptr);
  // What is gone since the ledger was shown is told, and nothing opens.
  EXPECT_EQ(launcher_.OpenVoucher({Book::posted, 1, 99'999'999}, &report), nullptr);
  EXPECT_EQ(messages_.takeLast(), "没有编号为 99999999 的已记帐凭证！");
  EXPECT_EQ(launcher_.OpenVoucher({Book::posted, 1, 1}, &report), nullptr);
  EXPECT_EQ(messages_.takeLast(), "期初数无法联查凭证");
  EXPECT_EQ(voucher(), nullptr);
}

TEST_F(VoucherWindowTest, LooksLikeAVoucherAndGoesToItsNeighbours) {
  VoucherWindow& window = show("mForeign <> 0 AND dAmount <> 0 AND sBusiness <> ''");
  const Voucher first = *window.Shown();
  EXPECT_EQ(told(window, "voucherTitle"), "记 帐 凭 证");
  EXPECT_EQ(told(window, "voucherMaker"), "制单：" + first.head.sMaker);
  EXPECT_NE(told(window, "voucherTotal").find("合计："), std::string::npos);
  EXPECT_EQ(window.Paper()->accessibleName(), window.ListEntry());
  expectNamed(window);
  const auto text = copied(window);
  for (const auto* part : {"数量：", "单价：", "外币：", "汇率：", "业务号：", "单位："}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
  }

  std::vector<Id> seen = {first.head.lTieId};
  for (int i = 0; i < 3; ++i) {
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(window.Shown()->previous, seen.back());
    seen.push_back(window.Shown()->head.lTieId);
    EXPECT_EQ(sheet(window).CurrentRow(), 0);
  }
  QTest::keyClick(&sheet(window), Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(window.Shown()->head.lTieId, seen[2]);
  QAction* previous = window.CommandBar()->findChild<QAction*>(QString::number(VoucherWindow::previousVoucher));
  QTest::mouseClick(window.CommandBar()->widgetForAction(previous), Qt::LeftButton);
  EXPECT_EQ(window.Shown()->head.lTieId, seen[1]);

  // At the ends of its book there is nothing more.
  VoucherWindow& unposted = show("s.lId > 0", Book::unposted);
  EXPECT_EQ(&unposted, &window);
  while (window.Shown()->previous != 0) QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
  EXPECT_FALSE(previous->isEnabled());
  const Id atEnd = window.Shown()->head.lTieId;
  QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(window.Shown()->head.lTieId, atEnd);
  EXPECT_TRUE(messages_.all.empty());
}

TEST_F(VoucherWindowTest, IsPrintedOnThePagesOfReports) {
  VoucherWindow& window = show("mForeign <> 0 AND dAmount <> 0 AND sBusiness <> ''");
  const Voucher& voucher = *window.Shown();
  inModal([&](QWidget& dialog) {
    const auto& pages = dynamic_cast<PreviewDialog&>(dialog).Pages();
    std::string head;
    for (const auto& piece : pages.Head().pieces) head += piece.text + "\n";
    for (const auto& part : {std::string("记帐凭证"), voucher.number(), "核算单位：" + voucher.company}) {
      EXPECT_NE(head.find(part), std::string::npos) << part << '\n' << head;
    }
    const auto& page = pages.Pages().front();
    std::string rows;
    for (const auto& line : pages.LinesOf(page)) {
      for (const auto& column : pages.Columns().strips.front()) {
        for (const auto& text : pages.TextOf(page, line, column)) rows += text;
      }
    }
    EXPECT_NE(rows.find("合计" + capitalAmount(voucher.debit)), std::string::npos) << rows;
    for (const auto* part : {"外币：", "业务号：", "单位："}) EXPECT_NE(rows.find(part), std::string::npos) << rows;
    EXPECT_NE(pages.Remarks().front().find("制单：" + voucher.head.sMaker), std::string::npos);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  QTest::keyClick(&window, Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
}

TEST_F(VoucherWindowTest, LeadsOnToTheLedgersOfItsLines) {
  const auto periodOf = [](const VoucherWindow& window) {
    return "月份: 2025." + std::string(window.Shown()->head.byPeroid < 10 ? "0" : "") +
           std::to_string(window.Shown()->head.byPeroid);
  };
  const auto stands = [&](int command, const VoucherWindow& window) {
    ReportWindow* report = ledger(command);
    ASSERT_NE(report, nullptr) << messages_.takeLast();
    EXPECT_TRUE(report->Shown()->report.period.starts_with(periodOf(window)));
    const auto line = report->Shown()->report.subjects.line(report->Grid().Current().row);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->line, window.Shown()->lines[static_cast<std::size_t>(sheet(window).CurrentRow())].entry.lId);
    EXPECT_EQ(line->book, window.Shown()->book);
    report->close();
    deleteClosed();
  };
  const auto on = [&](const std::string& where, Book book = Book::posted) -> VoucherWindow& {
    VoucherWindow& window = show(where, book);
    QTest::keyClick(&sheet(window), Qt::Key_Return);
    return window;
  };
  const std::string flagged = "lCodeId IN (SELECT lId FROM Code WHERE sAssBook = ";
  stands(10190, on(flagged + "'A') AND lPersonId <> 0 AND byPeroid = 5"));
  stands(10208, on(flagged + "'B') AND lEnterId <> 0 AND byPeroid = 4"));
  stands(10231, on(flagged + "'C') AND lDeptId <> 0"));
  stands(10221, on(flagged + "'D') AND lItemId <> 0 AND byPeroid = 3"));
  stands(10190, on(flagged + "'A') AND lPersonId <> 0", Book::unposted));

  // Where several fit, a menu offers them all.
  VoucherWindow& window = on(flagged + "'AC') AND lPersonId <> 0");
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 2);
  EXPECT_TRUE(menu->actions().at(0)->text().contains(QStringLiteral("个人往来_三栏明细帐")));
  EXPECT_TRUE(menu->actions().at(1)->text().contains(QStringLiteral("部门管理_三栏明细帐")));
  QTest::keyClick(menu, Qt::Key_2);
  stands(10231, window);

  on("lDeptId = 0 AND lEnterId = 0 AND lItemId = 0");
  EXPECT_EQ(messages_.takeLast(), "该分录的科目没有辅助核算，没有可以联查的明细帐。");
}

}  // namespace
}  // namespace tz::test
