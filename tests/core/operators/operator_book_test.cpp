// Two who keep operators at once, and what somebody may do whose rights changed after his logon.
#include "core/operators/operator_book.h"

#include "support/test_ledger.h"

namespace tz::test {
namespace {

const std::string longPassword = "一个足够长的口令";

class OperatorsAtOnce : public DatabaseTest {
 protected:
  void SetUp() override {
    for (const char* name : {"甲", "乙"}) {
      LedgerKeeper keeper(ledger_.address(), operatorTables());
      const OperatorBook book(keeper, name == std::string("甲") ? everybody() : who("甲"));
      ASSERT_FALSE(book.add({name, longPassword, {.everyRight = true}}));
    }
  }
  [[nodiscard]] Operator who(std::string_view name) {
    for (const auto& one : readOperators(ledger_.keeper())) {
      if (one.who.name == name) return one.who;
    }
    return {};
  }
  std::string names() { return ledger_.rows("SELECT sName, bAll FROM zOperator ORDER BY lId"); }

  TestLedger ledger_{GetParam()};
};

TEST_P(OperatorsAtOnce, NeverLeaveTheLedgerWithoutAKeeper) {
  LedgerKeeper one(ledger_.address(), operatorTables());
  LedgerKeeper other(ledger_.address(), operatorTables());
  ASSERT_FALSE(one.obstacle() || other.obstacle());
  const OperatorBook ofOne(one, who("甲"));
  const OperatorBook ofOther(other, who("乙"));
  EXPECT_FALSE(ofOne.changeRights("乙", {.everyRight = false, .give = {4}}));
  const auto late = ofOther.changeRights("甲", {.everyRight = false});
  ASSERT_TRUE(late);
  EXPECT_EQ(late->text, "操作员 乙 现在没有全部权限，不能管理操作员");
  EXPECT_EQ(names(), "甲|1\n乙|0\n");
  // What one gives, another does not take by giving something else.
  EXPECT_FALSE(ofOne.changeRights("乙", {.give = {3}}));
  EXPECT_EQ(who("乙").rights, (std::set{3, 4}));
  EXPECT_FALSE(ofOther.setPassword("乙", "另一个足够长的吧")) << "his own he may change";
  EXPECT_FALSE(ofOne.remove("乙", false));
  EXPECT_EQ(ofOther.setPassword("乙", longPassword)->text, "操作员 乙 现在没有全部权限，不能管理操作员");
  EXPECT_EQ(ofOne.changeRights("乙", {.give = {3}})->text, "没有操作员“乙”");
  // Somebody who needed no logon finds operators that came meanwhile.
  EXPECT_EQ(OperatorBook(other, everybody()).remove("甲", true)->text, "帐套刚刚有了操作员，请重新登录");
  EXPECT_EQ(names(), "甲|1\n");
}

TEST_P(OperatorsAtOnce, HaveTheRightsOfNow) {
  CQnCwDB db;
  db.Open(ledger_.address());
  const auto before = who("乙");
  EXPECT_TRUE(withRightsOfNow(db, before).everyRight);
  LedgerKeeper keeper(ledger_.address(), operatorTables());
  const OperatorBook book(keeper, who("甲"));
  EXPECT_FALSE(book.changeRights("乙", {.everyRight = false, .give = {3, 78}}));
  EXPECT_EQ(withRightsOfNow(db, before).rights, (std::set{3, 78}));
  EXPECT_FALSE(withRightsOfNow(db, before).may(4));
  EXPECT_FALSE(book.remove("乙", false));
  EXPECT_FALSE(withRightsOfNow(db, before).may(3)) << "no longer there";
  EXPECT_FALSE(withRightsOfNow(db, everybody()).may(3)) << "the ledger has operators now";
  EXPECT_FALSE(book.remove("甲", true));
  EXPECT_TRUE(withRightsOfNow(db, everybody()).may(3));
}

TZ_ON_BOTH_DATABASES(OperatorsAtOnce);

}  // namespace
}  // namespace tz::test
