#include "core/sample/sample_company.h"

#include <algorithm>

#include "core/data/record_io.h"
#include "core/sample/grown.h"
#include "core/sample/plans.h"
#include "core/sample/vouchers.h"

namespace tz {
namespace {

using namespace sample;

Month planMonth(int number, const Balances& balances) {
  Month month{number, {}};
  for (const auto add : {addExpenses, addPurchases, addMaterialIssues, addSpareParts, addMachineSales, addReceipts,
                         addTravel, addSalesmanLoans, addPersonForeign, addResearch}) {
    add(month);
  }
  addPayments(month, balances);
  std::ranges::stable_sort(month.vouchers, {}, &Voucher::date);
  return month;
}

// afterDay(date) runs when the script has nothing more on that day, the month's closing left aside.
template <class AfterDay>
void bookYear(Journal& journal, AfterDay&& afterDay) {
  bookOpenings(journal);
  for (int number = 1; number <= 12; ++number) {
    const auto month = planMonth(number, journal.script());
    auto next = month.vouchers.begin();
    for (int dayOfMonth = 1; dayOfMonth <= month.lastDay(); ++dayOfMonth) {
      const auto date = day(number, dayOfMonth);
      while (next != month.vouchers.end() && next->date == date) journal.scripted(*next++);
      afterDay(date);
    }
    closeMonth(journal, number);
  }
}

void bookGrown(Journal& journal, const SampleOptions& options, const Growth& growth) {
  Journal counter(nullptr);
  bookYear(counter, [](Date) {});
  const auto wanted = std::max<std::int64_t>(options.lines - counter.postedLines(), 0);
  const auto unpostedWanted = wanted / 100;
  GrownBusiness business(growth);
  std::int64_t grownPosted = 0, grownUnposted = 0;
  const auto postedDays = daysSinceEpoch(lastPostedDay) - daysSinceEpoch(day(1, 1)) + 1;
  const auto unpostedDays = daysSinceEpoch(day(12, 31)) - daysSinceEpoch(lastPostedDay);
  bookYear(journal, [&](Date date) {
    const bool posted = date <= lastPostedDay;
    const auto passed = posted ? daysSinceEpoch(date) - daysSinceEpoch(day(1, 1)) + 1
                               : daysSinceEpoch(date) - daysSinceEpoch(lastPostedDay);
    const auto goal = posted ? wanted * passed / postedDays : unpostedWanted * passed / unpostedDays;
    auto& count = posted ? grownPosted : grownUnposted;
    while (count < goal) {
      const auto before = journal.postedLines() + journal.unpostedLines();
      business.book(journal, date);
      count += journal.postedLines() + journal.unpostedLines() - before;
    }
    constexpr int months = 12;
    if (options.progress && date.day == daysInMonth(date.year, date.month)) options.progress(date.month, months);
  });
}

}  // namespace

void fillSample(Connection& connection, const SampleOptions& options) {
  const auto growth = Growth::forLines(options.lines);
  insertRecords(connection, std::vector<zAccountMInfo>{{1, "华源机械制造有限公司", "4222", accountYear}});
  writeChart(connection);
  writeArchives(connection, growth);
  writeProjects(connection, growth, accountYear);
  writeRates(connection, accountYear);
  writeAges(connection);
  writePlans(connection);
  Journal journal(&connection);
  bookGrown(journal, options, growth);
  journal.finish();
}

}  // namespace tz
