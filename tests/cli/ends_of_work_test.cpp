// How work ends: outputs that cannot be written, readers and people that leave, signals, closed standard streams.
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>

#include "cli/small_company.h"

namespace tz::test {
namespace {

using Arguments = std::vector<std::string>;

// The program run by a shell line, in which "$@" stands for it and its arguments.
ProgramRun inShell(const std::string& line, const Arguments& arguments) {
  Arguments words = {"sh", "-c", line, "sh", TZ_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return runCommand(words);
}

class EndsOfWork : public DatabaseTest {
 protected:
  EndsOfWork() { fillSmallCompany(ledger_.keeper(), 2000); }

  // Every subcommand that prints something.
  [[nodiscard]] std::vector<Arguments> everyOutput() const {
    const auto& ledger = ledger_.address();
    return {smallReportWords(ledger),
            smallReportWords(ledger, {"--as", "json"}),
            smallReportWords(ledger, {"--as", "csv"}),
            {"reports"},
            {"reports", "--as", "json"},
            {"ledger", "check", ledger},
            {"completion", "bash"},
            {"completion", "words", "--", ""},
            {"--man"},
            {"--help"},
            {"--version"},
            {"report", "10190", "--help"}};
  }

  TestLedger ledger_{GetParam()};
  TempFolder folder_;
};

TEST_P(EndsOfWork, AnOutputThatCannotBeWrittenIsAFailure) {
  for (const auto& arguments : everyOutput()) {
    SCOPED_TRACE(arguments.back());
    const auto full = inShell("exec \"$@\" >/dev/full", arguments);
    EXPECT_EQ(full.status, 3);
    EXPECT_EQ(full.err, "tzassistant: 无法写入“标准输出”：磁盘空间不足\n");
    // Nothing that is opened later may be taken for standard output: the server's socket, or the ledger.
    const auto closed = inShell("exec \"$@\" >&-", arguments);
    EXPECT_EQ(closed.status, 3);
    EXPECT_EQ(closed.err, "tzassistant: 无法写入“标准输出”：没有打开，或不能写入\n");
  }
}

TEST_P(EndsOfWork, AReaderThatLeavesIsNoFailure) {
  for (const auto& arguments : everyOutput()) {
    SCOPED_TRACE(arguments.back());
    const auto all = runProgram(arguments);
    // The reader is gone before the first word.
    const auto left = inShell("{ sleep 0.1; \"$@\"; echo $? >&2; } | :", arguments);
    EXPECT_EQ(left.err, std::to_string(all.status) + "\n");
  }
}

TEST_P(EndsOfWork, ClosedStreamsDoNotTouchWhatIsOpened) {
  const auto shown = runProgram(smallReportWords(ledger_.address())).out;
  const auto target = folder_.file("报表.txt");
  for (const auto* closed : {"<&-", ">&-", "2>&-", "<&- >&- 2>&-"}) {
    const auto run = inShell(std::string("exec \"$@\" ") + closed, smallReportWords(ledger_.address(), {"-o", target}));
    EXPECT_EQ(run.status, 0) << closed << run.err;
    EXPECT_TRUE(fileBytes(target) == shown) << closed;
  }
  EXPECT_EQ(inShell("exec \"$@\" 2>&-", smallReportWords(ledger_.address(), {"--from", "13"})).status, 2);
  EXPECT_TRUE(runProgram(smallReportWords(ledger_.address())).out == shown) << "the ledger was written to";
}

TZ_ON_BOTH_DATABASES(EndsOfWork);

// Starts a report into a file and sends the signal as soon as the work file stands beside its place.
int endOfInterruptedReport(const std::string& ledger, const std::filesystem::path& folder, int signal) {
  const auto asked = smallReportWords(ledger, {"--as", "csv", "-o", (folder / "报表.csv").string()});
  Arguments words = {TZ_PROGRAM};
  words.insert(words.end(), asked.begin(), asked.end());
  std::vector<char*> pointers;
  for (auto& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  pid_t process = -1;
  if (posix_spawn(&process, words.front().c_str(), nullptr, nullptr, pointers.data(), environ) != 0) return -1;
  int status = 0;
  while (waitpid(process, &status, WNOHANG) == 0) {
    const auto names = namesIn(folder);
    if (std::ranges::any_of(names, [](const std::string& name) { return name.starts_with(".tz-"); })) {
      ::kill(process, signal);
      waitpid(process, &status, 0);
      break;
    }
    std::this_thread::yield();
  }
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

TEST(InterruptedReport, LeavesNoWorkFile) {
  TestLedger ledger(Engine::sqlite);
  fillSmallCompany(ledger.keeper(), 100'000);
  for (const int signal : {SIGINT, SIGHUP, SIGTERM}) {
    const TempFolder folder;
    int ended = 0;
    for (int attempt = 0; attempt < 20 && ended == 0; ++attempt) {  // it may be done before the signal comes
      std::filesystem::remove(folder.file("报表.csv"));
      ended = endOfInterruptedReport(ledger.address(), folder.path(), signal);
    }
    EXPECT_EQ(ended, signal);
    EXPECT_TRUE(namesIn(folder.path()).empty()) << namesIn(folder.path()).front();
  }
}

}  // namespace
}  // namespace tz::test
