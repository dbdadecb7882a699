#include "ledger/naive_ledger.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace tz::test::naive {
namespace {

// A line with its head beside it.
struct Entry {
  Date bill, entered;
  std::string word, digest;
  int number = 0, period = 0;
  Id lineId = 0, account = 0, dept = 0, person = 0;
  bool debit = false;
  double money = 0, quantity = 0, foreign = 0, rate = 0;
};

template <class Head, class Line>
std::vector<Entry> entries(const std::vector<Head>& heads, const std::vector<Line>& lines) {
  std::vector<Entry> all;
  for (const auto& line : lines) {
    for (const auto& head : heads) {
      if (head.lTieId != line.lTieId) continue;
      all.push_back({head.dtBill, line.dtDate, head.sWord, line.sDigest, head.nNumber, head.byPeroid, line.lId,
                     line.lCodeId, line.lDeptId, line.lPersonId, line.bDirect != 0, line.mMoney, line.dAmount,
                     line.mForeign, line.dFrat});
    }
  }
  return all;
}

template <class Record>
void sortById(std::vector<Record>& records) {
  std::sort(records.begin(), records.end(), [](const auto& a, const auto& b) { return a.lId < b.lId; });
}

// What a row shows, by name; each format picks from it.
struct Figures {
  double price = 0, rate = 0;
  double debitQuantity = 0, debitForeign = 0, debitMoney = 0;
  double creditQuantity = 0, creditForeign = 0, creditMoney = 0;
};

struct Balance {
  double price = 0, rate = 0, quantity = 0, foreign = 0, money = 0;
};

// The places of a format, column by column, as letters: v voucher texts (three columns), p price, r rate, q f m of
// debit, Q F M of credit, d direction, 1 balance quantity, 2 balance price, 3 balance foreign, 4 balance rate, 5
// balance money.
std::string places(const std::string& format, bool opening) {
  if (format == "金额式") return "vvvmMd5";
  if (format == "数量金额式") return "vvvpqmQMd125";
  if (format == "外币金额式") return "vvvrfmFMd345";
  if (format == "数量外币式") return "vvvprqfmQFMd12345";
  return opening ? "vvv  d3" : "vvv f F";  // 外币式: seven columns, what lies beyond is lost
}

class Computation {
 public:
  Computation(const Ledger& ledger, const Question& question) : ledger_(ledger), question_(question) {
    sortById(ledger_.depts);
    sortById(ledger_.persons);
    posted_ = entries(ledger.postedHeads, ledger.postedLines);
    unposted_ = entries(ledger.unpostedHeads, ledger.unpostedLines);
  }

  Answer run() {
    answer_.refusal = refusal();
    if (!answer_.refusal.empty()) return answer_;
    chooseFormat();
    if (answer_.formatNotOffered) return answer_;
    answer_.subtitle = "科目：" + account_.sCode + " " + account_.sName + "\n部门：" + question_.dept + "     个人：" +
                       question_.person;
    opening();
    walk(selected(posted_), question_.unposted ? selected(unposted_) : std::vector<Entry>());
    return answer_;
  }

 private:
  // The dialog's checks in their order.
  std::string refusal() {
    bool offered = false;
    for (const auto& account : ledger_.accounts) {
      if (account.sCode != question_.account || account.sAssBook.find('A') == std::string::npos) continue;
      offered = true;
      account_ = account;
    }
    if (!offered) return "没有个人核算科目,不能查询个人三栏明细帐。";

    if (question_.dept.empty()) return "部门不能为空，请重新输入！";
    std::optional<DeptInfo> dept;
    for (const auto& candidate : ledger_.depts) {
      if (!dept && candidate.sDeptName == question_.dept) dept = candidate;
    }
    if (!dept) return "非法的部门";
    dept_ = dept->lDeptId;
    if (!active([&](const auto& record) { return record.lDeptId == dept_; })) return "没有查到该部门的个人往来记录";

    if (question_.person.empty()) return "姓名不能为空，请重新输入！";
    bool known = false;
    std::optional<PersonInfo> person;
    for (const auto& candidate : ledger_.persons) {
      if (candidate.sName != question_.person) continue;
      known = true;
      if (!person && candidate.lDeptId == dept_) person = candidate;
    }
    if (!known) return "非法的姓名";
    if (!person) return "该用户不属于该部门，请重新输入其他名字。";
    person_ = person->lId;
    if (!active([&](const auto& record) { return record.lDeptId == dept_ && record.lPersonId == person_; })) {
      return "没有查到该部门此人的发生额";
    }
    return {};
  }

  template <class Meets>
  bool active(Meets meets) const {
    for (const auto& balance : ledger_.balances) {
      if (meets(balance)) return true;
    }
    if (!question_.unposted) return false;
    for (const auto& line : ledger_.unpostedLines) {
      if (meets(line)) return true;
    }
    return false;
  }

  void chooseFormat() {
    unit_ = account_.sUnit;
    for (const auto& currency : ledger_.currencies) {
      if (account_.byExchId == 0 || currency.byExchId != account_.byExchId) continue;
      currency_ = currency.sName;
      multiplies_ = currency.bConvert != 0;
    }
    std::vector<std::string> offered = {"金额式"};
    if (!unit_.empty()) offered.emplace_back("数量金额式");
    if (!currency_.empty()) offered.emplace_back("外币金额式");
    if (!unit_.empty() && !currency_.empty()) offered.emplace_back("数量外币式");
    answer_.format = question_.format.empty() ? offered.back() : question_.format;
    if (!currency_.empty()) offered.emplace_back("外币式");
    answer_.formatNotOffered = std::find(offered.begin(), offered.end(), answer_.format) == offered.end();
    if (answer_.format == "数量金额式") answer_.unit = unit_;
    if (answer_.format == "外币金额式") answer_.unit = currency_;
    if (answer_.format == "数量外币式") answer_.unit = unit_ + "\n" + currency_;
  }

  // The account of the question or one below it.
  const CodeInfo* accountBelow(Id id) const {
    for (const auto& account : ledger_.accounts) {
      if (account.lId == id && account.sCode.substr(0, account_.sCode.size()) == account_.sCode) return &account;
    }
    return nullptr;
  }

  bool concerns(const Entry& entry) const {
    return entry.dept == dept_ && entry.person == person_ && accountBelow(entry.account) != nullptr;
  }

  void opening() {
    for (const auto& record : ledger_.balances) {
      if (record.lDeptId != dept_ || record.lPersonId != person_ || record.byPeroid != question_.from) continue;
      const auto* account = accountBelow(record.lCodeId);
      if (account == nullptr) continue;
      const int sign = account->bDirect != 0 ? 1 : -1;
      balance_.quantity += sign * record.dBegin;
      balance_.foreign += sign * record.mBeginFor;
      balance_.money += sign * record.mBegin;
    }
    if (question_.unposted) {
      for (const auto& entry : unposted_) {
        if (!concerns(entry) || entry.period < 0 || entry.period >= question_.from) continue;
        balance_.money += entry.debit ? entry.money : -entry.money;
      }
    }
    priceAndRate();
    if (std::fabs(balance_.money) < 0.00001) return;
    addRow({}, "", "", "个人期初", balance_.money >= 0 ? "借" : "贷", true);
  }

  void priceAndRate() {
    if (balance_.money == 0) return;
    if (!unit_.empty() && balance_.quantity != 0) balance_.price = balance_.money / balance_.quantity;
    if (currency_.empty() || balance_.foreign == 0) return;
    balance_.rate = std::fabs(multiplies_ ? balance_.money / balance_.foreign : balance_.foreign / balance_.money);
  }

  std::vector<Entry> selected(const std::vector<Entry>& all) const {
    std::vector<Entry> chosen;
    for (const auto& entry : all) {
      if (concerns(entry) && entry.period >= question_.from && entry.period <= question_.to) chosen.push_back(entry);
    }
    std::sort(chosen.begin(), chosen.end(), [](const Entry& a, const Entry& b) {
      return a.entered != b.entered ? a.entered < b.entered : a.lineId < b.lineId;
    });
    return chosen;
  }

  void walk(std::vector<Entry> posted, std::vector<Entry> unposted) {
    bool progress = true;
    while (progress && !(posted.empty() && unposted.empty())) {
      progress = false;
      for (int month = question_.from; month <= question_.to; ++month) {
        const auto before = posted.size() + unposted.size();
        take(posted, month, false);
        take(unposted, month, true);
        if (posted.size() + unposted.size() == before) continue;
        progress = true;
        addTotals();
      }
    }
    const auto left = posted.size() + unposted.size();
    if (left != 0) {
      answer_.notices.push_back("有" + std::to_string(left) + "条分录的凭证日期不在查询月份内，未列示");
    }
  }

  void take(std::vector<Entry>& entries, int month, bool unposted) {
    while (!entries.empty() && entries.front().bill.month == month) {
      const auto entry = entries.front();
      entries.erase(entries.begin());
      const auto figures = figuresOf(entry);
      month_.debitQuantity += figures.debitQuantity;
      month_.debitForeign += figures.debitForeign;
      month_.debitMoney += figures.debitMoney;
      month_.creditQuantity += figures.creditQuantity;
      month_.creditForeign += figures.creditForeign;
      month_.creditMoney += figures.creditMoney;
      balance_.quantity += figures.debitQuantity - figures.creditQuantity;
      balance_.foreign += figures.debitForeign - figures.creditForeign;
      balance_.money += figures.debitMoney - figures.creditMoney;
      priceAndRate();
      addRow(figures, dotted(entry.bill), voucher(entry), entry.digest, runningDirection(), false);
      answer_.rows.back().green = unposted;
      answer_.rows.back().data = unposted ? 1 : 0;
    }
  }

  Figures figuresOf(const Entry& entry) const {
    Figures figures;
    (entry.debit ? figures.debitQuantity : figures.creditQuantity) = entry.quantity;
    (entry.debit ? figures.debitForeign : figures.creditForeign) = entry.foreign;
    (entry.debit ? figures.debitMoney : figures.creditMoney) = entry.money;
    if (!currency_.empty()) figures.rate = entry.rate;
    if (!unit_.empty() && entry.money != 0 && entry.quantity != 0) figures.price = entry.money / entry.quantity;
    return figures;
  }

  void addTotals() {
    addRow(month_, "", "", "本月合计", runningDirection(), false);
    year_.debitQuantity += month_.debitQuantity;
    year_.debitForeign += month_.debitForeign;
    year_.debitMoney += month_.debitMoney;
    year_.creditQuantity += month_.creditQuantity;
    year_.creditForeign += month_.creditForeign;
    year_.creditMoney += month_.creditMoney;
    addRow(year_, "", "", "本年累计", runningDirection(), false);
    month_ = {};
  }

  std::string runningDirection() const {
    if (std::fabs(balance_.money) < 0.0001) return "平";
    return balance_.money > 0.0001 ? "借" : "贷";
  }

  static std::string dotted(Date date) {
    char text[32];
    std::snprintf(text, sizeof text, "%04d.%02d.%02d", date.year, date.month, date.day);
    return text;
  }

  static std::string voucher(const Entry& entry) {
    char number[16];
    std::snprintf(number, sizeof number, "%04d", entry.number);
    return entry.word + "-" + number;
  }

  void addRow(const Figures& figures, const std::string& date, const std::string& number, const std::string& summary,
              const std::string& direction, bool isOpening) {
    const std::map<char, double> shown = {
        {'p', figures.price},
        {'r', figures.rate},
        {'q', figures.debitQuantity},
        {'f', figures.debitForeign},
        {'m', figures.debitMoney},
        {'Q', figures.creditQuantity},
        {'F', figures.creditForeign},
        {'M', figures.creditMoney},
        {'1', std::fabs(balance_.quantity)},
        {'2', std::fabs(balance_.price)},
        {'3', std::fabs(balance_.foreign)},
        {'4', std::fabs(balance_.rate)},
        {'5', std::fabs(balance_.money)},
    };
    Row row;
    for (const auto& text : {date, number, summary}) row.cells.push_back(text.empty() ? Cell() : Cell(text));
    for (const char place : places(answer_.format, isOpening).substr(3)) {
      if (place == 'd') {
        row.cells.emplace_back(direction);
      } else {
        const auto found = shown.find(place);
        row.cells.push_back(found == shown.end() || found->second == 0 ? Cell() : Cell(found->second));
      }
    }
    answer_.rows.push_back(row);
  }

  Ledger ledger_;
  Question question_;
  Answer answer_;
  CodeInfo account_;
  Id dept_ = 0, person_ = 0;
  std::string unit_, currency_;
  bool multiplies_ = true;
  std::vector<Entry> posted_, unposted_;
  Balance balance_;
  Figures month_, year_;
};

}  // namespace

Answer threeColumnLedger(const Ledger& ledger, const Question& question) { return Computation(ledger, question).run(); }

}  // namespace tz::test::naive
