#include "support/test_ledger.h"

#include <cstdlib>
#include <stdexcept>
#include <vector>

#include "core/data/backends.h"
#include "core/data/create_ledger.h"
#include "core/data/record_io.h"
#include "core/data/schema.h"

namespace tz::test {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string> split(std::string_view text, char sign) {
  std::vector<std::string> parts;
  for (;;) {
    const auto place = text.find(sign);
    parts.emplace_back(trimmed(text.substr(0, place)));
    if (place == std::string_view::npos) return parts;
    text.remove_prefix(place + 1);
  }
}

std::unique_ptr<Connection> openMaintenance() { return openPostgres(serverAddress("postgres"), Access::keeper); }

}  // namespace

TempFolder::TempFolder() {
  auto name = (std::filesystem::temp_directory_path() / "tz-test.XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
  path_ = name;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string serverAddress(std::string_view database, std::string_view user) {
  const char* variable = std::getenv("TZ_TEST_POSTGRES");
  if (variable == nullptr) throw std::runtime_error("no test server: run the tests under tests/support/with-postgres");
  std::string address(variable);
  const auto name = address.find(":///") + 4;
  address.replace(name, address.find('?') - name, database);
  const auto userPlace = address.find("user=") + 5;
  return address.replace(userPlace, std::string::npos, user);
}

TestPlace::TestPlace(Engine engine) {
  if (engine == Engine::sqlite) {
    address_ = folder_.file("帐套 1.tz");
    return;
  }
  static int count = 0;
  database_ = "tz_test_" + std::to_string(++count);
  address_ = serverAddress(database_);
  openMaintenance()->execute(Sql("CREATE DATABASE " + database_ + " TEMPLATE template0 STRATEGY file_copy"));
}

TestPlace::~TestPlace() {
  if (database_.empty()) return;
  try {
    openMaintenance()->execute(Sql("DROP DATABASE " + database_ + " WITH (FORCE)"));
  } catch (const DbError& error) {
    ADD_FAILURE() << "the test's database stays: " << error.what();
  }
}

TestLedger::TestLedger(Engine engine) : place_(engine) {
  createLedger(address(), [](Connection&) {});
  keeper_ = open(Access::keeper);
}

void TestLedger::fill(std::string_view table, std::string_view rows) {
  std::vector<std::string> columns;
  std::unique_ptr<RowWriter> writer;
  Transaction transaction(*keeper_, Transaction::Purpose::writing);
  for (const auto& line : split(rows, '\n')) {
    if (line.empty()) continue;
    const auto cells = split(line, '|');
    if (writer == nullptr) {
      columns = cells;
      writer = keeper_->insertInto(table, columns);
      continue;
    }
    if (cells.size() != columns.size()) throw std::runtime_error("a row that does not fit its heads: " + line);
    // Both databases turn a text into the figure or date that the column holds, and refuse one that is none.
    for (const auto& cell : cells) writer->put(std::string_view(cell));
    writer->endRow();
  }
  if (writer != nullptr) writer->finish();
  transaction.commit();
}

void TestLedger::makeItemTable(std::string_view classId) {
  const auto fields = readRecords<ProjItemsInfo>(*keeper_, classIs(classId) + " ORDER BY nField");
  keeper_->execute(Sql(createTableText(itemTableSchema(classId, fields), keeper_->dialect())));
}

std::string TestLedger::rows(std::string_view select) { return rowsOf(*keeper_, Sql(select)); }

std::string rowsOf(Connection& connection, const Sql& select) {
  std::string text;
  const auto cursor = connection.query(select);
  while (cursor->next()) {
    for (int column = 0; column < cursor->columns(); ++column) {
      if (column != 0) text += '|';
      text += cursor->anyText(column);
    }
    text += '\n';
  }
  return text;
}

std::string engineName(const ::testing::TestParamInfo<Engine>& info) {
  return info.param == Engine::sqlite ? "sqlite" : "postgres";
}

}  // namespace tz::test
