// Auxiliary balances: one record per member and period, without gaps, each opening the one before it with its
// movements, the movements those of the posted lines.
#include <cstdlib>
#include <fmt/format.h>

#include "core/check/ledger_check_movements.h"

namespace tz::check {
namespace {

struct Balance {
  MemberKey key;
  int period;
  Id id;
  Figures opening;
  MonthMoves moves;
};

Balance balanceOf(const AssAccInfo& record, Movements& movements) {
  return {movements.key(record),
          record.byPeroid,
          record.lId,
          {millionths(record.mBegin), millionths(record.dBegin), millionths(record.mBeginFor)},
          {{millionths(record.mDebit), millionths(record.dDebit), millionths(record.mDebitFor)},
           {millionths(record.mCredit), millionths(record.dCredit), millionths(record.mCreditFor)}}};
}

void checkRecord(const AssAccInfo& record, Report& report, const Facts& facts) {
  const auto name = byId(record.lId);
  checkLeaf(facts, report, record.table, name, record.lCodeId);
  checkDimensions(facts, report, record.table, name,
                  {record.lDeptId, record.lPersonId, record.lEnterId, record.lItemId, record.sItemId});
  if (record.byPeroid > 12) report.add(record.table, name, fmt::format("期间 {} 不在 0 至 12 之间", record.byPeroid));
  if ((record.byPeroid == 0) != (record.bBegin != 0)) {
    report.add(record.table, name,
               fmt::format("期间 {} 的 bBegin 应为 {}", record.byPeroid, record.byPeroid == 0 ? 1 : 0));
  }
}

// Compares figure by figure what stands in a record with what should; says the first kind that differs.
class Comparison {
 public:
  Comparison(Report& report, const Movements& movements, const Facts& facts)
      : report_(report), movements_(movements), facts_(facts) {}

  void add(const Balance& balance, const std::string& problem) {
    report_.add(AssAccInfo::table, byId(balance.id),
                movements_.text(facts_, balance.key) + fmt::format(" 期间 {}：", balance.period) + problem);
  }
  // `size` is the largest figure that went into what should stand.
  void figures(const Balance& balance, const char* what, const Figures& stands, const Figures& should,
               const Figures& size) {
    single(balance, what, "金额", stands.money, should.money, size.money);
    single(balance, what, "数量", stands.quantity, should.quantity, size.quantity);
    single(balance, what, "外币", stands.foreign, should.foreign, size.foreign);
  }

 private:
  void single(const Balance& balance, const char* what, const char* kind, std::int64_t stands, std::int64_t should,
              std::int64_t size) {
    if (std::abs(stands - should) <= slack(std::max(std::abs(stands), size))) return;
    add(balance, fmt::format("{}{} {}，应为 {}", what, kind, figureText(stands), figureText(should)));
  }

  Report& report_;
  const Movements& movements_;
  const Facts& facts_;
};

// What the account's flags and the member's ids do not agree in, once for all its records.
void checkFlags(const Balance& balance, Comparison& compare, const CodeInfo& code) {
  const auto& key = balance.key;
  if (!key.hasDimension()) return;
  const auto wrong = wrongDimensions(code, {key.dept, key.person, key.unit, key.item, {}});
  if (!wrong.empty()) compare.add(balance, wrong);
}

// The opening with the period's movements, in the account's own direction.
Figures closing(const Balance& balance, bool debitAccount) {
  auto result = balance.opening;
  const auto step = [&](std::int64_t Figures::*figure) {
    addTo(result.*figure, debitAccount ? balance.moves.debit.*figure : balance.moves.credit.*figure);
    addTo(result.*figure, debitAccount ? -(balance.moves.credit.*figure) : -(balance.moves.debit.*figure));
  };
  step(&Figures::money);
  step(&Figures::quantity);
  step(&Figures::foreign);
  return result;
}

Figures largest(const Balance& balance) {
  const auto of = [&](std::int64_t Figures::*figure) {
    return std::max({std::abs(balance.opening.*figure), std::abs(balance.moves.debit.*figure),
                     std::abs(balance.moves.credit.*figure)});
  };
  return {of(&Figures::money), of(&Figures::quantity), of(&Figures::foreign)};
}

// The records of one member, by period.
void checkMember(std::span<const Balance> records, Comparison& compare, const YearMoves& moves, bool debitAccount) {
  int expected = records.front().period;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const auto& record = records[i];
    if (i > 0 && record.period == records[i - 1].period) {
      compare.add(record, "同一期间有两条记录");
      continue;
    }
    if (record.period != expected) compare.add(record, fmt::format("缺少期间 {} 的记录", expected));
    if (i > 0 && record.period == expected) {
      compare.figures(record, "期初", record.opening, closing(records[i - 1], debitAccount), largest(records[i - 1]));
    }
    if (record.period >= 1 && record.period <= 12) {
      const auto& posted = moves[static_cast<std::size_t>(record.period - 1)];
      compare.figures(record, "借方", record.moves.debit, posted.debit, posted.debit);
      compare.figures(record, "贷方", record.moves.credit, posted.credit, posted.credit);
    } else if (record.period == 0 && record.moves != MonthMoves{}) {
      compare.add(record, "期初记录不应有发生额");
    }
    expected = record.period + 1;
  }
  if (expected <= 12) compare.add(records.back(), fmt::format("缺少期间 {} 至 12 的记录", expected));
  for (int period = 1; period < records.front().period && period <= 12; ++period) {
    if (moves[static_cast<std::size_t>(period - 1)] == MonthMoves{}) continue;
    compare.add(records.front(), fmt::format("期间 {} 已有记帐分录，而没有记录", period));
  }
}

// Members with posted lines that have no record at all; accounts without dimensions need none.
void reportMissing(const std::unordered_set<MemberKey, MemberKeyHash>& known, Report& report, const Facts& facts,
                   const Movements& movements) {
  for (const auto& key : movements.sortedKeys()) {
    const auto code = facts.codes.find(key.account);
    const bool leaf = code != facts.codes.end() && code->second.bEnd != 0;
    if (!leaf || !key.hasDimension() || known.contains(key)) continue;
    report.add(AssAccInfo::table, "", movements.text(facts, key) + "：有记帐分录，而没有辅助余额");
  }
}

}  // namespace

void checkBalances(Connection& connection, Report& report, const Facts& facts, Movements& movements) {
  Seen ids;
  std::vector<Balance> balances;
  std::unordered_set<MemberKey, MemberKeyHash> known;
  readTable<AssAccInfo>(connection, report, [&](const AssAccInfo& record) {
    if (ids.twice(record.lId)) report.add(record.table, byId(record.lId), "lId 重复");
    checkRecord(record, report, facts);
    known.insert(balances.emplace_back(balanceOf(record, movements)).key);
  });
  std::ranges::sort(balances, {},
                    [](const Balance& balance) { return std::tie(balance.key, balance.period, balance.id); });
  Comparison compare(report, movements, facts);
  for (auto first = balances.begin(); first != balances.end();) {
    const auto last =
        std::find_if(first, balances.end(), [&](const Balance& other) { return other.key != first->key; });
    const auto code = facts.codes.find(first->key.account);
    const bool debitAccount = code == facts.codes.end() || code->second.bDirect != 0;
    if (code != facts.codes.end()) checkFlags(*first, compare, code->second);
    checkMember({first, last}, compare, movements.of(first->key), debitAccount);
    first = last;
  }
  reportMissing(known, report, facts, movements);
}

}  // namespace tz::check
