#include "core/sample/balances.h"

#include "core/data/record_io.h"

namespace tz::sample {
namespace {

double asMoney(Cents cents) { return static_cast<double>(cents) / 100.0; }
double asQuantity(std::int64_t thousandths) { return static_cast<double>(thousandths) / 1000.0; }

// The record of one period: openings in the account's own direction.
AssAccInfo recordOf(const BalanceKey& key, const Amounts& balance) {
  AssAccInfo record;
  record.lCodeId = key.account;
  record.lDeptId = key.dept;
  record.lPersonId = key.person;
  record.lEnterId = key.unit;
  record.lItemId = key.item;
  record.sItemId = classId(key.projectClass);
  const int sign = accountRow(key.account).side == debit ? 1 : -1;
  record.mBegin = asMoney(sign * balance.money);
  record.dBegin = asQuantity(sign * balance.quantity);
  record.mBeginFor = asMoney(sign * balance.foreign);
  return record;
}

void addMovements(AssAccInfo& record, const Amounts& debits, const Amounts& credits) {
  record.mDebit = asMoney(debits.money);
  record.dDebit = asQuantity(debits.quantity);
  record.mDebitFor = asMoney(debits.foreign);
  record.mCredit = asMoney(credits.money);
  record.dCredit = asQuantity(credits.quantity);
  record.mCreditFor = asMoney(credits.foreign);
}

bool moved(const Amounts& amounts) { return amounts.money != 0 || amounts.quantity != 0 || amounts.foreign != 0; }

}  // namespace

void Balances::open(const Line& line) {
  auto& entry = entries_[line.key];
  const int sign = line.side == debit ? 1 : -1;
  entry.opened = true;
  entry.opening.money += sign * line.money;
  entry.opening.quantity += sign * line.quantity;
  entry.opening.foreign += sign * line.foreign;
}

void Balances::move(const Line& line, int period) {
  auto& entry = entries_[line.key];
  (line.side == debit ? entry.debits : entry.credits)[static_cast<std::size_t>(period)].add(line);
}

std::vector<Balances::Rest> Balances::standing(Id account) const {
  std::vector<Rest> rests;
  for (auto it = entries_.lower_bound({account}); it != entries_.end() && it->first.account == account; ++it) {
    const auto& entry = it->second;
    Rest rest{it->first, entry.opening.money, entry.opening.quantity};
    for (const auto& amounts : entry.debits) rest.money += amounts.money, rest.quantity += amounts.quantity;
    for (const auto& amounts : entry.credits) rest.money -= amounts.money, rest.quantity -= amounts.quantity;
    if (rest.money != 0 || rest.quantity != 0) rests.push_back(rest);
  }
  return rests;
}

Cents Balances::movement(Id account, int period) const {
  Cents sum = 0;
  const auto place = static_cast<std::size_t>(period);
  for (auto it = entries_.lower_bound({account}); it != entries_.end() && it->first.account == account; ++it) {
    sum += it->second.debits[place].money - it->second.credits[place].money;
  }
  return sum;
}

Cents Balances::openingDifference() const {
  Cents sum = 0;
  for (const auto& [key, entry] : entries_) sum += entry.opening.money;
  return sum;
}

void Balances::write(Connection& connection) const {
  const auto columns = columnNames<AssAccInfo>();
  const auto writer = connection.insertInto(AssAccInfo::table, columns);
  Id id = 0;
  for (const auto& [key, entry] : entries_) {
    Amounts balance = entry.opening;
    if (entry.opened) {
      auto record = recordOf(key, balance);
      record.lId = ++id;
      record.bBegin = 1;
      writeRow(*writer, record);
    }
    bool started = entry.opened;
    for (std::size_t period = 1; period <= 12; ++period) {
      const auto &debits = entry.debits[period], &credits = entry.credits[period];
      started = started || moved(debits) || moved(credits);
      if (!started) continue;
      auto record = recordOf(key, balance);
      record.lId = ++id;
      record.byPeroid = static_cast<int>(period);
      addMovements(record, debits, credits);
      writeRow(*writer, record);
      balance.money += debits.money - credits.money;
      balance.quantity += debits.quantity - credits.quantity;
      balance.foreign += debits.foreign - credits.foreign;
    }
  }
  writer->finish();
}

}  // namespace tz::sample
