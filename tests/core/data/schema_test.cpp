// The tables as everybody's SQL finds them: names, order of columns, unique rules, defaults, types, order of texts.
#include "core/data/schema.h"

#include <algorithm>
#include <map>

#include "support/test_ledger.h"

namespace tz::test {
namespace {

using Names = std::vector<std::string>;

struct Table {
  std::string name;
  Names columns;
  std::vector<Names> uniques;
};

const Names headColumns = {"lTieId",  "byPeroid", "dtBill", "dtDate",   "sWord",
                           "nNumber", "nAttach",  "sMaker", "sChecker", "sPoster"};
const Names lineColumns = {"lId",     "lTieId", "lCodeId", "lDeptId",   "lPersonId", "lEnterId", "lItemId",
                           "sItemId", "mMoney", "bDirect", "dAmount",   "mForeign",  "dFrat",    "byExchId",
                           "sDigest", "sName",  "byFlag",  "sBusiness", "dtDate"};

std::vector<Table> publicTables(bool server) {
  const Names lineKey = server ? Names{"lTieId", "lId"} : Names{"lId"};
  return {
      {"Code",
       {"lId", "sCode", "sName", "byGrade", "bEnd", "bDirect", "sAssBook", "lDeptId", "sUnit", "byExchId", "bLock",
        "byKind"},
       {{"lId"}, {"sCode"}}},
      {"Dept", {"lId", "lDeptId", "sDeptId", "sDeptName"}, {{"lId"}, {"lDeptId"}}},
      {"Person", {"lId", "sPersonId", "sName", "lDeptId"}, {{"lId"}}},
      {"EnterClass", {"lId", "sName"}, {{"lId"}}},
      {"Enter", {"lId", "sEnterId", "sEnterName", "lClassId", "mCredit", "sAddress", "sContact", "sPhone"}, {{"lId"}}},
      {"AssAcc",
       {"lId", "lCodeId", "lDeptId", "lPersonId", "lEnterId", "lItemId", "sItemId", "byPeroid", "mBegin", "bBegin",
        "dBegin", "mBeginFor", "mDebit", "mCredit", "dDebit", "dCredit", "mDebitFor", "mCreditFor"},
       {{"lId"}, {"lCodeId", "lDeptId", "lPersonId", "lEnterId", "lItemId", "sItemId", "byPeroid"}}},
      {"RegMain", headColumns, {{"lTieId"}}},
      {"UnregMain", headColumns, {{"lTieId"}}},
      {"RegSub", lineColumns, {lineKey}},
      {"UnregSub", lineColumns, {lineKey}},
      {"ProjClass", {"lId", "sItemId", "sName"}, {{"lId"}, {"sItemId"}}},
      {"ProjItems", {"lId", "sItemId", "nField", "sTitle", "sType"}, {{"lId"}, {"sItemId", "nField"}}},
      {"ProjCodes", {"lId", "lCodeId", "sItemId"}, {{"lId"}, {"lCodeId", "sItemId"}}},
      {"Plan",
       {"lId", "lCodeId", "lDeptId", "lItemId", "sItemId", "byPeroid", "mPPlan", "mPFact", "mPLast"},
       {{"lId"}, {"lCodeId", "lDeptId", "lItemId", "sItemId", "byPeroid"}}},
      {"Ages", {"lId", "byType", "nNumber", "lLength"}, {{"lId"}}},
      {"Cyrency", {"lId", "byExchId", "sName", "bConvert"}, {{"lId"}, {"byExchId"}}},
      {"ExchgFix", {"lId", "byExchId", "dFrat"}, {{"lId"}, {"byExchId"}}},
      {"ExchgFlt", {"lId", "byExchId", "dtDate", "dFrat"}, {{"lId"}, {"byExchId", "dtDate"}}},
      {"zAccountM", {"lId", "sName", "sCodeScheme", "nYear"}, {{"lId"}}},
      {"zOperator", {"lId", "sName", "sPassHash", "bAll"}, {{"lId"}, {"sName"}}},
      {"zRight", {"lOperatorId", "nRight"}, {{"lOperatorId", "nRight"}}},
      {"MarkLog", {"lId", "lTieId", "lLineId", "byOld", "byNew", "sOperator", "sWhen", "sBatch"}, {{"lId"}}},
  };
}

bool isDate(const std::string& column) { return column.starts_with("dt"); }
bool isText(const std::string& column) { return column.starts_with("s"); }

using Row = std::map<std::string, std::string>;

// Every column that a rule or a missing default asks for.
Row neededColumns(const Table& table) {
  Row row;
  for (const auto& rule : table.uniques) {
    for (const auto& column : rule) row[column] = isDate(column) ? "2006-01-01" : "1";
  }
  for (const auto& column : table.columns) {
    if (isDate(column)) row[column] = "2006-01-01";
  }
  return row;
}

void insert(Connection& connection, const std::string& table, const Row& row) {
  Names names;
  for (const auto& [name, value] : row) names.push_back(name);
  const auto writer = connection.insertInto(table, names);
  for (const auto& [name, value] : row) writer->put(std::string_view(value));
  writer->endRow();
  writer->finish();
}

// Whether the table takes this second row; nothing stays.
bool accepts(Connection& connection, const Table& table, const Row& row) {
  Transaction transaction(connection, Transaction::Purpose::writing);
  try {
    insert(connection, table.name, row);
    return true;
  } catch (const DbError& error) {
    EXPECT_EQ(error.kind(), DbError::Kind::duplicate) << table.name << ": " << error.what();
    return false;
  }
}

bool refused(Connection& connection, const std::string& statement) {
  try {
    connection.execute(Sql(statement));
    return false;
  } catch (const DbError&) {
    return true;
  }
}

Row varied(Row row, const Names& columns) {
  for (const auto& column : columns) row[column] = isDate(column) ? "2006-01-02" : "2";
  return row;
}

class Schema : public DatabaseTest {
 protected:
  TestLedger ledger{GetParam()};
  std::vector<Table> tables = publicTables(onServer());
};

TEST_P(Schema, HasTheTablesWithTheirColumnsInOrder) {
  Names names;
  for (const auto& table : tables) {
    names.push_back(table.name);
    const auto cursor = ledger.keeper().query(Sql("SELECT * FROM " + table.name));
    std::string found;
    std::string wanted;
    for (int column = 0; column < cursor->columns(); ++column) found += cursor->columnName(column) + " ";
    for (const auto& column : table.columns) wanted += column + " ";
    if (onServer()) std::ranges::transform(wanted, wanted.begin(), [](unsigned char c) { return std::tolower(c); });
    EXPECT_EQ(found, wanted) << table.name;
  }
  std::ranges::sort(names);
  std::string catalogue;
  for (const auto& name : names) catalogue += "4|" + name + "\n";
  EXPECT_EQ(ledger.rows("SELECT creator, table_name FROM systable ORDER BY table_name"), catalogue);
}

TEST_P(Schema, EnforcesEveryUniqueRuleAndNoOther) {
  for (const auto& table : tables) {
    const auto row = neededColumns(table);
    insert(ledger.keeper(), table.name, row);
    for (const auto& rule : table.uniques) {
      auto others = row;
      for (const auto& other : table.uniques) {
        if (other != rule) others = varied(others, other);
      }
      for (const auto& column : rule) others[column] = row.at(column);
      EXPECT_FALSE(accepts(ledger.keeper(), table, others)) << table.name << " lacks a rule of " << rule.front();
      for (const auto& column : rule) {
        EXPECT_TRUE(accepts(ledger.keeper(), table, varied(others, {column}))) << table.name << " by " << column;
      }
    }
  }
}

TEST_P(Schema, HasDefaultsAndTakesNeitherNullNorAForeignType) {
  for (const auto& table : tables) {
    const auto row = neededColumns(table);
    insert(ledger.keeper(), table.name, row);
    for (const auto& column : table.columns) {
      const auto given = row.find(column);
      const std::string value = given != row.end() ? given->second : isText(column) ? "" : "0";
      EXPECT_EQ(ledger.rows("SELECT " + column + " FROM " + table.name), value + "\n") << table.name << "." << column;
      const auto set = "UPDATE " + table.name + " SET " + column + " = ";
      EXPECT_TRUE(refused(ledger.keeper(), set + "NULL")) << table.name << "." << column;
      if (isText(column) || (isDate(column) && !onServer())) continue;
      EXPECT_TRUE(refused(ledger.keeper(), set + "'abc'")) << table.name << "." << column;
    }
  }
}

TEST_P(Schema, OrdersTextsByTheirBytes) {
  Names texts = {"b", "B", "a", "", "张三", "李四", "阿宝", "é", "Z 1", "10", "9", "_", "１"};
  const Names columns = {"lId", "sName"};
  const auto writer = ledger.keeper().insertInto("Person", columns);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    writer->put(static_cast<std::int64_t>(i));
    writer->put(std::string_view(texts[i]));
    writer->endRow();
  }
  writer->finish();
  std::ranges::sort(texts);
  std::string wanted;
  for (const auto& text : texts) wanted += text + "\n";
  EXPECT_EQ(ledger.rows("SELECT sName FROM Person ORDER BY sName"), wanted);
  EXPECT_EQ(ledger.rows("SELECT min(sName), max(sName) FROM Person"), texts.front() + "|" + texts.back() + "\n");
}

TEST_P(Schema, ListsItemTablesAsTheirClassSpellsThem) {
  ledger.fill("ProjClass", R"(
      lId | sItemId | sName
      1   | 01      | 在建工程
      2   | Ab7     | 合同
      3   | 03      | 尚无项目 )");
  ledger.fill("ProjItems", R"(
      lId | sItemId | nField | sTitle | sType
      1   | Ab7     | 0      | 编号   | 3
      2   | Ab7     | 1      | 名称   | 3
      3   | Ab7     | 2      | 预算   | 1
      4   | Ab7     | 3      | 开工日 | 4 )");
  ledger.makeItemTable("01");
  ledger.makeItemTable("Ab7");
  EXPECT_EQ(ledger.rows("SELECT table_name FROM systable WHERE table_name LIKE 'ProjItems_%' ORDER BY 1"),
            "ProjItems01\nProjItemsAb7\n");
  ledger.fill("ProjItemsAB7", R"(
      lId | FIELD0 | FIELD1 | FIELD2  | FIELD3
      1   | C-1    | 东楼   | 1200.50 | 2006.03.01 )");
  EXPECT_EQ(ledger.rows("SELECT * FROM projitemsab7"), "1|C-1|东楼|1200.5|2006.03.01\n");
}

TEST_P(Schema, CarriesTheProgramsIndexes) {
  for (const auto& index : ledgerIndexes(ledger.keeper().dialect())) {
    EXPECT_TRUE(
        refused(ledger.keeper(), "CREATE INDEX " + index.name + " ON " + index.table + " (" + index.columns + ")"))
        << index.name;
  }
  createIndexes(ledger.keeper());
}

TZ_ON_BOTH_DATABASES(Schema);

}  // namespace
}  // namespace tz::test
