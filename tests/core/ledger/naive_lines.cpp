#include "core/ledger/naive_lines.h"

#include <algorithm>
#include <fmt/format.h>
#include <tuple>

namespace tz::test::naive {
namespace {

template <class Record>
Dimensions dimensionsOf(const Record& record) {
  return {{record.lCodeId, record.lDeptId, record.lPersonId, record.lEnterId, record.lItemId}, record.sItemId};
}

template <class Head, class Line>
std::vector<Entry> entries(const std::vector<Head>& heads, const std::vector<Line>& lines) {
  std::vector<Entry> all;
  for (const auto& line : lines) {
    for (const auto& head : heads) {
      if (head.lTieId != line.lTieId) continue;
      Figures figures;
      figures.rate = line.dFrat;
      (line.bDirect != 0 ? figures.debit : figures.credit) = {line.dAmount, line.mForeign, line.mMoney};
      all.push_back({head, line, dimensionsOf(line), figures});
    }
  }
  return all;
}

}  // namespace

std::string dateText(const Entry& entry) {
  const auto date = entry.head.dtBill;
  return fmt::format("{:04}.{:02}.{:02}", date.year, date.month, date.day);
}

std::string voucherText(const Entry& entry) { return fmt::format("{}-{:04}", entry.head.sWord, entry.head.nNumber); }

Lines::Lines(const Ledger& ledger, const Report& report, const Question& question, const Chosen& chosen)
    : ledger_(ledger), report_(report), question_(question), chosen_(chosen) {
  posted_ = entries(ledger.postedHeads, ledger.postedLines);
  unposted_ = entries(ledger.unpostedHeads, ledger.unpostedLines);
}

// The chosen accounts and those below them; where none can be chosen those with the flags; in a list none means all.
bool Lines::coversAccount(Id id) const {
  for (const auto& account : ledger_.accounts) {
    if (account.lId != id) continue;
    if (report_.accountRange) {
      const auto& to = question_.accountTo;
      return account.sCode >= question_.accountFrom &&
             (to.empty() || account.sCode <= to || account.sCode.starts_with(to));
    }
    for (const auto& one : chosen_.accounts) {
      if (account.sCode.starts_with(one.sCode)) return true;
    }
    if (!chosen_.accounts.empty()) return false;
    return report_.accounts.which == Accounts::list || *report_.accounts.flags == 0 ||
           account.keeps(*report_.accounts.flags);
  }
  return false;
}

bool Lines::coversUnit(Id id) const {
  if (report_.unitClass) {
    for (const auto& unit : ledger_.units) {
      if (unit.lId == id) return unit.lClassId == chosen_.unitClass.lId;
    }
    return false;
  }
  if (!report_.clerk) return true;
  // A clerk's units have lines of his up to the last month; those of nobody have none of anybody's.
  bool his = false, anybodys = false;
  const auto look = [&](const std::vector<Entry>& all) {
    for (const auto& entry : all) {
      if (entry.of[Entity::unit] != id || entry.head.byPeroid > question_.to ||
          !coversAccount(entry.of[Entity::account]))
        continue;
      his = his || entry.line.sName == chosen_.clerk;
      anybodys = anybodys || !entry.line.sName.empty();
    }
  };
  look(posted_);
  if (question_.unposted) look(unposted_);
  return his || (chosen_.clerk.empty() && !anybodys);
}

bool Lines::coversProject(const Dimensions& of) const {
  if (!chosen_.classId.empty() && of.classId != chosen_.classId) return false;
  if (chosen_.projectFrom.empty() && chosen_.projectTo.empty()) return true;
  for (const auto& item : ledger_.items) {
    if (item.classId != of.classId || item.id != of[Entity::project]) continue;
    return item.code >= chosen_.projectFrom && (chosen_.projectTo.empty() || item.code <= chosen_.projectTo);
  }
  return false;
}

bool Lines::covers(const Dimensions& of) const {
  if (!coversAccount(of[Entity::account])) return false;
  for (const char dimension : report_.chosen) {
    if (dimension == 'd' && of[Entity::dept] != chosen_.dept.lDeptId) return false;
    if (dimension == 'D' && chosen_.dept.lDeptId != 0 && of[Entity::dept] != chosen_.dept.lDeptId) return false;
    if (dimension == 'p' && of[Entity::person] != chosen_.person.lId) return false;
    if (dimension == 'u' && of[Entity::unit] != chosen_.unit.lId) return false;
    if (dimension == 'U' && chosen_.unit.lId != 0 && of[Entity::unit] != chosen_.unit.lId) return false;
    if (dimension == 'I' && (of[Entity::project] == 0 || of.classId != chosen_.classId)) return false;
    if (dimension == 'i' && (of[Entity::project] != chosen_.project.id || of.classId != chosen_.classId)) return false;
  }
  for (const char dimension : report_.some) {
    if (dimension == 'd' && of[Entity::dept] == 0) return false;
    if (dimension == 'p' && of[Entity::person] == 0) return false;
    if (dimension == 'u' && (of[Entity::unit] == 0 || !coversUnit(of[Entity::unit]))) return false;
    if (dimension == 'i' && (of[Entity::project] == 0 || !coversProject(of))) return false;
  }
  return listsAccount(of);
}

// Accounts that have lines of the unit up to the last month.
bool Lines::listsAccount(const Dimensions& of) const {
  if (!report_.onlyMetAccounts) return true;
  const auto met = [&](const std::vector<Entry>& all) {
    return std::any_of(all.begin(), all.end(), [&](const Entry& entry) {
      return entry.of[Entity::unit] == of[Entity::unit] && entry.of[Entity::account] == of[Entity::account] &&
             entry.head.byPeroid <= question_.to;
    });
  };
  return met(posted_) || (question_.unposted && met(unposted_));
}

std::vector<Opening> Lines::openings(int period) const {
  std::vector<Opening> chosen;
  for (const auto& record : ledger_.balances) {
    const auto of = dimensionsOf(record);
    if (record.byPeroid != period || !covers(of)) continue;
    if (report_.onlyRealOpenings && record.mBegin == 0) continue;
    double sign = 1;
    for (const auto& account : ledger_.accounts) {
      if (account.lId == record.lCodeId && account.bDirect == 0) sign = -1;
    }
    chosen.push_back({of, {sign * record.dBegin, sign * record.mBeginFor, sign * record.mBegin}});
  }
  return chosen;
}

std::vector<Record> Lines::records(int first, int last) const {
  std::vector<Record> chosen;
  for (const auto& record : ledger_.balances) {
    const auto of = dimensionsOf(record);
    if (record.byPeroid < first || record.byPeroid > last || !covers(of)) continue;
    double sign = 1;
    for (const auto& account : ledger_.accounts) {
      if (account.lId == record.lCodeId && account.bDirect == 0) sign = -1;
    }
    Record found{of, record.byPeroid, {sign * record.dBegin, sign * record.mBeginFor, sign * record.mBegin}, {}};
    found.moved.debit = {record.dDebit, record.mDebitFor, record.mDebit};
    found.moved.credit = {record.dCredit, record.mCreditFor, record.mCredit};
    chosen.push_back(found);
  }
  return chosen;
}

std::vector<Entry> Lines::posted(int first, int last) const {
  return selected(posted_, first, last, report_.order.posted);
}

std::vector<Entry> Lines::unposted(int first, int last) const {
  return selected(unposted_, first, last, report_.order.unposted);
}

std::vector<Entry> Lines::unpostedBefore(int period) const {
  std::vector<Entry> chosen;
  for (const auto& entry : unposted_) {
    if (entry.head.byPeroid >= 0 && entry.head.byPeroid < period && covers(entry.of)) chosen.push_back(entry);
  }
  return chosen;
}

std::vector<Entry> Lines::selected(const std::vector<Entry>& all, int first, int last, Order order) const {
  std::vector<Entry> chosen;
  for (const auto& entry : all) {
    const bool his = !report_.clerk || entry.line.sName == chosen_.clerk;
    if (his && entry.head.byPeroid >= first && entry.head.byPeroid <= last && covers(entry.of)) chosen.push_back(entry);
  }
  std::sort(chosen.begin(), chosen.end(), [order](const Entry& a, const Entry& b) {
    const auto key = [order](const Entry& entry) {
      const auto [year, month, day] = order == Order::voucher ? Date() : entry.line.dtDate;
      return std::tuple(year, month, day, order == Order::entryDate ? 0 : entry.line.lTieId, entry.line.lId);
    };
    return key(a) < key(b);
  });
  return chosen;
}

}  // namespace tz::test::naive
