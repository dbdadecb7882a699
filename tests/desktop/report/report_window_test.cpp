// The window of a report, worked with keys and mouse over a real ledger.
#include "desktop/report/report_window.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "desktop/gridview/grid_view.h"
#include "desktop/report/report_ledger.h"
#include "desktop/theme/theme.h"

namespace tz::test {
namespace {

class ReportWindowTest : public ::testing::Test {
 protected:
  ReportWindow& open(const Request& request = ReportLedger::zhangSan()) {
    window_ = new ReportWindow(counted_.definition, nullptr);
    EXPECT_TRUE(window_->CreateTheDialog(nullptr));
    window_->SetConditions(request);
    window_->RefreshDisplay();
    return *window_;
  }
  ~ReportWindowTest() override { delete window_; }

  [[nodiscard]] QComboBox& combo(int id) const { return control<QComboBox>(*window_, QString::number(id)); }
  [[nodiscard]] std::string labelled(const char* name) const {
    return fromQt(control<QLabel>(*window_, QString::fromLatin1(name)).text());
  }
  // Chooses the entry of that text with the keys.
  void choose(int id, const char* entry) const {
    QComboBox& box = combo(id);
    const int wanted = box.findText(QString::fromUtf8(entry));
    ASSERT_GE(wanted, 0) << entry;
    const int steps = wanted - box.currentIndex();
    for (int i = 0; i < std::abs(steps); ++i) QTest::keyClick(&box, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
  }

  ReportLedger ledger_;
  CountedReport counted_;
  RecordedMessages messages_;
  QPointer<ReportWindow> window_;
};

TEST_F(ReportWindowTest, ShowsWhatTheCoreComputes) {
  const ReportWindow& window = open();
  ASSERT_NE(window.Shown(), nullptr);
  EXPECT_EQ(ReportLedger::json(window.Shown()->report), ledger_.computed(ReportLedger::zhangSan()));
  EXPECT_EQ(labelled("1010"), "三 栏 式 明 细 帐");
  EXPECT_EQ(labelled("1006"), "科目");
  EXPECT_EQ(labelled("1007"), "月份: 2006.1--2006.3");
  EXPECT_EQ(fromQt(combo(2206).currentText()), "122101 职工借款");
  EXPECT_EQ(fromQt(combo(2207).currentText()), "销售部");
  EXPECT_EQ(fromQt(combo(2208).currentText()), "张三");
  EXPECT_EQ(labelled("status"), "共 10 行");
  EXPECT_TRUE(control<QLabel>(window, "1008").isHidden());
}

TEST_F(ReportWindowTest, ChoosingTheSameEntryAgainComputesNothing) {
  open();
  ASSERT_EQ(CountedReport::runs, 1);
  choose(2208, "张三");
  emit combo(2208).activated(combo(2208).currentIndex());
  emit combo(2201).activated(combo(2201).currentIndex());
  EXPECT_EQ(CountedReport::runs, 1);
  choose(2206, "122104 工具款");
  EXPECT_EQ(CountedReport::runs, 2);
  emit combo(2206).activated(-1);
  EXPECT_EQ(CountedReport::runs, 2);
}

TEST_F(ReportWindowTest, AFormatRebuildsTheColumnsAndTheUnits) {
  const ReportWindow& window = open(ReportLedger::zhangSan("122105"));
  EXPECT_EQ(window.Shown()->report.grid.GetCols(), 17);  // the richest format comes first
  EXPECT_EQ(labelled("1008"), "外币名称: 美元");
  EXPECT_EQ(labelled("1011"), "数量单位: 台");
  choose(2201, "外币金额式");
  EXPECT_EQ(window.Shown()->report.grid.GetCols(), 12);
  EXPECT_TRUE(control<QLabel>(window, "1011").isHidden());
  choose(2201, "金额式");
  EXPECT_EQ(window.Shown()->report.grid.GetCols(), 7);
  // An account that does not keep the format falls back on its own.
  choose(2201, "数量外币式");
  choose(2206, "122101 职工借款");
  EXPECT_EQ(window.Shown()->report.format, AmountFormat::amount);
  EXPECT_EQ(combo(2201).count(), 1);
}

TEST_F(ReportWindowTest, ADepartmentOffersItsPersonsAndShowsNothingUntilOneIsChosen) {
  const ReportWindow& window = open();
  choose(2207, "采购部");
  EXPECT_EQ(combo(2208).currentIndex(), -1);
  ASSERT_EQ(combo(2208).count(), 1);
  EXPECT_EQ(window.Shown()->report.grid.GetRows(), 0);
  EXPECT_EQ(labelled("status"), "请选择个人");
  choose(2208, "赵六");
  EXPECT_EQ(window.Shown()->report.grid.TextAt(0, 2), "个人期初");
  EXPECT_EQ(window.Shown()->report.grid.NumberAt(0, 6), 700);
  EXPECT_TRUE(messages_.all.empty());
}

TEST_F(ReportWindowTest, ARefusalIsToldAndLeavesWhatWasShown) {
  const ReportWindow& window = open();
  const std::string before = ReportLedger::json(window.Shown()->report);
  choose(2208, "李四");
  EXPECT_EQ(messages_.takeLast(), "没有查到该部门此人的发生额");
  EXPECT_EQ(ReportLedger::json(window.Shown()->report), before);
  EXPECT_EQ(fromQt(combo(2208).currentText()), "张三");
}

TEST_F(ReportWindowTest, AFailureIsToldInTheStatusLineAlone) {
  const ReportWindow& window = open();
  const std::string before = ReportLedger::json(window.Shown()->report);
  ledger_.ledger().keeper().execute("DROP TABLE RegSub");
  choose(2206, "122104 工具款");
  EXPECT_TRUE(messages_.all.empty());
  EXPECT_NE(labelled("status").find("帐套不完整"), std::string::npos) << labelled("status");
  EXPECT_EQ(ReportLedger::json(window.Shown()->report), before);
  EXPECT_EQ(fromQt(combo(2206).currentText()), "122101 职工借款");
}

TEST_F(ReportWindowTest, AFailureOfTheListsIsNoDisaster) {
  const ReportWindow& window = open();
  const std::string before = ReportLedger::json(window.Shown()->report);
  ledger_.ledger().keeper().execute("DROP TABLE Person");
  choose(2207, "采购部");
  EXPECT_NE(labelled("status").find("帐套不完整"), std::string::npos) << labelled("status");
  EXPECT_EQ(ReportLedger::json(window.Shown()->report), before);
}

TEST_F(ReportWindowTest, WarningsStandAboveTheGrid) {
  ledger_.ledger().keeper().execute("UPDATE RegMain SET dtBill = '2005-12-31' WHERE lTieId = 2");
  const ReportWindow& window = open();
  auto& warnings = control<QLabel>(window, "warnings");
  EXPECT_EQ(labelled("warnings"), "有1条分录的凭证日期不在查询月份内，未列示");
  EXPECT_EQ(fromQt(QAccessible::queryAccessibleInterface(&warnings)->text(QAccessible::Name)),
            "注意：有1条分录的凭证日期不在查询月份内，未列示");
  EXPECT_EQ(warnings.palette().color(QPalette::WindowText), currentTheme().warning);
  EXPECT_LT(warnings.mapTo(&window, QPoint()).y(), window.Grid().mapTo(&window, QPoint()).y());
  EXPECT_TRUE(warnings.isVisible());
  EXPECT_TRUE(control<QLabel>(window, "remarks").isHidden());
  choose(2206, "122104 工具款");
  EXPECT_FALSE(warnings.isVisible()) << "that account has none";
}

TEST_F(ReportWindowTest, MonthsThatMisleadAreWarnedOf) {
  Request request = ReportLedger::zhangSan();
  request.set(ParameterKey::from, "2");
  open(request);
  EXPECT_EQ(labelled("warnings"), "本年累计自2月起累计。");
  delete window_;
  request.set(ParameterKey::to, "1");
  open(request);
  EXPECT_EQ(labelled("warnings"), "起始月份在终止月份之后。");
}

TEST_F(ReportWindowTest, EnterAndEscLeaveItOpenAndCloseEndsIt) {
  ReportWindow& window = open();
  for (QWidget* focus : {static_cast<QWidget*>(&window), static_cast<QWidget*>(&window.Grid())}) {
    QTest::keyClick(focus, Qt::Key_Escape);
    QTest::keyClick(focus, Qt::Key_Return);
  }
  EXPECT_TRUE(window.isVisible());
  window.OnCommand(50010);
  EXPECT_FALSE(window.isVisible());
  deleteClosed();
  EXPECT_TRUE(window_.isNull());
}

TEST_F(ReportWindowTest, CopiesAndSumsTheSelection) {
  ReportWindow& window = open();
  window.Grid().SetCurrent(1, 2);
  QTest::keyClick(&window.Grid(), Qt::Key_Right, Qt::ShiftModifier);
  QTest::keyClick(&window.Grid(), Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&window.Grid(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(fromQt(QApplication::clipboard()->text().trimmed()), "借款\t1000.00\n本月合计\t1000.00");
  const auto told = [this](const char* text) { return QTest::qWaitFor([&] { return labelled("selection") == text; }); };
  EXPECT_TRUE(told("已选 1 条分录：借方 1 笔，合计 1,000.00，平均 1,000.00")) << labelled("selection");
  QTest::keyClick(&window.Grid(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(told("已选 3 条分录：借方 2 笔，合计 1,020.00，平均 510.00；贷方 1 笔，合计 300.50，平均 300.50"))
      << labelled("selection");
}

TEST_F(ReportWindowTest, QuantitiesAndForeignAmountsSumApart) {
  ledger_.ledger().keeper().execute("UPDATE RegSub SET lCodeId = 3, dAmount = 2, mForeign = 140, dFrat = 7");
  ReportWindow& window = open(ReportLedger::zhangSan("122105"));
  QTest::keyClick(&window.Grid(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !labelled("selection").empty(); }));
  EXPECT_EQ(labelled("selection"),
            "已选 2 条分录：借方 1 笔，合计 1,000.00，平均 1,000.00；贷方 1 笔，合计 300.50，平均 300.50；"
            "借方数量 1 笔，合计 2，平均 2；贷方数量 1 笔，合计 2，平均 2；"
            "借方外币 1 笔，合计 140.00，平均 140.00；贷方外币 1 笔，合计 140.00，平均 140.00");
  // The seven columns of this format hold foreign amounts under other captions.
  choose(2201, "外币式");
  QTest::keyClick(&window.Grid(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return labelled("selection").find("数量") == std::string::npos; }));
  EXPECT_EQ(labelled("selection"),
            "已选 2 条分录：借方外币 1 笔，合计 140.00，平均 140.00；贷方外币 1 笔，合计 140.00，平均 140.00");
}

TEST_F(ReportWindowTest, CopiesWithHeadingsConditionsAndMarks) {
  Request request = ReportLedger::zhangSan();
  request.set(ParameterKey::from, "2");
  ReportWindow& window = open(request);
  window.Grid().SetCurrent(3, 2);
  QTest::keyClick(&window.Grid(), Qt::Key_Right, Qt::ShiftModifier);
  QTest::keyClick(&window.Grid(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(fromQt(QApplication::clipboard()->text()),
            "三栏式明细帐\n※ 本年累计自2月起累计。\n科目：122101 职工借款\n部门：销售部     个人：张三\n"
            "月份: 2006.02 - 2006.03\n包含未记帐凭证\n摘要\t借方\t标记\n未记帐\t20.00\t未记帐凭证\n");
}

TEST_F(ReportWindowTest, UnpostedRowsAreGreenInBothThemes) {
  for (const auto theme : {ThemeChoice::light, ThemeChoice::dark}) {
    applyTheme(theme);
    ReportWindow& window = open();
    const std::int64_t unposted = 7;
    ASSERT_EQ(window.Shown()->report.grid.TextAt(unposted, 2), "未记帐");
    QWidget* cells = window.Grid().viewport();
    const QImage image = cells->grab().toImage();
    const auto groundOf = [&](std::int64_t row) {
      return image.pixelColor(window.Grid().CellRect(row, 3).topLeft() + QPoint(3, 3));
    };
    EXPECT_EQ(groundOf(unposted).rgb(), rowColour(lightGreen).rgb());
    EXPECT_NE(groundOf(unposted).rgb(), groundOf(1).rgb());
    EXPECT_GT(groundOf(unposted).green(), groundOf(unposted).red());
    delete window_;
  }
  applyTheme(ThemeChoice::light);
}

TEST_F(ReportWindowTest, QueryAsksAgainOnTheLiveWindow) {
  ReportWindow& window = open();
  inModal([](QWidget& dialog) { click(dialog, "2"); });
  window.OnCommand(50031);
  EXPECT_EQ(CountedReport::runs, 1);
  inModal([](QWidget& dialog) {
    EXPECT_EQ(fromQt(control<QLineEdit>(dialog, "2111").text()), "张三");
    control<QLineEdit>(dialog, "8052").setText("采购部");
    control<QLineEdit>(dialog, "2111").setText("赵六");
    click(dialog, "1");
  });
  window.OnCommand(50031);
  EXPECT_EQ(CountedReport::runs, 2);
  EXPECT_EQ(fromQt(combo(2207).currentText()), "采购部");
  EXPECT_EQ(fromQt(combo(2208).currentText()), "赵六");
}

TEST(ReportWindowStart, WithoutAccountsItSaysSoAndCloses) {
  const ReportLedger ledger(false);
  RecordedMessages messages;
  QPointer<ReportWindow> window = new ReportWindow(*findReport(10190), nullptr);
  EXPECT_FALSE(window->CreateTheDialog(nullptr));
  EXPECT_EQ(messages.takeLast(), "没有符合条件的科目!");
  deleteClosed();
  EXPECT_TRUE(window.isNull());
}

}  // namespace
}  // namespace tz::test
