// What a person chooses in the combos above a report: departments before persons, accounts of another class, members of
// one name, text that stands for nothing.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolBar>

#include "desktop/gridview/grid_view.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/condition_store.h"
#include "desktop/report/open_report.h"
#include "support/namesakes.h"

namespace tz::test {
namespace {

class ChosenConditions : public ::testing::Test {
 protected:
  ReportLedger ledger_;
  RecordedMessages messages_;
};

TEST_F(ChosenConditions, HoweverManyDepartmentsTheTableWaitsForAPerson) {
  for (const int command : {10188, 10190}) {
    SCOPED_TRACE(command);
    Request request = ReportLedger::zhangSan();
    if (command == 10188) request.clear(ParameterKey::account);
    const OpenReport report(command, request);
    EXPECT_TRUE(report.enabled(WindowCommand::exportFile));
    for (const char* dept : {"采购部", "财务部", "采购部"}) {
      report.choose("2207", dept);
      EXPECT_EQ(report.shown("2207"), dept);
      EXPECT_EQ(report.shown("2208"), "");
      EXPECT_EQ(report.rows(), 0);
      EXPECT_EQ(report.label("status"), "请选择个人");
      EXPECT_FALSE(report.enabled(WindowCommand::exportFile));
    }
    EXPECT_EQ(report.window().GetRequest().text(ParameterKey::dept), "采购部");
    report.window().OnCommand(static_cast<int>(WindowCommand::exportFile));  // opens nothing
    report.choose("2208", "赵六");
    EXPECT_GT(report.rows(), 0);
    EXPECT_TRUE(report.enabled(WindowCommand::exportFile));
    EXPECT_EQ(messages_.takeLast(), "");
  }
}

TEST_F(ChosenConditions, TheOtherCombosWorkWhileTheTableWaits) {
  ledger_.ledger().fill("AssAcc", R"(
      lId | lCodeId | lDeptId | lPersonId | byPeroid | mBegin
      9   | 3       | 2       | 3         | 1        | 33 )");
  const OpenReport report(10190, ReportLedger::zhangSan());
  report.choose("2207", "采购部");
  report.choose("2206", "122105 样机款");
  report.choose("2201", "外币金额式");
  EXPECT_EQ(report.rows(), 0);
  EXPECT_EQ(report.label("status"), "请选择个人");
  EXPECT_EQ(messages_.takeLast(), "");
  report.choose("2208", "赵六");
  EXPECT_EQ(report.window().Shown()->report.format, AmountFormat::foreignAmount);
  EXPECT_NE(report.window().Shown()->report.subtitle.find("122105 样机款"), std::string::npos);
  EXPECT_EQ(report.window().Shown()->report.grid.NumberAt(0, 11), 33);
}

// Somebody without movements is refused; the table waits on, with what was chosen.
TEST_F(ChosenConditions, ARefusedPersonLeavesTheTableWaiting) {
  ledger_.ledger().fill("Person", "lId | sPersonId | sName | lDeptId\n 7 | P7 | 钱七 | 2");
  const OpenReport report(10190, ReportLedger::zhangSan());
  report.choose("2207", "采购部");
  report.type("2208", "钱七");
  EXPECT_EQ(messages_.takeLast(), "没有查到该部门此人的发生额");
  EXPECT_EQ(report.shown("2207"), "采购部");
  EXPECT_EQ(report.shown("2208"), "");
  EXPECT_EQ(report.rows(), 0);
  EXPECT_EQ(report.label("status"), "请选择个人");
  EXPECT_FALSE(report.enabled(WindowCommand::exportFile));
  report.choose("2208", "赵六");
  EXPECT_EQ(report.opening(), 700);
}

TEST_F(ChosenConditions, TextThatStandsForNothingChangesNothingAndSaysSo) {
  const OpenReport report(10190, ReportLedger::zhangSan());
  const Request before = report.window().GetRequest();
  report.type("2206", "9999");
  QTest::keyClick(&report.combo("2206"), Qt::Key_Return);
  EXPECT_EQ(report.label("status"), "没有“9999”，请从列表中选择。");
  EXPECT_EQ(report.shown("2206"), "9999");
  QTest::keyClick(&report.combo("2206"), Qt::Key_Tab);
  EXPECT_EQ(report.label("status"), "没有选定“9999”，条件不变。");
  EXPECT_EQ(report.shown("2206"), "122101 职工借款");
  report.type("2208", "没有的人");
  QTest::keyClick(&report.combo("2208"), Qt::Key_Escape);
  EXPECT_EQ(report.shown("2208"), "张三");
  EXPECT_TRUE(report.window().isVisible());
  EXPECT_EQ(report.window().GetRequest().values(), before.values());
  EXPECT_EQ(messages_.takeLast(), "");
}

// The format that was chosen belongs to the account, whether this was chosen in a dialog or above the table.
TEST_F(ChosenConditions, TheFormatOutlivesAQueryAfterAnAccountWasChosen) {
  const OpenReport report(10190, ReportLedger::zhangSan());
  report.choose("2206", "122105 样机款");
  report.choose("2201", "金额式");
  inModal([](QWidget& dialog) { click(dialog, "1"); });
  report.window().OnCommand(static_cast<int>(WindowCommand::query));
  EXPECT_EQ(report.window().Shown()->report.format, AmountFormat::amount);
  EXPECT_EQ(report.shown("2206"), "122105 样机款");
}

// A ledger of one's own, open for the windows.
class WindowLedger : public ::testing::Test {
 protected:
  void open() {
    db_.Open(ledger_.address());
    g_pDB = &db_;
    g_lpszQnZwDBName = ledger_.address();
    g_tmLogonTime = {2006, 1, 31};
  }
  ~WindowLedger() override { g_pDB = nullptr; }
  [[nodiscard]] static Request request(std::vector<std::pair<ParameterKey, std::string_view>> values) {
    Request request;
    for (const auto& [key, value] : values) request.set(key, value);
    return request;
  }

  TestLedger ledger_{Engine::sqlite};
  CQnCwDB db_{Access::report};
  RecordedMessages messages_;
};

using Namesakes = WindowLedger;
using Key = ParameterKey;

TEST_F(Namesakes, TheOneThatIsChosenIsShownAndStays) {
  fillNamesakes(ledger_);
  open();
  const OpenReport report(10190, request({{Key::account, "1221"}, {Key::dept, "销售部"}, {Key::person, "李明"}}));
  EXPECT_EQ(report.shown("2207"), "D2 销售部");
  EXPECT_EQ(report.opening(), 40);
  report.choose("2207", "D1 销售部");
  EXPECT_EQ(report.combo("2208").count(), 3);
  for (const auto& [person, figure] : {std::pair{"0301 李明", 20.0}, {"0302 李明", 10.0}, {"0301 李明", 20.0}}) {
    report.choose("2208", person);
    EXPECT_EQ(report.opening(), figure);
    EXPECT_EQ(report.shown("2208"), person);
  }
  inModal([](QWidget& dialog) {
    EXPECT_EQ(fromQt(control<QLineEdit>(dialog, "8052").text()), "D1 销售部");
    EXPECT_EQ(fromQt(control<QLineEdit>(dialog, "2111").text()), "0301 李明");
    click(dialog, "1");
  });
  report.window().OnCommand(static_cast<int>(WindowCommand::query));
  EXPECT_EQ(report.opening(), 20);
  EXPECT_EQ(report.shown("2208"), "0301 李明");
  EXPECT_EQ(messages_.takeLast(), "");
}

// Picked in the reference windows of the dialog; then typed over.
TEST_F(Namesakes, TheOneThatIsPickedIsThatRecordUntilAnotherIsTyped) {
  fillNamesakes(ledger_);
  open();
  const auto pick = [](QWidget& dialog, const char* button, const char* code) {
    inModal([code](QWidget& reference) {
      QTest::keyClicks(&control<QLineEdit>(reference, "search"), code);
      QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return);
    });
    click(dialog, button);
  };
  const OpenReport units(10208, request({{Key::account, "1122"}, {Key::unit, "江源"}}));
  EXPECT_EQ(units.opening(), 100);
  EXPECT_EQ(units.shown("2212"), "K02 江源");
  inModal([&](QWidget& dialog) {
    pick(dialog, "2028", "K01");
    EXPECT_EQ(fromQt(control<QLineEdit>(dialog, "2115").text()), "K01 江源");
    click(dialog, "1");
  });
  units.window().OnCommand(static_cast<int>(WindowCommand::query));
  EXPECT_EQ(units.opening(), 200);
  EXPECT_EQ(units.shown("2212"), "K01 江源");
  inModal([](QWidget& dialog) {
    auto& name = control<QLineEdit>(dialog, "2115");
    name.selectAll();
    enterText(name, "江源");
    click(dialog, "1");
  });
  units.window().OnCommand(static_cast<int>(WindowCommand::query));
  EXPECT_EQ(units.opening(), 100);

  const OpenReport persons(10190, request({{Key::account, "1221"}, {Key::dept, "销售部"}, {Key::person, "李明"}}));
  inModal([&](QWidget& dialog) {
    pick(dialog, "2007", "0301");
    EXPECT_EQ(fromQt(control<QLineEdit>(dialog, "8052").text()), "D1 销售部");
    EXPECT_EQ(fromQt(control<QLineEdit>(dialog, "2111").text()), "0301 李明");
    click(dialog, "1");
  });
  persons.window().OnCommand(static_cast<int>(WindowCommand::query));
  EXPECT_EQ(persons.opening(), 20);
  EXPECT_EQ(messages_.takeLast(), "");
}

TEST_F(Namesakes, ItemsArePickedToo) {
  fillNamesakes(ledger_);
  open();
  const OpenReport report(10221,
                          request({{Key::account, "1604"}, {Key::projectClass, "RD"}, {Key::project, "新机型"}}));
  EXPECT_EQ(report.opening(), 1000);
  inModal([](QWidget& dialog) {
    inModal([](QWidget& reference) {
      QTest::keyClicks(&control<QLineEdit>(reference, "search"), "R1");
      QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return);
    });
    click(dialog, "2015");
    EXPECT_EQ(fromQt(control<QLineEdit>(dialog, "2117").text()), "R1 新机型");
    click(dialog, "1");
  });
  report.window().OnCommand(static_cast<int>(WindowCommand::query));
  EXPECT_EQ(report.opening(), 2000);
}

// Chosen above the table, in the list of a dialog, or kept when its name was still its own.
TEST_F(Namesakes, AnEntryOfAListIsThatRecordWhereverItIsChosen) {
  fillNamesakes(ledger_);
  ledger_.fill("AssAcc", R"(
      lId | lCodeId | lDeptId | lEnterId | byPeroid | mBegin
      8   | 2       | 11      | 1        | 1        | 111
      9   | 2       | 12      | 1        | 1        | 222)");
  open();
  const auto balance = [](const OpenReport& report) { return report.window().Shown()->report.grid.NumberAt(1, 6); };
  const OpenReport report(10206, request({{Key::account, "1122"}, {Key::dept, "销售部"}}));
  EXPECT_EQ(report.shown("2207"), "D2 销售部");
  EXPECT_EQ(balance(report), 111);
  report.choose("2207", "D1 销售部");
  EXPECT_EQ(balance(report), 222);
  inModal([](QWidget& dialog) {
    EXPECT_EQ(control<CUsefulCombox>(dialog, "2207").CurrentText(), "D1 销售部");
    QTest::keyClick(&control<CUsefulCombox>(dialog, "2207"), Qt::Key_Down);
    click(dialog, "1");
  });
  report.window().OnCommand(static_cast<int>(WindowCommand::query));
  EXPECT_EQ(balance(report), 111);
  EXPECT_EQ(report.shown("2207"), "D2 销售部");

  const TempFolder folder;
  FileConditionStore store(folder.path() / "conditions.json");
  Request kept = report.window().GetRequest();
  kept.choose(Key::dept, {"销售部", 12});
  store.Save(10206, "甲", kept);
  const OpenReport again(10206, store.Load(10206, "甲"));
  EXPECT_EQ(balance(again), 222);
  EXPECT_EQ(again.shown("2207"), "D1 销售部");
  EXPECT_EQ(messages_.takeLast(), "");
}

using AccountsOfClasses = WindowLedger;

// The class of the other account stands below the title, and nothing of the range is left.
TEST_F(AccountsOfClasses, AnAccountOfAnotherClassTakesItsOwn) {
  ledger_.fill("Code", R"(
      lId | sCode  | sName | bEnd | bDirect | sAssBook
      1   | 160401 | 厂房  | 1    | 1       | CD
      2   | 160402 | 软件  | 1    | 1       | CD
      3   | 160403 | 共用  | 1    | 1       | CD)");
  ledger_.fill("ProjClass", "lId | sItemId | sName\n 1 | 01 | 工程\n 2 | RD | 研发");
  ledger_.fill("ProjItems", R"(
      lId | sItemId | nField | sTitle   | sType
      1   | 01      | 0      | 项目编号 | 3
      2   | 01      | 1      | 项目名称 | 3
      3   | RD      | 0      | 项目编号 | 3
      4   | RD      | 1      | 项目名称 | 3)");
  for (const char* one : {"01", "RD"}) ledger_.makeItemTable(one);
  ledger_.fill("ProjItems01", "lId | FIELD0 | FIELD1\n 1 | 001 | 一号厂房");
  ledger_.fill("ProjItemsRD", "lId | FIELD0 | FIELD1\n 1 | R1 | 新机型");
  ledger_.fill("ProjCodes", "lId | sItemId | lCodeId\n 1 | 01 | 1\n 2 | RD | 2\n 3 | 01 | 3\n 4 | RD | 3");
  open();
  for (const int command : {10219, 10222}) {
    SCOPED_TRACE(command);
    const OpenReport report(
        command,
        request(
            {{Key::account, "160401"}, {Key::projectClass, "01"}, {Key::projectFrom, "001"}, {Key::projectTo, "001"}}));
    EXPECT_EQ(report.label("1013"), "项目大类: 工程    项目范围: 001 至 001");
    report.choose("2206", "160402 软件");
    EXPECT_EQ(messages_.takeLast(), "");
    EXPECT_EQ(report.label("status").find("--"), std::string::npos);
    EXPECT_EQ(report.shown("2206"), "160402 软件");
    EXPECT_EQ(report.label("1013"), "项目大类: 研发");
    report.choose("2206", "160403 共用");
    EXPECT_EQ(report.label("1013"), "项目大类: 研发") << "a class that the account carries too stays";
  }
}

}  // namespace
}  // namespace tz::test
