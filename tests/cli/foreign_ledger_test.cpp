// A ledger that was made elsewhere: other column order, other spelling of names, tables and columns of its own, without
// indexes and mark log. It is read as any other and not changed by reading.
#include <algorithm>
#include <gtest/gtest.h>

#include "cli/small_company.h"
#include "core/data/record_io.h"
#include "core/data/schema.h"

namespace tz::test {
namespace {

std::string lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

void makeForeignTables(Connection& connection) {
  for (auto table : ledgerTables()) {
    if (table.name == MarkLogInfo::table) continue;
    std::ranges::reverse(table.columns);
    std::string text = "CREATE TABLE \"" + lower(table.name) + "\" (\"own_note\" varchar(20)";
    for (const auto& column : table.columns) {
      text += ", \"" + lower(column.name) + "\" " + std::string(connection.dialect().typeName(column.type));
    }
    connection.execute(Sql(text + ")"));
  }
  connection.execute("CREATE TABLE bills (id integer, remark varchar(100))");
  connection.execute("INSERT INTO bills VALUES (1, 'of another program')");
}

std::string expectedJson() {
  TestLedger own(Engine::sqlite);
  fillSmallCompany(own.keeper());
  const auto run = smallReport(own.address(), {"--as", "json"});
  EXPECT_EQ(run.status, 0) << run.err;
  return run.out;
}

TEST(ForeignLedger, InAFileIsReadAndLeftAlone) {
  const TempFolder folder;
  const auto path = folder.file("foreign.db");
  {
    const auto connection = openEmpty(path);
    connection->execute("PRAGMA journal_mode = DELETE");
    makeForeignTables(*connection);
    fillSmallCompany(*connection);
  }
  const auto before = fileBytes(path);
  const auto run = smallReport(path, {"--as", "json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, expectedJson());
  EXPECT_TRUE(fileBytes(path) == before) << "reading has changed the file";
  EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"foreign.db"});
}

TEST(ForeignLedger, OnAServerIsReadAndLeftAlone) {
  const TestPlace place(Engine::postgres);
  const auto connection = openEmpty(place.address());
  makeForeignTables(*connection);
  fillSmallCompany(*connection);
  const char* objects = "SELECT relname, relkind FROM pg_class WHERE relnamespace = 'public'::regnamespace ORDER BY 1";
  const auto before = rowsOf(*connection, objects);
  const auto run = smallReport(place.address(), {"--as", "json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, expectedJson());
  EXPECT_EQ(rowsOf(*connection, objects), before);
}

// Our own ledger, too, is left byte for byte as it was.
TEST(OwnLedger, IsNotChangedByReading) {
  const TempFolder folder;
  const auto path = folder.file("own.tz");
  ASSERT_EQ(runProgram({"ledger", "create", path, "--empty", "--year", "2006"}).status, 0);
  {
    const auto keeper = openLedger(path, Access::keeper);
    keeper->execute("DELETE FROM zAccountM");
    fillSmallCompany(*keeper);
  }
  const auto before = fileBytes(path);
  EXPECT_EQ(smallReport(path).status, 0);
  EXPECT_TRUE(fileBytes(path) == before);
}

TEST(NoLedger, IsSaidPlainly) {
  const TempFolder folder;
  const auto path = folder.file("notes.txt");
  {
    const auto connection = openEmpty(path);
    connection->execute("CREATE TABLE bills (id integer)");
  }
  const auto before = fileBytes(path);
  const auto run = smallReport(path);
  EXPECT_EQ(run.status, 3);
  EXPECT_NE(run.err.find("不是帐套"), std::string::npos) << run.err;
  EXPECT_TRUE(fileBytes(path) == before);
}

}  // namespace
}  // namespace tz::test
