#include "core/data/value.h"

#include <cassert>
#include <chrono>

namespace tz {
namespace {

// The value of a digit; a figure above 9 for any other sign. Every line of a report brings a date, so this is short on
// purpose.
unsigned digit(char sign) { return static_cast<unsigned>(static_cast<unsigned char>(sign)) - '0'; }

// Negative where one of them is no digit.
int pair(const char* signs) {
  const unsigned tens = digit(signs[0]), ones = digit(signs[1]);
  return tens > 9 || ones > 9 ? -1 : static_cast<int>(tens * 10 + ones);
}

}  // namespace

int daysInMonth(int year, int month) {
  using namespace std::chrono;
  return static_cast<int>(static_cast<unsigned>(year_month_day_last{
      std::chrono::year{year}, month_day_last{std::chrono::month{static_cast<unsigned>(
                                   month)}}}.day()));
}

std::optional<Date> parseIsoDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const char* signs = text.data();
  const int century = pair(signs), yearOfCentury = pair(signs + 2), month = pair(signs + 5), day = pair(signs + 8);
  const int year = century * 100 + yearOfCentury;
  constexpr int daysInEveryMonth = 28;
  if (century < 0 || yearOfCentury < 0 || year < 1 || month < 1 || month > 12 || day < 1) return std::nullopt;
  if (day > daysInEveryMonth && day > daysInMonth(year, month)) return std::nullopt;
  return Date{static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month), static_cast<std::uint8_t>(day)};
}

std::string isoText(Date date) {
  char buffer[] = "0000-00-00";
  buffer[0] = static_cast<char>('0' + date.year / 1000 % 10);
  buffer[1] = static_cast<char>('0' + date.year / 100 % 10);
  buffer[2] = static_cast<char>('0' + date.year / 10 % 10);
  buffer[3] = static_cast<char>('0' + date.year % 10);
  buffer[5] = static_cast<char>('0' + date.month / 10);
  buffer[6] = static_cast<char>('0' + date.month % 10);
  buffer[8] = static_cast<char>('0' + date.day / 10);
  buffer[9] = static_cast<char>('0' + date.day % 10);
  return buffer;
}

std::int32_t daysSinceEpoch(Date date) {
  using namespace std::chrono;
  return static_cast<std::int32_t>(
      sys_days{year{date.year} / month{date.month} / day{date.day}}.time_since_epoch().count());
}

Date dateFromDays(std::int32_t days) {
  using namespace std::chrono;
  const year_month_day date{sys_days{std::chrono::days{days}}};
  return {static_cast<std::int16_t>(static_cast<int>(date.year())),
          static_cast<std::uint8_t>(static_cast<unsigned>(date.month())),
          static_cast<std::uint8_t>(static_cast<unsigned>(date.day()))};
}

void Sql::split(std::string_view text) {
  for (;;) {
    const auto mark = text.find('?');
    pieces_.emplace_back(text.substr(0, mark));
    if (mark == std::string_view::npos) return;
    text.remove_prefix(mark + 1);
  }
}

Sql& Sql::operator+=(const Sql& other) {
  pieces_.back() += other.pieces_.front();
  pieces_.insert(pieces_.end(), other.pieces_.begin() + 1, other.pieces_.end());
  values_.insert(values_.end(), other.values_.begin(), other.values_.end());
  return *this;
}

std::string Sql::numbered() const {
  assert(pieces_.size() == values_.size() + 1);
  std::string text = pieces_.front();
  for (std::size_t i = 1; i < pieces_.size(); ++i) {
    text += '$';
    text += std::to_string(i);
    text += pieces_[i];
  }
  return text;
}

Sql inList(std::string_view column, const std::vector<std::int64_t>& ids) {
  if (ids.empty()) return "1 = 0";
  std::string text(column);
  text += " IN (";
  for (const auto id : ids) {
    if (text.back() != '(') text += ',';
    text += std::to_string(id);
  }
  text += ')';
  return Sql(text);
}

}  // namespace tz
