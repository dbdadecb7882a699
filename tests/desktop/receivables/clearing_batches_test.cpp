// What changes many marks in the windows of two-clearing: automatic matching, reversing and taking back; and the
// balance check over what is marked.
#include <QProgressBar>

#include "desktop/manual/open_manual.h"
#include "desktop/receivables/clearing_dialogs.h"
#include "desktop/receivables/clearing_ledger.h"

namespace tz::test {
namespace {

class ClearingBatches : public ::testing::Test {
 protected:
  static std::string summary(const QWidget& dialog) { return fromQt(control<QLabel>(dialog, "summary").text()); }

  ClearingLedger ledger_;
  RecordedMessages messages_;
};

TEST_F(ClearingBatches, MatchingTellsWhatItClearedAndIsTakenBack) {
  const ClearingWindow at(unitClearing);
  at.view().SetCurrent(1, 3);
  inWindowOf("自动勾对结果", [&](QWidget& dialog) {
    EXPECT_EQ(at.marks(), "○○○") << "refreshed before";
    const auto& result = control<GridView>(dialog, "8310");
    EXPECT_EQ(fromQt(result.ShownText(0, 0)), "货款(112201)");
    EXPECT_EQ(fromQt(result.ShownText(0, 2)), "");
    EXPECT_EQ(fromQt(result.ShownText(0, 3)), "3");
    EXPECT_EQ(fromQt(result.ShownText(1, 0)), "运费(112202)");
    EXPECT_EQ(fromQt(result.ShownText(1, 3)), "");
    EXPECT_EQ(summary(dialog), "共勾对 3 条分录。");
    expectNamed(dialog);
    click(dialog, "1");
  });
  at.press(WindowCommand::matchLines);
  EXPECT_EQ(at.view().Current(), (GridCell{1, 3})) << "the place stays";
  inWindowOf("自动勾对结果", [](QWidget& dialog) {
    EXPECT_EQ(summary(dialog), "没有可以勾对的分录。");
    click(dialog, "1");
  });
  at.key(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);

  messages_.answer = false;
  at.key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(at.marks(), "○○○");
  const auto asked = messages_.all.back();
  EXPECT_TRUE(asked.asks() && asked.defaultsToNo);
  for (const auto* const part : {"王会计", "自动勾对（单位往来）", "3 条分录"}) {
    EXPECT_NE(asked.text.find(part), std::string::npos) << asked.text;
  }
  messages_.answer = true;
  messages_.all.clear();
  at.press(WindowCommand::undoMarks);
  EXPECT_EQ(messages_.all.size(), 1U) << "asked once";
  EXPECT_EQ(at.marks(), "---");
  EXPECT_EQ(at.label("status"), "已恢复 3 条分录原来的标记");
  at.press(WindowCommand::undoMarks);
  EXPECT_EQ(messages_.takeLast(), "没有可以撤销的两清标记");
}

TEST_F(ClearingBatches, ReversingReachesEveryPersonAndNoUnit) {
  const ClearingWindow at(personClearing);
  messages_.answer = false;
  at.press(WindowCommand::reverseClearing);
  EXPECT_EQ(messages_.all.back().text, "是否对所有个人往来业务进行反两清?");
  EXPECT_EQ(messages_.all.back().icon, MessageIcon::information);
  EXPECT_EQ(ledger_.marks(), "3:2\n4:1\n14:1\n");
  messages_.answer = true;
  at.key(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(ledger_.marks(), "14:1\n") << "李四 too, the unit not";
  EXPECT_EQ(at.marks(), "---");
  EXPECT_EQ(at.label("status"), "已取消 2 条分录的两清标记");
  at.press(WindowCommand::undoMarks);
  EXPECT_EQ(ledger_.marks(), "3:2\n4:1\n14:1\n");
  EXPECT_EQ(at.marks(), "--○");

  const ClearingWindow unit(unitClearing);
  messages_.answer = false;
  unit.press(WindowCommand::reverseClearing);
  EXPECT_EQ(messages_.all.back().text, "是否对所有单位往来业务进行反两清?");
  EXPECT_EQ(messages_.all.back().icon, MessageIcon::question);
  EXPECT_EQ(messages_.all.back().caption, "岚川财务软件");
  EXPECT_TRUE(unit.window().ActionOf(50029)->toolTip().contains(QStringLiteral("所有单位")));
}

TEST_F(ClearingBatches, TheCheckComparesWhatIsMarked) {
  const ClearingWindow at(unitClearing);
  at.press(WindowCommand::checkClearing);
  EXPECT_EQ(messages_.all.back().caption, "岚川财务软件");
  EXPECT_EQ(messages_.takeLast(), "往来两清检查平衡");
  at.click(0, at.markColumn());
  at.click(2, at.markColumn());
  inModal([](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("单位两清往来检查"));
    const auto& told = control<GridView>(dialog, "8310");
    EXPECT_EQ(fromQt(told.ShownText(0, 0)), "金额不平");
    EXPECT_EQ(fromQt(told.ShownText(0, 1)), "30.00");
    EXPECT_EQ(fromQt(told.ShownText(0, 2)), "100.00");
    expectNamed(dialog);
    control<QAction>(dialog, "50009").trigger();
    ASSERT_NE(openManual(), nullptr);
    EXPECT_EQ(openManual()->Place(), (ManualPlace{QStringLiteral("clearing"), QStringLiteral("平衡检查")}));
    openManual()->close();
    control<QAction>(dialog, "50010").trigger();
  });
  at.key(Qt::Key_B, Qt::ControlModifier);
  at.click(1, at.markColumn());
  at.press(WindowCommand::checkClearing);
  EXPECT_EQ(messages_.takeLast(), "往来两清检查平衡");
}

// Runs a script in a window in the moment when it is shown.
class WhenShown : public QObject {
 public:
  WhenShown(QString title, std::function<void(QWidget&)> script)
      : title_(std::move(title)), script_(std::move(script)) {
    qApp->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override {
    auto* const window = qobject_cast<QDialog*>(receiver);
    if (event->type() == QEvent::Show && window != nullptr && window->windowTitle() == title_) script_(*window);
    return false;
  }

 private:
  QString title_;
  std::function<void(QWidget&)> script_;
};

TEST_F(ClearingBatches, MatchingStopsBetweenTwoParties) {
  ledger_.ledger().fill("Code", R"(
      lId | sCode  | sName  | bEnd | bDirect | sAssBook
      90  | 122109 | 备用金 | 1    | 1       | CA )");
  ledger_.ledger().fill("Person", "lId | sPersonId | sName | lDeptId\n 101 | N1 | 甲 | 1");
  ledger_.ledger().fill("RegSub", R"(
      lId | lTieId | lCodeId | lDeptId | lPersonId | mMoney | bDirect | sDigest | dtDate
      201 | 2      | 1       | 1       | 101       | 10     | 1       | 借还    | 2006-01-05
      202 | 2      | 1       | 1       | 101       | 10     | 0       | 借还    | 2006-01-05
      203 | 2      | 90      | 1       | 101       | 10     | 1       | 借还    | 2006-01-05
      204 | 2      | 90      | 1       | 101       | 10     | 0       | 借还    | 2006-01-05 )");
  const ClearingWindow at(personClearing);
  const WhenShown stopping(QStringLiteral("自动勾对"), [](QWidget& progress) {
    expectNamed(progress);
    auto& bar = control<QProgressBar>(progress, "8331");
    QObject::connect(&bar, &QProgressBar::valueChanged, &progress, [&progress](int accounts) {
      if (accounts != 1) return;
      EXPECT_EQ(fromQt(control<QLabel>(progress, "8330").text()), "备用金(122109)");
      click(progress, "2");
    });
  });
  inWindowOf("自动勾对结果", [](QWidget& result) {
    EXPECT_NE(summary(result).find("勾对已停止"), std::string::npos) << summary(result);
    click(result, "1");
  });
  at.press(WindowCommand::matchLines);
  EXPECT_EQ(ledger_.ledger().rows("SELECT lId, byFlag FROM RegSub WHERE lId > 200 ORDER BY lId"),
            "201|2\n202|2\n203|0\n204|0\n")
      << "the party at hand is matched wholly, the next one not at all";
}

TEST_F(ClearingBatches, AResultOfManyAccountsFitsASmallScreenAndSaysWhatIsTrue) {
  constexpr int accounts = 40, smallScreen = 340;
  MatchOutcome outcome;
  outcome.accounts.resize(accounts);
  outcome.stopped = true;
  MatchResultDialog dialog(outcome, nullptr);
  dialog.show();
  EXPECT_LT(dialog.minimumSizeHint().height(), smallScreen);
  EXPECT_GT(dialog.height(), smallScreen) << "where there is room it is taken";
  EXPECT_EQ(summary(dialog), "没有勾对分录。勾对已停止，其余的没有勾对。") << "there may be lines to match";
}

}  // namespace
}  // namespace tz::test
