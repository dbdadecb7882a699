// A process that is ended by a signal takes its unfinished files with it.
#include "core/platform/unfinished_files.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/output/temporary_folder.h"

namespace tz::test {
namespace {

// What a process of its own comes to that does this; the signal that ended it, 0 when it ended by itself.
int endOf(const std::function<void()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    work();
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

void makeFile(const std::string& path) { std::ofstream(path) << "half"; }

TEST(UnfinishedFiles, GoWithTheProcessThatASignalEnds) {
  const TemporaryFolder folder;
  for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE}) {
    struct sigaction started = {};
    ::sigaction(signal, nullptr, &started);
    if (started.sa_handler == SIG_IGN) continue;  // nohup started the tests
    const int ended = endOf([&] {
      makeFile(folder / "kept");
      makeFile(folder / "first");
      makeFile(folder / "second");
      const platform::UnfinishedFile first(folder / "first");
      { const platform::UnfinishedFile kept(folder / "kept"); }
      const platform::UnfinishedFile second(folder / "second");
      ::raise(signal);
    });
    EXPECT_EQ(ended, signal) << "the shell must see what ended it";
    EXPECT_TRUE(std::filesystem::exists(folder / "kept")) << signal;
    EXPECT_FALSE(std::filesystem::exists(folder / "first")) << signal;
    EXPECT_FALSE(std::filesystem::exists(folder / "second")) << signal;
  }
}

TEST(UnfinishedFiles, LeaveIgnoredSignalsIgnored) {
  const TemporaryFolder folder;
  makeFile(folder / "half");
  const int ended = endOf([&] {
    std::signal(SIGHUP, SIG_IGN);  // as nohup does
    const platform::UnfinishedFile half(folder / "half");
    ::raise(SIGHUP);
  });
  EXPECT_EQ(ended, 0);
  EXPECT_TRUE(std::filesystem::exists(folder / "half"));
}

TEST(UnfinishedFiles, AreNamedBeforeASignalArrives) {
  const TemporaryFolder folder;
  const int ended = endOf([&] {
    std::optional<platform::UnfinishedFile> half;
    const platform::HeldSignals held;
    makeFile(folder / "half");
    ::raise(SIGTERM);
    half.emplace(folder / "half");
  });
  EXPECT_EQ(ended, SIGTERM);
  EXPECT_FALSE(std::filesystem::exists(folder / "half"));
}

TEST(UnfinishedFiles, AreNotPutOverWhatAppearedMeanwhile) {
  const TemporaryFolder folder;
  makeFile(folder / "work");
  std::ofstream(folder / "place") << "another's";
  EXPECT_EQ(platform::putInFreePlace(folder / "work", folder / "place"), EEXIST);
  EXPECT_EQ(std::filesystem::file_size(folder / "place"), 9U);
  EXPECT_EQ(platform::putInFreePlace(folder / "work", folder / "free"), 0);
  EXPECT_FALSE(std::filesystem::exists(folder / "work"));
  EXPECT_EQ(std::filesystem::file_size(folder / "free"), 4U);
}

}  // namespace
}  // namespace tz::test
