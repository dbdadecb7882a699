// The connection that archives and operators are kept through: beside the one that reports read, whole or not at all.
#include "core/reports/keeper.h"

#include "support/privileges.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

class Keeping : public DatabaseTest {
 protected:
  void SetUp() override { ledger_.fill("Dept", "lId | lDeptId | sDeptId | sDeptName\n 1 | 1 | 01 | 销售部"); }
  std::string departments() { return ledger_.rows("SELECT sDeptName FROM Dept ORDER BY lId"); }

  TestLedger ledger_{GetParam()};
};

TEST_P(Keeping, ChangesBesideTheReportsAndNothingWhereItIsRefusedOrFails) {
  CQnCwDB reports;
  reports.Open(ledger_.address());
  LedgerKeeper keeper(ledger_.address(), {"Dept", "zRight"});
  ASSERT_FALSE(keeper.obstacle()) << keeper.obstacle()->words;
  const auto rename = [&](std::string_view name) {
    keeper.connection().execute(Sql("UPDATE Dept SET sDeptName = ?", std::string(name)));
  };
  EXPECT_FALSE(keeper.change([&] { return rename("O'Brien'; DROP TABLE Dept --"), std::optional<Refusal>(); }));
  EXPECT_EQ(reports.Dept_GetInfo({}).front().sDeptName, "O'Brien'; DROP TABLE Dept --");

  const auto refused = keeper.change([&] { return rename("没有了"), std::optional(Refusal{"不行"}); });
  EXPECT_EQ(refused.value().text, "不行");
  EXPECT_THROW((void)keeper.change([&]() -> std::optional<Refusal> {
    rename("没有了");
    keeper.connection().execute("UPDATE Nowhere SET lId = 1");
    return std::nullopt;
  }),
               DbError);
  EXPECT_EQ(departments(), "O'Brien'; DROP TABLE Dept --\n");

  // Numbers that two took at the same time are taken anew.
  int attempts = 0;
  EXPECT_FALSE(keeper.change([&]() -> std::optional<Refusal> {
    const Id id = ++attempts == 1 ? 1 : keeper.connection().newIds("Dept", 1);
    keeper.connection().execute(Sql("INSERT INTO Dept (lId, lDeptId, sDeptName) VALUES (?, ?, '仓库')", id, id));
    return std::nullopt;
  }));
  EXPECT_EQ(departments(), "O'Brien'; DROP TABLE Dept --\n仓库\n");
}

TEST_P(Keeping, SaysWhyNothingCanBeWritten) {
  const auto expectNoRight = [](const LedgerKeeper& keeper) {
    ASSERT_TRUE(keeper.obstacle());
    EXPECT_NE(keeper.obstacle()->text.find("没有写入这个帐套的权限"), std::string::npos) << keeper.obstacle()->text;
  };
  if (onServer()) {
    ledger_.keeper().execute("CREATE ROLE tz_looker LOGIN");
    ledger_.keeper().execute("GRANT tzassistant_report TO tz_looker");
    expectNoRight(LedgerKeeper(ledger_.place().addressAs("tz_looker"), {"Dept"}));
    ledger_.keeper().execute("DROP ROLE tz_looker");
    return;
  }
  setRights(ledger_.address(), 0444);
  const WithoutPrivileges nobodyInParticular;
  expectNoRight(LedgerKeeper(ledger_.address(), {"Dept"}));
}

TEST_P(Keeping, LeavesTablesOfAnotherFormToTheProgramThatMadeThem) {
  ledger_.keeper().execute(onServer() ? "ALTER TABLE Person ALTER lDeptId DROP DEFAULT, ALTER lDeptId TYPE text"
                                      : "ALTER TABLE Person DROP COLUMN lDeptId");
  if (!onServer()) ledger_.keeper().execute("ALTER TABLE Person ADD COLUMN lDeptId TEXT NOT NULL DEFAULT ''");
  const LedgerKeeper keeper(ledger_.address(), {"Person"});
  ASSERT_TRUE(keeper.obstacle());
  EXPECT_NE(keeper.obstacle()->text.find("由其他程序建立"), std::string::npos) << keeper.obstacle()->text;
}

TZ_ON_BOTH_DATABASES(Keeping);

}  // namespace
}  // namespace tz::test
