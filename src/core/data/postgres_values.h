// Values in PostgreSQL's binary form.
#pragma once

#include <cstdint>
#include <libpq-fe.h>
#include <string>
#include <string_view>

namespace tz::postgres {

// Numbers of the types in the server's catalogue; they are the same on every server.
inline constexpr Oid boolType = 16, charType = 18, nameType = 19, int8Type = 20, int2Type = 21, int4Type = 23,
                     textType = 25, oidType = 26, float4Type = 700, float8Type = 701, unknownType = 705,
                     bpcharType = 1042, varcharType = 1043, dateType = 1082, numericType = 1700;

[[nodiscard]] bool isText(Oid type);

template <class Integer>
[[nodiscard]] Integer bigEndian(std::string_view bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < sizeof(Integer); ++i) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return static_cast<Integer>(value);
}

// Days since 1970-01-01 of a date value, which may lie far outside the calendar; and the days that lie in it.
[[nodiscard]] std::int64_t dateDays(std::string_view bytes);
inline constexpr std::int64_t firstDay = -719162, lastDay = 2932896;  // 0001-01-01 to 9999-12-31
// "2006-01-05"; "infinity", "-infinity", and years of any number of digits outside the calendar.
[[nodiscard]] std::string dateText(std::string_view bytes);
[[nodiscard]] double float8(std::string_view bytes);
[[nodiscard]] double float4(std::string_view bytes);
// An exact decimal number such as the sum of ids.
[[nodiscard]] std::string numericText(std::string_view bytes);

}  // namespace tz::postgres
