// No ordering of a detail ledger leaves a sort step: the databases read the lines along an index in the order asked
// for.
#include "catalogue/catalogue.h"
#include "data/create_ledger.h"
#include "ledger/definitions.h"
#include "ledger/detail_engine.h"
#include "sample/sample_company.h"
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

TEST_P(QueryPlan, LeavesNoSort) {
  const TestPlace place(GetParam());
  createLedger(place.address(), [](Connection& connection) { fillSample(connection, {.lines = 30'000}); });
  if (onServer()) openLedger(place.address(), Access::keeper)->execute("ANALYZE");
  CQnCwDB db(Access::read);
  db.Open(place.address());
  Conditions conditions;
  conditions.data = std::make_shared<CGetData>(db);
  conditions.account = *conditions.data->GetCODEINFOByCode("1221");
  conditions.dept = *conditions.data->GetDEPTINFOByDeptNameORId("销售部");
  conditions.person.lId = conditions.data->GetPersonId("李明", conditions.dept.lDeptId);
  conditions.from = 1;
  conditions.to = 12;
  int members = 0;
  for (const auto* report : catalogue()) {
    const auto* member = detailMember(report->command);
    if (member == nullptr) continue;
    ++members;
    for (const auto book : {Book::posted, Book::unposted}) {
      const auto plan =
          planOf(db.Current(), lineStatement(memberLines(*member, conditions, book), "m.dtBill, s.mMoney"));
      EXPECT_EQ(plan.find("Sort"), std::string::npos) << report->command << "\n" << plan;
      EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << report->command << "\n" << plan;
      EXPECT_NE(plan.find(onServer() ? "Index" : "USING INDEX"), std::string::npos) << plan;
    }
  }
  EXPECT_GT(members, 0);
}

TZ_ON_BOTH_DATABASES(QueryPlan);

}  // namespace
}  // namespace tz::test
