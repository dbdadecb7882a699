// No ordering of a detail ledger leaves a sort step, unless its record says so: the databases read the lines along an
// index in the order asked for.
#include <map>

#include "core/data/create_ledger.h"
#include "core/ledger/balance_reader.h"
#include "core/ledger/detail_report.h"
#include "core/sample/sample_company.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

class QueryPlan : public DatabaseTest {
 protected:
  // The plan of a statement as the engine runs it: on the server through a cursor.
  [[nodiscard]] std::string planOf(Connection& connection, const Sql& statement) const {
    return rowsOf(connection,
                  Sql(onServer() ? "EXPLAIN DECLARE plan NO SCROLL CURSOR FOR " : "EXPLAIN QUERY PLAN ") + statement);
  }
};

// Every dimension of the sample company at once: each member takes its own.
Conditions conditionsFor(const CQnCwDB& db, Area area) {
  const std::map<Area, std::string> accounts = {
      {Area::person, "1221"}, {Area::unit, "1122"}, {Area::project, "6001"}, {Area::department, "6601"}};
  Conditions conditions;
  conditions.data = std::make_shared<CGetData>(db);
  auto& data = *conditions.data;
  conditions.account = *data.GetCODEINFOByCode(accounts.at(area));
  conditions.dept = *data.GetDEPTINFOByDeptNameORId("销售部");
  conditions.person.lId = data.GetPersonId("李明", conditions.dept.lDeptId);
  conditions.unit.lId = 1;
  conditions.unitClass.lId = 1;
  conditions.clerk.name = "李明";
  conditions.projectClass.sItemId = "01";
  conditions.project = data.ItemTable("01").front();
  conditions.from = 1;
  conditions.to = 12;
  return conditions;
}

TEST_P(QueryPlan, LeavesNoSortThatNoRecordTells) {
  const TestPlace place(GetParam());
  createLedger(place.address(), [](Connection& connection) { fillSample(connection, {.lines = 30'000}); });
  if (onServer()) openLedger(place.address(), Access::keeper)->execute("ANALYZE");
  CQnCwDB db(Access::read);
  db.Open(place.address());
  const auto expectOrdered = [&](int command, const Sql& statement) {
    const auto plan = planOf(db.Current(), statement);
    EXPECT_EQ(plan.find(onServer() ? "Sort" : "TEMP B-TREE"), std::string::npos) << command << "\n" << plan;
    EXPECT_NE(plan.find(onServer() ? "Index" : "USING INDEX"), std::string::npos) << command << "\n" << plan;
  };
  for (const auto* report : balanceReports()) {
    const auto& member = report->member;
    const auto conditions = conditionsFor(db, report->area);
    if (member.opening != BalanceOpening::lines) expectOrdered(report->command, recordStatement(member, conditions));
    for (const auto book : {Book::posted, Book::unposted}) {
      if (book == Book::posted && member.opening != BalanceOpening::lines) continue;
      expectOrdered(report->command,
                    LineRows(member.selects, {}, conditions).statement(book, {1, 12}, member.order.lines));
    }
  }
  for (const auto* report : detailReports()) {
    const auto conditions = conditionsFor(db, report->area);
    for (const auto book : {Book::posted, Book::unposted}) {
      const auto plan = planOf(
          db.Current(), lineStatement(selectedLines(report->member.selects, conditions, book), "m.dtBill, s.mMoney"));
      EXPECT_EQ(plan.find(onServer() ? "Sort" : "TEMP B-TREE") != std::string::npos, report->member.selects.sorted)
          << report->command << "\n"
          << plan;
      EXPECT_NE(plan.find(onServer() ? "Index" : "USING INDEX"), std::string::npos) << plan;
    }
  }
}

TZ_ON_BOTH_DATABASES(QueryPlan);

}  // namespace
}  // namespace tz::test
