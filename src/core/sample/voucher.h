// A voucher of the sample company while it is being written. Money and foreign amounts are whole cents, quantities
// thousandths, rates millionths; all positive on the line's side, negative for a red entry.
#pragma once

#include <string>
#include <vector>

#include "core/sample/archives.h"
#include "core/sample/orders.h"
#include "core/sample/rates.h"

namespace tz::sample {

using Cents = std::int64_t;
constexpr Cents yuan(std::int64_t whole) { return whole * 100; }
constexpr Cents valueAddedTax(Cents net) { return (net * 13 + 50) / 100; }

// What a balance is kept for: an account and the dimensions of a line on it.
struct BalanceKey {
  Id account = 0, dept = 0, person = 0, unit = 0;
  ProjectClass projectClass = ProjectClass::none;
  Id item = 0;
  auto operator<=>(const BalanceKey&) const = default;
};

struct Line {
  BalanceKey key;
  Side side = debit;
  Cents money = 0;
  std::int64_t quantity = 0;
  Cents foreign = 0;
  std::int64_t rate = 0;
  std::string digest, business;
  std::string_view clerk;
  int flag = 0;

  Line& dept(Id id) { return key.dept = id, *this; }
  // A person's lines carry the department too.
  Line& person(Id id) { return key.person = id, key.dept = personRow(id).dept, *this; }
  Line& unit(Id id, std::string_view by = "") { return key.unit = id, clerk = by, *this; }
  Line& order(Id id) { return key.projectClass = ProjectClass::order, key.item = id, *this; }
  Line& researching(Id id) { return key.projectClass = ProjectClass::research, key.item = id, *this; }
  Line& number(std::string_view businessNumber, int mark = 0) { return business = businessNumber, flag = mark, *this; }
  Line& pieces(std::int64_t thousandths) { return quantity = thousandths, *this; }
  Line& summary(std::string text) { return digest = std::move(text), *this; }
};

struct Voucher {
  Date date;
  std::string digest;
  int attachments = 1;
  std::vector<Line> lines;

  // Each answers the new line; its reference lives until the next one is added.
  Line& debit(Id account, Cents money) { return add(account, Side::debit, money); }
  Line& credit(Id account, Cents money) { return add(account, Side::credit, money); }
  Line& debitForeign(Id account, Cents foreign, std::int64_t rate) {
    return addForeign(account, Side::debit, foreign, rate);
  }
  Line& creditForeign(Id account, Cents foreign, std::int64_t rate) {
    return addForeign(account, Side::credit, foreign, rate);
  }
  // Debits minus credits so far.
  [[nodiscard]] Cents difference() const {
    Cents sum = 0;
    for (const auto& line : lines) sum += line.side == Side::debit ? line.money : -line.money;
    return sum;
  }
  // The exchange difference that is left goes to the finance expenses.
  void bookExchangeDifference() {
    if (const auto left = difference(); left > 0) {
      credit(account("660302"), left).summary("汇兑收益");
    } else if (left < 0) {
      debit(account("660302"), -left).summary("汇兑损失");
    }
  }

 private:
  Line& add(Id account, Side side, Cents money) {
    Line line;
    line.key.account = account;
    line.side = side;
    line.money = money;
    line.digest = digest;
    return lines.emplace_back(std::move(line));
  }
  Line& addForeign(Id account, Side side, Cents foreign, std::int64_t rate) {
    auto& line = add(account, side, toHome(accountRow(account).currency, foreign, rate));
    line.foreign = foreign;
    line.rate = rate;
    return line;
  }
};

}  // namespace tz::sample
