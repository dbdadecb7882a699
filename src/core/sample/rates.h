// The sample company's exchange rates, in millionths. The dollar is quoted as home money per dollar (home = foreign ×
// rate), the yen as yen per unit of home money (home = foreign ÷ rate). Amounts are whole cents.
#pragma once

#include <array>

#include "core/data/connection.h"
#include "core/sample/chart.h"

namespace tz::sample {

inline constexpr std::array<std::int64_t, 12> dollarRates = {7'188'400, 7'174'500, 7'183'800, 7'201'400,
                                                             7'184'800, 7'158'600, 7'149'400, 7'103'000,
                                                             7'105'500, 7'088'000, 7'078'900, 7'070'600};
inline constexpr std::array<std::int64_t, 12> yenRates = {21'531'200, 20'721'500, 20'648'000, 19'985'600,
                                                          20'031'200, 20'174'500, 20'503'300, 20'712'000,
                                                          20'821'500, 21'403'700, 21'912'000, 22'083'300};
inline constexpr std::int64_t rateUnit = 1'000'000;

constexpr std::int64_t monthRate(Currency currency, int month) {
  const auto place = static_cast<std::size_t>(month - 1);
  return currency == yen ? yenRates[place] : dollarRates[place];
}

// Foreign cents to home cents, half up.
constexpr std::int64_t toHome(Currency currency, std::int64_t foreign, std::int64_t rate) {
  return currency == yen ? (foreign * rateUnit + rate / 2) / rate : (foreign * rate + rateUnit / 2) / rateUnit;
}

void writeRates(Connection& connection, int year);

}  // namespace tz::sample
