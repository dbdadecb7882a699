// The suite's lookups and combo lists over one small ledger, the same on both databases.
#include "core/data/init_combo_fun.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

std::string texts(const ComboList& list) {
  std::string all;
  for (const auto& entry : list) all += entry.text + "=" + std::to_string(entry.datum) + ";";
  return all;
}

class Lookups : public DatabaseTest {
 protected:
  Lookups() : ledger_(GetParam()) {
    ledger_.fill("Code", R"(
        lId | sCode    | sName      | byGrade | bEnd | bDirect | sAssBook | sUnit | byExchId
        1   | 1221     | 其他应收款 | 1       | 0    | 1       | A        |       | 0
        2   | 122101   | 借款       | 2       | 1    | 1       | A        |       | 0
        3   | 122102   | 样机款     | 2       | 1    | 0       | A        | 台    | 1
        4   | 1222     | 往来       | 1       | 1    | 1       | B        |       | 2
        5   | 1223     | 材料       | 1       | 1    | 1       | CD       | 吨    | 9 )");
    ledger_.fill(
        "Dept",
        "lId | lDeptId | sDeptId | sDeptName\n 1 | 20 | 02 | 销售部\n 2 | 10 | 01 | 100%\n 3 | 30 | 03 | 销售部");
    ledger_.fill("Person",
                 "lId | sPersonId | sName | lDeptId\n 7 | P2 | 张伟 | 20\n 8 | P1 | O'Brien'; DROP TABLE Plan -- | 20\n"
                 "9 | P3 | 张伟 | 10");
    ledger_.fill("EnterClass", "lId | sName\n 1 | 客户\n 2 | 供应商");
    ledger_.fill("Enter", "lId | sEnterId | sEnterName | lClassId\n 5 | K01 | 江淮重工 | 1\n 6 | K02 | 散户 | 0");
    ledger_.fill("ProjClass", "lId | sItemId | sName\n 1 | 01 | 订单\n 2 | RD | 研发");
    ledger_.fill("ProjItems", "lId | sItemId | nField | sTitle | sType\n 1 | 01 | 2 | 数量 | 1");
    ledger_.makeItemTable("01");
    ledger_.fill("ProjItems01", "lId | FIELD0 | FIELD1 | FIELD2\n 1 | X1 | 车床 | 2.5\n 2 | X2 | 铣床 | 4");
    ledger_.fill("Cyrency", "lId | byExchId | sName | bConvert\n 1 | 1 | 美元 | 1\n 2 | 2 | 日元 | 0");
    ledger_.fill("RegMain",
                 "lTieId | byPeroid | dtBill | dtDate | sWord | nNumber\n 3 | 1 | 2025-01-31 | 2025-02-02 | 记 | 12");
    ledger_.fill("UnregMain",
                 "lTieId | byPeroid | dtBill | dtDate | sWord | nNumber\n 3 | 2 | 2025-02-28 | 2025-02-28 | 转 | 4");
    db_.Open(ledger_.address());
  }

  TestLedger ledger_;
  CQnCwDB db_{Access::read};
};

TEST_P(Lookups, FindAccountsWhicheverIsAskedForFirst) {
  for (const char* first : {"1221", "122102", "12", "1222", "9", "z", "往来1", "O'Brien", "\t", ""}) {
    CGetData data(db_);
    const auto* found = data.GetCODEINFOByCode(first);
    const std::string before = found == nullptr ? "" : found->sName;
    EXPECT_EQ(data.GetCode_Include("1221"), (std::vector<Id>{1, 2, 3})) << first;
    EXPECT_EQ(data.GetCodeId("122101"), 2) << first;
    EXPECT_EQ(data.GetCodeCode(3), "122102") << first;
    EXPECT_EQ(data.GetCodeCode(5), "1223") << first;
    EXPECT_EQ(data.GetCodeId("1223"), 5) << first;
    EXPECT_EQ(found == nullptr ? "" : found->sName, before) << first;
  }
}

TEST_P(Lookups, FindAccountsByIdAndCode) {
  CGetData data(db_);
  EXPECT_EQ(data.GetCODEINFOByID(3)->sName, "样机款");
  EXPECT_EQ(data.GetCODEINFOByID(99), nullptr);
  EXPECT_EQ(data.GetCODEINFOByCode("1222")->lId, 4);
  EXPECT_EQ(data.GetCodeId("12"), 0);
  EXPECT_EQ(data.GetCodeId_new("122101 借款"), 2);
  EXPECT_EQ(data.GetCodeId_new("122101\t借款"), 2);
  EXPECT_EQ(data.GetCodeCode(2) + data.GetCodeName(2), "122101借款");
  EXPECT_EQ(data.GetCodeCode(99), "");
  EXPECT_EQ(data.GetCode_Include("1221"), (std::vector<Id>{1, 2, 3}));
  EXPECT_TRUE(data.GetCode_Include("").empty());
  // The condition of an account that nobody has selects nothing; it is no error.
  EXPECT_TRUE(db_.RegSub_GetInfo(data.GetCodeSubString("9999")).empty());
}

TEST_P(Lookups, FindPeopleDepartmentsAndUnitsByName) {
  CGetData data(db_);
  EXPECT_EQ(data.GetDeptID("销售部"), 20);
  EXPECT_EQ(data.GetDeptID("100"), 0);
  EXPECT_EQ(data.GetDeptName(10), "100%");
  EXPECT_EQ(data.GetDEPTINFOByDeptId(30)->sDeptId, "03");
  EXPECT_EQ(data.GetDEPTINFOByDeptNameORId("01")->lDeptId, 10);
  EXPECT_EQ(data.GetDEPTINFOByDeptNameORId("100%")->lDeptId, 10);
  EXPECT_EQ(data.GetPersonId("张伟", 10), 9);
  EXPECT_EQ(data.GetPersonId("张伟", 30), 0);
  EXPECT_EQ(data.GetPersonId("O'Brien'; DROP TABLE Plan --", 20), 8);
  EXPECT_EQ(data.GetPersonName(7), "张伟");
  EXPECT_EQ(data.PersonTable().size(), 3U);
  EXPECT_EQ(data.GetUnitId("散户"), 6);
  EXPECT_EQ(data.GetUnitName(5) + data.GetUnitCode(5) + data.GetUnitCodeName(5), "江淮重工K01K01 江淮重工");
  EXPECT_EQ(data.GetENTERINFOByEntrtName("nobody"), nullptr);
  EXPECT_EQ(data.GetENTERINFOByEntrtName("江淮重工")->lClassId, 1);
  EXPECT_EQ(data.GetEnterClassId("供应商"), 2);
  EXPECT_EQ(data.GetEnterClassIdByEnterId(6), 0);
  EXPECT_EQ(data.GetEnterClassName(1), "客户");
}

TEST_P(Lookups, FindItemsCurrenciesAndVouchers) {
  CGetData data(db_);
  EXPECT_EQ(data.GetItemId("01", "铣床"), 2);
  EXPECT_EQ(data.GetItemIdByCode("01", "X1"), 1);
  EXPECT_EQ(data.GetItemName("01", 1), "车床");
  EXPECT_EQ(data.GetItemName("01", 9), "");
  EXPECT_EQ(db_.Items_GetInfo("01", "lId = 1").front().fields, (std::vector<std::string>{"X1", "车床", "2.5"}));
  EXPECT_EQ(data.GetExchName(2), "日元");
  EXPECT_EQ(data.GetExchName(0), "");
  EXPECT_EQ(data.GetCYRENCYINFOByName("美元")->byExchId, 1);
  const auto posted = data.GetBillDate(3);
  EXPECT_EQ(posted->word + std::to_string(posted->number) + isoText(posted->date), "记122025-01-31");
  EXPECT_EQ(data.GetUnRegBillDate(3)->word, "转");
  EXPECT_FALSE(data.GetBillDate(4).has_value());
}

// Only FIELD with a number of one or two digits is a field of an item.
TEST_P(Lookups, LeaveColumnsThatAreNoFieldsAlone) {
  for (const auto* column :
       {"\"FIELD-1\"", "FIELD4294967295", "FIELD01", "FIELD1X", "FIELDNOTE", "FIELD100", "FIELD"}) {
    ledger_.keeper().execute(Sql(std::string("ALTER TABLE ProjItems01 ADD COLUMN ") + column + " integer"));
  }
  ledger_.keeper().execute("ALTER TABLE ProjItems01 ADD COLUMN FIELD12 integer");
  ledger_.keeper().execute("UPDATE ProjItems01 SET FIELD01 = 7, FIELD1X = 7, FIELDNOTE = 7, FIELD12 = 5");
  CGetData data(db_);
  EXPECT_EQ(data.GetItemName("01", 1), "车床");
  auto fields = std::vector<std::string>(13);
  fields[0] = "X1", fields[1] = "车床", fields[2] = "2.5", fields[12] = "5";
  EXPECT_EQ(data.ItemTable("01").front().fields, fields);
  ledger_.keeper().execute("ALTER TABLE ProjItems01 DROP COLUMN FIELD1");
  EXPECT_THROW((void)CGetData(db_).GetItemName("01", 1), DbError) << "items without names";
}

TEST_P(Lookups, FillCombos) {
  EXPECT_EQ(texts(CInitComboFun::InitCodeComb_1Blank(db_, "sAssBook LIKE '%A%' AND bEnd <> 0 ORDER BY sCode")),
            "122101 借款=2;122102 样机款=3;");
  EXPECT_EQ(texts(CInitComboFun::InitCodeComb_2Tab(db_, "sAssBook = 'B' ORDER BY sCode")), "1222\t往来=4;");
  // Flags are capitals; small letters are other letters on both databases.
  EXPECT_TRUE(CInitComboFun::InitCodeComb_1Blank(db_, "sAssBook LIKE '%a%'").empty());
  EXPECT_EQ(texts(CInitComboFun::InitPartNameCombox(db_)), "100%=10;02 销售部=20;03 销售部=30;");
  EXPECT_EQ(texts(CInitComboFun::InitNameCombox(db_, 20)), "O'Brien'; DROP TABLE Plan --=8;张伟=7;");
  EXPECT_EQ(texts(CInitComboFun::InitEnterClassCombox(db_)), "客户=1;供应商=2;其它=0;");
  EXPECT_EQ(texts(CInitComboFun::InitItemClassCombox(db_)), "01 订单=0;RD 研发=1;");
  EXPECT_EQ(texts(CInitComboFun::MonthEdComboReset(2025, 11)), "2025.11=11;2025.12=12;");
  EXPECT_EQ(CInitComboFun::InitMonthCombox(2025).size(), 12U);
  const auto months = CInitComboFun::InitMonthCombox(2025);
  EXPECT_EQ(preselected(months, "2025.03"), 2);
  EXPECT_EQ(preselected(months, "none"), 0);
  EXPECT_EQ(preselected({}, "none"), -1);
}

TEST_P(Lookups, OfferTheFormatsThatAnAccountKeeps) {
  CGetData data(db_);
  const auto plain = CInitComboFun::InitAmountCombox(data, "122101 借款");
  EXPECT_EQ(plain.formats, std::vector{AmountFormat::amount});
  const auto both = CInitComboFun::InitAmountCombox(data, "122102");
  EXPECT_EQ(both.formats, (std::vector{AmountFormat::amount, AmountFormat::quantityAmount, AmountFormat::foreignAmount,
                                       AmountFormat::quantityForeign}));
  EXPECT_EQ(both.preselectedFormat, AmountFormat::quantityForeign);
  EXPECT_EQ(both.unit + both.currency, "台美元");
  EXPECT_EQ(both.direction, 0);
  EXPECT_EQ(both.rateMethod, 1);
  EXPECT_EQ(CInitComboFun::InitAmountCombox(data, "1222").rateMethod, 0);
  // A currency that the ledger does not know is none.
  EXPECT_EQ(CInitComboFun::InitAmountCombox(data, "1223").preselectedFormat, AmountFormat::quantityAmount);
}

TZ_ON_BOTH_DATABASES(Lookups);

TEST(LookupTexts, AreReadAsDatesAndMonths) {
  EXPECT_EQ(isoText(*CGetData::StringToTime("2025.02.28")), "2025-02-28");
  EXPECT_FALSE(CGetData::StringToTime("2025.02.30").has_value());
  EXPECT_EQ(CGetData::GetMonth("2025.11.05"), 11);
  EXPECT_EQ(CGetData::GetMonth("2025.07"), 7);
  EXPECT_EQ(CGetData::GetMonth("合计"), 0);
  EXPECT_EQ(CGetData::GetScalAndPrice(-100, 8, 25, 1).price, -12.5);
  EXPECT_EQ(CGetData::GetScalAndPrice(-100, 8, 25, 1).rate, 4);
  EXPECT_EQ(CGetData::GetScalAndPrice(-100, 0, 25, 0).rate, 0.25);
  EXPECT_EQ(CGetData::GetScalAndPrice(0, 8, 25, 1).rate, 0);
}

}  // namespace
}  // namespace tz::test
