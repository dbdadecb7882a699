// Values that travel between the program and a ledger database: ids, figures, texts and dates, and the statement texts
// that carry them. A value from a person is always bound, never written into a statement.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tz {

// A calendar date. The default value stands for "no date".
struct Date {
  std::int16_t year = 0;
  std::uint8_t month = 0;
  std::uint8_t day = 0;

  auto operator<=>(const Date&) const = default;
  [[nodiscard]] bool empty() const { return year == 0; }
};

// Reads "YYYY-MM-DD"; nothing when the text is no calendar date.
[[nodiscard]] std::optional<Date> parseIsoDate(std::string_view text);
[[nodiscard]] std::string isoText(Date date);
// Days since 1970-01-01 and back, for databases that send dates as day numbers.
[[nodiscard]] std::int32_t daysSinceEpoch(Date date);
[[nodiscard]] Date dateFromDays(std::int32_t days);
[[nodiscard]] int daysInMonth(int year, int month);

using Value = std::variant<std::int64_t, double, std::string, Date>;

// Statement text with the values that belong to it. Each '?' of the text is the place of the next value, so a text
// written in the program must not hold a literal question mark; texts from people come in as values.
class Sql {
 public:
  Sql() : pieces_(1) {}
  // Implicit on purpose: a condition without values is written as its text alone.
  Sql(const char* text) : Sql(std::string_view(text)) {}  // NOLINT(google-explicit-constructor)
  template <class... Values>
  explicit Sql(std::string_view text, const Values&... values) {
    split(text);
    (add(values), ...);
  }

  Sql& operator+=(const Sql& other);
  [[nodiscard]] friend Sql operator+(Sql left, const Sql& right) { return left += right; }

  // The text with the marks "$1", "$2" …, which both databases take.
  [[nodiscard]] std::string numbered() const;
  [[nodiscard]] const std::vector<Value>& values() const { return values_; }
  [[nodiscard]] bool empty() const { return pieces_.size() == 1 && pieces_.front().empty(); }

 private:
  void split(std::string_view text);
  void add(std::int64_t value) { values_.emplace_back(value); }
  void add(int value) { values_.emplace_back(static_cast<std::int64_t>(value)); }
  void add(bool value) { values_.emplace_back(static_cast<std::int64_t>(value)); }
  void add(double value) { values_.emplace_back(value); }
  void add(Date value) { values_.emplace_back(value); }
  void add(std::string_view value) { values_.emplace_back(std::string(value)); }
  void add(const char* value) { values_.emplace_back(std::string(value)); }
  void add(const std::string& value) { values_.emplace_back(value); }
  void add(const Value& value) { values_.emplace_back(value); }

  std::vector<std::string> pieces_;  // always one more than there are values
  std::vector<Value> values_;
};

// "lCodeId IN (3,5,8)" for the given column; a condition that nothing meets when the list is empty.
[[nodiscard]] Sql inList(std::string_view column, const std::vector<std::int64_t>& ids);

}  // namespace tz
