#include "core/data/value.h"

#include <cassert>
#include <chrono>

namespace tz {
namespace {

// Negative where one of them is no digit. Every line of a report brings a date, so this is short on purpose.
int digits(std::string_view text) {
  int value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return -1;
    value = value * 10 + (c - '0');
  }
  return value;
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
  const int year = digits(text.substr(0, 4));
  const int month = digits(text.substr(5, 2));
  const int day = digits(text.substr(8, 2));
  constexpr int daysInEveryMonth = 28;
  if (year < 1 || month < 1 || month > 12 || day < 1) return std::nullopt;
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
