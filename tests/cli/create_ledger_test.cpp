// ledger create: a whole ledger or none, whatever happens meanwhile, and nothing of anybody else's touched.
#include "core/data/create_ledger.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <future>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cli/small_company.h"

namespace tz::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

ProgramRun create(const std::string& path, const std::vector<std::string>& settings = {}) {
  return runProgram({"ledger", "create", path, "--sample"}, settings);
}

// Behind what the check hints at.
bool saysWhole(const std::string& said) { return said.ends_with("帐套符合全部规则\n"); }

bool isWhole(const std::string& path) {
  const auto run = runProgram({"ledger", "check", path});
  return run.status == 0 && saysWhole(run.out);
}

std::uintmax_t sizeOfSample() {
  const TempFolder folder;
  EXPECT_EQ(create(folder.file("a.tz")).status, 0);
  EXPECT_TRUE(isWhole(folder.file("a.tz")));
  EXPECT_EQ(fileBytes(folder.file("a.tz")).substr(18, 2), "\2\2") << "at work it keeps a log";
  EXPECT_EQ(namesIn(folder.path()), Names{"a.tz"});
  return fs::file_size(folder.file("a.tz"));
}

// In hundredths of what the ledger needs.
const std::vector<int> diskSizes = {0,   3,   20,  50,  80,  95,  99,  100, 101, 105,
                                    110, 120, 130, 145, 160, 180, 200, 230, 300};

TEST(CreateOnASmallDisk, EndsWithAWholeLedgerOrWithNone) {
  const auto needed = sizeOfSample();
  int made = 0;
  for (const int percent : diskSizes) {
    const TempFolder folder;
    const auto path = folder.file("新帐套.tz");
    const auto run = create(path, {"LD_PRELOAD=" TZ_SMALL_DISK, "ASAN_OPTIONS=verify_asan_link_order=0",
                                   "TZ_DISK_FOLDER=" + folder.path().string(),
                                   "TZ_DISK_BYTES=" + std::to_string(needed * static_cast<unsigned>(percent) / 100)});
    if (run.status == 0) {
      ++made;
      EXPECT_TRUE(isWhole(path)) << percent << " %";
      continue;
    }
    EXPECT_EQ(run.status, 3) << percent << " %";
    EXPECT_NE(run.err.find("磁盘已满"), std::string::npos) << percent << " %: " << run.err;
    EXPECT_EQ(namesIn(folder.path()), Names{}) << percent << " %";
  }
  EXPECT_GT(made, 0);
  EXPECT_LT(made, static_cast<int>(diskSizes.size()));
}

// The same on a file system in memory, where one may be mounted.
TEST(CreateOnASmallDisk, OfItsOwn) {
  const TempFolder folder;
  const auto mounting = [&](const std::string& size, const std::string& command) {
    return runCommand({"unshare", "-rm", "sh", "-c",
                       "mount -t tmpfs -o size=" + size + " none '" + folder.path().string() + "' || exit 77; cd '" +
                           folder.path().string() + "'; " + command});
  };
  if (mounting("64k", "true").status != 0) GTEST_SKIP() << "no file system may be mounted here";
  const auto needed = sizeOfSample() / 1024;
  for (const int percent : {5, 60, 98, 105, 115, 135, 150, 175, 195, 260}) {
    const auto run =
        mounting(std::to_string(needed * static_cast<unsigned>(percent) / 100) + "k",
                 "'" TZ_PROGRAM "' ledger create a.tz --sample; echo status $?; ls -A; [ ! -e a.tz ] || '" TZ_PROGRAM
                 "' ledger check a.tz");
    const bool made = run.out.starts_with("status 0\na.tz\n") && saysWhole(run.out);
    const bool refused = run.out == "status 3\n" && run.err.find("磁盘已满") != std::string::npos;
    EXPECT_TRUE(percent > 120   ? made
                : percent < 100 ? refused
                                : made || refused)
        << percent << " %: " << run.out << run.err;
  }
}

TEST(CreateBesideOthers, RefusesWhatAnEarlierLedgerLeft) {
  for (const char* suffix : {"-wal", "-journal", "-shm"}) {
    const TempFolder folder;
    const auto path = folder.file("新帐套.tz");
    std::ofstream(path + suffix) << "留下的";
    const auto run = create(path);
    EXPECT_EQ(run.status, 3);
    EXPECT_NE(run.err.find("（" + path + suffix + "："), std::string::npos) << run.err;
    EXPECT_EQ(namesIn(folder.path()), Names{"新帐套.tz" + std::string(suffix)});
    EXPECT_EQ(fileBytes(path + suffix), "留下的");
  }
}

TEST(CreateBesideOthers, TouchesNothingOfTheirs) {
  const TempFolder folder;
  const auto path = folder.file("a.tz");
  for (const char* name : {"a.tz.part", "a.tz.part-wal", "a.tz.part-journal", "a.tz.part-shm"}) {
    std::ofstream(folder.file(name)) << "我的";
  }
  ASSERT_EQ(create(path).status, 0);
  EXPECT_TRUE(isWhole(path));
  for (const char* name : {"a.tz.part", "a.tz.part-wal", "a.tz.part-journal", "a.tz.part-shm"}) {
    EXPECT_EQ(fileBytes(folder.file(name)), "我的") << name;
  }
  fs::create_symlink("nowhere", folder.file("link.tz"));
  EXPECT_EQ(create(folder.file("link.tz")).status, 3);
  EXPECT_TRUE(fs::is_symlink(folder.file("link.tz")));
}

TEST(CreateBesideOthers, LeavesAFileThatAppearsMeanwhile) {
  const TempFolder folder;
  const auto path = folder.file("a.tz");
  for (const char* name : {"a.tz", "a.tz-wal"}) {
    try {
      createLedger(path, [&](Connection&) { std::ofstream(folder.file(name)) << "别人的"; });
      ADD_FAILURE() << "made over " << name;
    } catch (const DbError& error) {
      EXPECT_NE(std::string(error.what()).find(name), std::string::npos) << error.what();
    }
    EXPECT_EQ(fileBytes(folder.file(name)), "别人的");
    EXPECT_EQ(namesIn(folder.path()), Names{name});
    fs::remove(folder.file(name));
  }
}

TEST(CreateBesideOthers, OneOfSeveralAtOnceWins) {
  const TempFolder folder;
  const auto path = folder.file("a.tz");
  std::vector<std::future<ProgramRun>> runs;
  runs.reserve(4);
  for (int i = 0; i < 4; ++i) runs.push_back(std::async(std::launch::async, [&] { return create(path); }));
  int made = 0;
  for (auto& run : runs) {
    const auto ended = run.get();
    made += ended.status == 0 ? 1 : 0;
    EXPECT_TRUE(ended.status == 0 || ended.err.find("已经存在") != std::string::npos) << ended.err;
  }
  EXPECT_EQ(made, 1);
  EXPECT_TRUE(isWhole(path));
  EXPECT_EQ(namesIn(folder.path()), Names{"a.tz"});
}

TEST(CreateThatIsStopped, LeavesNothing) {
  for (const int signal : {SIGINT, SIGHUP, SIGTERM}) {
    const TempFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
      createLedger(folder.file("a.tz"), [&](Connection& connection) {
        connection.execute("INSERT INTO Person (lId) VALUES (1)");
        ::raise(signal);
      });
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal;
    EXPECT_EQ(namesIn(folder.path()), Names{}) << signal;
  }
}

}  // namespace
}  // namespace tz::test
