// What lies beside a ledger: logs and journals that are another ledger's are refused, its own are gone by, and readers
// leave none behind that its owner could not use.
#include <csignal>
#include <fstream>
#include <functional>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cli/small_company.h"
#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "support/privileges.h"

namespace tz::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr const char* secondDigest = "SELECT sDigest FROM RegSub WHERE lId = 2";
constexpr const char* mark = "UPDATE RegSub SET sDigest = '改过' WHERE lId = 2";
// A change that the first page takes part in, because the ledger grows.
constexpr const char* growth =
    "INSERT INTO Person (lId, sName) WITH RECURSIVE n (i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
    "SELECT i, '一个很长的名字' FROM n";

std::string smallLedger(const TempFolder& folder, const char* name = "a.tz") {
  auto path = folder.file(name);
  createLedger(path, [](Connection& connection) { connection.execute("INSERT INTO Ages (lId) VALUES (1)"); });
  fillSmallCompany(*openLedger(path, Access::keeper));
  return path;
}

void write(const std::string& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

// Seconds by which a file was written earlier than it was.
void age(const std::string& path, int seconds) {
  fs::last_write_time(path, fs::last_write_time(path) - std::chrono::seconds(seconds));
}

// A ledger and its log as a crash leaves them.
struct Crashed {
  std::string ledger, log;
};

Crashed crashAfter(const std::string& path, std::initializer_list<const char*> statements) {
  const auto keeper = openLedger(path, Access::keeper);
  for (const char* statement : statements) keeper->execute(Sql(statement));
  return {fileBytes(path), fileBytes(path + "-wal")};
}

void put(const std::string& path, const Crashed& crashed) {
  write(path, crashed.ledger);
  write(path + "-wal", crashed.log);
}

std::string digestIn(const std::string& path) { return rowsOf(*openLedger(path, Access::read), secondDigest); }

void expectRefused(const std::string& path, const std::string& beside) {
  const auto ledger = fileBytes(path);
  const auto log = fileBytes(beside);
  const auto run = smallReport(path);
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("帐套旁边的文件不是它的"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("（" + beside + "："), std::string::npos) << run.err;
  EXPECT_TRUE(fileBytes(path) == ledger && fileBytes(beside) == log) << "something was changed";
}

class LogBeside : public ::testing::Test {
 protected:
  TempFolder folder_;
  std::string path_ = smallLedger(folder_);
};

TEST_F(LogBeside, IsTakenInAfterACrash) {
  for (const auto& changes : {std::initializer_list<const char*>{mark}, {mark, growth}, {growth, mark}}) {
    const TempFolder other;
    const auto path = other.file("copy.tz");
    fs::copy_file(path_, path);
    put(path, crashAfter(path, changes));
    EXPECT_EQ(digestIn(path), "改过\n");
  }
}

TEST_F(LogBeside, IsTakenInWhenSomeOfItIsInTheLedgerAlready) {
  Crashed crashed;
  {
    const auto keeper = openLedger(path_, Access::keeper);
    keeper->execute(growth);
    keeper->execute("PRAGMA wal_checkpoint(PASSIVE)");
    keeper->execute("DELETE FROM Person WHERE lId > 2000");  // begins the log anew
    keeper->execute("PRAGMA wal_checkpoint(PASSIVE)");
    crashed = {fileBytes(path_), fileBytes(path_ + "-wal")};
    put(folder_.file("b.tz"), crashed);
    keeper->execute(mark);
    crashed = {fileBytes(path_), fileBytes(path_ + "-wal")};
  }
  age(folder_.file("b.tz-wal"), 100);
  EXPECT_EQ(digestIn(folder_.file("b.tz")), "报销差旅费\n") << "a ledger that is newer than its log by what it took in";
  put(folder_.file("c.tz"), crashed);
  EXPECT_EQ(digestIn(folder_.file("c.tz")), "改过\n");
}

TEST_F(LogBeside, OfAnotherStateOfTheLedgerIsRefused) {
  const auto old = fileBytes(path_);
  openLedger(path_, Access::keeper)->execute(growth);
  const auto crashed = crashAfter(path_, {mark, "DELETE FROM Person WHERE lId >= 100", growth});
  put(path_, {old, crashed.log});
  expectRefused(path_, path_ + "-wal");
  // Without the first page in the log, the count of pages tells.
  const auto marked = crashAfter((write(path_, crashed.ledger), fs::remove(path_ + "-wal"), path_), {mark});
  put(path_, {old, marked.log});
  expectRefused(path_, path_ + "-wal");
}

TEST_F(LogBeside, OfAnotherLedgerIsRefused) {
  const auto other = smallLedger(folder_, "b.tz");
  const auto crashed = crashAfter(other, {growth});
  write(path_ + "-wal", crashed.log);
  expectRefused(path_, path_ + "-wal");
}

// The backup has the same pages and counter; only the time tells.
TEST_F(LogBeside, ThatIsOlderThanTheRestoredLedgerIsRefused) {
  const auto old = fileBytes(path_);
  const auto crashed = crashAfter(path_, {mark});
  put(path_, {old, crashed.log});
  age(path_ + "-wal", 3600);
  expectRefused(path_, path_ + "-wal");
  age(path_, 7200);  // as a copy that keeps its time: it may well be the log's own
  EXPECT_EQ(digestIn(path_), "改过\n");
}

TEST_F(LogBeside, OfAnotherKindIsRefused) {
  write(path_ + "-wal", "一段文字");
  expectRefused(path_, path_ + "-wal");
  fs::remove(path_ + "-wal");
  write(path_ + "-journal", "一段文字");
  expectRefused(path_, path_ + "-journal");
  fs::remove(path_ + "-journal");

  const auto crashed = crashAfter(path_, {growth});
  openLedger(path_, Access::keeper)->execute("PRAGMA journal_mode = DELETE");
  write(path_ + "-wal", crashed.log);
  expectRefused(path_, path_ + "-wal");
}

TEST_F(LogBeside, WithoutAnythingThatCountsIsNone) {
  const auto crashed = crashAfter(path_, {mark});
  for (const std::string& log : {std::string(), std::string(4152, '\0'), crashed.log.substr(0, 20),
                                 crashed.log.substr(0, 32), crashed.log.substr(0, 2000)}) {
    write(path_ + "-wal", log);
    EXPECT_EQ(digestIn(path_), "改过\n") << log.size() << ": closing had brought it into the ledger";
  }
}

TEST_F(LogBeside, AnEmptyFileKeepsItsOwn) {
  write(folder_.file("empty.tz"), "");
  write(folder_.file("empty.tz-wal"), "不要删");
  EXPECT_EQ(smallReport(folder_.file("empty.tz")).status, 3);
  EXPECT_EQ(fileBytes(folder_.file("empty.tz-wal")), "不要删");
}

// A ledger made elsewhere that keeps a journal, in the middle of a change.
class JournalBeside : public ::testing::Test {
 protected:
  JournalBeside() {
    const auto keeper = openLedger(path_, Access::keeper);
    keeper->execute("PRAGMA journal_mode = DELETE");
    whole_ = fileBytes(path_);
    keeper->execute("PRAGMA cache_size = 1");
    const Transaction writing(*keeper, Transaction::Purpose::writing);
    keeper->execute("UPDATE RegSub SET mMoney = 99999");
    keeper->execute(growth);
    half_ = {fileBytes(path_), fileBytes(path_ + "-journal")};
  }
  void crash() {
    write(path_, half_.ledger);
    write(path_ + "-journal", half_.log);
  }

  TempFolder folder_;
  std::string path_ = smallLedger(folder_);
  std::string whole_;
  Crashed half_;
};

TEST_F(JournalBeside, TakesTheChangeBackThatWasBrokenOff) {
  ASSERT_FALSE(half_.ledger == whole_) << "nothing of the change had reached the file";
  crash();
  const auto run = smallReport(path_);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.find("99"), std::string::npos) << run.out;
  EXPECT_TRUE(fileBytes(path_) == whole_);
}

TEST_F(JournalBeside, OfAnotherLedgerIsRefused) {
  const auto other = smallLedger(folder_, "b.tz");
  write(other + "-journal", half_.log);
  expectRefused(other, other + "-journal");
}

TEST_F(JournalBeside, ShowsNothingWhereItCannotBeUsed) {
  crash();
  for (const unsigned rights : {0444U, 0644U}) {
    setRights(path_, rights);
    setRights(folder_.path(), 0555);
    try {
      const WithoutPrivileges reader;
      const auto ledger = openLedger(path_, Access::read);
      ADD_FAILURE() << "shows " << rowsOf(*ledger, "SELECT mMoney FROM RegSub");
    } catch (const DbError& error) {
      EXPECT_EQ(error.kind(), DbError::Kind::unreadable) << error.what();
    }
    setRights(folder_.path(), 0755);
  }
}

// What a process of another user, in the groups named, comes to; -1 when it was killed.
int asUser(uid_t user, gid_t group, const std::function<bool()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::setgroups(0, nullptr) != 0 || ::setgid(group) != 0 || ::setuid(user) != 0) ::_exit(99);
    bool done = false;
    try {
      done = work();
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    ::_exit(done ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// A folder where a colleague may make files, with a ledger of its owner.
class SharedFolder : public ::testing::Test {
 protected:
  static constexpr uid_t owner = 4001;
  static constexpr uid_t colleague = 4002;
  static constexpr gid_t accounting = 4100;

  void SetUp() override {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can be somebody else";
    path_ = smallLedger(folder_);
    ASSERT_EQ(::chown(path_.c_str(), owner, accounting), 0);
    setRights(folder_.path(), 0777);
    setRights(path_, 0644);
  }
  [[nodiscard]] bool ownerCanWrite() const {
    return asUser(owner, owner, [&] {
             const auto keeper = openLedger(path_, Access::keeper);
             return keeper->execute("UPDATE RegSub SET byFlag = 1 - byFlag WHERE lId = 1") == 1;
           }) == 0;
  }
  static bool killed(int status) { return status == -1; }

  TempFolder folder_;
  std::string path_;
};

TEST_F(SharedFolder, IsReadWithoutATrace) {
  for (const unsigned rights : {0644U, 0666U}) {
    for (const auto access : {Access::read, Access::report}) {
      if (rights == 0666 && access == Access::report) continue;  // he is at work there
      setRights(path_, rights);
      EXPECT_TRUE(killed(asUser(colleague, colleague, [&] {
        const auto reader = openLedger(path_, access);
        EXPECT_EQ(rowsOf(*reader, "SELECT count(*) FROM RegSub"), "2\n");
        ::raise(SIGKILL);
        return false;
      })));
      EXPECT_EQ(namesIn(folder_.path()), Names{"a.tz"});
      EXPECT_TRUE(ownerCanWrite());
    }
  }
}

TEST_F(SharedFolder, LeavesRootsFilesToTheOwner) {
  EXPECT_TRUE(killed(asUser(0, 0, [&] {
    const auto reader = openLedger(path_, Access::read);
    EXPECT_EQ(rowsOf(*reader, "SELECT count(*) FROM RegSub"), "2\n");
    ::raise(SIGKILL);
    return false;
  })));
  EXPECT_TRUE(ownerCanWrite());
  EXPECT_EQ(namesIn(folder_.path()), Names{"a.tz"});
}

TEST_F(SharedFolder, GivesFilesAtWorkToTheGroup) {
  setRights(path_, 0664);
  EXPECT_EQ(asUser(0, 0,
                   [&] {
                     const gid_t groups[] = {accounting};
                     if (::setgroups(1, groups) != 0 || ::setgid(colleague) != 0 || ::setuid(colleague) != 0)
                       return false;
                     const auto worker = openLedger(path_, Access::report);
                     worker->execute("UPDATE RegSub SET byFlag = 1 WHERE lId = 1");
                     struct stat log {};
                     struct stat index {};
                     return ::stat((path_ + "-wal").c_str(), &log) == 0 && log.st_gid == accounting &&
                            ::stat((path_ + "-shm").c_str(), &index) == 0 && index.st_gid == accounting;
                   }),
            0);
}

TEST_F(SharedFolder, ShowsWhatTheOwnerHasWrittenWhileHeIsAtWork) {
  const auto keeper = openLedger(path_, Access::keeper);  // as root, for the owner
  keeper->execute(mark);
  EXPECT_EQ(asUser(colleague, colleague,
                   [&] {
                     const auto reader = openLedger(path_, Access::read);
                     Transaction reading(*reader, Transaction::Purpose::reading);
                     const bool seen = rowsOf(*reader, secondDigest) == "改过\n";
                     reading.commit();
                     return seen;
                   }),
            0);
  keeper->execute("UPDATE RegSub SET sDigest = '又改' WHERE lId = 2");
  EXPECT_EQ(asUser(colleague, colleague, [&] { return digestIn(path_) == "又改\n"; }), 0);
  struct stat log {};
  EXPECT_TRUE(::stat((path_ + "-wal").c_str(), &log) == 0 && log.st_uid == owner);
}

// A ledger in a folder that its reader may not write, which somebody else changes.
class StandingLedgerTest : public ::testing::Test {
 protected:
  StandingLedgerTest() { setRights(folder_.path(), 0555); }
  ~StandingLedgerTest() override { setRights(folder_.path(), 0755); }

  [[nodiscard]] std::unique_ptr<Connection> reader() const {
    const WithoutPrivileges colleague;
    return openLedger(path_, Access::read);
  }
  void change(const char* statement) {
    setRights(folder_.path(), 0755);
    openLedger(path_, Access::keeper)->execute(Sql(statement));
    setRights(folder_.path(), 0555);
  }
  static void expectChanged(const std::function<void()>& work) {
    try {
      work();
      ADD_FAILURE() << "two states in one";
    } catch (const DbError& error) {
      EXPECT_EQ(error.kind(), DbError::Kind::changed) << error.what();
    }
  }

  TempFolder folder_;
  std::string path_ = smallLedger(folder_);
};

TEST_F(StandingLedgerTest, IsReadAnewInTheNextTransaction) {
  const auto ledger = reader();
  {
    Transaction reading(*ledger, Transaction::Purpose::reading);
    (void)rowsOf(*ledger, "SELECT count(*) FROM Person");
    change(mark);
    (void)rowsOf(*ledger, secondDigest);
    expectChanged([&] { reading.commit(); });
  }
  const WithoutPrivileges colleague;
  Transaction reading(*ledger, Transaction::Purpose::reading);
  EXPECT_EQ(rowsOf(*ledger, secondDigest), "改过\n");
  reading.commit();
}

TEST_F(StandingLedgerTest, IsNotReadOnByOneStatement) {
  const auto ledger = reader();
  const auto rows = ledger->query("SELECT sDigest FROM RegSub ORDER BY lId");
  EXPECT_TRUE(rows->next());
  change(mark);
  expectChanged([&] { rows->next(); });
}

TEST_F(StandingLedgerTest, IsReadWithTheLogThatACrashLeft) {
  setRights(folder_.path(), 0755);
  const auto crashed = folder_.file("crashed.tz");
  {
    const auto keeper = openLedger(path_, Access::keeper);
    keeper->execute(mark);
    for (const char* suffix : {"", "-wal", "-shm"}) {
      fs::copy_file(path_ + suffix, crashed + suffix);
      setRights(crashed + suffix, 0444);
    }
  }
  setRights(folder_.path(), 0555);
  const WithoutPrivileges colleague;
  EXPECT_EQ(digestIn(crashed), "改过\n");
}

TEST_F(StandingLedgerTest, FailsAReport) {
  setRights(folder_.path(), 0755);
  path_ = folder_.file("b.tz");
  createLedger(path_, [](Connection&) {});
  fillSmallCompany(*openLedger(path_, Access::keeper), 20'000);
  setRights(folder_.path(), 0555);
  CQnCwDB db(Access::read);
  {
    const WithoutPrivileges colleague;
    db.Open(path_);
  }
  bool changed = false;
  Session session{.db = db, .ledger = path_, .logon = {2006, 1, 31}};
  session.progress = [&](std::int64_t, std::int64_t) {
    if (!std::exchange(changed, true)) change("UPDATE RegSub SET mMoney = 99999");
  };
  Request request;
  request.set(ParameterKey::account, "113301");
  request.set(ParameterKey::dept, "销售部");
  request.set(ParameterKey::person, "张三");
  expectChanged([&] { (void)runReport(*findReport(10190), request, session); });
  EXPECT_TRUE(changed);
}

}  // namespace
}  // namespace tz::test
