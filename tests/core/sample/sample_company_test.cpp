// The sample company: sound by every rule, the same everywhere, and rich enough for every report to show something.
#include "core/sample/sample_company.h"

#include "core/check/ledger_check.h"
#include "core/data/create_ledger.h"
#include "core/data/records.h"
#include "core/data/schema.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

class SampleCompany {
 public:
  explicit SampleCompany(Engine engine, std::int64_t lines = 0) : place_(engine) {
    createLedger(place_.address(), [&](Connection& connection) { fillSample(connection, {.lines = lines}); });
    connection_ = openLedger(place_.address(), Access::read);
  }
  [[nodiscard]] std::string rows(std::string_view select) { return rowsOf(*connection_, Sql(select)); }
  [[nodiscard]] int number(std::string_view select) { return std::stoi(rows(select)); }
  [[nodiscard]] std::vector<std::string> violations() {
    std::vector<std::string> found;
    const Transaction reading(*connection_, Transaction::Purpose::reading);
    checkLedger(*connection_, [&](const Violation& violation) {
      if (!violation.hint) found.push_back(violation.text());
    });
    return found;
  }
  [[nodiscard]] std::string wholeContents() {
    std::string contents;
    for (const auto& table : ledgerTables()) contents += table.name + "\n" + rows(selectInOrder(table));
    for (const auto* table : {"ProjItems01", "ProjItemsRD"}) {
      contents += table + ("\n" + rows(std::string("SELECT * FROM ") + table + " ORDER BY lId"));
    }
    return contents;
  }

 private:
  static std::string selectInOrder(const TableSchema& table) {
    return "SELECT * FROM " + table.name + " ORDER BY " + table.columns.front().name;
  }

  TestPlace place_;
  std::unique_ptr<Connection> connection_;
};

using Violations = std::vector<std::string>;

class SampleCompanyTest : public DatabaseTest {};
TZ_ON_BOTH_DATABASES(SampleCompanyTest);

TEST_P(SampleCompanyTest, KeepsEveryRule) { EXPECT_EQ(SampleCompany(GetParam()).violations(), Violations{}); }

TEST_P(SampleCompanyTest, GrowsToTheLinesAskedFor) {
  SampleCompany company(GetParam(), 20'000);
  EXPECT_EQ(company.violations(), Violations{});
  const auto lines = company.number("SELECT count(*) FROM RegSub");
  EXPECT_GE(lines, 20'000);
  EXPECT_LE(lines, 20'002);
  // A tenth of the lines on one person and on one customer, the others small.
  const std::string perParty =
      "SELECT max(n) FROM (SELECT count(*) AS n FROM RegSub s JOIN Code c ON c.lId = s.lCodeId WHERE c.sCode = ";
  EXPECT_NEAR(company.number(perParty + "'122101' GROUP BY lPersonId) AS parties"), 2'000, 300);
  EXPECT_NEAR(company.number(perParty + "'112201' GROUP BY lEnterId) AS parties"), 2'000, 300);
}

TEST(SampleCompanyContents, AreTheSameEverywhere) {
  const auto first = SampleCompany(Engine::sqlite).wholeContents();
  EXPECT_EQ(SampleCompany(Engine::sqlite).wholeContents(), first);
  EXPECT_EQ(SampleCompany(Engine::postgres).wholeContents(), first);
}

TEST(SampleCompanyContents, AFewLinesAskedForGiveTheReadableCompany) {
  EXPECT_EQ(SampleCompany(Engine::sqlite, 500).wholeContents(), SampleCompany(Engine::sqlite).wholeContents());
}

TEST(SampleCompanyContents, CoverEveryKindOfAccount) {
  SampleCompany company(Engine::sqlite);
  EXPECT_EQ(company.rows("SELECT DISTINCT sAssBook FROM Code ORDER BY 1"), "\nA\nAC\nB\nBC\nBD\nC\nCD\nD\nDC\n");
  // Each amount format on leaf accounts of each dimension: plain, quantity, currency, both.
  for (const auto* flag : {"A", "B", "C", "D"}) {
    EXPECT_EQ(company.rows("SELECT DISTINCT c.sUnit <> '', c.byExchId <> 0 FROM Code c JOIN RegSub s ON s.lCodeId = "
                           "c.lId WHERE c.bEnd <> 0 AND c.sAssBook LIKE '%" +
                           std::string(flag) + "%' ORDER BY 1, 2"),
              "0|0\n0|1\n1|0\n1|1\n")
        << flag;
    EXPECT_GT(company.number("SELECT count(*) FROM Code WHERE bEnd = 0 AND sAssBook = '" + std::string(flag) + "'"), 0)
        << flag;
  }
  EXPECT_EQ(company.rows("SELECT DISTINCT sAssBook, bDirect FROM Code WHERE bEnd <> 0 AND sAssBook IN ('A', 'B') "
                         "ORDER BY 1, 2"),
            "A|0\nA|1\nB|0\nB|1\n");
  EXPECT_EQ(company.number("SELECT count(*) FROM Code WHERE bLock <> 0"), 1);
  EXPECT_EQ(company.number("SELECT max(byGrade) FROM Code"), 4);
  EXPECT_EQ(company.rows("SELECT bConvert FROM Cyrency ORDER BY 1"), "0\n1\n");
  EXPECT_EQ(company.number("SELECT count(*) FROM (SELECT lCodeId FROM ProjCodes GROUP BY lCodeId HAVING count(*) = 2)"),
            1);
  EXPECT_EQ(company.rows("SELECT sName FROM Person GROUP BY sName HAVING count(DISTINCT lDeptId) > 1"), "张伟\n");
}

TEST(SampleCompanyContents, CoverEveryKindOfVoucher) {
  SampleCompany company(Engine::sqlite);
  EXPECT_EQ(company.rows("SELECT DISTINCT byPeroid FROM RegMain ORDER BY 1"), "0\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n");
  EXPECT_EQ(company.rows("SELECT DISTINCT byPeroid FROM UnregMain ORDER BY 1"), "11\n12\n");
  const std::string all = "(SELECT * FROM RegMain UNION ALL SELECT * FROM UnregMain)";
  EXPECT_EQ(company.rows("SELECT sWord, byPeroid FROM " + all +
                         " GROUP BY sWord, byPeroid HAVING min(nNumber) <> 1 OR max(nNumber) <> count(*)"),
            "");
  EXPECT_EQ(
      company.number("SELECT count(*) FROM " + all +
                     " WHERE byPeroid > 0 AND (CAST(substr(dtBill, 6, 2) AS int) <> byPeroid OR dtDate < dtBill)"),
      0);
  EXPECT_EQ(company.number("SELECT count(*) FROM UnregMain WHERE sPoster <> ''"), 0);
  EXPECT_GT(company.number("SELECT count(*) FROM RegSub WHERE mMoney < 0"), 5);
  EXPECT_GT(company.number("SELECT count(DISTINCT sName) FROM RegSub WHERE lEnterId <> 0"), 3);
  // Marks of both kinds, and what they mark is level for every party.
  EXPECT_EQ(company.rows("SELECT DISTINCT byFlag FROM RegSub ORDER BY 1"), "0\n1\n2\n");
  EXPECT_EQ(company.rows("SELECT lCodeId FROM RegSub WHERE byFlag <> 0 GROUP BY lCodeId, lPersonId, lEnterId HAVING "
                         "abs(sum(CASE WHEN bDirect <> 0 THEN mMoney ELSE -mMoney END)) > 0.001"),
            "");
}

// 1 dollar = rate home units, 1 home unit = rate yen.
TEST(SampleCompanyContents, ForeignLinesFollowTheirRates) {
  SampleCompany company(Engine::sqlite);
  for (const auto* table : {"RegSub", "UnregSub"}) {
    EXPECT_EQ(company.rows("SELECT s.lId FROM " + std::string(table) +
                           " s JOIN Cyrency c ON c.byExchId = s.byExchId WHERE abs(mMoney - CASE WHEN bConvert <> 0 "
                           "THEN mForeign * dFrat ELSE mForeign / dFrat END) > 0.0051 OR mForeign = 0"),
              "");
  }
}

// Money in hand, stock and receivables never run below nothing.
TEST(SampleCompanyContents, FiguresAreSensible) {
  SampleCompany company(Engine::sqlite);
  EXPECT_EQ(company.rows("SELECT DISTINCT c.sCode FROM AssAcc a JOIN Code c ON c.lId = a.lCodeId WHERE (c.sCode LIKE "
                         "'100%' OR c.sCode LIKE '14%' OR c.sCode LIKE '122%') AND (a.mBegin + a.mDebit - a.mCredit < "
                         "-0.001 OR a.dBegin + a.dDebit - a.dCredit < -0.001)"),
            "");
  // All openings together are level.
  EXPECT_EQ(company.number("SELECT CAST(round(100 * sum(CASE WHEN c.bDirect <> 0 THEN a.mBegin ELSE -a.mBegin END)) AS "
                           "int) FROM AssAcc a JOIN Code c ON c.lId = a.lCodeId WHERE a.byPeroid = 0"),
            0);
}

// The report that is shown first: a salesman's loans with an opening, lines of many months, a red entry, unposted ones.
TEST(SampleCompanyContents, TheFirstReportHasMuchToShow) {
  SampleCompany company(Engine::sqlite);
  const std::string ofSalesman =
      " s JOIN Code c ON c.lId = s.lCodeId JOIN Person p ON p.lId = s.lPersonId WHERE c.sCode = '122101' AND p.sName = "
      "'李明'";
  EXPECT_EQ(company.rows("SELECT s.mBegin FROM AssAcc" + ofSalesman + " AND s.byPeroid = 1"), "11700\n");
  EXPECT_GE(company.number("SELECT count(DISTINCT substr(s.dtDate, 6, 2)) FROM RegSub" + ofSalesman), 10);
  EXPECT_EQ(company.number("SELECT count(*) FROM RegSub" + ofSalesman + " AND s.mMoney < 0"), 1);
  EXPECT_GE(company.number("SELECT count(*) FROM UnregSub" + ofSalesman), 2);
}

}  // namespace
}  // namespace tz::test
