// Two-clearing from the command line: what is printed, who may, and what two operators, a kill, a full disk and a
// locked file leave behind.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <thread>

#include "core/data/records.h"
#include "support/run_program.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using Words = std::vector<std::string>;

constexpr int parties = 40;
constexpr int pairsEach = 25;

class Clear : public DatabaseTest {
 protected:
  Clear() {
    ledger_.fill("zAccountM", "lId | sName | sCodeScheme | nYear\n 1 | 公司 | 4222 | 2006");
    ledger_.fill("Code", R"(
        lId | sCode | sName | bEnd | bDirect | sAssBook
        1   | 1131  | 应收  | 1    | 1       | B
        2   | 1133  | 借款  | 1    | 1       | A )");
    ledger_.fill("Dept", "lId | lDeptId | sDeptId | sDeptName\n 1 | 10 | D1 | 销售部");
    ledger_.fill("Person", "lId | sPersonId | sName | lDeptId\n 7 | P1 | 张三 | 10");
    ledger_.fill("RegMain",
                 "lTieId | byPeroid | dtBill | dtDate | sWord | nNumber\n"
                 "1 | 1 | 2006-01-31 | 2006-01-31 | 记 | 1");
    fillUnits();
    // A pair and a line of a person, behind those of the units.
    ledger_.fill("RegSub", R"(
        lId    | lTieId | lCodeId | lDeptId | lPersonId | mMoney | bDirect | dtDate
        900001 | 1      | 2       | 10      | 7         | 30     | 1       | 2006-01-31
        900002 | 1      | 2       | 10      | 7         | 30     | 0       | 2006-01-31
        900003 | 1      | 2       | 10      | 7         | 5      | 1       | 2006-01-31 )");
  }

  // Units 1 to `parties`, each with as many pairs of different amounts.
  void fillUnits() {
    std::string units = "lId | sEnterId | sEnterName\n";
    std::string lines = "lId | lTieId | lCodeId | lEnterId | mMoney | bDirect | dtDate\n";
    Id id = 1;
    for (int unit = 1; unit <= parties; ++unit) {
      units += std::to_string(unit) + " | E" + std::to_string(unit) + " | 单位" + std::to_string(unit) + "\n";
      for (int pair = 1; pair <= pairsEach; ++pair) {
        for (const char* side : {"1", "0"}) {
          lines += std::to_string(id++) + " | 1 | 1 | " + std::to_string(unit) + " | " + std::to_string(pair) + " | " +
                   side + " | 2006-01-31\n";
        }
      }
    }
    ledger_.fill("Enter", units);
    ledger_.fill("RegSub", lines);
  }

  [[nodiscard]] ProgramRun clear(Words words, const Words& settings = {}) const {
    words.insert(words.begin(), "clear");
    words.insert(words.end(), {"--ledger", ledger_.address()});
    return runProgram(words, settings);
  }
  [[nodiscard]] nlohmann::json answer(Words words) const {
    words.insert(words.end(), {"--as", "json"});
    const auto run = clear(words);
    EXPECT_EQ(run.status, 0) << run.err;
    return run.status == 0 ? nlohmann::json::parse(run.out) : nlohmann::json();
  }
  std::string open() { return ledger_.rows("SELECT count(*) FROM RegSub WHERE byFlag = 0"); }

  // Marks are what the log says.
  void expectLogAgrees() {
    EXPECT_EQ(ledger_.rows("SELECT lId FROM (SELECT lId, byFlag AS mark FROM RegSub UNION ALL SELECT lLineId, byOld - "
                           "byNew FROM MarkLog) AS both_of_them GROUP BY lId HAVING sum(mark) <> 0"),
              "");
  }
  // A party of an account is marked wholly or not at all.
  void expectPartiesWhole() {
    expectLogAgrees();
    EXPECT_EQ(ledger_.rows("SELECT lEnterId FROM RegSub WHERE lEnterId > 0 GROUP BY lEnterId HAVING "
                           "count(DISTINCT byFlag) <> 1"),
              "");
  }
  // Takes back all that a test has marked.
  void openAll() {
    ledger_.keeper().execute("UPDATE RegSub SET byFlag = 0");
    ledger_.keeper().execute("DELETE FROM MarkLog");
  }

  TestLedger ledger_{GetParam()};
};

const std::string everyLine = std::to_string(parties * pairsEach * 2);

TEST_P(Clear, PrintsWhatItDid) {
  using Json = nlohmann::json;
  EXPECT_EQ(answer({"toggle", "--line", "900003", "--voucher", "1"}), Json::parse(R"({"line": 900003, "flag": 1})"));
  const Words person = {"check", "--account", "1133", "--dept", "销售部", "--person", "张三"};
  EXPECT_EQ(answer(person), Json::parse(R"({"level": false, "debit": 5.0, "credit": 0.0})"));
  EXPECT_EQ(clear(person).out, "金额不平：借方勾对金额 5.00，贷方勾对金额 0.00\n");
  EXPECT_EQ(answer({"match", "--kind", "person", "--dept", "销售部"}),
            Json::parse(R"({"accounts": [{"account": "1133", "name": "借款", "by_number": 0, "pairwise": 2,
                                          "whole": 0}]})"));
  EXPECT_EQ(answer({"match", "--kind", "unit", "--unit", "单位3"}).at("accounts").at(0).at("pairwise"), 2 * pairsEach);
  EXPECT_EQ(clear({"check", "--account", "1131", "--unit", "单位3"}).out, "往来两清检查平衡\n");
  const auto report = runProgram(
      {"report", "10211", "--ledger", ledger_.address(), "--account", "1131", "--unit", "单位3", "--as", "json"});
  const auto shown = Json::parse(report.out);
  EXPECT_EQ(shown.at("rows").front().at("line"), 2 * pairsEach * 2 + 1);
  EXPECT_EQ(shown.at("rows").front().at("cells").back(), "○");
  EXPECT_EQ(shown.at("rows").back().at("line"), nullptr);
  EXPECT_EQ(shown.at("conditions"), Json::parse(R"(["方向: 平"])"));

  auto run = clear({"reverse", "--kind", "unit"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "tzassistant: 是否对所有单位往来业务进行反两清?\n没有执行；回答“是”请加 --yes\n");
  EXPECT_EQ(answer({"reverse", "--kind", "unit", "--yes"}), Json::parse(R"({"lines": 50})"));
  EXPECT_EQ(answer({"undo"}).at("lines"), 50);
  EXPECT_EQ(clear({"undo"}).out, "已撤销自动勾对（单位往来）：50 条分录\n");
  EXPECT_EQ(answer({"undo"}).at("lines"), 2);
  EXPECT_EQ(answer({"undo"}).at("lines"), 1);
  run = clear({"undo"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "没有可以撤销的两清标记\n");
  EXPECT_EQ(open(), std::to_string(parties * pairsEach * 2 + 3) + "\n");
}

TEST_P(Clear, RefusesAndKnowsWrongUse) {
  const auto refused = [&](const Words& words, int status, std::string_view text) {
    const auto run = clear(words);
    EXPECT_EQ(run.status, status) << words.front();
    EXPECT_NE(run.err.find(text), std::string::npos) << run.err;
  };
  refused({"toggle", "--line", "77777"}, 1, "编号为 77777 的分录不在已记帐分录中");
  refused({"toggle", "--line", "1", "--voucher", "2"}, 1, "编号为 1 的分录不在已记帐分录中");
  refused({"toggle", "--line", "x"}, 2, "--line");
  refused({"match", "--kind", "unit", "--unit", "O'Brien'); DROP TABLE Plan --"}, 1, "非法的单位");
  refused({"match", "--kind", "person", "--dept", "没有"}, 1, "非法的部门，请重新输入。");
  refused({"match", "--kind", "person"}, 2, "请给出 --dept 或 --all 之一");
  refused({"match", "--kind", "unit", "--unit", "单位1", "--all"}, 2, "请给出 --unit 或 --all 之一");
  refused({"match", "--kind", "unit", "--dept", "销售部"}, 2, "--dept");
  refused({"check", "--account", "1133"}, 1, "部门不能为空,请重新输入。");
  refused({"check", "--kind", "unit", "--dept", "销售部"}, 2, "--dept");
  refused({"check", "--account", "1131", "--unit", "单位1", "--month", "13"}, 2, "--month");
  EXPECT_EQ(open(), std::to_string(parties * pairsEach * 2 + 3) + "\n");

  ledger_.fill("zOperator", R"(
      lId | sName | bAll | sPassHash
      2 | 会计 | 0 | $argon2id$v=19$m=8,t=1,p=1$8KjgseW6RWjVshLwEFx87w$gqRKBVcvaRrnyx1ukfLd3tgM/1kHqIkjAKRW/HwMd1Q)");
  ledger_.fill("zRight", "lOperatorId | nRight\n 2 | 5");
  const auto as = [&](Words words) {
    words.insert(words.end(), {"--operator", "会计"});
    return clear(words, {"TZ_PASSWORD=会计2006"});
  };
  EXPECT_EQ(as({"toggle", "--line", "900001"}).status, 0);
  EXPECT_EQ(as({"toggle", "--line", "1"}).status, 4);
  EXPECT_EQ(as({"match", "--kind", "unit", "--all"}).status, 4);
  EXPECT_EQ(as({"reverse", "--kind", "unit", "--yes"}).status, 4);
  EXPECT_EQ(as({"undo"}).status, 0);
  EXPECT_EQ(clear({"undo"}).status, 4);
  EXPECT_EQ(ledger_.rows("SELECT DISTINCT sOperator FROM MarkLog"), "会计\n");
}

// Each in a process of its own, on the same lines.
TEST_P(Clear, OperatorsAtOnceLoseNoMarkAndMakeNoHalfPair) {
  const auto doing = [this](const Words& words) {
    return std::jthread([this, words] {
      const auto run = clear(words);
      EXPECT_EQ(run.status, 0) << words.front() << "\n" << run.err;
    });
  };
  const Words matching = {"match", "--kind", "unit", "--all"};
  { const std::array both = {doing(matching), doing(matching)}; }
  EXPECT_EQ(ledger_.rows("SELECT count(*), count(DISTINCT lLineId) FROM MarkLog"), everyLine + "|" + everyLine + "\n")
      << "each line is marked once";
  expectPartiesWhole();
  openAll();
  constexpr int toggles = 8;
  for (int round = 0; round < 3; ++round) {
    {
      std::vector<std::jthread> operators;
      for (int one = 0; one < 2; ++one) operators.push_back(doing(matching));
      for (int line = 1; line <= toggles; ++line) {
        operators.push_back(doing({"toggle", "--line", std::to_string(line * 51)}));
      }
      operators.push_back(doing({"reverse", "--kind", "unit", "--yes"}));
    }
    expectLogAgrees();
    EXPECT_EQ(ledger_.rows("SELECT count(*) FROM MarkLog WHERE sBatch LIKE 'toggle:%'"),
              std::to_string(toggles * (round + 1)) + "\n");
    EXPECT_EQ(ledger_.rows("SELECT l.sBatch, s.lEnterId, s.mMoney FROM MarkLog l JOIN RegSub s ON s.lId = l.lLineId "
                           "WHERE l.sBatch LIKE 'match:%' GROUP BY l.sBatch, s.lEnterId, s.mMoney "
                           "HAVING sum(CASE WHEN s.bDirect <> 0 THEN 1 ELSE -1 END) <> 0"),
              "")
        << "half a pair was matched";
  }
}

TEST_P(Clear, AKillInTheMiddleLeavesEachPartyWhole) {
  int killed = 0;
  // From before the first write to after the last, on quick machines and on slow ones.
  for (const char* seconds : {"0.003", "0.006", "0.009", "0.012", "0.016", "0.02", "0.03", "0.05", "0.08", "0.12"}) {
    const Words ends = {"--ledger", ledger_.address(), "--kind", "unit"};
    Words words = {"timeout", "-s", "KILL", seconds, TZ_PROGRAM, "clear", "match", "--all"};
    words.insert(words.end(), ends.begin(), ends.end());
    killed += runCommand(words).status == 0 ? 0 : 1;
    expectPartiesWhole();
    (void)clear({"match", "--kind", "unit", "--all"});
    words = {"timeout", "-s", "KILL", seconds, TZ_PROGRAM, "clear", "reverse", "--yes"};
    words.insert(words.end(), ends.begin(), ends.end());
    killed += runCommand(words).status == 0 ? 0 : 1;
    EXPECT_EQ(ledger_.rows("SELECT count(DISTINCT byFlag) FROM RegSub WHERE lEnterId > 0"), "1\n");
    expectPartiesWhole();
    openAll();
  }
  EXPECT_GT(killed, 0);
}

TZ_ON_BOTH_DATABASES(Clear);

class ClearInAFile : public Clear {};

TEST_P(ClearInAFile, SaysWhatIsMarkedWhenTheDiskIsFull) {
  const std::filesystem::path place(ledger_.address());
  ledger_.keeper().query("PRAGMA wal_checkpoint(TRUNCATE)")->next();
  int full = 0;
  for (const int kibibytes : {70, 250, 100'000}) {
    const auto bytes = file_size(place) + static_cast<std::uintmax_t>(kibibytes) * 1024;
    const auto run =
        clear({"match", "--kind", "unit", "--all"},
              {"LD_PRELOAD=" TZ_SMALL_DISK, "ASAN_OPTIONS=verify_asan_link_order=0",
               "TZ_DISK_FOLDER=" + place.parent_path().string(), "TZ_DISK_BYTES=" + std::to_string(bytes)});
    expectPartiesWhole();
    const auto marked = ledger_.rows("SELECT count(*) FROM MarkLog");
    if (run.status == 0) {
      EXPECT_EQ(marked, everyLine + "\n");
      continue;
    }
    ++full;
    EXPECT_EQ(run.status, 3);
    const auto told = marked == "0\n" ? "没有勾对任何分录" : "在此之前已勾对 " + marked.substr(0, marked.size() - 1);
    EXPECT_NE(run.err.find(told), std::string::npos) << run.err;
    openAll();
    ledger_.keeper().query("PRAGMA wal_checkpoint(TRUNCATE)")->next();
  }
  EXPECT_GT(full, 0);
}

TEST_P(ClearInAFile, SaysThatSomebodyElseHoldsIt) {
  Transaction held(ledger_.keeper(), Transaction::Purpose::writing);
  ledger_.keeper().execute("UPDATE RegSub SET byFlag = 0");
  const auto run = clear({"match", "--kind", "unit", "--unit", "单位1"});
  EXPECT_EQ(run.status, 3);
  EXPECT_NE(run.err.find("帐套正被其他程序占用"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("没有勾对任何分录"), std::string::npos) << run.err;
}

INSTANTIATE_TEST_SUITE_P(On, ClearInAFile, ::testing::Values(Engine::sqlite), engineName);

}  // namespace
}  // namespace tz::test
