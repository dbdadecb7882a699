// How figures and dates are written: thousands separators, the decimals of a column's kind, "-" for negative ones.
#pragma once

#include <string>
#include <string_view>

#include "core/data/value.h"
#include "core/grid/column_kind.h"

namespace tz {

// Appends a figure as a column of this kind shows it.
void appendFigure(std::string& out, double value, ColumnKind kind);
// Appends a finite figure at full precision for other programs: the shortest digits that read back as the same value.
void appendExactFigure(std::string& out, double value);
// "2006.01.05", or as a column of this kind shows it.
void appendDate(std::string& out, Date date, ColumnKind kind = ColumnKind::date);
// "记-0001".
void appendVoucher(std::string& out, std::string_view word, int number);
// Years of four digits give dates of ten signs.
inline constexpr int usualDateWidth = 10;
[[nodiscard]] constexpr bool hasUsualWidth(Date date) { return date.year >= 0 && date.year <= 9999; }
[[nodiscard]] std::string figureText(double value, ColumnKind kind);

}  // namespace tz
