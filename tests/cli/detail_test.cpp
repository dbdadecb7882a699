// tzassistant report --detail: what is behind a row, report by report down to the voucher, and what refuses.
#include "cli/small_company.h"
#include "core/ledger/detail_report.h"
#include "support/refusal_cases.h"

namespace tz::test {
namespace {

class DetailOption : public DatabaseTest {
 protected:
  DetailOption() { fillSmallCompany(ledger_.keeper()); }
  [[nodiscard]] ProgramRun table(const std::string& row, std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"report", "10183", "--ledger", ledger_.address(), "--account", "113301", "--from", "1",
                               "--to", "1", "--unposted", "--detail", row});
    return runProgram(more);
  }
  [[nodiscard]] ProgramRun ledger(const std::string& row, std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"--from", "1", "--to", "1", "--detail", row});
    return smallReport(ledger_.address(), more);
  }
  [[nodiscard]] std::string voucher(const std::string& id, std::vector<std::string> more) const {
    more.insert(more.begin(), {"voucher", id, "--ledger", ledger_.address()});
    const auto run = runProgram(more);
    EXPECT_EQ(run.status, 0) << run.err;
    return run.out;
  }
  static void expectRefused(const ProgramRun& run, int status, const std::string& message) {
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
  }

  TestLedger ledger_{GetParam()};
};

TEST_P(DetailOption, PrintsTheLedgerBehindARowInEveryForm) {
  for (const auto* form : {"text", "json", "csv"}) {
    const auto direct = runProgram({"report", "10184", "--ledger", ledger_.address(), "--account", "113301", "--from",
                                    "1", "--to", "1", "--unposted", "--as", form});
    ASSERT_EQ(direct.status, 0) << direct.err;
    const auto behind = table("0", {"--as", form});
    EXPECT_EQ(behind.status, 0) << behind.err;
    EXPECT_EQ(behind.out, direct.out);
  }
  const TempFolder folder;
  EXPECT_EQ(table("0", {"--as", "xlsx", "-o", folder.file("明细.xlsx")}).status, 0);
  EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"明细.xlsx"});
  expectRefused(table("1"), 1, "请先选择一条记录\n");
}

// Rows of the ledger: opening, two posted lines, an unposted one, totals.
TEST_P(DetailOption, PrintsTheVoucherOfALine) {
  EXPECT_EQ(ledger("1").out, voucher("1", {}));
  EXPECT_EQ(ledger("2", {"--as", "json"}).out, voucher("1", {"--as", "json"}));
  EXPECT_EQ(ledger("3", {"--as", "json"}).out, voucher("2", {"--unposted", "--as", "json"}));
  const TempFolder folder;
  EXPECT_EQ(ledger("1", {"--as", "json", "-o", folder.file("凭证.json")}).status, 0);
  EXPECT_EQ(fileBytes(folder.file("凭证.json")), voucher("1", {"--as", "json"}));
  expectRefused(ledger("0"), 1, "期初数无法联查凭证\n");
  expectRefused(ledger("4"), 1, "请选择凭证记录!\n");
  expectRefused(ledger("1", {"--as", "csv"}), 2, "凭证没有 csv 形式，可用：text|json");
  expectRefused(ledger("6"), 2, "没有第 6 行，可以是 0 至 5");
  for (const auto* wrong : {"-1", "x", "1.5", "99999999999999999999"}) expectRefused(ledger(wrong), 2, "--detail");
}

TZ_ON_BOTH_DATABASES(DetailOption);

// The ledger of a project and department is of any accounts; it shows what the account's own general ledger showed.
TEST(ProjectDrill, KeepsTheFormatBesideADepartment) {
  TestLedger ledger(Engine::sqlite);
  fillRefusalLedger(ledger,
                    "UPDATE Code SET sUnit = '台' WHERE sCode = '500101';"
                    "INSERT INTO AssAcc (lId, lCodeId, lDeptId, lItemId, sItemId, byPeroid, mBegin, dBegin) "
                    "SELECT 99, 8, lDeptId, 1, '01', 1, 60, 3 FROM Dept WHERE sDeptName = '销售部'");
  const auto run =
      runProgram({"report", "10217", "--ledger", ledger.address(), "--account", "500101", "--project-class", "01",
                  "--project", "一号厂房", "--dept", "销售部", "--detail", "1", "--as", "json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("\"report\": 10220"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("\"format\": \"数量金额式\""), std::string::npos) << run.out;
}

// Every detail ledger leads to vouchers; the areas refuse in their own words.
TEST(VoucherDrill, RefusesInTheWordsOfItsArea) {
  for (const auto* report : detailReports()) {
    SCOPED_TRACE(report->command);
    ComputedReport shown;
    const auto refusal = [&](std::int64_t row) {
      const auto answer = report->detail({}, shown, row);
      return std::holds_alternative<Refusal>(answer) ? std::get<Refusal>(answer).text : "none";
    };
    EXPECT_EQ(refusal(-1), "没有记录,无法联查凭证");
    shown.grid.SetRows(3);
    shown.grid.SetRowKind(0, RowKind::opening);
    shown.grid.SetRowKind(1, RowKind::subtotal);
    shown.grid.SetRowKind(2, RowKind::line);
    const LineId line{.book = Book::unposted, .line = 7, .voucher = 3};
    shown.subjects.set(2, shown.subjects.keep({}), 0, line);
    const bool person = report->area == Area::person;
    EXPECT_EQ(refusal(0), "期初数无法联查凭证");
    EXPECT_EQ(refusal(1), person ? "请选择凭证记录!" : "无法联查凭证");
    EXPECT_EQ(refusal(-1), person                       ? "请选择凭证记录!"
                           : report->area == Area::unit ? "请选择一条凭证记录!"
                                                        : "请先选中一条凭证记录!");
    const auto answer = report->detail({}, shown, 2);
    ASSERT_TRUE(std::holds_alternative<VoucherTarget>(answer));
    EXPECT_EQ(std::get<VoucherTarget>(answer).line, line);
  }
}

}  // namespace
}  // namespace tz::test
