// Wrong use of every kind: status 2, nothing done, and one sentence in this program's own words.
#include <algorithm>
#include <gtest/gtest.h>
#include <regex>

#include "cli/small_company.h"

namespace tz::test {
namespace {

using Arguments = std::vector<std::string>;

class WrongUseTest : public ::testing::Test {
 protected:
  WrongUseTest() { fillSmallCompany(ledger_.keeper()); }

  static void expectWrong(const Arguments& arguments, const std::string& said) {
    const auto run = runProgram(arguments);
    std::string line;
    for (const auto& word : arguments) line += word + ' ';
    SCOPED_TRACE(line);
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_TRUE(run.err.starts_with("tzassistant: ")) << run.err;
    EXPECT_EQ(std::ranges::count(run.err, '\n'), 1) << run.err;
    EXPECT_NE(run.err.find(said), std::string::npos) << run.err;
    static const std::regex parserWords(
        "required|missing|[Aa]t [Mm]ost|[Aa]t [Ll]east|convert|not in|INT|TEXT|exclude|"
        "requires|Value|argument|allowed|failed|override|Option");
    EXPECT_FALSE(std::regex_search(run.err, parserWords)) << run.err;
  }
  void expectWrongReport(const Arguments& more, const std::string& said) const {
    Arguments arguments = {"report", "10190",  "--ledger", ledger_.address(), "--account",
                           "113301", "--dept", "销售部",   "--person",        "张三"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    expectWrong(arguments, said);
  }

  TestLedger ledger_{Engine::sqlite};
  TempFolder folder_;
};

TEST_F(WrongUseTest, OfCommandsAndPlaces) {
  expectWrong({"nonsense"}, "“nonsense”");
  const std::string file = TZ_TEST_FOLDER "/CMakeLists.txt";
  expectWrong({file}, "tzassistant open " + file);
  expectWrong({"ledger"}, "缺少子命令，可用：create、check");
  expectWrong({"ledger", "check"}, "缺少参数 LEDGER");
  expectWrong({"ledger", "check", ""}, "参数不能为空");
  expectWrong({"report", "--ledger", ledger_.address()}, "缺少参数 ID");
  expectWrong({"report", "10190"}, "缺少 --ledger");
  expectWrong({"report", "报表", "--ledger", ledger_.address()}, "“报表”");
  expectWrong({"report", "0x27CE", "--ledger", ledger_.address()}, "“0x27CE”");
  expectWrong({"report", "1", "--ledger", ledger_.address()}, "没有编号为 1 的报表");
  expectWrong({"reports", "10190"}, "“10190”");
  expectWrong({"completion", "tcsh"}, "bash、zsh、fish、words");
}

TEST_F(WrongUseTest, OfOptionsAndTheirValues) {
  expectWrongReport({"--nonsense"}, "“--nonsense”");
  expectWrongReport({"--unit", "江源机械"}, "这里没有条件 --unit");
  expectWrongReport({"--as", "xml"}, "“xml”不在可选项中：text、csv、json、xlsx");
  expectWrongReport({"--encoding", "big5"}, "utf-8、gb18030");
  expectWrongReport({"--as"}, "--as 缺少值");
  expectWrongReport({"--from", "13"}, "--from");
  expectWrongReport({"--from", "1", "--from", "2"}, "--from 只能给一次");
  expectWrongReport({"--account", "113301"}, "--account 只能给一次");
  expectWrongReport({"-o", folder_.file("a"), "--output", folder_.file("b")}, "--output 只能给一次");
  expectWrongReport({"--as", "xlsx"}, "-o");
  const auto path = folder_.file("新.db");
  expectWrong({"ledger", "create", path, "--sample", "--empty"}, "不能与");
  expectWrong({"ledger", "create", path, "--lines", "5"}, "--lines 要与 --sample 同用");
  for (const auto* number : {"0", "abc", "1e3", "99999999999999999999", "1.5", "0x10"}) {
    expectWrong({"ledger", "create", path, "--sample", "--lines", number}, "“" + std::string(number) + "”");
  }
  expectWrong({"ledger", "create", path, "--year", "02025"}, "1900 至 9999");
  EXPECT_TRUE(namesIn(folder_.path()).empty());
}

TEST_F(WrongUseTest, OfEmptyValuesAndOfFlagsWithOne) {
  for (const auto* option : {"--dept", "--from", "--date", "--operator", "--as", "-o", "--output", "--format"}) {
    Arguments words = {"report", "10190", "--ledger", ledger_.address(), option, "", "--account", "113301"};
    expectWrong(words, std::string(option) + " 的值不能为空");
  }
  // Otherwise the next word would become the value.
  expectWrong({"report", "10190", "--ledger", ledger_.address(), "--dept=", "--unposted"}, "--dept 的值不能为空");
  for (const auto* value : {"1", "0", "no", "true", "false", ""}) {
    expectWrongReport({std::string("--unposted=") + value}, "--unposted 不带值");
    expectWrong({"ledger", "create", folder_.file("新.db"), std::string("--sample=") + value}, "--sample 不带值");
  }
  EXPECT_TRUE(namesIn(folder_.path()).empty());
}

TEST_F(WrongUseTest, OfDates) {
  expectWrongReport({"--date", "2006-02-30"}, "2006-02-30");
  expectWrongReport({"--date", "2005-12-31"}, "会计年度 2006 年");
  expectWrongReport({"--date", "2007-01-01"}, "会计年度 2006 年");
  EXPECT_EQ(smallReport(ledger_.address(), {"--date", "2006-12-31"}).status, 0);
  EXPECT_EQ(smallReport(ledger_.address(), {"--from", "5", "--to", "2"}).status, 0) << "months are not compared";
}

TEST_F(WrongUseTest, OfValuesThatLookLikeTheReport) {
  // The value of an option is not the report, and what stands behind it is.
  EXPECT_NE(runProgram({"report", "--ledger", "10190", "10184", "--help"}).out.find("10184"), std::string::npos);
  EXPECT_NE(runProgram({"report", "--operator", "10190", "-o", "10188", "10184", "--help"}).out.find("10184"),
            std::string::npos);
  expectWrong({"report", "--ledger", "10190"}, "缺少参数 ID");
  expectWrong({"report", "--ledger", ledger_.address(), "--account", "10190", "10184", "--person", "张三"},
              "这里没有条件 --person");
  expectWrong({"--ledger", "10190", "report", "10184"}, "“--ledger”");
}

}  // namespace
}  // namespace tz::test
