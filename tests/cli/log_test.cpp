// tzassistant log: what was marked and planned, by whom and when, on both databases.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/small_company.h"
#include "core/data/new_ids.h"
#include "core/receivables/mark_history.h"
#include "core/reports/marking.h"
#include "core/reports/plan_log.h"

namespace tz::test {
namespace {

using namespace std::chrono_literals;
using Json = nlohmann::json;

class WorkLogCommand : public DatabaseTest {
 protected:
  WorkLogCommand() {
    fillSmallCompany(ledger_.keeper());
    // Everybody's password is 会计2006.
    for (const char* person : {"1 | 主管 | 1", "2 | 会计 | 0"}) {
      ledger_.fill("zOperator", std::string("lId | sName | bAll | sPassHash\n") + person +
                                    " | $argon2id$v=19$m=8,t=1,p=1$8KjgseW6RWjVshLwEFx87w$"
                                    "gqRKBVcvaRrnyx1ukfLd3tgM/1kHqIkjAKRW/HwMd1Q");
    }
    db_.Open(ledger_.address());
    session_.now = [this] { return moment_; };
    const auto line = db_.RegSub_GetInfo("lId > 0 ORDER BY lId").front();
    line_ = line.lId;
    voucher_ = line.lTieId;
  }

  std::string mark(const std::string& who, int before, int after, std::optional<std::string> batch = {}) {
    session_.who.name = who;
    const std::vector<MarkChange> changes = {{line_, voucher_, before, after}};
    const auto outcome = batch ? markLines(session_, changes, batch)
                               : markLines(session_, changes, MarkWork::What::match, ClearingKind::person);
    moment_ += 1h;
    return std::get<MarksWritten>(outcome).batch;
  }
  void plan(const std::string& who) {
    session_.who.name = who;
    const auto id = db_.Plan_AddNew({.lCodeId = 1, .byPeroid = 3, .mPPlan = 100});
    withNewIds([&] {
      Transaction writing(db_.Current(), Transaction::Purpose::writing);
      const std::vector<PlanChange> changes = {{id, false, true}, {id + 1'000'000, true, false}};
      EXPECT_EQ(logPlans(session_, changes, PlanWork::automatic).substr(0, 10), "plan:auto:");
      writing.commit();
      return 0;
    });
    moment_ += 1h;
  }
  [[nodiscard]] ProgramRun log(std::vector<std::string> more, const std::string& who = "主管") const {
    more.insert(more.begin(), {"log", "--ledger", ledger_.address(), "--operator", who});
    return runProgram(more, {"TZ_PASSWORD=会计2006", "TZ=Asia/Shanghai"});
  }
  [[nodiscard]] Json entries(const std::vector<std::string>& more) const {
    auto words = more;
    words.insert(words.end(), {"--as", "json"});
    return Json::parse(log(words).out)["entries"];
  }

  TestLedger ledger_{GetParam()};
  CQnCwDB db_{Access::report};
  std::chrono::sys_seconds moment_ = std::chrono::sys_days{2026y / 1 / 31} + 15h + 59min + 59s;
  Session session_{.db = db_, .ledger = ledger_.address(), .logon = {2006, 1, 31}};
  Id line_ = 0, voucher_ = 0;
};

TEST_P(WorkLogCommand, TellsWhoDidWhatAndWhen) {
  const auto batch = mark("会计", 0, 2);
  plan("会计");
  const auto last = lastMarkBatch(db_.Current());
  ASSERT_TRUE(last);
  EXPECT_EQ(last->name, batch) << "plans are no marks that could be taken back";
  mark("主管", 2, 0, undoOf(batch));
  mark("会计", 0, 1, "17");
  const auto all = entries({});
  ASSERT_EQ(all.size(), 5U);
  std::vector<std::string> works;
  for (const auto& one : all) works.push_back(one["work"]);
  EXPECT_EQ(works, (std::vector<std::string>{"手工勾对", "撤销自动勾对（个人往来）", "自动编制：增加计划",
                                             "自动编制：删除计划", "自动勾对（个人往来）"}));
  EXPECT_EQ(all[2]["voucher"], nullptr);
  EXPECT_EQ(all[2]["period"], 3);
  EXPECT_EQ(all[3]["account"], nullptr) << "of a plan that is gone no more is known";
  EXPECT_EQ(all[4]["when"], "2026-01-31T15:59:59Z");
  EXPECT_EQ(all[4]["operator"], "会计");
  EXPECT_EQ(all[4]["voucher"], voucher_);
  EXPECT_EQ(all[4]["line"], line_);
  EXPECT_EQ(all[4]["after"], 2);
  const auto money = db_.RegSub_GetInfo(Sql("lId = ?", line_)).front();
  EXPECT_EQ(all[4][money.bDirect != 0 ? "debit" : "credit"], money.mMoney);

  // Days are those of the machine's clock: the first one is the last second of 31 January in Shanghai.
  EXPECT_EQ(entries({"--to", "2026-01-31"}).size(), 1U);
  EXPECT_EQ(entries({"--from", "2026-02-01"}).size(), 4U);
  EXPECT_EQ(entries({"--by", "主管"}).size(), 1U);
  EXPECT_EQ(entries({"--by", "' OR 1=1 --"}).size(), 0U);
  EXPECT_EQ(Json::parse(log({"--limit", "2", "--as", "json"}).out)["found"], 5);
  const auto text = log({"--limit", "2"}).out;
  EXPECT_NE(text.find("2026-02-01 02:59:59"), std::string::npos) << text;
  EXPECT_NE(text.find("日志有 5 条，只列出最近 2 条"), std::string::npos) << text;
  EXPECT_NE(log({"--as", "csv"}).out.find("○→未清"), std::string::npos);
  EXPECT_EQ(log({"--from", "2026-02-30"}).status, 2);
  EXPECT_EQ(log({"--from", "2026-02-02", "--to", "2026-02-01"}).status, 2);
}

// Scripts do more than one thing in a second.
TEST_P(WorkLogCommand, TellsTheLatestFirstWithinASecond) {
  ledger_.fill("MarkLog", R"(
      lId | lTieId | lLineId | byOld | byNew | sOperator | sWhen                | sBatch
      9   | 1      | 1       | 0     | 1     | 会计      | 2026-02-01T00:00:00Z | toggle:person:9
      10  | 1      | 2       | 0     | 1     | 会计      | 2026-02-01T00:00:00Z | toggle:person:10
      11  | 1      | 1       | 1     | 0     | 会计      | 2026-02-01T00:00:00Z | reverse:person:11
      12  | 1      | 2       | 1     | 0     | 会计      | 2026-02-01T00:00:00Z | reverse:person:11
      13  | 1      | 1       | 0     | 2     | 会计      | 2026-02-01T00:00:00Z | match:person:13 )");
  std::string told;
  for (const auto& one : entries({})) told += one["batch"].get<std::string>() + one["line"].dump() + " ";
  EXPECT_EQ(told, "match:person:131 reverse:person:111 reverse:person:112 toggle:person:102 toggle:person:91 ");
}

TEST_P(WorkLogCommand, ShowsOthersOnlyToWhoeverHasEveryRight) {
  mark("主管", 0, 2);
  mark("会计", 2, 0, "18");
  const auto own = Json::parse(log({"--as", "json"}, "会计").out)["entries"];
  ASSERT_EQ(own.size(), 1U);
  EXPECT_EQ(own[0]["operator"], "会计");
  const auto refused = log({"--by", "主管"}, "会计");
  EXPECT_EQ(refused.status, 4);
  EXPECT_NE(refused.err.find("只能查看自己的操作日志"), std::string::npos) << refused.err;
}

TEST_P(WorkLogCommand, AcceptsWhatTheProgramWritesAndNamesWhatItDoesNot) {
  mark("会计", 0, 1, "17");
  plan("会计");
  const auto check = [&] {
    const auto out =
        runProgram({"ledger", "check", ledger_.address(), "--operator", "主管"}, {"TZ_PASSWORD=会计2006"}).out;
    return out.find("MarkLog") != std::string::npos;
  };
  EXPECT_FALSE(check());
  ledger_.fill("MarkLog", "lId | lTieId | lLineId | byOld | byNew\n 9 | 0 | 1 | 0 | 2");
  EXPECT_TRUE(check());
  // A ledger made elsewhere has no log; that is said, and is no failure.
  ledger_.keeper().execute("DROP TABLE MarkLog");
  const auto none = log({});
  EXPECT_EQ(none.status, 0) << none.err;
  EXPECT_NE(none.out.find("没有操作日志"), std::string::npos) << none.out;
}

TZ_ON_BOTH_DATABASES(WorkLogCommand);

}  // namespace
}  // namespace tz::test
