#include "ledger/random_ledger.h"

#include <set>
#include <tuple>

namespace tz::test::naive {
namespace {

using Texts = std::vector<std::string>;

const Texts names = {"张三", "李四", "O'Brien'; DROP TABLE Plan --", "100%", "\"引号\"\n换行", "王_五"};
const Texts deptNames = {"销售部", "采购部", "'财务'部", "销售部"};
const Texts summaries = {
    "", "预借差旅费", "它说'不'", "第一行\n第二行\t\"引\\号\"", "100%", "一个很长很长的摘要，比十五个字节长得多"};

int sideOf(Dice& dice) { return dice.once(2) ? 1 : 0; }

void addAccount(Ledger& ledger, Dice& dice, const std::string& code, bool leaf) {
  const Texts flags = {"A", "A", "A", "A", "A", "A", "AC", "DA", "BA", "C", ""};
  CodeInfo account;
  account.lId = static_cast<Id>(ledger.accounts.size()) * 3 + 2;
  account.sCode = code;
  account.sName = dice.oneOf(names) + "款";
  account.byGrade = code.size() == 4 ? 1 : 2;
  account.bEnd = leaf ? 1 : 0;
  account.bDirect = sideOf(dice);
  account.sAssBook = dice.oneOf(flags);
  if (dice.once(2)) account.sUnit = "台";
  if (dice.once(2)) account.byExchId = 1 + dice.below(3);  // the third is no currency of the ledger
  ledger.accounts.push_back(account);
}

void addArchives(Ledger& ledger, Dice& dice) {
  for (const char* code : {"1133", "1134", "2241"}) {
    addAccount(ledger, dice, code, false);
    for (int child = 1, children = dice.below(4); child <= children; ++child) {
      addAccount(ledger, dice, code + std::string("0") + std::to_string(child), true);
    }
  }
  ledger.currencies = {{1, 1, "日元", 0}, {2, 2, "美元", 1}};
  // The ids that lines carry are other departments' record ids.
  const Id lineIds[] = {3, 1, 4, 2};
  for (std::size_t i = 0; i < deptNames.size(); ++i) {
    ledger.depts.push_back({static_cast<Id>(i) + 1, lineIds[i], "D" + std::to_string(9 - i), deptNames[i]});
  }
  for (int i = 1, persons = 2 + dice.below(4); i <= persons; ++i) {
    ledger.persons.push_back({i, "P" + std::to_string(i), dice.oneOf(names), dice.once(3) ? 1 + dice.below(4) : 3});
  }
}

double quarters(Dice& dice) {
  switch (dice.below(12)) {
    case 0:
      return 0;
    case 1:
      return 1.0 / 131072;  // below the opening row's threshold
    case 2:
      return -1.0 / 16384;  // between the two thresholds
    default:
      return (dice.below(4000) - 800) * 0.25;
  }
}

double cents(Dice& dice) {
  switch (dice.below(16)) {
    case 0:
      return 0;
    case 1:
      return 0.00005;
    case 2:
      return 0.0001;
    default:
      return (dice.below(200000) - 30000) / 100.0;
  }
}

// Somebody who is in a department, sometimes in one that is not his.
std::pair<Id, Id> member(const Ledger& ledger, Dice& dice) {
  const auto& person = dice.oneOf(ledger.persons);
  return {dice.once(8) ? 1 + dice.below(4) : person.lDeptId, person.lId};
}

void addBalances(Ledger& ledger, Dice& dice) {
  std::set<std::tuple<Id, Id, Id, Id, int>> taken;
  for (int i = 0, records = 20 + dice.below(120); i < records; ++i) {
    const auto [dept, person] = member(ledger, dice);
    AssAccInfo balance;
    balance.lId = 1000 - i;  // read in another order than written
    balance.lCodeId = dice.oneOf(ledger.accounts).lId;
    balance.lDeptId = dept;
    balance.lPersonId = person;
    balance.lEnterId = dice.once(4) ? 1 + dice.below(3) : 0;
    balance.byPeroid = dice.below(13);
    balance.bBegin = balance.byPeroid == 0 ? 1 : 0;
    balance.mBegin = quarters(dice);
    balance.dBegin = dice.once(3) ? 0 : quarters(dice);
    balance.mBeginFor = dice.once(3) ? 0 : quarters(dice);
    balance.mDebit = quarters(dice);
    if (taken.insert({balance.lCodeId, dept, person, balance.lEnterId, balance.byPeroid}).second) {
      ledger.balances.push_back(balance);
    }
  }
}

Date dayOf(Dice& dice, int month, int year = 2006) {
  return {static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month),
          static_cast<std::uint8_t>(1 + dice.below(28))};
}

template <class Head, class Line>
void addVouchers(std::vector<Head>& heads, std::vector<Line>& lines, const Ledger& ledger, Dice& dice,
                 double (*amount)(Dice&)) {
  const Texts words = {"记", "银付", "转"};
  std::vector<Id> lineIds;
  const bool tidy = dice.once(2);  // every voucher dated and entered inside its period
  for (int i = 0, vouchers = dice.below(25); i < vouchers; ++i) {
    Head head;
    head.lTieId = 100 - i;
    head.byPeroid = dice.below(tidy ? 5 : 13);
    const int month = head.byPeroid == 0 ? 1 : head.byPeroid;
    head.dtBill = tidy || !dice.once(4) ? dayOf(dice, month) : dayOf(dice, 1 + dice.below(12), 2005 + dice.below(3));
    head.dtDate = tidy ? head.dtBill : dayOf(dice, 1 + dice.below(12));
    head.sWord = dice.oneOf(words);
    head.nNumber = dice.once(5) ? 9998 + dice.below(4) : 1 + dice.below(40);
    heads.push_back(head);
    for (int k = 0, count = dice.below(9); k < count; ++k) {
      const auto [dept, person] = member(ledger, dice);
      Line line;
      line.lId = 5000 + (static_cast<Id>(lines.size()) * 37) % 1009;  // unique, in no order
      line.lTieId = head.lTieId;
      line.lCodeId = dice.oneOf(ledger.accounts).lId;
      line.lDeptId = dept;
      line.lPersonId = person;
      line.lEnterId = dice.once(4) ? 1 : 0;
      line.mMoney = amount(dice);
      line.bDirect = sideOf(dice);
      if (!dice.once(3)) line.dAmount = amount(dice);
      if (!dice.once(3)) line.mForeign = amount(dice);
      if (!dice.once(3)) line.dFrat = 1 + dice.below(100000) / 10000.0;
      line.sDigest = dice.oneOf(summaries);
      line.dtDate = head.dtDate;
      lines.push_back(line);
    }
  }
}

}  // namespace

Ledger randomLedger(Dice& dice) {
  Ledger ledger;
  addArchives(ledger, dice);
  addBalances(ledger, dice);
  addVouchers(ledger.postedHeads, ledger.postedLines, ledger, dice, cents);
  addVouchers(ledger.unpostedHeads, ledger.unpostedLines, ledger, dice, quarters);
  return ledger;
}

Question randomQuestion(Dice& dice, const Ledger& ledger) {
  const Texts formats = {"金额式", "数量金额式", "外币金额式", "数量外币式", "外币式"};
  Question question;
  question.account = dice.once(20) ? "1199" : dice.oneOf(ledger.accounts).sCode;
  if (dice.once(3)) question.account = "1133";
  const auto [deptId, personId] = member(ledger, dice);
  for (const auto& dept : ledger.depts) {
    if (dept.lDeptId == deptId) question.dept = dept.sDeptName;
  }
  for (const auto& person : ledger.persons) {
    if (person.lId == personId) question.person = person.sName;
  }
  if (dice.once(30)) question.dept = dice.once(2) ? "" : "没有的部";
  if (dice.once(30)) question.person = dice.once(2) ? "" : "没有的人";
  question.from = 1 + dice.below(12);
  question.to = dice.once(10) ? 1 + dice.below(12) : question.from + dice.below(13 - question.from);
  if (dice.once(3)) question.from = 1;
  question.unposted = dice.once(2);
  if (dice.once(3)) question.format = dice.oneOf(formats);
  return question;
}

}  // namespace tz::test::naive
