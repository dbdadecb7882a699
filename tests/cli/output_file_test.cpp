// report -o: the file is written whole or not at all.
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>

#include "cli/full_disk.h"
#include "cli/small_company.h"
#include "core/output/temporary_folder.h"

namespace tz::test {
namespace {

class OutputFileTest : public ::testing::Test {
 protected:
  OutputFileTest() {
    fillSmallCompany(ledger_.keeper(), 2000);
    std::ofstream(target_) << "旧内容";
  }
  void expectUntouched() const {
    EXPECT_EQ(fileBytes(target_), "旧内容");
    EXPECT_EQ(namesIn(folder_.path()), std::vector<std::string>{"报表.out"}) << "something is left beside the file";
  }

  TempFolder folder_;
  TestLedger ledger_{Engine::sqlite};
  std::string target_ = folder_.file("报表.out");
};

TEST_F(OutputFileTest, HoldsWhatStandardOutputShows) {
  for (const char* form : {"json", "text", "csv"}) {
    const auto shown = smallReport(ledger_.address(), {"--as", form});
    const auto written = smallReport(ledger_.address(), {"--as", form, "-o", target_});
    ASSERT_EQ(written.status, 0) << written.err;
    EXPECT_EQ(written.out, "");
    EXPECT_TRUE(fileBytes(target_) == shown.out) << form;
    EXPECT_GT(shown.out.size(), 100'000U);
  }
}

// Each line's date is a date of the workbook, and the rows between the lines have none.
TEST_F(OutputFileTest, AWorkbookHasADateForEachLine) {
  const auto count = [](const std::string& text, const char* pattern) {
    const std::regex sought(pattern);
    return std::distance(std::sregex_iterator(text.begin(), text.end(), sought), std::sregex_iterator());
  };
  const auto json = smallReport(ledger_.address(), {"--as", "json"}).out;
  ASSERT_EQ(smallReport(ledger_.address(), {"--as", "xlsx", "-o", target_}).status, 0);
  const auto sheet = printedBy("unzip -p '" + target_ + "' xl/worksheets/sheet1.xml");
  const auto lines = count(json, R"(\{"cells": \["\d{4}\.\d\d\.\d\d",)");
  EXPECT_GE(lines, 2000);
  EXPECT_EQ(count(sheet, R"(<c r="A\d+" s="\d+"><v>\d+</v>)"), lines);
  EXPECT_EQ(count(sheet, R"(<t>\d{4}\.\d\d\.\d\d</t>)"), 0);
}

TEST_F(OutputFileTest, StaysAsItWasWhenNothingIsWritten) {
  EXPECT_EQ(smallReport(ledger_.address(), {"--as", "json", "-o", target_, "--account", "9999"}).status, 2);
  expectUntouched();
  const auto refused =
      runProgram({"report", "10190", "--ledger", ledger_.address(), "-o", target_, "--account", "9999"});
  EXPECT_EQ(refused.status, 1);
  expectUntouched();
  EXPECT_EQ(smallReport(folder_.file("没有.tz"), {"-o", target_}).status, 3);
  expectUntouched();
}

TEST_F(OutputFileTest, StaysAsItWasWhenTheDiskIsFull) {
  for (const char* form : {"json", "text", "csv", "xlsx"}) {
    const FullDisk full(40'000);  // the memory beside a ledger in use takes 32 KiB
    const auto run = smallReport(ledger_.address(), {"--as", form, "-o", target_});
    EXPECT_EQ(run.status, 3) << form;
    EXPECT_TRUE(run.err.starts_with("tzassistant: 无法写入")) << form << run.err;
    EXPECT_EQ(std::ranges::count(run.err, '\n'), 1) << "a library's words: " << run.err;
    expectUntouched();
  }
}

// By whatever name the ledger or a side file of it is reached.
TEST_F(OutputFileTest, IsNeverTheLedger) {
  const auto& ledger = ledger_.address();
  const auto folder = std::filesystem::path(ledger).parent_path();
  const std::filesystem::path other = folder_.file("另一处");
  const auto link = folder_.file("链接");
  std::filesystem::create_symlink(ledger, link);
  std::filesystem::create_symlink(ledger + "-journal", folder_.file("悬空链接"));
  std::filesystem::create_symlink(folder, other);
  const auto hard = (folder / "硬链接").string();
  std::filesystem::create_hard_link(ledger, hard);
  const auto before = fileBytes(ledger);
  std::vector<std::string> targets = {ledger,
                                      (folder / "." / std::filesystem::path(ledger).filename()).string(),
                                      (other / std::filesystem::path(ledger).filename()).string(),
                                      link,
                                      hard,
                                      folder_.file("悬空链接")};
  for (const char* suffix : {"-wal", "-journal", "-shm"}) targets.push_back(ledger + suffix);
  for (const auto& target : targets) {
    for (const char* form : {"text", "csv", "json", "xlsx"}) {
      const auto run = smallReport(ledger, {"--as", form, "-o", target});
      EXPECT_EQ(run.status, 2) << form << ' ' << target;
      EXPECT_NE(run.err.find("所查的帐套"), std::string::npos) << run.err;
    }
  }
  // The ledger reached by a link, and written over by its own name.
  EXPECT_EQ(smallReport(link, {"-o", ledger}).status, 2);
  EXPECT_EQ(smallReport(link, {"-o", ledger + "-wal"}).status, 2);
  EXPECT_TRUE(fileBytes(ledger) == before);
  EXPECT_EQ(smallReport(ledger).status, 0);
  EXPECT_EQ(smallReport(ledger, {"-o", folder_.file("别的.db")}).status, 0) << "another file of the same kind";
  std::filesystem::remove(hard);
}

TEST_F(OutputFileTest, NeedsAFolder) {
  const auto run = smallReport(ledger_.address(), {"-o", folder_.file("没有/报表.json")});
  EXPECT_EQ(run.status, 3);
  EXPECT_NE(run.err.find("没有"), std::string::npos) << run.err;
  EXPECT_EQ(smallReport(ledger_.address(), {"-o", folder_.path().string()}).status, 3) << "a folder is no file";
  expectUntouched();
}

}  // namespace
}  // namespace tz::test
