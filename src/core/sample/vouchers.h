// What happens in the sample company, month by month. Each function adds the vouchers of one line of business; they are
// sorted by day before they are booked. Business that spans months (a sale and its receipt) is told by a function of
// month and place, so that the second voucher finds what the first one said.
#pragma once

#include "core/sample/journal.h"
#include "core/sample/random.h"

namespace tz::sample {

struct Month {
  int month;
  std::vector<Voucher> vouchers;

  // The reference lives until the next voucher is added.
  Voucher& add(int dayOfMonth, std::string digest, int attachments = 1) {
    return vouchers.emplace_back(Voucher{day(month, dayOfMonth), std::move(digest), attachments, {}});
  }
  [[nodiscard]] int lastDay() const { return daysInMonth(accountYear, month); }
};

// Figures of a month and a line of business: the same whenever they are asked for.
inline Random figures(int month, int business, int place = 0) {
  return Random(static_cast<std::uint64_t>(month * 10'000 + business * 100 + place));
}

// Settled by the automatic matching, later by hand, and lately not yet.
inline int clearedMark(int month) { return month <= 4 ? 2 : month <= 7 ? 1 : 0; }

void bookOpenings(Journal& journal);

void addSpareParts(Month& month);
void addMachineSales(Month& month);
void addReceipts(Month& month);
void addPurchases(Month& month);
void addMaterialIssues(Month& month);
void addTravel(Month& month);
void addSalesmanLoans(Month& month);
void addPersonForeign(Month& month);
void addExpenses(Month& month);
void addResearch(Month& month);
void addPayments(Month& month, const Balances& balances);

// Depreciation, wages, overheads, finished machines, cost of sales, taxes: each needs the balances before it.
void closeMonth(Journal& journal, int month);

[[nodiscard]] std::vector<Id> activeOrders(Dept shop, int month);
// Net price of a whole order in home money.
[[nodiscard]] Cents homePrice(const OrderRow& order);

}  // namespace tz::sample
