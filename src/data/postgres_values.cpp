#include "data/postgres_values.h"

#include <algorithm>
#include <array>
#include <bit>

namespace tz::postgres {

bool isText(Oid type) {
  static constexpr std::array types = {textType, nameType, varcharType, bpcharType, unknownType, charType};
  return std::ranges::find(types, type) != types.end();
}

bool isReadable(Oid type) {
  static constexpr std::array types = {boolType,   int8Type,   int2Type, int4Type,   oidType,
                                       float4Type, float8Type, dateType, numericType};
  return isText(type) || std::ranges::find(types, type) != types.end();
}

std::int32_t dateDays(std::string_view bytes) {
  constexpr std::int32_t daysTo2000 = 10957;
  return bigEndian<std::int32_t>(bytes) + daysTo2000;
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
