// What is rounded is the shortest decimal text of a value, so 1.005 gives 1.01 although its binary neighbour lies
// below.
#include "core/grid/figures.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <fmt/format.h>
#include <string>

namespace tz {
namespace {

// Below this the two roundings that a scaled value has seen are smaller than `tieRange`.
constexpr double largestScaled = 1e13;
constexpr double tieRange = 1.0 / 256;

// Writes a whole number of units of the last decimal. Room for 13 digits, 4 separators and a point.
void appendScaled(std::string& out, std::uint64_t scaled, const FigureForm& form) {
  std::array<char, 32> buffer;
  char* place = buffer.data() + buffer.size();
  const char* const end = place;
  bool digitSeen = false;
  for (int i = form.decimals; i > 0; --i, scaled /= 10) {
    const auto digit = static_cast<char>('0' + scaled % 10);
    digitSeen = digitSeen || digit != '0' || i <= form.kept;
    if (digitSeen) *--place = digit;
  }
  if (place != end) *--place = '.';
  int written = 0;
  do {
    if (written != 0 && written % 3 == 0) *--place = ',';
    *--place = static_cast<char>('0' + scaled % 10);
    scaled /= 10;
    ++written;
  } while (scaled != 0);
  out.append(place, static_cast<std::size_t>(end - place));
}

// The shortest decimal text of a value without its point: 0.digits × 10^exponent.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

Decimal decimalOf(double value) {
  std::array<char, 40> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
  Decimal result;
  const char* place = text.data();
  for (; *place != 'e'; ++place) {
    if (*place != '.') result.digits += *place;
  }
  place += place[1] == '+' ? 2 : 1;
  std::from_chars(place, end, result.exponent);
  ++result.exponent;
  return result;
}

// Keeps `decimals` digits behind the point, half away from zero. The digits then are a whole number of the last one.
std::string roundedDigits(const Decimal& value, int decimals) {
  const int kept = value.exponent + decimals;
  if (kept < 0) return "0";
  const auto count = static_cast<std::size_t>(kept);
  std::string digits(1, '0');  // room for a carry
  digits.append(value.digits, 0, count);
  digits.resize(count + 1, '0');
  if (count < value.digits.size() && value.digits[count] >= '5') {
    std::size_t at = count;
    while (digits[at] == '9') digits[at--] = '0';
    ++digits[at];
  }
  const std::size_t first = digits.find_first_not_of('0');
  return first == std::string::npos ? "0" : digits.substr(first);
}

void appendExact(std::string& out, double magnitude, bool negative, const FigureForm& form) {
  const auto decimals = static_cast<std::size_t>(form.decimals);
  std::string digits = roundedDigits(decimalOf(magnitude), form.decimals);
  if (negative && digits != "0") out += '-';
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  const std::size_t whole = digits.size() - decimals;
  for (std::size_t i = 0; i < whole; ++i) {
    if (i != 0 && (whole - i) % 3 == 0) out += ',';
    out += digits[i];
  }
  digits.erase(std::max(whole + static_cast<std::size_t>(form.kept), digits.find_last_not_of('0') + 1));
  if (digits.size() > whole) out.append(".").append(digits, whole);
}

}  // namespace

void appendFigure(std::string& out, double value, ColumnKind kind) {
  if (std::isnan(value)) {
    out += "—";
    return;
  }
  if (std::isinf(value)) {
    out += value < 0 ? "-∞" : "∞";
    return;
  }
  const FigureForm& form = traitsOf(kind).form;
  const double magnitude = std::fabs(value);
  const double scaled = magnitude * form.scale;
  if (scaled < largestScaled) {
    const auto below = static_cast<std::uint64_t>(scaled);
    const double rest = scaled - static_cast<double>(below);
    if (std::fabs(rest - 0.5) > tieRange) {
      const std::uint64_t rounded = below + (rest > 0.5 ? 1 : 0);
      if (value < 0 && rounded != 0) out += '-';
      return appendScaled(out, rounded, form);
    }
  }
  appendExact(out, magnitude, value < 0, form);
}

void appendExactFigure(std::string& out, double value) {
  if (value == 0) value = 0;  // no "-0": what a sum of nothing is must not depend on the order of its parts
  const double magnitude = std::fabs(value);
  const bool positional = magnitude == 0 || (magnitude >= 1e-5 && magnitude < 1e15);
  std::array<char, 40> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 positional ? std::chars_format::fixed : std::chars_format::scientific)
                       .ptr;
  out.append(text.data(), end);
}

void appendDate(std::string& out, Date date, ColumnKind kind) {
  const char separator = kind == ColumnKind::isoDate ? '-' : '.';
  if (!hasUsualWidth(date)) {
    out += fmt::format("{}{}{:02}{}{:02}", date.year, separator, date.month, separator, date.day);
    return;
  }
  std::array<char, usualDateWidth> text;
  const auto put = [&text](std::size_t place, int number) {
    text.at(place) = static_cast<char>('0' + number / 10 % 10);
    text.at(place + 1) = static_cast<char>('0' + number % 10);
  };
  put(0, date.year / 100);
  put(2, date.year);
  text[4] = text[7] = separator;
  put(5, date.month);
  put(8, date.day);
  out.append(text.data(), text.size());
}

void appendVoucher(std::string& out, std::string_view word, int number) {
  constexpr std::ptrdiff_t digits = 4;
  std::array<char, 12> text;
  const auto length = std::to_chars(text.data(), text.data() + text.size(), number).ptr - text.data();
  out += word;
  out += '-';
  if (length < digits) out.append(static_cast<std::size_t>(digits - length), '0');
  out.append(text.data(), static_cast<std::size_t>(length));
}

std::string figureText(double value, ColumnKind kind) {
  std::string text;
  appendFigure(text, value, kind);
  return text;
}

}  // namespace tz
