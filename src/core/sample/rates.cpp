#include "core/sample/rates.h"

#include "core/data/record_io.h"

namespace tz::sample {
namespace {

double asRate(std::int64_t millionths) { return static_cast<double>(millionths) / static_cast<double>(rateUnit); }

}  // namespace

void writeRates(Connection& connection, int year) {
  insertRecords(connection, std::vector<CyrencyInfo>{{1, dollar, "美元", 1}, {2, yen, "日元", 0}});
  insertRecords(connection, std::vector<ExchgFixInfo>{{1, dollar, 7.19}, {2, yen, 21.5}});
  std::vector<ExchgFltInfo> monthly;
  for (int month = 1; month <= 12; ++month) {
    const Date first{static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month), 1};
    for (const auto currency : {dollar, yen}) {
      const auto id = static_cast<Id>(monthly.size()) + 1;
      monthly.push_back({id, currency, first, asRate(monthRate(currency, month))});
    }
  }
  insertRecords(connection, monthly);
}

}  // namespace tz::sample
