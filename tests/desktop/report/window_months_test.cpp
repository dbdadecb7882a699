// Months above the table of a report: chosen, typed, picked by their keys; reference windows there; the last
// conditions.
#include <QMenu>

#include "core/reports/offers.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/query/condition_store.h"
#include "desktop/query/query_dialog.h"
#include "desktop/report/open_report.h"

namespace tz::test {
namespace {

class WindowMonths : public ::testing::Test {
 protected:
  static std::string period(const OpenReport& report) { return report.label("1007"); }
  static std::string months(const OpenReport& report) {
    return report.shown("monthFrom") + "-" + report.shown("monthTo");
  }

  ReportLedger ledger_;  // logged on in March
  RecordedMessages messages_;
};

TEST_F(WindowMonths, RecomputeLikeTheOtherCombos) {
  const OpenReport report(10190, ReportLedger::zhangSan());
  EXPECT_EQ(months(report), "2006.01-2006.03");
  expectNamed(report.window());
  const auto rows = report.rows();
  report.choose("monthFrom", "2006.02");
  EXPECT_EQ(period(report), "月份: 2006.2--2006.3");
  EXPECT_LT(report.rows(), rows);
  report.type("monthTo", "2");
  EXPECT_EQ(period(report), "月份: 2006.2--2006.2");
  report.type("monthTo", "13");
  QTest::keyClick(&report.combo("monthTo"), Qt::Key_Return);
  EXPECT_EQ(report.label("status"), "没有“13”，请从列表中选择。");
  QTest::keyClick(&report.combo("monthTo"), Qt::Key_Tab);
  EXPECT_EQ(months(report), "2006.02-2006.02");
}

TEST_F(WindowMonths, TheirKeysWorkEverywhereInTheWindow) {
  const OpenReport report(10190, ReportLedger::zhangSan());
  const auto press = [&](QWidget& at, Qt::Key key) {
    at.setFocus();
    QTest::keyClick(&at, key, Qt::AltModifier);
    return months(report) + " " + period(report);
  };
  EXPECT_EQ(press(report.window().Grid(), Qt::Key_1), "2006.03-2006.03 月份: 2006.3--2006.3");
  EXPECT_EQ(press(report.combo("2206"), Qt::Key_2), "2006.02-2006.02 月份: 2006.2--2006.2");
  EXPECT_EQ(press(report.combo("monthFrom"), Qt::Key_3), "2006.01-2006.03 月份: 2006.1--2006.3");
  EXPECT_EQ(press(report.window().Grid(), Qt::Key_4), "2006.01-2006.12 月份: 2006.1--2006.12");
  click(report.window(), "quickMonths");
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().first()).center());
  EXPECT_EQ(months(report), "2006.03-2006.03");
}

TEST_F(WindowMonths, AreThoseShownAgainWhenNothingComesOfOthers) {
  CountedReport counted;
  ReportWindow window(counted.definition, nullptr);
  ASSERT_TRUE(window.CreateTheDialog(nullptr));
  window.SetConditions(ReportLedger::zhangSan());
  window.RefreshDisplay();
  CountedReport::before = [](Session&) { throw DbError(DbError::Kind::other, "gone"); };
  auto& from = control<CUsefulCombox>(window, "monthFrom");
  from.setFocus();
  QTest::keyClick(&from, Qt::Key_Down);
  EXPECT_EQ(from.CurrentDatum(), 1);
  EXPECT_EQ(window.GetRequest().month(ParameterKey::from), 1);
  EXPECT_EQ(window.Shown()->report.paintedPeriod, "月份: 2006.1--2006.3");
}

// Before January there is no month; a report without months has none beside its combos.
TEST_F(WindowMonths, StandWhereTheReportAsksForThem) {
  g_tmLogonTime = {2006, 1, 31};
  for (const ReportDefinition* report : catalogue()) {
    SCOPED_TRACE(report->command);
    ReportWindow window(*report, nullptr);
    ASSERT_TRUE(window.CreateTheDialog(nullptr) || !messages_.all.empty());
    const bool asks = controlOf(report->dialog, ParameterKey::from) != nullptr;
    EXPECT_EQ(window.findChild<QWidget*>("monthFrom") != nullptr, asks);
  }
  const OpenReport report(10190, ReportLedger::zhangSan());
  EXPECT_FALSE(report.window().findChild<QAction*>("lastMonth")->isEnabled());
}

TEST_F(WindowMonths, WhatIsPickedAboveTheTableLeadsOn) {
  const OpenReport report(10190, ReportLedger::zhangSan());
  inModal([](QWidget& reference) {
    EXPECT_EQ(reference.windowTitle(), "科目参照");
    QTest::keyClicks(&control<QLineEdit>(reference, "search"), "yjk");
    QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return);
  });
  report.combo("2206").setFocus();
  QTest::keyClick(&report.combo("2206"), Qt::Key_F2);
  EXPECT_EQ(report.shown("2206"), "122105 样机款");
  report.type("2207", "cgb");
  EXPECT_EQ(report.shown("2207"), "采购部");
  EXPECT_EQ(report.window().focusWidget(), &report.combo("2208")) << "the person is asked for next";
  for (const char* left : {"2206", "2207"}) EXPECT_EQ(report.combo(left).lineEdit()->cursorPosition(), 0) << left;
  report.type("2208", "zl");
  EXPECT_NE(report.window().Shown()->report.subtitle.find("122105 样机款"), std::string::npos);
}

// What was last asked for in this ledger, by the dialog or above the table, is one key away in the next dialog.
TEST_F(WindowMonths, TheLastConditionsAreOfferedFirst) {
  const TempFolder folder;
  FileConditionStore store(folder.path() / "conditions.json", "甲帐套");
  {
    const OpenReport report(10190, ReportLedger::zhangSan());
    report.window().OfferSaved(store);
    EXPECT_FALSE(store.Last(10190));
    report.choose("monthTo", "2006.02");
    ASSERT_TRUE(store.Last(10190));
    EXPECT_EQ(store.Last(10190)->values(), report.window().GetRequest().values());
  }
  ReportWindow next(*findReport(10190), nullptr);
  next.OfferSaved(store);
  inModal([](QWidget& dialog) {
    EXPECT_EQ(control<QLineEdit>(dialog, "2111").text(), "") << "a new dialog opens as it always does";
    EXPECT_EQ(control<QComboBox>(dialog, "savedConditions").itemText(0), "上次条件");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return control<QLineEdit>(dialog, "2111").text() == "张三"; }));
    EXPECT_EQ(control<CUsefulCombox>(dialog, "2202").CurrentDatum(), 2);
    auto& thisMonth = control<QWidget>(dialog, "thisMonth");
    thisMonth.setFocus();
    QTest::keyClick(&thisMonth, Qt::Key_Right);
    EXPECT_EQ(dialog.focusWidget()->objectName(), "lastMonth");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Right);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(control<CUsefulCombox>(dialog, "2201").CurrentDatum(), 1);
    EXPECT_EQ(control<CUsefulCombox>(dialog, "2202").CurrentDatum(), 3);
    click(dialog, "thisYear");
    EXPECT_EQ(control<CUsefulCombox>(dialog, "2201").CurrentDatum(), 1);
    EXPECT_EQ(control<CUsefulCombox>(dialog, "2202").CurrentDatum(), 12);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_3, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return control<CUsefulCombox>(dialog, "2202").CurrentDatum() == 3; }));
    for (const auto* one : dialog.findChildren<CUsefulCombox*>()) {
      EXPECT_EQ(one->lineEdit()->hasSelectedText(), one->hasFocus()) << "only the field with the focus looks so";
    }
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return, Qt::ControlModifier);
  });
  EXPECT_TRUE(next.OnCommandQuery());
  EXPECT_EQ(store.Last(10190)->month(ParameterKey::to), 3);
  const FileConditionStore other(folder.path() / "conditions.json", "乙帐套");
  EXPECT_FALSE(other.Last(10190));
}

}  // namespace
}  // namespace tz::test
