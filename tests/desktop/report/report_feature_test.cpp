// A report that no family has, in the one window of every report: its own period, commands that its feature answers,
// and what its rows lead to. By mouse and keys.
#include "desktop/report/report_feature.h"

#include <QLabel>
#include <QTabBar>
#include <QToolBar>

#include "core/catalogue/catalogue.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/report/report_ledger.h"
#include "desktop/shell/launch.h"
#include "desktop/shell/navigator.h"
#include "support/made_report.h"

namespace tz::test {
namespace {

// Writes down what reaches it; answers what the test lets it answer.
class RecordingFeature : public ReportFeature {
 public:
  static inline QStringList heard;
  static inline bool answers = true;

  void Attach(ReportWindow& window) override {
    tabs_ = new QTabBar(&window);
    tabs_->addTab(QStringLiteral("日期"));
    window.Body().insertWidget(0, tabs_);
  }
  void AfterComputed(ShownReport& shown) override {
    heard.append(QStringLiteral("computed"));
    shown.report.grid.SetText(0, 0, "改过的");
  }
  [[nodiscard]] bool Answers(int command) const override {
    return command == static_cast<int>(WindowCommand::reverseClearing);
  }
  bool OnCommand(int id) override { return Hear(QStringLiteral("command %1").arg(id)); }
  bool OnActivated(qint64 row) override { return Hear(QStringLiteral("row %1").arg(row)); }
  bool OnClicked(qint64 row, int column) override { return Hear(QStringLiteral("click %1 %2").arg(row).arg(column)); }
  bool OnKey(QKeyEvent& event) override { return event.key() == Qt::Key_Space && Hear(QStringLiteral("space")); }

 private:
  static bool Hear(const QString& what) {
    heard.append(what);
    return answers;
  }
  QTabBar* tabs_ = nullptr;
};

constexpr const char* featureName = "recording";

class FeatureTest : public ::testing::Test {
 protected:
  FeatureTest() {
    RecordingFeature::heard.clear();
    RecordingFeature::answers = true;
    registerFeature(featureName, [] { return std::make_unique<RecordingFeature>(); });
    made_ = madeReport();
    launcher_.emplace(everybody(), [](int command) { return command == made_.command ? &made_ : findReport(command); });
  }
  ~FeatureTest() override {
    launcher_->CloseAll();
    deleteClosed();
  }

  ReportWindow& open() {
    auto* window = launcher_->LaunchFromReport({made_.command, atMonthsEnd()}, nullptr);
    EXPECT_TRUE(waitActive(window));
    return *window;
  }
  static void press(ReportWindow& window, WindowCommand command) {
    QTest::mouseClick(window.ToolBar().widgetForAction(window.ActionOf(static_cast<int>(command))), Qt::LeftButton);
  }
  static QAction& button(const ReportWindow& window, WindowCommand command) {
    return *window.ActionOf(static_cast<int>(command));
  }
  // As a hand does it.
  static void doubleClick(const ReportWindow& window, std::int64_t row) {
    QTest::mouseClick(window.Grid().viewport(), Qt::LeftButton, {}, placeOf(window, row));
    QTest::mouseDClick(window.Grid().viewport(), Qt::LeftButton, {}, placeOf(window, row));
  }
  static QPoint placeOf(const ReportWindow& window, std::int64_t row) {
    return window.Grid().CellRect(row, 0).center();
  }

  static inline ReportDefinition made_;
  ReportLedger ledger_;
  CQnCwAssistantDlg navigator_{nullptr};
  std::optional<ReportLauncher> launcher_;
  RecordedMessages messages_;
};

TEST_F(FeatureTest, AReportWithoutMonthsShowsItsOwnPeriod) {
  ReportWindow& window = open();
  EXPECT_EQ(fromQt(control<QLabel>(window, "1007").text()), "截止 2006-03-31");
  EXPECT_EQ(fromQt(control<QLabel>(window, "1013").text()), "") << "told already";
  EXPECT_EQ(window.ListEntry(), "欠款一览 — 全部单位");
  window.close();
  made_.period = noPeriod;
  ReportWindow& without = open();
  EXPECT_TRUE(control<QLabel>(without, "1007").isHidden());
  EXPECT_EQ(fromQt(control<QLabel>(without, "1013").text()), "截止日期: 2006-03-31");
}

TEST_F(FeatureTest, CommandsWithoutAnAnswerArePaleAndSayWhy) {
  ReportWindow& window = open();
  for (const auto command : {WindowCommand::reverseClearing, WindowCommand::detail, WindowCommand::planView}) {
    EXPECT_FALSE(button(window, command).isEnabled());
    EXPECT_TRUE(button(window, command).toolTip().endsWith("：尚未提供"));
  }
  for (const auto command : {WindowCommand::exportFile, WindowCommand::query, WindowCommand::close}) {
    EXPECT_TRUE(button(window, command).isEnabled());
  }
  QTest::keyClick(&window.Grid(), Qt::Key_Return);
  doubleClick(window, 1);
  EXPECT_EQ(launcher_->Windows().size(), 1) << "its rows lead nowhere";
  EXPECT_TRUE(messages_.all.empty());
}

TEST_F(FeatureTest, AFeatureSeesClicksKeysRowsAndCommands) {
  made_.feature = featureName;
  ReportWindow& window = open();
  EXPECT_EQ(RecordingFeature::heard, QStringList{"computed"});
  EXPECT_EQ(fromQt(window.Grid().ShownText(0, 0)), "改过的") << "what it changes is what is shown";
  EXPECT_TRUE(window.findChild<QTabBar*>()->isVisible());
  EXPECT_TRUE(button(window, WindowCommand::reverseClearing).isEnabled());
  EXPECT_EQ(button(window, WindowCommand::reverseClearing).text(), "反两清");
  EXPECT_FALSE(button(window, WindowCommand::planView).isEnabled());

  RecordingFeature::heard.clear();
  press(window, WindowCommand::reverseClearing);
  QTest::mouseClick(window.Grid().viewport(), Qt::LeftButton, {}, placeOf(window, 2));
  QTest::keyClick(&window.Grid(), Qt::Key_Space);
  QTest::keyClick(&window.Grid(), Qt::Key_Return);
  doubleClick(window, 1);
  EXPECT_EQ(RecordingFeature::heard,
            (QStringList{"command 50029", "click 2 0", "space", "row 2", "click 1 0", "row 1"}))
      << fromQt(RecordingFeature::heard.join(", "));
  RecordingFeature::heard.clear();
  press(window, WindowCommand::close);
  EXPECT_EQ(RecordingFeature::heard, QStringList{"command 50010"});
  EXPECT_TRUE(window.isVisible()) << "answered instead of the window";
}

TEST_F(FeatureTest, WhatAFeatureLeavesTheWindowDoes) {
  made_.feature = featureName;
  RecordingFeature::answers = false;
  ReportWindow& window = open();
  QTest::keyClick(&window.Grid(), Qt::Key_Down);
  EXPECT_EQ(window.Grid().Current(), (GridCell{1, 0}));
  press(window, WindowCommand::close);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(FeatureTest, ARowLeadsWhereTheRecordSays) {
  made_.detail = {.reports = {10190},
                  .checks = {{.passes = [](const DrillPlace& place) { return place.row > 0; },
                              .message = messages::noMatchingAccount}},
                  .target = [](const DrillRule& rule, const DrillPlace& place) -> DrillAnswer {
                    Request person = ReportLedger::zhangSan();
                    if (place.shown.grid.TextAt(place.row, 0) == "丙公司") person.set(ParameterKey::to, "1");
                    return DetailTarget{.command = rule.reports[0], .conditions = person};
                  }};
  ReportWindow& window = open();
  EXPECT_TRUE(button(window, WindowCommand::detail).isEnabled());
  const auto led = [&]() -> const ReportWindow* { return qobject_cast<ReportWindow*>(launcher_->SlotOf(10190)); };

  doubleClick(window, 1);
  ASSERT_NE(led(), nullptr);
  EXPECT_EQ(led()->Shown()->report.period, "月份: 2006.01 - 2006.03");
  const auto* first = led();
  for (const auto& go : std::vector<std::function<void()>>{
           [&] { QTest::keyClick(&window.Grid(), Qt::Key_Return); },
           [&] { QTest::keyClick(&window.Grid(), Qt::Key_D, Qt::ControlModifier); },
           [&] { press(window, WindowCommand::detail); },
           [&] {
             QTest::keyClick(&window.Grid(), Qt::Key_Menu);
             QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_D);
           },
       }) {
    launcher_->LaunchFromReport({10190, ReportLedger::zhangSan()}, nullptr);
    window.activateWindow();
    ASSERT_TRUE(waitActive(&window));
    window.Grid().setFocus();
    window.Grid().SetCurrent(2, 0);
    go();
    EXPECT_EQ(led(), first) << "the window that is open is taken";
    EXPECT_EQ(led()->Shown()->report.period, "月份: 2006.01 - 2006.01");
  }
  EXPECT_TRUE(messages_.all.empty());
  doubleClick(window, 0);
  EXPECT_EQ(messages_.takeLast(), "没有符合条件的科目!");
  EXPECT_EQ(launcher_->Windows().size(), 2);
  window.close();
  made_.compute = [](const ReportDefinition& report, Session& session, const Conditions& conditions,
                     ComputedReport& computed) {
    fillMadeGrid(report, session, conditions, computed);
    computed.grid.SetRows(0);
  };
  press(open(), WindowCommand::detail);
  EXPECT_EQ(messages_.takeLast(), "没有符合条件的科目!") << "without rows the record has its word to say as well";
}

TEST(ReportFeatures, EveryReportsFeatureIsRegistered) {
  for (const ReportDefinition* report : catalogue()) {
    EXPECT_TRUE(report->feature.empty() || makeFeature(report->feature) != nullptr) << report->command;
  }
  EXPECT_EQ(makeFeature("nobody's"), nullptr);
}

}  // namespace
}  // namespace tz::test
