#include "core/data/postgres_values.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

#include "core/data/value.h"

namespace tz::postgres {

bool isText(Oid type) {
  static constexpr std::array types = {textType, nameType, varcharType, bpcharType, unknownType, charType};
  return std::ranges::find(types, type) != types.end();
}

std::int64_t dateDays(std::string_view bytes) {
  constexpr std::int64_t daysTo2000 = 10957;
  return bigEndian<std::int32_t>(bytes) + daysTo2000;
}

std::string dateText(std::string_view bytes) {
  const auto stored = bigEndian<std::int32_t>(bytes);
  if (stored == std::numeric_limits<std::int32_t>::max()) return "infinity";
  if (stored == std::numeric_limits<std::int32_t>::min()) return "-infinity";
  // The calendar repeats every 400 years, so a far day is a near one with its year moved.
  constexpr std::int64_t cycleDays = 146097;
  constexpr std::int64_t cycleYears = 400;
  auto days = dateDays(bytes);
  std::int64_t cycles = 0;
  if (days < firstDay || days > lastDay) {
    cycles = days / cycleDays - (days % cycleDays < 0 ? 1 : 0);
    days -= cycles * cycleDays;
  }
  const auto near = dateFromDays(static_cast<std::int32_t>(days));
  const auto text = isoText(near);
  return cycles == 0 ? text : std::to_string(near.year + cycles * cycleYears) + text.substr(4);
}

double float8(std::string_view bytes) { return std::bit_cast<double>(bigEndian<std::uint64_t>(bytes)); }
double float4(std::string_view bytes) { return std::bit_cast<float>(bigEndian<std::uint32_t>(bytes)); }

// Four 16-bit numbers (count of groups, weight of the first group, sign, decimals), then groups of four decimal digits.
std::string numericText(std::string_view bytes) {
  constexpr int negative = 0x4000;
  constexpr int noNumber = 0xC000;
  const auto word = [&](int place) {
    return bigEndian<std::uint16_t>(bytes.substr(static_cast<std::size_t>(place) * 2));
  };
  const int groups = word(0);
  const int weight = static_cast<std::int16_t>(word(1));
  const int sign = word(2);
  const int decimals = word(3);
  if (sign >= noNumber) return "nan";

  const auto group = [&](int exponent) {
    const int place = weight - exponent;
    const auto digits = std::to_string(place >= 0 && place < groups ? word(4 + place) : 0);
    return std::string(4 - digits.size(), '0') + digits;
  };
  std::string whole;
  for (int exponent = std::max(weight, 0); exponent >= 0; --exponent) whole += group(exponent);
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
  std::string fraction;
  for (int exponent = -1; static_cast<int>(fraction.size()) < decimals; --exponent) fraction += group(exponent);
  fraction.resize(static_cast<std::size_t>(decimals));
  return (sign == negative ? "-" : "") + whole + (fraction.empty() ? "" : "." + fraction);
}

}  // namespace tz::postgres
