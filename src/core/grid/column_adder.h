// CTzGridControl::AddCol: one header column or column group by its column kind, and how figures are written.
#pragma once

#include <string>
#include <string_view>

#include "core/grid/tz_grid.h"

namespace tz {

// Column kinds: -1 a text column; -2 a number column (price or rate, told by its caption); 0 to 3 a movement group
// (amount; quantity, amount; foreign, amount; quantity, foreign, amount); 4 to 7 a balance group (amount; quantity,
// price, amount; foreign, rate, amount; quantity, price, foreign, rate, amount). A group of one column has one level.
struct CTzGridControl {
  static void AddCol(CTzGrid& grid, std::string_view caption, int width, int kind);
};

// Appends a figure as it is shown: thousands separators, the decimals of its kind, "-" for negative ones.
void appendFigure(std::string& out, double value, Figure figure);
// Appends a finite figure at full precision for other programs: the shortest digits that read back as the same value.
void appendExactFigure(std::string& out, double value);
[[nodiscard]] std::string figureText(double value, Figure figure);

}  // namespace tz
