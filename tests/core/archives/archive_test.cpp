// The directories of a hand-sized ledger: every refusal in its order, what a record is used by, two keepers at once,
// and a ledger that stays sound behind each change.
#include "core/archives/archive_list.h"
#include "core/archives/archive_store.h"
#include "core/check/ledger_check.h"
#include "core/data/item_tables.h"
#include "support/run_program.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

constexpr const char* hostile = "O'Brien'; DROP TABLE Plan --";

class Archives : public DatabaseTest {
 protected:
  void SetUp() override {
    ledger_.fill("zAccountM", "lId | sName | sCodeScheme | nYear\n 1 | 华源机械 | 42 | 2006");
    ledger_.fill("Code", R"(
        lId | sCode  | sName      | byGrade | bEnd | bDirect | sAssBook | byKind
        1   | 1221   | 其他应收款 | 1       | 1    | 1       | A        | 1
        2   | 1122   | 应收帐款   | 1       | 1    | 1       | B        | 1
        3   | 5001   | 生产成本   | 1       | 1    | 1       | D        | 4
        4   | 6602   | 管理费用   | 1       | 1    | 1       | C        | 5)");
    ledger_.fill("Dept", R"(
        lId | lDeptId | sDeptId | sDeptName
        1   | 101     | 01      | 销售部
        2   | 105     | 02      | 仓库
        3   | 103     | 03      | 研发部)");
    ledger_.fill("Person", "lId | sPersonId | sName | lDeptId\n 301 | 0101 | 李明 | 101\n 302 | 0201 | 张伟 | 105");
    ledger_.fill("EnterClass", "lId | sName\n 1 | 国内\n 2 | 国外");
    ledger_.fill("Enter",
                 "lId | sEnterId | sEnterName | lClassId | mCredit\n 501 | K01 | 宏达厂 | 1 | 1000\n "
                 "502 | K02 | 东方厂 | 1 | 0");
    ledger_.fill("ProjClass", "lId | sItemId | sName\n 1 | RD | 研发");
    ledger_.fill("ProjItems", R"(
        lId | sItemId | nField | sTitle   | sType
        1   | RD      | 0      | 课题编号 | 3
        2   | RD      | 1      | 课题名称 | 3
        3   | RD      | 2      | 是否结题 | 5
        4   | RD      | 3      | 开始日期 | 4)");
    ledger_.makeItemTable("RD");
    ledger_.fill("ProjItemsRD",
                 "lId | FIELD0 | FIELD1 | FIELD2 | FIELD3\n 1 | R1 | 主轴 | 0 | 2006-01-05\n "
                 "2 | R2 | 刀库 | 1 |");
    ledger_.fill("ProjCodes", "lId | lCodeId | sItemId\n 1 | 3 | RD");
    fillLines();
    reports_.Open(ledger_.address());
    expectSound();
  }
  void fillLines() {
    ledger_.fill("RegMain",
                 "lTieId | byPeroid | dtBill | dtDate | sWord | nNumber\n 1 | 1 | 2006-01-05 | 2006-01-05 | 记 | 1");
    ledger_.fill("RegSub", R"(
        lId | lTieId | lCodeId | lDeptId | lPersonId | lEnterId | lItemId | sItemId | mMoney | bDirect | dtDate
        1   | 1      | 1       | 101     | 301       | 0        | 0       |         | 50     | 1       | 2006-01-05
        2   | 1      | 3       | 0       | 0         | 0        | 1       | RD      | 30     | 1       | 2006-01-05
        3   | 1      | 2       | 0       | 0         | 501      | 0       |         | 80     | 0       | 2006-01-05)");
    for (int period = 1; period <= 12; ++period) addBalances(period);
    ledger_.fill("Plan", "lId | lCodeId | lDeptId | byPeroid | mPPlan\n 1 | 4 | 103 | 1 | 100");
  }
  void addBalances(int period) {
    const auto row = [&](int place, const std::string& dimensions, double begin, double debit, double credit) {
      ledger_.keeper().execute(Sql("INSERT INTO AssAcc (lId, " + dimensions.substr(0, dimensions.find('|')) +
                                       ", byPeroid, mBegin, mDebit, mCredit) VALUES (?, " +
                                       dimensions.substr(dimensions.find('|') + 1) + ", ?, ?, ?, ?)",
                                   place * 100 + period, period, period == 1 ? 0.0 : begin, period == 1 ? debit : 0.0,
                                   period == 1 ? credit : 0.0));
    };
    row(1, "lCodeId, lDeptId, lPersonId|1, 101, 301", 50, 50, 0);
    row(2, "lCodeId, lItemId, sItemId|3, 1, 'RD'", 30, 30, 0);
    row(3, "lCodeId, lEnterId|2, 501", -80, 0, 80);
  }

  void expectSound() {
    Transaction reading(ledger_.keeper(), Transaction::Purpose::reading);
    checkLedger(ledger_.keeper(), [](const Violation& found) { ADD_FAILURE() << found.text(); });
  }
  static std::string said(const ArchiveAnswer& answer) { return answer.refused ? answer.refused->refusal.text : "成"; }
  static ArchiveInput input(std::initializer_list<const char*> texts) {
    ArchiveInput all;
    for (const char* text : texts) all.push_back({text});
    return all;
  }
  std::string add(const Archive& archive, std::initializer_list<const char*> texts) {
    LedgerKeeper keeper(ledger_.address(), archive.tables);
    return said(addRecord(keeper, archive, input(texts)));
  }
  ArchiveRecord record(const Archive& archive, Id lId) {
    const auto all = readArchive(reports_, archive);
    const auto found = std::ranges::find(all, lId, &ArchiveRecord::lId);
    return found == all.end() ? ArchiveRecord{} : *found;
  }
  std::string change(const Archive& archive, Id lId, std::initializer_list<const char*> texts) {
    LedgerKeeper keeper(ledger_.address(), archive.tables);
    return said(changeRecord(keeper, archive, record(archive, lId), input(texts)));
  }
  std::string remove(const Archive& archive, Id lId) {
    LedgerKeeper keeper(ledger_.address(), archive.tables);
    return said(removeRecord(keeper, archive, record(archive, lId)));
  }
  ProjClassInfo research() { return {1, "RD", "研发"}; }

  TestLedger ledger_{GetParam()};
  CQnCwDB reports_;
};

TEST_P(Archives, TakeDepartmentsAndPersonsAndRefuseInTheOrderOfTheForm) {
  const auto depts = departmentArchive();
  EXPECT_EQ(add(depts, {"", ""}), "请填写部门编码。");
  EXPECT_EQ(add(depts, {"0 4", "\x01"}), "部门编码中不能有空格。");
  EXPECT_EQ(add(depts, {"04\n05", "仓储"}), "部门编码中有换行、制表符或其他不能显示的字符，请删去。");
  EXPECT_EQ(add(depts, {"01", " 　 "}), "请填写部门名称。");
  EXPECT_EQ(add(depts, {"01", "\xE2\x80\xAE"}), "部门名称中有换行、制表符或其他不能显示的字符，请删去。");
  EXPECT_EQ(add(depts, {"012345678901234567890", "仓储"}), "部门编码最多 20 个字，现在有 21 个。");
  EXPECT_EQ(add(depts, {" 01", "仓储"}), "部门编码“01”已经用于部门“销售部”。");
  EXPECT_EQ(add(depts, {" 04　", hostile}), "成");
  EXPECT_EQ(ledger_.rows("SELECT sDeptId, sDeptName FROM Dept WHERE sDeptId = '04'"),
            std::string("04|") + hostile + "\n");
  EXPECT_EQ(ledger_.rows("SELECT count(DISTINCT lDeptId), min(lDeptId) FROM Dept"), "4|101\n");

  const auto persons = personArchive();
  EXPECT_EQ(add(persons, {"0301", "王五", ""}), "请选择部门。");
  EXPECT_EQ(add(persons, {"0301", "王五", "'; DROP TABLE Person --"}),
            "没有部门“'; DROP TABLE Person --”，请从列表中选择。");
  EXPECT_EQ(add(persons, {"0301", "王五", hostile}), "成");
  EXPECT_EQ(change(persons, 302, {"0101", "张伟", "02 仓库"}), "个人编码“0101”已经用于个人“李明”。");
  EXPECT_EQ(change(persons, 301, {"0101", "李明明", "01"}), "成");
  EXPECT_EQ(ledger_.rows("SELECT sName, lDeptId FROM Person WHERE lId = 301"), "李明明|101\n");
  EXPECT_EQ(doubtAbout(reports_, persons, {}, input({"0999", "张伟", ""})),
            "已有同名的个人“张伟”（0201），按名称查询时只能查到其中一个。仍要写入吗？");
  EXPECT_EQ(doubtAbout(reports_, persons, record(persons, 302), input({"0201", "张伟", ""})), "");
  expectSound();

  EXPECT_EQ(remove(depts, 1), "部门“销售部”已用于 1 条分录、12 条辅助余额、1 名个人，不能删除。");
  EXPECT_EQ(remove(depts, 3), "部门“研发部”已用于 1 条计划，不能删除。");
  EXPECT_EQ(remove(persons, 301), "个人“李明明”已用于 1 条分录、12 条辅助余额，不能删除。");
  EXPECT_EQ(remove(persons, 302), "成");
  EXPECT_EQ(remove(depts, 2), "成");
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM Dept") + ledger_.rows("SELECT count(*) FROM Plan"), "3\n1\n");
  expectSound();
}

TEST_P(Archives, TakeUnitsWithTheirClassesAndCreditLimits) {
  const auto units = unitArchive();
  EXPECT_EQ(add(units, {"K03", "新厂", "国内", "-1", "", "", ""}), "信用额度不能是负数。");
  EXPECT_EQ(add(units, {"K03", "新厂", "国内", "一千", "", "", ""}), "信用额度“一千”不是金额。");
  EXPECT_EQ(add(units, {"K03", "新厂", "国内", "0.005", "", "", ""}), "信用额度最多有两位小数。");
  EXPECT_EQ(add(units, {"K03", "新厂", "天上", "1", "", "", ""}), "没有分类“天上”，请从列表中选择。");
  EXPECT_EQ(add(units, {"K03", "新厂", "国外", " 1，234.50 ", "南京路1号", "小王", "025-1"}), "成");
  EXPECT_EQ(ledger_.rows("SELECT sEnterName, lClassId, mCredit, sAddress, sContact, sPhone FROM Enter "
                         "WHERE sEnterId = 'K03'"),
            "新厂|2|1234.5|南京路1号|小王|025-1\n");
  EXPECT_EQ(change(units, 502, {"K02", "东方厂", "", "", "", "", ""}), "成");
  EXPECT_EQ(ledger_.rows("SELECT lClassId, mCredit FROM Enter WHERE lId = 502"), "0|0\n");
  EXPECT_EQ(remove(unitClassArchive(), 1), "单位分类“国内”已用于 1 个单位，不能删除。");
  EXPECT_EQ(remove(units, 501), "单位“宏达厂”已用于 1 条分录、12 条辅助余额，不能删除。");
  EXPECT_EQ(remove(units, 502), "成");
  EXPECT_EQ(add(unitClassArchive(), {"供应商"}), "成");
  expectSound();

  auto list = readArchive(reports_, units);
  const ArchiveReferences references(reports_, units);
  sortRecords(list, units, references, 3, true);
  const auto shown = archiveList(units, list, references);
  EXPECT_EQ(shown.grid.ShownAt(0, 1) + shown.grid.ShownAt(0, 2) + shown.grid.ShownAt(0, 3), "新厂国外1,234.50");
  EXPECT_EQ(shown.grid.ShownAt(1, 1), "宏达厂");
}

TEST_P(Archives, MakeProjectClassesWithTheirTablesFieldsItemsAndAccounts) {
  const auto classes = projectClassArchive();
  EXPECT_EQ(add(classes, {"R-2", "销售"}), "大类编号只能由字母和数字组成。");
  EXPECT_EQ(add(classes, {"rd", "销售"}), "大类编号“rd”已经用于项目大类“研发”。");
  EXPECT_EQ(add(classes, {"Xs", hostile}), "成");
  EXPECT_EQ(ledger_.rows("SELECT table_name FROM systable WHERE table_name = 'ProjItemsXs' AND creator = 4"),
            "ProjItemsXs\n");
  expectSound();

  const ProjClassInfo sales{2, "Xs", hostile};
  EXPECT_EQ(add(classFieldArchive(sales), {"负责人", "7"}), "请选择类型。");
  EXPECT_EQ(add(classFieldArchive(sales), {"负责人", "3"}), "成");
  EXPECT_EQ(add(classFieldArchive(sales), {"预算", "1"}), "成");
  EXPECT_EQ(add(classFieldArchive(sales), {"到期", "4"}), "成");
  expectSound();
  const auto items = itemArchive(reports_, sales);
  EXPECT_EQ(add(items, {"S1", "展会", "王五", "abc", ""}), "预算“abc”不是数。");
  EXPECT_EQ(add(items, {"S1", "展会", "王五", "1,000.125", "2006-02-30"}),
            "到期“2006-02-30”不是日期，请写成 2025-01-31。");
  EXPECT_EQ(add(items, {"S1", "展会", "王五", "1,000.125", "2006.2.3"}), "成");
  EXPECT_EQ(ledger_.rows("SELECT FIELD0, FIELD1, FIELD2, FIELD3, FIELD4 FROM ProjItemsXs"),
            "S1|展会|王五|1000.125|2006-02-03\n");
  const auto fields = readArchive(reports_, classFieldArchive(sales));
  ASSERT_EQ(fields.size(), 5U);
  EXPECT_EQ(classFieldArchive(sales).loss(reports_, fields[2]),
            "有 1 个项目填写了“负责人”，删除字段以后这些内容不能恢复。");
  EXPECT_EQ(remove(classFieldArchive(sales), fields[0].lId), "编号和名称是每个项目都有的，不能删除。");
  EXPECT_EQ(remove(classFieldArchive(sales), fields[2].lId), "成");
  EXPECT_EQ(itemArchive(reports_, sales).fields.size(), 4U);
  EXPECT_EQ(ledger_.rows("SELECT FIELD0, FIELD3, FIELD4 FROM ProjItemsXs"), "S1|1000.125|2006-02-03\n");
  // The number of the field that went is free again.
  EXPECT_EQ(add(classFieldArchive(sales), {"结清", "5"}), "成");
  EXPECT_EQ(ledger_.rows("SELECT nField FROM ProjItems WHERE sTitle = '结清'"), "2\n");
  expectSound();

  EXPECT_EQ(add(classAccountArchive(sales), {"1122 应收帐款"}), "没有科目“1122 应收帐款”，请从列表中选择。");
  EXPECT_EQ(add(classAccountArchive(sales), {"5001"}), "成");
  EXPECT_EQ(add(classAccountArchive(sales), {"5001 生产成本"}), "科目“5001 生产成本”已经在列。");
  EXPECT_EQ(remove(classAccountArchive(research()), 1),
            "科目“5001 生产成本”已用于 1 条分录、12 条辅助余额，不能删除。");
  EXPECT_EQ(remove(itemArchive(reports_, research()), 1), "项目“主轴”已用于 1 条分录、12 条辅助余额，不能删除。");
  EXPECT_EQ(remove(itemArchive(reports_, research()), 2), "成");
  const auto salesId = readArchive(reports_, classes).back().lId;
  EXPECT_EQ(remove(classes, salesId), std::string("项目大类“") + hostile + "”已用于 1 个科目、1 个项目，不能删除。");
  EXPECT_EQ(remove(classAccountArchive(sales), readArchive(reports_, classAccountArchive(sales)).front().lId), "成");
  EXPECT_EQ(remove(items, readArchive(reports_, itemArchive(reports_, sales)).front().lId), "成");
  EXPECT_EQ(remove(classes, salesId), "成");
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM ProjItems WHERE sItemId = 'Xs'"), "0\n");
  EXPECT_EQ(remove(classes, 1), "项目大类“研发”已用于 1 条分录、12 条辅助余额、1 个科目、1 个项目，不能删除。");
  expectSound();
}

TEST_P(Archives, NeverOverwriteWhatAnotherHasWritten) {
  const auto depts = departmentArchive();
  LedgerKeeper mine(ledger_.address(), depts.tables);
  LedgerKeeper theirs(ledger_.address(), depts.tables);
  const auto read = record(depts, 2);
  EXPECT_EQ(said(changeRecord(theirs, depts, read, input({"02", "成品库"}))), "成");
  const auto answer = changeRecord(mine, depts, read, input({"02", "材料库"}));
  EXPECT_EQ(said(answer), "部门“仓库”已被别人修改，没有写入。请看现在的内容，再决定是否修改。");
  ASSERT_TRUE(answer.changedMeanwhile && answer.now);
  EXPECT_EQ(answer.now->values[1], Value(std::string("成品库")));
  EXPECT_EQ(said(removeRecord(mine, depts, read)),
            "部门“仓库”已被别人修改，没有写入。请看现在的内容，再决定是否修改。");
  EXPECT_EQ(said(removeRecord(theirs, depts, *answer.now)), "部门“成品库”已用于 1 名个人，不能删除。");
  ledger_.keeper().execute("DELETE FROM Person WHERE lDeptId = 105");
  EXPECT_EQ(said(removeRecord(theirs, depts, *answer.now)), "成");
  EXPECT_EQ(said(changeRecord(mine, depts, *answer.now, input({"02", "材料库"}))),
            "部门“成品库”已被别人删除，没有写入。");
  // Both may take the next code; the second is refused, and no id is given twice.
  EXPECT_EQ(said(addRecord(mine, depts, input({"04", "一"}))), "成");
  EXPECT_EQ(said(addRecord(theirs, depts, input({"04", "二"}))), "部门编码“04”已经用于部门“一”。");
  EXPECT_EQ(ledger_.rows("SELECT sDeptName FROM Dept ORDER BY sDeptId, lId"), "销售部\n研发部\n一\n");
  expectSound();
}

TEST_P(Archives, WriteNothingWhenAChangeFailsOnItsWay) {
  // A class whose table cannot be made: its row and its fields go again.
  ledger_.keeper().execute(onServer() ? "CREATE TABLE elsewhere (lId bigint)" : "CREATE TABLE elsewhere (lId INTEGER)");
  const auto classes = projectClassArchive();
  auto broken = classes;
  broken.added = [&](Connection& connection, const ArchiveRecord& record) {
    classes.added(connection, record);
    connection.execute("CREATE TABLE elsewhere (lId integer)");
  };
  LedgerKeeper keeper(ledger_.address(), classes.tables);
  EXPECT_THROW((void)addRecord(keeper, broken, input({"ZZ", "破"})), DbError);
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM ProjClass") + ledger_.rows("SELECT count(*) FROM ProjItems"), "1\n4\n");
  EXPECT_EQ(add(classes, {"ZZ", "好"}), "成");
  ledger_.keeper().execute("DROP TABLE elsewhere");
  expectSound();
}

TZ_ON_BOTH_DATABASES(Archives);

// Run on a disk of its own size by the test below.
TEST(ArchivesForOthers, DISABLED_AddAClass) {
  const auto classes = projectClassArchive();
  LedgerKeeper keeper(std::getenv("TZ_KEPT_LEDGER"), classes.tables);
  ASSERT_FALSE(keeper.obstacle()) << keeper.obstacle()->words;
  try {
    EXPECT_FALSE(addRecord(keeper, classes, {{"ZZ"}, {"新的大类"}}).refused);
  } catch (const DbError& error) {
    EXPECT_EQ(error.kind(), DbError::Kind::full) << error.what();
    throw;
  }
}

TEST(ArchivesOnASmallDisk, AreWrittenWhollyOrNotAtAll) {
  TestLedger ledger(Engine::sqlite);
  const std::filesystem::path place(ledger.address());
  int written = 0;
  for (const int kibibytes : {0, 8, 1000}) {
    ledger.keeper().query("PRAGMA wal_checkpoint(TRUNCATE)")->next();
    const auto bytes = file_size(place) + static_cast<std::uintmax_t>(kibibytes) * 1024 + 40'960;
    const auto run = runCommand(
        {std::filesystem::read_symlink("/proc/self/exe").string(), "--gtest_also_run_disabled_tests",
         "--gtest_filter=ArchivesForOthers.DISABLED_AddAClass"},
        {"TZ_KEPT_LEDGER=" + ledger.address(), "LD_PRELOAD=" TZ_SMALL_DISK, "ASAN_OPTIONS=verify_asan_link_order=0",
         "TZ_DISK_FOLDER=" + place.parent_path().string(), "TZ_DISK_BYTES=" + std::to_string(bytes)});
    EXPECT_EQ(run.out.find("error.kind()"), std::string::npos) << run.out;
    EXPECT_EQ(ledger.rows("SELECT (SELECT count(*) FROM ProjClass), (SELECT count(*) FROM ProjItems), "
                          "(SELECT count(*) FROM systable WHERE table_name = 'ProjItemsZZ')"),
              run.status == 0 ? "1|2|1\n" : "0|0|0\n")
        << run.out;
    written += run.status == 0 ? 1 : 0;
  }
  EXPECT_EQ(written, 1);
}

}  // namespace
}  // namespace tz::test
