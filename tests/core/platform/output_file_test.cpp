#include "core/platform/output_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/output/temporary_folder.h"
#include "core/platform/terminal.h"

namespace tz::test {
namespace {

bool hello(const Sink& sink) { return sink("你好\n"); }

std::string messageOf(const std::string& path) {
  try {
    writeFile(path, hello);
  } catch (const OutputError& error) {
    return error.what();
  }
  return "";
}

TEST(OutputFile, ReplacesTheOldFileAndKeepsItsRights) {
  const TemporaryFolder folder;
  const std::string path = folder / "a.txt";
  writeContents(path, "old and longer than the new contents");
  ::chmod(path.c_str(), 0640);
  EXPECT_TRUE(writeFile(path, hello));
  EXPECT_EQ(contentsOf(path), "你好\n");
  struct stat file {};
  ASSERT_EQ(::stat(path.c_str(), &file), 0);
  EXPECT_EQ(file.st_mode & 0777, 0640U);
  EXPECT_EQ(folder.Names().size(), 1U);
}

TEST(OutputFile, FailureLeavesTheOldFileAndNothingElse) {
  const TemporaryFolder folder;
  const std::string path = folder / "a.txt";
  writeContents(path, "old");
  EXPECT_FALSE(writeFile(path, [](const Sink& sink) { return sink("half") && false; }));
  EXPECT_THROW(writeFile(path, [](const Sink& sink) -> bool { throw std::runtime_error(sink("half") ? "x" : ""); }),
               std::runtime_error);
  EXPECT_EQ(contentsOf(path), "old");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.txt"});
}

TEST(OutputFile, TellsWhy) {
  const TemporaryFolder folder;
  EXPECT_EQ(messageOf(folder / "missing/a.txt"), "无法写入“" + folder / "missing/a.txt" + "”：文件夹不存在");
  EXPECT_NE(messageOf(folder / "").find("这是一个文件夹"), std::string::npos);
  EXPECT_EQ(messageOf("/dev/full"), "无法写入“/dev/full”：磁盘空间不足");
}

TEST(OutputFile, NeverReplacesADeviceOrALink) {
  const TemporaryFolder folder;
  EXPECT_EQ(messageOf("/dev/null"), "");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
  writeContents(folder / "real.txt", "old");
  std::filesystem::create_symlink(folder / "real.txt", folder / "link.txt");
  EXPECT_TRUE(writeFile(folder / "link.txt", hello));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.txt"));
  EXPECT_EQ(contentsOf(folder / "real.txt"), "你好\n");
  // A link to what is not there yet, from another folder.
  std::filesystem::create_directory(folder / "inner");
  std::filesystem::create_symlink("../new.txt", folder / "inner/link.txt");
  EXPECT_TRUE(writeFile(folder / "inner/link.txt", hello));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "inner/link.txt"));
  EXPECT_EQ(contentsOf(folder / "new.txt"), "你好\n");
  std::filesystem::create_symlink("self.txt", folder / "self.txt");
  EXPECT_NE(messageOf(folder / "self.txt").find("链接指向自身"), std::string::npos);
}

TEST(Pager, GetsTheWholeOutput) {
  const TemporaryFolder folder;
  EXPECT_TRUE(platform::writeToPager("cat > " + folder / "seen", hello));
  EXPECT_EQ(contentsOf(folder / "seen"), "你好\n");
}

TEST(Pager, LeftEarlyIsNoFailureAndAMissingOneIsTold) {
  int pieces = 0;
  const auto endless = [&pieces](const Sink& sink) {
    const std::string block(65'536, 'x');
    while (sink(block)) ++pieces;
    return false;
  };
  EXPECT_TRUE(platform::writeToPager("head -c 10 > /dev/null", endless));
  EXPECT_LT(pieces, 100);
  EXPECT_FALSE(platform::writeToPager("exec no-such-pager 2> /dev/null", hello));
}

}  // namespace
}  // namespace tz::test
