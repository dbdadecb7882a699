// Ledgers that are broken, foreign, newer, locked or out of reach: status 3, a message that says what is wrong and what
// to do, nothing printed, and the file as it was.
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sys/wait.h>
#include <unistd.h>

#include "cli/small_company.h"
#include "core/catalogue/catalogue.h"
#include "core/data/backends.h"
#include "core/data/create_ledger.h"
#include "core/reports/explain_error.h"
#include "support/privileges.h"

namespace tz::test {
namespace {

namespace fs = std::filesystem;

std::string smallLedger(const TempFolder& folder) {
  auto path = folder.file("帐套.db");
  createLedger(path, [](Connection&) {});
  fillSmallCompany(*openLedger(path, Access::keeper));
  return path;
}

void overwrite(const std::string& path, std::streamoff place, std::string_view bytes) {
  std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(place).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void replaceBy(const std::string& path, std::string_view bytes) {
  fs::remove(path);
  std::ofstream(path, std::ios::binary) << bytes;
}

void execute(const std::string& path, const char* statement) {
  openLedger(path, Access::keeper)->execute(Sql(statement));
}

// Of a table with rows in the middle of the file: its first page, as the file counts them from 1.
std::streamoff pageOf(const std::string& path, const char* table) {
  const auto reader = openLedger(path, Access::read);
  constexpr std::streamoff pageSize = 4096;
  return pageSize * (std::stoi(rowsOf(*reader, Sql("SELECT rootpage FROM sqlite_master WHERE name = ?", table))) - 1);
}

bool holdsEnglish(const std::string& message) {
  static const std::regex words("[A-Za-z]+ [a-z]+ [a-z]+");
  return std::regex_search(message, words);
}

struct Harm {
  const char* name;
  void (*harm)(const std::string& path);
  const char* said;
};

const Harm harms[] = {
    {"missing", [](const std::string& path) { fs::remove(path); }, "找不到帐套"},
    {"folder",
     [](const std::string& path) {
       fs::remove(path);
       fs::create_directory(path);
     },
     "这不是帐套"},
    {"empty", [](const std::string& path) { fs::resize_file(path, 0); }, "这不是帐套"},
    {"text", [](const std::string& path) { replaceBy(path, "借 100.00 贷 100.00\n"); }, "这不是帐套"},
    {"workbook", [](const std::string& path) { replaceBy(path, "PK\x03\x04" + std::string(5000, 'x')); }, "这不是帐套"},
    {"table", [](const std::string& path) { execute(path, "DROP TABLE RegMain"); },
     "帐套不完整。缺少需要的表或列，请补齐后再打开，或用备份恢复。（缺少表 RegMain）"},
    {"column", [](const std::string& path) { execute(path, "ALTER TABLE RegSub RENAME COLUMN mMoney TO mSum"); },
     "帐套不完整"},
    {"truncated", [](const std::string& path) { fs::resize_file(path, fs::file_size(path) / 2); }, "帐套数据已损坏"},
    {"stump", [](const std::string& path) { fs::resize_file(path, 50); }, "帐套数据已损坏"},
    {"zeros", [](const std::string& path) { overwrite(path, pageOf(path, "Code"), std::string(4096, '\0')); },
     "帐套数据已损坏"},
    {"newer", [](const std::string& path) { execute(path, "PRAGMA user_version = 99"); }, "帐套由更新的版本建立"},
    {"newerFile", [](const std::string& path) { overwrite(path, 18, "\3\3"); }, "帐套由更新的版本建立"},
    {"newerSchema", [](const std::string& path) { overwrite(path, 47, "\5"); }, "帐套由更新的版本建立"},
};

class BrokenLedger : public ::testing::TestWithParam<Harm> {};

TEST_P(BrokenLedger, IsExplainedAndLeftAlone) {
  const TempFolder folder;
  const auto path = smallLedger(folder);
  GetParam().harm(path);
  const auto before = fs::is_directory(path) ? "" : fileBytes(path);
  const auto names = namesIn(folder.path());
  const auto run = smallReport(path);
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find(GetParam().said), std::string::npos) << run.err;
  EXPECT_FALSE(holdsEnglish(run.err)) << "a library's words: " << run.err;
  EXPECT_TRUE(fs::is_directory(path) || fileBytes(path) == before);
  EXPECT_EQ(namesIn(folder.path()), names);
}

INSTANTIATE_TEST_SUITE_P(File, BrokenLedger, ::testing::ValuesIn(harms),
                         [](const auto& test) { return std::string(test.param.name); });

void expectSaid(const ProgramRun& run, const char* said) {
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find(said), std::string::npos) << run.err;
  EXPECT_FALSE(holdsEnglish(run.err)) << "a library's words: " << run.err;
}

TEST(LockedLedger, IsSaidAfterWaiting) {
  const TempFolder folder;
  const auto path = smallLedger(folder);
  const auto owner = openSqlite(path, Access::keeper);
  owner->execute("PRAGMA journal_mode = DELETE");
  owner->execute("PRAGMA locking_mode = EXCLUSIVE");
  owner->execute("DELETE FROM Ages");  // the lock stays
  expectSaid(smallReport(path), "帐套正被其他程序占用");
}

DbError::Kind kindOfOpening(const std::string& path, Access access) {
  const WithoutPrivileges nobody;
  try {
    (void)openLedger(path, access);
  } catch (const DbError& error) {
    EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
    return error.kind();
  }
  return DbError::Kind::other;
}

// What lies in the log after a change that is not yet in the ledger itself.
std::string logAfter(const std::string& path, const char* statement) {
  const auto keeper = openLedger(path, Access::keeper);
  keeper->execute(Sql(statement));
  const auto ledger = fileBytes(path);
  auto log = fileBytes(path + "-wal");
  replaceBy(path, ledger);
  return log;
}

TEST(LedgerRights, AreToldFromMissingFiles) {
  const TempFolder folder;
  const auto path = smallLedger(folder);
  setRights(folder.path(), 0555);
  setRights(path, 0000);
  EXPECT_EQ(kindOfOpening(path, Access::read), DbError::Kind::unreadable);
  setRights(path, 0444);
  setRights(folder.path(), 0000);
  EXPECT_EQ(kindOfOpening(path, Access::read), DbError::Kind::unreadable);
  setRights(folder.path(), 0755);
}

TEST(LedgerRights, ReadOnlyLedgersAreReadAndNotWritten) {
  const TempFolder folder;
  const auto path = smallLedger(folder);
  setRights(path, 0444);
  setRights(folder.path(), 0555);
  {
    const WithoutPrivileges nobody;
    for (const auto access : {Access::read, Access::report}) {
      const auto ledger = openLedger(path, access);
      EXPECT_EQ(rowsOf(*ledger, "SELECT count(*) FROM RegSub"), "2\n");
      try {
        ledger->execute("UPDATE RegSub SET byFlag = 1 WHERE lId = 1 AND lTieId = 1 AND byFlag = 0");
        ADD_FAILURE() << "written";
      } catch (const DbError& error) {
        EXPECT_EQ(error.kind(), DbError::Kind::denied) << error.what();
      }
    }
  }
  // With changes that were not yet merged, reading the file alone would leave them out.
  setRights(folder.path(), 0755);
  setRights(path, 0644);
  const auto log = logAfter(path, "UPDATE RegSub SET byFlag = 1");
  setRights(path, 0444);
  fs::remove(path + "-shm");
  std::ofstream(path + "-wal", std::ios::binary) << log;
  setRights(folder.path(), 0555);
  EXPECT_EQ(kindOfOpening(path, Access::read), DbError::Kind::unreadable);
  setRights(folder.path(), 0755);
}

TEST(FullDisk, LeavesNoPartOfALedger) {
  const TempFolder folder;
  const auto path = folder.file("新帐套.db");
  const std::string command = "trap '' XFSZ; ulimit -f 100; exec '" TZ_PROGRAM "' ledger create '" + path +
                              "' --sample 2> '" + folder.file("said") + "'";
  const int status = std::system(command.c_str());  // NOLINT(cert-env33-c): the limit is the shell's to set
  EXPECT_EQ(WEXITSTATUS(status), 3);
  EXPECT_NE(fileBytes(folder.file("said")).find("读写磁盘时出错"), std::string::npos);
  EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"said"});
}

TEST(FullDisk, UndoesWhatWasBegun) {
  const TempFolder folder;
  const auto path = smallLedger(folder);
  const auto keeper = openLedger(path, Access::keeper);
  keeper->execute("PRAGMA max_page_count = 1");  // no page more than there are
  try {
    const Transaction writing(*keeper, Transaction::Purpose::writing);
    for (int id = 100; id < 1000; ++id) {
      keeper->execute(Sql("INSERT INTO Person (lId, sName) VALUES (?, ?)", id, std::string(1000, 'x')));
    }
    ADD_FAILURE() << "there was room";
  } catch (const DbError& error) {
    EXPECT_TRUE(explain(error).starts_with("磁盘已满。这次的更改没有保存")) << explain(error);
  }
  EXPECT_EQ(rowsOf(*keeper, "SELECT count(*) FROM Person"), "1\n");
}

TEST(Server, IsExplainedWhenItCannotBeHad) {
  expectSaid(smallReport("postgresql://127.0.0.1:1/ledger"), "连不上数据库服务器");
  expectSaid(smallReport("postgresql://no-such-host.invalid/ledger"), "连不上数据库服务器");
  expectSaid(smallReport(serverAddress("no_such_database")), "找不到帐套");
  expectSaid(smallReport(serverAddress("postgres", "no_such_role")), "数据库服务器不接受这个用户名或口令");
  expectSaid(smallReport(serverAddress("postgres")), "这不是帐套");
}

// The connection ends while a report is in the middle of its lines.
TEST(Server, ThatStopsInMidReportFailsIt) {
  TestLedger ledger(Engine::postgres);
  fillSmallCompany(ledger.keeper(), 20'000);
  CQnCwDB db(Access::read);
  db.Open(ledger.address());
  const auto process = rowsOf(db.Current(), "SELECT pg_backend_pid()");
  const auto superuser = openPostgres(serverAddress("postgres"), Access::keeper);
  Session session{.db = db, .ledger = ledger.address(), .logon = {2006, 1, 31}};
  bool stopped = false;
  session.progress = [&](std::int64_t done, std::int64_t) {
    if (done == 0 || stopped) return;
    stopped = true;
    (void)rowsOf(*superuser, Sql("SELECT pg_terminate_backend(CAST(? AS integer), 5000)", std::stoi(process)));
  };
  Request request;
  request.set(ParameterKey::account, "113301");
  request.set(ParameterKey::dept, "销售部");
  request.set(ParameterKey::person, "张三");
  try {
    (void)runReport(*findReport(10190), request, session);
    ADD_FAILURE() << "a report of some of the lines";
  } catch (const DbError& error) {
    EXPECT_TRUE(explain(error).starts_with("与数据库的连接已断开")) << explain(error);
  }
  EXPECT_TRUE(stopped);
}

}  // namespace
}  // namespace tz::test
