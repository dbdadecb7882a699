// report --as pdf: pages whose texts can be read back, written whole or not at all. Where the windows are not built,
// it says so.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "cli/full_disk.h"
#include "cli/small_company.h"
#include "core/output/temporary_folder.h"

namespace tz::test {
namespace {

class PagesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(std::filesystem::path(TZ_PROGRAM).parent_path() / "tzassistant-pages")) {
      const auto run = smallReport(ledger_.address(), {"--as", "pdf", "-o", target_});
      EXPECT_EQ(run.status, 3);
      EXPECT_NE(run.err.find("PDF 需要桌面部分"), std::string::npos) << run.err;
      GTEST_SKIP() << "the windows are not built";
    }
  }
  PagesTest() { fillSmallCompany(ledger_.keeper(), 300); }
  [[nodiscard]] std::string textOfPages() const {
    const auto read = runCommand({"pdftotext", "-layout", target_, "-"});
    EXPECT_EQ(read.status, 0) << read.err;
    return read.out;
  }

  TempFolder folder_;
  TestLedger ledger_{Engine::sqlite};
  std::string target_ = folder_.file("报表.pdf");
};

TEST_F(PagesTest, TextsCanBeReadBack) {
  const auto run = smallReport(ledger_.address(), {"--as", "pdf", "-o", target_});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  const auto text = textOfPages();
  for (const char* part : {"三栏式明细帐", "科目：", "部门：", "月份: ", "日期", "凭证号", "余额", "过次页", "承前页",
                           "第 1 页", "打印日期："})
    EXPECT_NE(text.find(part), std::string::npos) << part << '\n' << text.substr(0, 2000);
  // What the same report says as text stands on the pages as well, row by row.
  const auto shown = smallReport(ledger_.address(), {"--as", "csv"});
  std::size_t lines = 0;
  for (const auto& line : linesOf(text)) lines += line.find("记-") != std::string::npos ? 1U : 0U;
  std::size_t rows = 0;
  for (const auto& line : linesOf(shown.out)) rows += line.find("记-") != std::string::npos ? 1U : 0U;
  EXPECT_EQ(lines, rows);
  EXPECT_GT(rows, 300U);
}

TEST_F(PagesTest, EveryPageHasItsHead) {
  ASSERT_EQ(smallReport(ledger_.address(), {"--as", "pdf", "-o", target_}).status, 0);
  const auto text = textOfPages();
  std::size_t pages = 0;
  std::size_t heads = 0;
  for (std::size_t at = 0; (at = text.find('\f', at)) != std::string::npos; ++at) ++pages;
  for (std::size_t at = 0; (at = text.find("三栏式明细帐", at)) != std::string::npos; ++at) ++heads;
  EXPECT_GT(pages, 3U);
  EXPECT_EQ(heads, pages);
}

TEST_F(PagesTest, FontsAreInside) {
  ASSERT_EQ(smallReport(ledger_.address(), {"--as", "pdf", "-o", target_}).status, 0);
  const auto fonts = runCommand({"pdffonts", target_});
  const auto lines = linesOf(fonts.out);
  ASSERT_GT(lines.size(), 2U) << fonts.out << fonts.err;
  for (std::size_t i = 2; i < lines.size(); ++i) EXPECT_NE(lines[i].find(" yes "), std::string::npos) << lines[i];
}

TEST_F(PagesTest, NeedsAFileAndLeavesItAloneWhenItFails) {
  const auto nowhere = smallReport(ledger_.address(), {"--as", "pdf"});
  EXPECT_EQ(nowhere.status, 2);
  EXPECT_NE(nowhere.err.find("-o"), std::string::npos) << nowhere.err;

  std::ofstream(target_) << "旧内容";
  const auto full = [&] {
    const FullDisk disk(20'000);
    return smallReport(ledger_.address(), {"--as", "pdf", "-o", target_});
  }();
  EXPECT_EQ(full.status, 3) << full.err;
  EXPECT_NE(full.err, "");
  EXPECT_EQ(fileBytes(target_), "旧内容");
  EXPECT_EQ(namesIn(folder_.path()), std::vector<std::string>{"报表.pdf"});
}

}  // namespace
}  // namespace tz::test
