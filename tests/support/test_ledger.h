// Ledgers for tests: a fresh one per test, in a file or on the test server, filled from tables that a person can read.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>

#include "core/data/connection.h"

namespace tz::test {

enum class Engine { sqlite, postgres };

// A folder of its own, gone at the end.
class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] std::string file(std::string_view name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// The address of a database on the test server that with-postgres started.
[[nodiscard]] std::string serverAddress(std::string_view database, std::string_view user = "postgres");

// A place for one ledger: the path of a file that does not exist yet, or an empty database.
class TestPlace {
 public:
  explicit TestPlace(Engine engine);
  TestPlace(const TestPlace&) = delete;
  TestPlace& operator=(const TestPlace&) = delete;
  ~TestPlace();
  [[nodiscard]] const std::string& address() const { return address_; }
  // The same ledger for another role of the server.
  [[nodiscard]] std::string addressAs(std::string_view user) const { return serverAddress(database_, user); }

 private:
  TempFolder folder_;
  std::string database_;  // empty for a file
  std::string address_;
};

// A ledger with its tables and indexes and nothing in them.
class TestLedger {
 public:
  explicit TestLedger(Engine engine);

  [[nodiscard]] const TestPlace& place() const { return place_; }
  [[nodiscard]] const std::string& address() const { return place_.address(); }
  [[nodiscard]] std::unique_ptr<Connection> open(Access access) const { return openLedger(address(), access); }
  [[nodiscard]] Connection& keeper() { return *keeper_; }

  // Adds rows. The first line names columns, '|' parts the cells, blanks around them do not count, an empty cell is an
  // empty text; columns that are not named take their defaults:
  //     ledger.fill("Person", R"(
  //         lId | sPersonId | sName | lDeptId
  //         1   | P01       | 张三  | 3 )");
  void fill(std::string_view table, std::string_view rows);
  // Makes the item table of a class whose fields ProjItems lists.
  void makeItemTable(std::string_view classId);
  // What a SELECT answers, a line per row, cells parted by '|'.
  [[nodiscard]] std::string rows(std::string_view select);

 private:
  TestPlace place_;
  std::unique_ptr<Connection> keeper_;
};

[[nodiscard]] std::string rowsOf(Connection& connection, const Sql& select);

// A test that runs on both databases; TZ_ON_BOTH_DATABASES(Suite) names its runs.
class DatabaseTest : public ::testing::TestWithParam<Engine> {
 protected:
  [[nodiscard]] bool onServer() const { return GetParam() == Engine::postgres; }
};
[[nodiscard]] std::string engineName(const ::testing::TestParamInfo<Engine>& info);

#define TZ_ON_BOTH_DATABASES(Suite)                                                                                \
  INSTANTIATE_TEST_SUITE_P(On, Suite, ::testing::Values(::tz::test::Engine::sqlite, ::tz::test::Engine::postgres), \
                           ::tz::test::engineName)

}  // namespace tz::test
