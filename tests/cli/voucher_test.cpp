// tzassistant voucher: what it shows of a voucher, its neighbours, and what it refuses.
#include "cli/small_company.h"

namespace tz::test {
namespace {

using nlohmann::json;

class VoucherTest : public DatabaseTest {
 protected:
  VoucherTest() {
    ledger_.fill("Code", R"(
        lId | sCode    | sName        | byGrade | bEnd | bDirect | sAssBook | sUnit | byExchId
        1   | 1122     | 应收账款     | 1       | 0    | 1       | B        |       | 0
        2   | 112201   | 国内\<b>货款 | 2       | 1    | 1       | BA       |       | 0
        3   | 6001     | 收入         | 1       | 0    | 0       | CD       |       | 0
        4   | 600101   | 整机         | 2       | 0    | 0       | CD       |       | 0
        5   | 60010101 | 出口         | 3       | 1    | 0       | CD       | 台    | 1 )");
    ledger_.fill("Dept", "lId | lDeptId | sDeptId | sDeptName\n 1 | 11 | 01 | 销售部");
    ledger_.fill("Person", "lId | sPersonId | sName | lDeptId\n 7 | 0101 | O'Brien'; DROP TABLE Plan -- | 11");
    ledger_.fill("Enter", "lId | sEnterId | sEnterName\n 9 | K01 | 江源");
    ledger_.fill("ProjClass", "lId | sItemId | sName\n 1 | 01 | 合同");
    ledger_.fill("ProjItems", R"(
        lId | sItemId | nField | sTitle   | sType
        1   | 01      | 0      | 项目编号 | 3
        2   | 01      | 1      | 项目名称 | 3)");
    ledger_.makeItemTable("01");
    ledger_.fill("ProjItems01", "lId | FIELD0 | FIELD1\n 4 | H1 | 出口车床");
    ledger_.fill("Cyrency", "lId | byExchId | sName | bConvert\n 1 | 1 | 美元 | 1");
    ledger_.fill("RegMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber | nAttach | sMaker | sChecker | sPoster
        1      | 0        | 2005-12-31 | 2005-12-31 | 记    | 1       | 0       | 甲     | 乙       | 丙
        20     | 1        | 2006-01-05 | 2006-01-06 | 记    | 12      | 2       | 甲     | 乙       | 丙
        30     | 1        | 2006-01-05 | 2006-01-05 | 付    | 40      | 0       | 甲     | 乙       | 丙
        10     | 1        | 2006-01-20 | 2006-01-20 | 记    | 13      | 0       | 甲     | 乙       | 丙
        15     | 2        | 2006-02-01 | 2006-02-01 | 付    | 1       | 0       | 甲     | 乙       | 丙)");
    ledger_.fill("RegSub", R"(
        lId | lTieId | lCodeId | lDeptId | lPersonId | lEnterId | lItemId | sItemId | bDirect | mMoney  | dtDate
        1   | 1      | 2       | 0       | 0         | 9        | 0       |         | 1       | 5       | 2005-12-31
        102 | 20     | 5       | 11      | 0         | 0        | 4       | 01      | 0       | 1234.56 | 2006-01-06
        101 | 20     | 2       | 11      | 7         | 9        | 0       |         | 1       | 1234.56 | 2006-01-06
        103 | 30     | 2       | 77      | 0         | 78       | 79      | 01      | 1       | -0.3    | 2006-01-05
        104 | 30     | 66      | 0       | 0         | 0        | 80      | XX      | 0       | -0.1    | 2006-01-05
        105 | 30     | 5       | 0       | 0         | 0        | 0       |         | 0       | -0.2    | 2006-01-05)");
    auto& keeper = ledger_.keeper();
    keeper.execute(
        "UPDATE RegSub SET sDigest = '赊销', sName = '王强', byFlag = 2, sBusiness = 'CK-1' WHERE lId = 101");
    keeper.execute(
        "UPDATE RegSub SET sDigest = '出口两台车床，货款分两次收取，第一次在装船以后', dAmount = 2, mForeign = 200.5, "
        "dFrat = 6.157, byExchId = 1 WHERE lId = 102");
    ledger_.fill("UnregMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber | sMaker
        20     | 3        | 2006-03-05 | 2006-03-05 | 转    | 1       | 甲)");
    ledger_.fill("UnregSub", "lId | lTieId | lCodeId | mMoney | bDirect | dtDate\n 1 | 20 | 5 | 8 | 0 | 2006-03-05");
  }
  [[nodiscard]] ProgramRun ask(const std::string& id, std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"voucher", id, "--ledger", ledger_.address()});
    return runProgram(more);
  }
  [[nodiscard]] json asked(const std::string& id, std::vector<std::string> more = {}) const {
    more.insert(more.end(), {"--as", "json"});
    const auto run = ask(id, more);
    EXPECT_EQ(run.status, 0) << run.err;
    return json::parse(run.out);
  }

  TestLedger ledger_{GetParam()};
};

TEST_P(VoucherTest, LooksLikeAVoucher) {
  const auto run = ask("20");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, R"(                                           记 帐 凭 证
                                           ═══════════
凭证号：记-0012    日期：2006.01.05    会计期间：1 月    附单据 2 张
已记帐

摘要                          科目                                              借方          贷方
────────────────────────────  ────────────────────────────────────────  ────────────  ────────────
赊销                          112201 应收账款-国内\<b>货款                  1,234.56
                                部门：销售部
                                个人：O'Brien'; DROP TABLE Plan --
                                单位：江源
                                业务员：王强  业务号：CK-1  两清：自动
出口两台车床，货款分两次收取  60010101 收入-整机-出口                                     1,234.56
，第一次在装船以后              部门：销售部  项目：出口车床
                                数量：2 台  单价：617.28
                                外币：200.50 美元  汇率：6.157
────────────────────────────  ────────────────────────────────────────  ────────────  ────────────
合计　壹仟贰佰叁拾肆元伍角陆分                                              1,234.56      1,234.56

制单：甲    审核：乙    记帐：丙
)");
  // What the ledger names and does not hold is told, and so is a voucher that does not balance.
  const auto odd = ask("30").out;
  for (const auto* text : {"（66 号科目，不在科目表中）", "部门：（编号 77）", "单位：（编号 78）", "项目：（编号 79）",
                           "负叁角整", "-0.30"}) {
    EXPECT_NE(odd.find(text), std::string::npos) << text << "\n" << odd;
  }
  EXPECT_EQ(odd.find("借贷不平"), std::string::npos) << "0.1 + 0.2 = 0.3";
  EXPECT_NE(ask("20", {"--unposted"}).out.find("未记帐\n"), std::string::npos);
  EXPECT_NE(ask("20", {"--unposted"}).out.find("借贷不平"), std::string::npos);
}

TEST_P(VoucherTest, GivesTheSameJsonOnBothDatabases) {
  const auto voucher = asked("20");
  EXPECT_EQ(voucher.at("lines").at(0).at("line"), 101);
  EXPECT_EQ(voucher.at("lines").at(0).at("person"),
            json({{"id", 7}, {"code", "0101"}, {"name", "O'Brien'; DROP TABLE Plan --"}}));
  EXPECT_EQ(voucher.at("lines").at(1).at("account"), json({{"code", "60010101"}, {"name", "收入-整机-出口"}}));
  EXPECT_EQ(voucher.at("lines").at(1).at("price"), 617.28);
  EXPECT_EQ(voucher.at("lines").at(1).at("debit"), json());
  EXPECT_EQ(voucher.at("capital"), "壹仟贰佰叁拾肆元伍角陆分");
  static std::string first;
  std::string all;
  for (const auto* id : {"20", "30", "10", "15"}) all += ask(id, {"--as", "json"}).out;
  if (first.empty()) first = all;
  EXPECT_EQ(all, first);
}

// By period, word and number, whatever the ids and dates are; opening vouchers are passed.
TEST_P(VoucherTest, KnowsItsNeighbours) {
  const auto chain = [&](const char* direction, json id) {
    std::vector<int> ids;
    for (; !id.is_null(); id = asked(std::to_string(ids.back())).at(direction)) ids.push_back(id.get<int>());
    return ids;
  };
  EXPECT_EQ(chain("next", 30), (std::vector<int>{30, 20, 10, 15}));
  EXPECT_EQ(chain("previous", 15), (std::vector<int>{15, 10, 20, 30}));
  EXPECT_EQ(asked("20", {"--unposted"}).at("previous"), json()) << "the books do not follow each other";
  EXPECT_EQ(asked("20", {"--unposted"}).at("next"), json());
}

TEST_P(VoucherTest, RefusesWhatThereIsNot) {
  const auto refused = [&](const std::string& id, const std::vector<std::string>& more, const std::string& message) {
    const auto run = ask(id, more);
    EXPECT_EQ(run.status, 1) << id;
    EXPECT_EQ(run.out, "") << id;
    EXPECT_EQ(run.err, message + "\n");
  };
  refused("99", {}, "没有编号为 99 的已记帐凭证！");
  refused("10", {"--unposted"}, "没有编号为 10 的未记帐凭证！");
  refused("1", {}, "期初数无法联查凭证");
  for (const auto* wrong : {"0", "-1", "x", "1.5", "9007199254740992", ""}) EXPECT_EQ(ask(wrong).status, 2) << wrong;
  EXPECT_EQ(ask("20", {"--as", "csv"}).status, 2);
  EXPECT_EQ(runProgram({"voucher", "20"}).status, 2);
  ledger_.keeper().execute("DROP TABLE UnregSub");
  const auto failed = ask("20", {"--unposted"});
  EXPECT_EQ(failed.status, 3);
  EXPECT_EQ(failed.out, "");
  EXPECT_NE(failed.err, "");
}

TEST_P(VoucherTest, AsksForTheRightToADetailLedger) {
  ledger_.fill("zOperator", R"(
      lId | sName | sPassHash
      2   | 会计  | $argon2id$v=19$m=8,t=1,p=1$8KjgseW6RWjVshLwEFx87w$gqRKBVcvaRrnyx1ukfLd3tgM/1kHqIkjAKRW/HwMd1Q)");
  const auto statusOf = [&](const std::vector<std::string>& more) {
    std::vector<std::string> words = {"voucher", "20", "--ledger", ledger_.address()};
    words.insert(words.end(), more.begin(), more.end());
    const auto run = runProgram(words, {"TZ_PASSWORD=会计2006"});
    EXPECT_EQ(run.out.empty(), run.status != 0);
    return run.status;
  };
  EXPECT_EQ(statusOf({}), 4) << "nobody has logged on";
  EXPECT_EQ(statusOf({"--operator", "会计"}), 4) << "no right at all";
  ledger_.keeper().execute("INSERT INTO zRight (lOperatorId, nRight) VALUES (2, 78)");
  EXPECT_EQ(statusOf({"--operator", "会计"}), 0);
}

TZ_ON_BOTH_DATABASES(VoucherTest);

}  // namespace
}  // namespace tz::test
