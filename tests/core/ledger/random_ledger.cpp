#include "core/ledger/random_ledger.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <tuple>

#include "core/data/record_io.h"
#include "core/ledger/naive_dialog.h"

namespace tz::test::naive {
namespace {

using Texts = std::vector<std::string>;

const Texts names = {"张三", "李四", "O'Brien'; DROP TABLE Plan --", "100%", "\"引号\"\n换行", "王_五", "\\'", "?$1%s"};
const Texts classNames = {"国内", "国外'"};
const Texts clerks = {"", "", "张三", "O'Brien'; DROP TABLE Plan --"};
const Texts deptNames = {"销售部", "采购部", "'财务'部", "销售部"};  // one name twice
const Texts summaries = {
    "", "预借差旅费", "它说'不'", "第一行\n第二行\t\"引\\号\"", "100%", "一个很长很长的摘要，比十五个字节长得多"};

int sideOf(Dice& dice) { return dice.once(2) ? 1 : 0; }

// One dimension alone, projects of departments, or any of them together.
std::string flagsOf(Dice& dice) {
  const Texts single = {"A", "B", "C", "D"};
  const Texts deptProjects = {"CD", "DC"};
  if (dice.once(3)) return dice.oneOf(single);
  if (dice.once(4)) return dice.oneOf(deptProjects);
  std::string flags;
  for (const char* flag : {"D", "A", "C", "B"}) {
    if (!dice.once(3)) flags += flag;
  }
  return flags;
}

void addAccount(Ledger& ledger, Dice& dice, const std::string& code, bool leaf) {
  CodeInfo account;
  account.lId = (static_cast<Id>(ledger.accounts.size()) * 7) % 31 + 2;  // in another order than the codes
  account.sCode = code;
  account.sName = dice.oneOf(names) + "款";
  account.byGrade = static_cast<int>(code.size()) / 2 - 1;
  account.bEnd = leaf ? 1 : 0;
  account.bDirect = sideOf(dice);
  account.sAssBook = flagsOf(dice);
  if (dice.once(2)) account.sUnit = "台";
  if (dice.once(2)) account.byExchId = 1 + dice.below(3);  // the third is no currency of the ledger
  ledger.accounts.push_back(account);
  for (const auto& itemClass : ledger.classes) {
    if (!account.keeps('D') || dice.once(3)) continue;
    const auto id = static_cast<Id>(ledger.classesOfAccounts.size()) + 1;
    ledger.classesOfAccounts.push_back({id, account.lId, itemClass.sItemId});
  }
}

void addProjects(Ledger& ledger, Dice& dice) {
  if (!dice.once(20)) ledger.classes = {{1, "Z9", "订单"}, {2, "01", "研发'项目"}};
  for (const char* itemClass : itemClasses) {
    for (int i = 1; i <= 3; ++i) {
      ledger.items.push_back({itemClass, i, "X" + std::to_string(5 - i), dice.oneOf(names) + "工程"});
    }
  }
}

void addAccounts(Ledger& ledger, Dice& dice) {
  for (const char* top : {"1133", "1134", "2241"}) {
    const int children = dice.below(4);
    addAccount(ledger, dice, top, children == 0);
    for (int child = 1; child <= children; ++child) {
      const auto code = top + std::string("0") + std::to_string(child);
      const int grandchildren = dice.once(3) ? dice.below(3) : 0;
      addAccount(ledger, dice, code, grandchildren == 0);
      for (int i = 1; i <= grandchildren; ++i) addAccount(ledger, dice, code + "0" + std::to_string(i), true);
    }
  }
}

void addArchives(Ledger& ledger, Dice& dice) {
  addProjects(ledger, dice);
  addAccounts(ledger, dice);
  ledger.currencies = {{1, 1, "日元", 0}, {2, 2, "美元", 1}};
  // The ids that lines carry are other departments' record ids.
  const Id lineIds[] = {3, 1, 4, 2};
  for (std::size_t i = 0; i < deptNames.size(); ++i) {
    ledger.depts.push_back({static_cast<Id>(i) + 1, lineIds[i], "D" + std::to_string(9 - i), deptNames[i]});
  }
  for (int i = 1, persons = 2 + dice.below(4); i <= persons; ++i) {
    ledger.persons.push_back({i, "P" + std::to_string(i), dice.oneOf(names), dice.once(3) ? 1 + dice.below(4) : 3});
  }
  for (int i = 1, classes = dice.below(3); i <= classes; ++i) ledger.unitClasses.push_back({i, dice.oneOf(classNames)});
  for (int i = 1; i <= 4; ++i) {
    EnterInfo unit;
    unit.lId = i;
    unit.sEnterId = "E" + std::to_string(9 - i);
    unit.sEnterName = dice.oneOf(names) + "公司";
    unit.lClassId = dice.below(3);
    if (!dice.once(3)) unit.mCredit = dice.below(2000) * 0.25;
    ledger.units.push_back(unit);
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

// What a posted line of a list report holds: sums of such amounts are exact in whatever order they are formed.
double sixtyFourths(Dice& dice) { return dice.once(10) ? quarters(dice) : (dice.below(200000) - 30000) / 64.0; }

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

// The dimensions of a balance or line; a project is a class with one of its items.
template <class Record>
void setDimensions(Record& record, const Ledger& ledger, Dice& dice) {
  record.lCodeId = dice.oneOf(ledger.accounts).lId;
  std::tie(record.lDeptId, record.lPersonId) = member(ledger, dice);
  if (dice.once(4)) record.lPersonId = 0;
  if (dice.once(9)) record.lDeptId = 0;
  if (!dice.once(3)) record.lEnterId = 1 + dice.below(4);
  if (dice.once(3)) return;
  record.lItemId = dice.once(12) ? 0 : 1 + dice.below(3);
  record.sItemId = itemClasses[dice.once(3) ? 1 : 0];
}

void addBalances(Ledger& ledger, Dice& dice) {
  std::set<std::tuple<Id, Id, Id, Id, Id, std::string, int>> taken;
  for (int i = 0, records = 20 + dice.below(180); i < records; ++i) {
    AssAccInfo balance;
    balance.lId = 1000 - i;  // read in another order than written
    setDimensions(balance, ledger, dice);
    balance.byPeroid = dice.once(3) ? 1 : dice.below(13);
    balance.bBegin = balance.byPeroid == 0 ? 1 : 0;
    balance.mBegin = quarters(dice);
    balance.dBegin = dice.once(3) ? 0 : quarters(dice);
    balance.mBeginFor = dice.once(3) ? 0 : quarters(dice);
    for (auto figure : {&AssAccInfo::mDebit, &AssAccInfo::mCredit, &AssAccInfo::dDebit, &AssAccInfo::dCredit,
                        &AssAccInfo::mDebitFor, &AssAccInfo::mCreditFor}) {
      if (!dice.once(3)) balance.*figure = quarters(dice);
    }
    const bool isNew = taken
                           .insert({balance.lCodeId, balance.lDeptId, balance.lPersonId, balance.lEnterId,
                                    balance.lItemId, balance.sItemId, balance.byPeroid})
                           .second;
    if (isNew) ledger.balances.push_back(balance);
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
  for (int i = 0, vouchers = dice.below(30); i < vouchers; ++i) {
    Head head;
    head.lTieId = 100 - i;
    head.byPeroid = dice.below(tidy ? 5 : 13);
    const int month = head.byPeroid == 0 ? 1 : head.byPeroid;
    head.dtBill = tidy || !dice.once(4) ? dayOf(dice, month) : dayOf(dice, 1 + dice.below(12), 2005 + dice.below(3));
    head.dtDate = tidy ? head.dtBill : dayOf(dice, 1 + dice.below(12));
    head.sWord = dice.oneOf(words);
    head.nNumber = dice.once(5) ? 9998 + dice.below(4) : 1 + dice.below(40);
    heads.push_back(head);
    for (int k = 0, count = dice.below(14); k < count; ++k) {
      Line line;
      line.lId = 5000 + (static_cast<Id>(lines.size()) * 37) % 1009;  // unique, in no order
      line.lTieId = head.lTieId;
      setDimensions(line, ledger, dice);
      line.sName = dice.oneOf(clerks);
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

std::string deptOf(const Ledger& ledger, Dice& dice, Id id) {
  if (dice.once(30)) return dice.once(2) ? "" : "没有的部";
  for (const auto& dept : ledger.depts) {
    if (dept.lDeptId == id) return dept.sDeptName;
  }
  return {};
}

std::string accountFor(const Ledger& ledger, Dice& dice, const Report& report) {
  std::vector<std::string> fitting;
  for (const auto& account : ledger.accounts) {
    if (offers(report, account)) fitting.push_back(account.sCode);
  }
  if (dice.once(25)) return dice.once(2) ? "1199" : dice.oneOf(ledger.accounts).sCode;
  return fitting.empty() ? "" : dice.oneOf(fitting);
}

void askForProject(Question& question, const Ledger& ledger, Dice& dice, const Report& report) {
  const auto& item = dice.oneOf(ledger.items);
  question.project = item.name;
  question.projectClass = item.classId;
  if (dice.once(report.classOfAccount ? 2 : 15)) question.projectClass = dice.once(3) ? "没有" : "";
  if (dice.once(30)) question.project = dice.once(2) ? "" : "没有的项目";
  if (report.project || !dice.once(4)) return;
  if (!dice.once(3)) question.projectFrom = dice.once(20) ? "X9" : dice.oneOf(ledger.items).code;
  if (!dice.once(3)) question.projectTo = dice.oneOf(ledger.items).code;
}

void askForAmounts(Question& question, Dice& dice) {
  if (dice.once(3)) question.least = dice.below(800) * 0.25;
  if (dice.once(3)) question.most = question.least + dice.below(4000) * 0.25;
  if (question.least > 0 && question.most == 0 && !dice.once(8)) question.most = 1e6;
  if (dice.once(3)) question.side = dice.once(2) ? "debit" : "credit";
}

void fillItems(Connection& keeper, const Ledger& ledger) {
  for (const char* itemClass : itemClasses) {
    const auto table = std::string("ProjItems") + itemClass;
    keeper.execute(Sql("DELETE FROM " + table));
    for (const auto& item : ledger.items) {
      if (item.classId != itemClass) continue;
      keeper.execute(
          Sql("INSERT INTO " + table + " (lId, FIELD0, FIELD1) VALUES (?, ?, ?)", item.id, item.code, item.name));
    }
  }
}

// Account, department, person, unit, item and its class.
using BalanceKey = std::tuple<Id, Id, Id, Id, Id, std::string>;

template <class Record>
BalanceKey balanceKeyOf(const Record& record) {
  return {record.lCodeId, record.lDeptId, record.lPersonId, record.lEnterId, record.lItemId, record.sItemId};
}

// What balances of the same dimensions hold, debit-positive.
struct Course {
  struct Sums {
    double debit = 0, credit = 0;
  };
  std::array<double, 3> opening = {};  // amount, quantity, foreign amount
  std::array<std::array<Sums, 3>, 13> moved = {};
  int first = 12;  // the period that it begins in
};

// A record for each period from the first one on.
void writeCourse(std::vector<AssAccInfo>& balances, const BalanceKey& key, const Course& course, double direction) {
  auto standing = course.opening;
  for (int period = course.first; period <= 12; ++period) {
    AssAccInfo record;
    record.lId = 9000 - static_cast<Id>(balances.size());  // read in another order than written
    std::tie(record.lCodeId, record.lDeptId, record.lPersonId, record.lEnterId, record.lItemId, record.sItemId) = key;
    record.byPeroid = period;
    const auto& moved = course.moved.at(static_cast<std::size_t>(period));
    const std::array begins = {&record.mBegin, &record.dBegin, &record.mBeginFor};
    const std::array debits = {&record.mDebit, &record.dDebit, &record.mDebitFor};
    const std::array credits = {&record.mCredit, &record.dCredit, &record.mCreditFor};
    for (std::size_t i = 0; i < standing.size(); ++i) {
      *begins.at(i) = direction * standing.at(i);
      *debits.at(i) = moved.at(i).debit;
      *credits.at(i) = moved.at(i).credit;
      standing.at(i) += moved.at(i).debit - moved.at(i).credit;
    }
    balances.push_back(record);
  }
}

// Balances that follow from the openings of the old ones and from the posted lines.
void balance(Ledger& ledger) {
  std::map<BalanceKey, Course> courses;
  for (const auto& old : ledger.balances) {
    if (old.byPeroid != 1) continue;
    auto& course = courses[balanceKeyOf(old)];
    course.opening = {old.mBegin, old.dBegin, old.mBeginFor};
    course.first = 1;
  }
  std::map<Id, int> periods;
  for (const auto& head : ledger.postedHeads) periods[head.lTieId] = head.byPeroid;
  for (const auto& line : ledger.postedLines) {
    auto& course = courses[balanceKeyOf(line)];
    const int period = periods.at(line.lTieId);
    course.first = std::min(course.first, period);
    const std::array figures = {line.mMoney, line.dAmount, line.mForeign};
    for (std::size_t i = 0; i < figures.size(); ++i) {
      auto& sums = course.moved.at(static_cast<std::size_t>(period)).at(i);
      (line.bDirect != 0 ? sums.debit : sums.credit) += figures.at(i);
    }
  }
  ledger.balances.clear();
  for (const auto& [key, course] : courses) {
    const auto account = std::ranges::find(ledger.accounts, std::get<0>(key), &CodeInfo::lId);
    writeCourse(ledger.balances, key, course, account->bDirect != 0 ? 1 : -1);
  }
}

// Vouchers dated and entered inside their periods.
template <class Head, class Line>
void tidyVouchers(std::vector<Head>& heads, std::vector<Line>& lines, Dice& dice) {
  std::map<Id, Date> entered;
  for (auto& head : heads) {
    head.byPeroid = 1 + dice.below(12);
    head.dtBill = head.dtDate = dayOf(dice, head.byPeroid);
    entered[head.lTieId] = head.dtDate;
  }
  for (auto& line : lines) line.dtDate = entered.at(line.lTieId);
}

}  // namespace

void writeLedger(Connection& keeper, const Ledger& ledger) {
  Transaction transaction(keeper, Transaction::Purpose::writing);
  const auto replace = [&]<class Record>(const std::vector<Record>& records) {
    keeper.execute(Sql(std::string("DELETE FROM ") + Record::table));
    insertRecords(keeper, records);
  };
  const auto replaceAll = [&](const auto&... tables) { (replace(tables), ...); };
  replaceAll(ledger.accounts, ledger.currencies, ledger.depts, ledger.persons, ledger.unitClasses, ledger.units,
             ledger.classes, ledger.classesOfAccounts, ledger.balances, ledger.postedHeads, ledger.postedLines,
             ledger.unpostedHeads, ledger.unpostedLines);
  fillItems(keeper, ledger);
  transaction.commit();
}

Ledger tidyLedger(Dice& dice) {
  Ledger ledger = randomLedger(dice, Amounts::cents);
  std::vector<Id> leaves;
  for (const auto& account : ledger.accounts) {
    if (account.bEnd != 0) leaves.push_back(account.lId);
  }
  const auto onLeaves = [&](auto& records) {
    for (auto& record : records) {
      if (std::ranges::find(leaves, record.lCodeId) == leaves.end()) record.lCodeId = dice.oneOf(leaves);
    }
  };
  onLeaves(ledger.balances);
  onLeaves(ledger.postedLines);
  onLeaves(ledger.unpostedLines);
  tidyVouchers(ledger.postedHeads, ledger.postedLines, dice);
  tidyVouchers(ledger.unpostedHeads, ledger.unpostedLines, dice);
  balance(ledger);
  return ledger;
}

Ledger randomLedger(Dice& dice, Amounts amounts) {
  Ledger ledger;
  addArchives(ledger, dice);
  addBalances(ledger, dice);
  addVouchers(ledger.postedHeads, ledger.postedLines, ledger, dice, amounts == Amounts::cents ? cents : sixtyFourths);
  addVouchers(ledger.unpostedHeads, ledger.unpostedLines, ledger, dice, quarters);
  return ledger;
}

Question randomQuestion(Dice& dice, const Ledger& ledger, const Report& report) {
  const Texts formats = {"金额式", "数量金额式", "外币金额式", "数量外币式", "外币式"};
  Question question;
  question.report = report.id;
  if (report.accounts.which != Accounts::list) {
    question.accounts = {accountFor(ledger, dice, report)};
  } else {
    for (int i = dice.below(3); i > 0; --i) question.accounts.push_back(accountFor(ledger, dice, report));
  }
  const auto [deptId, personId] = member(ledger, dice);
  question.dept = deptOf(ledger, dice, deptId);
  if (report.dept == Dept::orAll && dice.once(2)) question.dept = dice.once(2) ? "全部" : "";
  for (const auto& person : ledger.persons) {
    if (person.lId == personId) question.person = person.sName;
  }
  if (dice.once(30)) question.person = dice.once(2) ? "" : "没有的人";
  question.unit = dice.once(20) ? (dice.once(2) ? "" : "没有的单位") : dice.oneOf(ledger.units).sEnterName;
  question.unitClass = dice.once(4) ? "其它" : dice.once(4) ? "" : dice.oneOf(classNames);
  question.clerk = dice.once(4) ? "其它" : dice.oneOf(clerks);
  askForProject(question, ledger, dice, report);
  question.from = 1 + dice.below(12);
  question.to = dice.once(10) ? 1 + dice.below(12) : question.from + dice.below(13 - question.from);
  if (dice.once(3)) question.from = 1;
  question.unposted = dice.once(2);
  question.amountAnalysis = dice.once(2);
  question.limits = dice.once(2);
  question.turned = dice.once(2);
  if (report.unitOrAll && dice.once(2)) question.unit.clear();
  if (!report.months) std::tie(question.from, question.to) = std::pair(1, 12);
  if (report.amounts) askForAmounts(question, dice);
  if (report.accountRange && dice.once(2)) {
    if (dice.once(2)) question.accountFrom = dice.oneOf(ledger.accounts).sCode;
    if (dice.once(2)) question.accountTo = dice.oneOf(ledger.accounts).sCode;
  }
  if (report.hidesDetails) question.hideDetails = dice.once(3);
  if (report.hidesZeros) question.hideZeros = dice.once(2);
  if (dice.once(3)) question.format = dice.oneOf(formats);
  return question;
}

}  // namespace tz::test::naive
