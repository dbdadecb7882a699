// tzassistant operator: the first operator, his rights and passwords, what is refused, and who may do it.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>

#include "cli/full_disk.h"
#include "cli/small_company.h"
#include "core/catalogue/catalogue.h"
#include "core/operators/right_table.h"
#include "support/terminal_run.h"

namespace tz::test {
namespace {

using Words = std::vector<std::string>;
using Json = nlohmann::json;

const std::string keeperPassword = "主管的口令相当长";
const std::string hostileName = "O'Brien'; DROP TABLE Plan --";

class OperatorCommand : public DatabaseTest {
 protected:
  OperatorCommand() { fillSmallCompany(ledger_.keeper()); }

  [[nodiscard]] ProgramRun run(Words words, const Words& settings = {}) const {
    words.insert(words.begin(), "operator");
    words.insert(words.end(), {"--ledger", ledger_.address()});
    return runProgram(words, settings);
  }
  // In the name of the first operator.
  [[nodiscard]] ProgramRun keep(Words words, const std::string& newPassword = "新口令新口令新口令") const {
    words.insert(words.end(), {"--operator", "主管"});
    return run(words, {"TZ_PASSWORD=" + keeperPassword, "TZ_NEW_PASSWORD=" + newPassword});
  }
  void addKeeper() {
    const auto added = run({"add", " 主管　", "--all"}, {"TZ_NEW_PASSWORD=" + keeperPassword});
    ASSERT_EQ(added.status, 0) << added.err;
  }
  [[nodiscard]] Json operators() const { return Json::parse(keep({"list", "--as", "json"}).out); }
  // Refused with these words, and the ledger is as it was.
  void expectRefused(const Words& words, const std::string& why, int status = 1,
                     const std::string& newPassword = "新口令新口令新口令") {
    const auto before = tables();
    const auto refused = keep(words, newPassword);
    EXPECT_EQ(refused.status, status) << refused.err;
    EXPECT_EQ(refused.out, "");
    EXPECT_NE(refused.err.find(why), std::string::npos) << refused.err;
    EXPECT_EQ(tables(), before);
  }
  std::string tables() {
    return ledger_.rows("SELECT lId, sName, sPassHash, bAll FROM zOperator ORDER BY lId") +
           ledger_.rows("SELECT lOperatorId, nRight FROM zRight ORDER BY lOperatorId, nRight");
  }

  TestLedger ledger_{GetParam()};
};

TEST_P(OperatorCommand, FromTheFirstOperatorToTheLast) {
  EXPECT_EQ(run({"list", "--as", "json"}).out, "[]\n");
  const auto partial = run({"add", "王芳", "--right", "4"}, {"TZ_NEW_PASSWORD=" + keeperPassword});
  EXPECT_EQ(partial.status, 1);
  EXPECT_NE(partial.err.find("第一个操作员必须有全部权限"), std::string::npos) << partial.err;
  EXPECT_EQ(tables(), "");
  addKeeper();
  EXPECT_EQ(smallReport(ledger_.address()).status, 4) << "from now on somebody has to say who he is";

  EXPECT_EQ(keep({"add", hostileName, "--right", "单位往来", "--right", "个人往来_三栏明细帐", "--right", "13"}).status,
            0);
  auto all = operators();
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0]["name"], "主管") << "without the blanks around it";
  EXPECT_EQ(all[0]["all"], true);
  EXPECT_EQ(all[1]["name"], hostileName);
  EXPECT_EQ(all[1]["rights"], (Json{4, 13, 77, 78, 79, 80, 81}));
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM Plan"), "0\n");

  const auto report = [&](const std::string& name, const std::string& password) {
    return smallReport(ledger_.address(), {"--operator", name}, {"TZ_PASSWORD=" + password}).status;
  };
  EXPECT_EQ(report(hostileName, "新口令新口令新口令"), 0);
  EXPECT_EQ(keep({"rights", hostileName, "--take", "4", "--take", "单位往来", "--give", "个人往来余额表"}).status, 0);
  EXPECT_EQ(operators()[1]["rights"], (Json{3, 13}));
  EXPECT_EQ(report(hostileName, "新口令新口令新口令"), 4);
  const auto shown = Json::parse(keep({"rights", hostileName, "--as", "json"}).out);
  for (const auto& right : shown["rights"]) {
    EXPECT_EQ(right["granted"], right["number"] == 3 || right["number"] == 13) << right.dump();
  }

  EXPECT_EQ(keep({"rename", hostileName, "王芳"}).status, 0);
  // His own password he changes himself, without any right.
  const auto own = run({"password", "王芳"}, {"TZ_PASSWORD=新口令新口令新口令", "TZ_NEW_PASSWORD=王芳自己的新口令"});
  EXPECT_EQ(own.status, 0) << own.err;
  EXPECT_EQ(own.out.find("自己的新口令"), std::string::npos);
  EXPECT_EQ(keep({"rights", "王芳", "--all"}).status, 0);
  EXPECT_EQ(report("王芳", "王芳自己的新口令"), 0);
  EXPECT_EQ(report("王芳", "新口令新口令新口令"), 4);
  EXPECT_EQ(keep({"password", "王芳"}, "又一个新口令了呢").status, 0);
  EXPECT_EQ(report("王芳", "又一个新口令了呢"), 0);
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM zOperator WHERE sPassHash LIKE '$argon2id$%'"), "2\n");

  EXPECT_EQ(keep({"remove", "王芳"}).status, 0);
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM zRight"), "0\n");
  expectRefused({"remove", "主管"}, "回答“删除”请加 --yes");
  EXPECT_EQ(keep({"remove", "主管", "--yes"}).status, 0);
  EXPECT_EQ(smallReport(ledger_.address()).status, 0) << "open to everyone again";
  const auto check = runProgram({"ledger", "check", ledger_.address()});
  EXPECT_EQ(check.out.find("zOperator"), std::string::npos) << check.out;
  EXPECT_EQ(check.out.find("zRight"), std::string::npos) << check.out;
}

TEST_P(OperatorCommand, RefusesWhatCannotBeKept) {
  addKeeper();
  ASSERT_EQ(keep({"add", "王芳", "--right", "4"}).status, 0);
  expectRefused({"add", " 王芳 "}, "已经有操作员“王芳”");
  expectRefused({"add", " 　"}, "姓名不能是空白");
  expectRefused({"add", "王\n芳"}, "不能显示的字符");
  expectRefused({"add", std::string(123, 'x')}, "最多 40 个字");
  expectRefused({"add", "李明"}, "口令太短：至少 8 个字", 1, "七个字的口令啊");
  expectRefused({"add", "李明"}, "口令不能是空白", 1, "");
  expectRefused({"add", "一二三四五六七八"}, "口令不能与姓名相同", 1, "一二三四五六七八");
  expectRefused({"add", "李明", "--right", "科目明细帐"}, "个人往来明细帐（4 号）、部门明细帐（11 号）");
  expectRefused({"add", "李明", "--right", "2"}, "没有权限“2”");
  expectRefused({"rights", "王芳", "--give", "' OR 1=1 --"}, "没有权限“' OR 1=1 --”");
  expectRefused({"rights", "王芳", "--give", "4", "--take", "个人往来"}, "已由 --give 给予", 2);
  expectRefused({"rights", "没有", "--give", "4"}, "可用：主管、王芳");
  expectRefused({"rename", "王芳", "主管"}, "已经有操作员“主管”");
  expectRefused({"password", "王芳"}, "口令太短", 1, "短");
  expectRefused({"remove", "主管"}, "总要留下一个有全部权限");
  expectRefused({"remove", "主管", "--yes"}, "总要留下一个有全部权限");
  expectRefused({"rights", "主管", "--not-all"}, "总要留下一个有全部权限");
}

TEST_P(OperatorCommand, IsForWhoeverHasEveryRight) {
  addKeeper();
  ASSERT_EQ(keep({"add", "王芳", "--right", "个人往来"}).status, 0);
  const auto before = tables();
  for (const Words& words : {Words{"list"},
                             {"add", "李明"},
                             {"rights", "王芳", "--all"},
                             {"rights", "王芳"},
                             {"rename", "主管", "李明"},
                             {"password", "主管"},
                             {"remove", "主管"}}) {
    auto asked = words;
    asked.insert(asked.end(), {"--operator", "王芳"});
    const auto refused = run(asked, {"TZ_PASSWORD=新口令新口令新口令", "TZ_NEW_PASSWORD=另一个口令了吧吧"});
    EXPECT_EQ(refused.status, 4) << words[0];
    EXPECT_EQ(refused.out, "");
    EXPECT_NE(refused.err.find("没有全部权限"), std::string::npos) << refused.err;
    EXPECT_EQ(run(words, {"TZ_NEW_PASSWORD=另一个口令了吧吧"}).status, 4) << "nobody says who he is";
  }
  const auto wrong = run({"password", "王芳"}, {"TZ_PASSWORD=不对", "TZ_NEW_PASSWORD=另一个口令了吧吧"});
  EXPECT_EQ(wrong.status, 4) << "his own, but he does not know it";
  EXPECT_EQ(tables(), before);
}

TEST_P(OperatorCommand, WhoMayNotWriteIsToldSo) {
  addKeeper();
  if (!onServer()) {
    {
      const Transaction writing(ledger_.keeper(), Transaction::Purpose::writing);
      expectRefused({"add", "李明"}, "帐套正被其他程序占用", 3);
    }
    const FullDisk disk(33'000);
    const auto full = keep({"add", "李明"});
    EXPECT_EQ(full.status, 3);
    EXPECT_NE(full.err.find("磁盘"), std::string::npos) << full.err;
    EXPECT_EQ(operators().size(), 1U);
    return;
  }
  ledger_.keeper().execute("CREATE ROLE tz_clerk LOGIN");
  ledger_.keeper().execute("GRANT tzassistant_report TO tz_clerk");
  const auto address = ledger_.place().addressAs("tz_clerk");
  const auto denied = runProgram({"operator", "add", "李明", "--ledger", address, "--operator", "主管"},
                                 {"TZ_PASSWORD=" + keeperPassword, "TZ_NEW_PASSWORD=新口令新口令新口令"});
  EXPECT_EQ(denied.status, 3);
  EXPECT_NE(denied.err.find("没有写入这个帐套的权限"), std::string::npos) << denied.err;
  const auto list =
      runProgram({"operator", "list", "--ledger", address, "--operator", "主管"}, {"TZ_PASSWORD=" + keeperPassword});
  EXPECT_EQ(list.status, 0) << list.err;
  ledger_.keeper().execute("DROP ROLE tz_clerk");
}

TZ_ON_BOTH_DATABASES(OperatorCommand);

TEST(NewPassword, IsTypedTwiceAndNotShown) {
  TestLedger ledger(Engine::sqlite);
  const Words words = {"operator", "add", "主管", "--all", "--ledger", ledger.address()};
  for (const bool same : {false, true}) {
    TerminalRun run(words);
    ASSERT_TRUE(run.await("主管 的新口令："));
    EXPECT_FALSE(run.echoes());
    run.type("一个足够长的口令\n");
    ASSERT_TRUE(run.await("再输入一次："));
    run.type(same ? "一个足够长的口令\n" : "一个足够长的口今\n");
    EXPECT_EQ(WEXITSTATUS(run.nextState()), same ? 0 : 4);
    EXPECT_EQ(run.shown().find("足够长"), std::string::npos);
    EXPECT_EQ(run.shown().find("两次输入的口令不同") != std::string::npos, !same) << run.shown();
    EXPECT_EQ(ledger.rows("SELECT count(*) FROM zOperator"), same ? "1\n" : "0\n");
  }
}

TEST(RightTable, KnowsTheRightOfEveryReportOnce) {
  for (const auto* report : catalogue()) {
    EXPECT_NE(findRight(report->right), nullptr) << report->command;
    // Two reports share a window's title; who names it is told of both rights.
    const auto named = namedRights(report->windowTitle);
    const auto* refusal = std::get_if<Refusal>(&named);
    const auto text = rightText(report->right);
    EXPECT_TRUE(refusal == nullptr ? std::get<std::set<int>>(named) == std::set{report->right}
                                   : std::ranges::find(refusal->offered, text) != refusal->offered.end())
        << report->command;
  }
  std::set<int> numbers;
  for (const auto& right : rightTable()) {
    EXPECT_TRUE(numbers.insert(right.number).second) << right.number;
    EXPECT_EQ(std::get<std::set<int>>(namedRights(right.name)), std::set{right.number});
    EXPECT_TRUE(std::get<std::set<int>>(namedRights(right.area)).contains(right.number));
  }
}

TEST(Completion, KnowsOperatorsAndRights) {
  TestLedger ledger(Engine::sqlite);
  ledger.fill("zOperator", "lId | sName | bAll\n 1 | 主管 | 1\n 2 | 王芳 | 0");
  const auto completed = [&](Words words) {
    words.insert(words.begin(), {"completion", "words", "--"});
    return runProgram(words).out;
  };
  const auto has = [](const std::string& text, const std::string& word) {
    return text.find(word) != std::string::npos;
  };
  EXPECT_TRUE(has(completed({"operator", "rights", "--ledger", ledger.address(), ""}), "王芳"));
  EXPECT_TRUE(has(completed({"report", "10190", "--ledger", ledger.address(), "--operator", ""}), "主管"));
  EXPECT_TRUE(has(completed({"operator", "rights", "王芳", "--give", "7"}), "单位往来明细帐"));
  EXPECT_TRUE(has(completed({"operator", ""}), "password"));
}

}  // namespace
}  // namespace tz::test
