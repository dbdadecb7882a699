#include "core/grid/column_adder.h"

#include <vector>

namespace tz {
namespace {

struct SubColumn {
  std::string_view caption;
  Figure figure;
};

constexpr SubColumn quantity{"数量", Figure::quantity};
constexpr SubColumn price{"单价", Figure::price};
constexpr SubColumn foreign{"外币", Figure::amount};
constexpr SubColumn rate{"汇率", Figure::rate};
constexpr SubColumn amount{"金额", Figure::amount};

std::vector<SubColumn> subColumns(int kind) {
  switch (kind) {
    case 1:
      return {quantity, amount};
    case 2:
      return {foreign, amount};
    case 3:
      return {quantity, foreign, amount};
    case 5:
      return {quantity, price, amount};
    case 6:
      return {foreign, rate, amount};
    case 7:
      return {quantity, price, foreign, rate, amount};
    default:
      return {amount};
  }
}

}  // namespace

void CTzGridControl::AddCol(CTzGrid& grid, std::string_view caption, int width, int kind) {
  const std::string text(caption);
  if (kind == -1) return grid.AddColumn({text, "", width, Figure::none});
  if (kind == -2) return grid.AddColumn({text, "", width, caption == "汇率" ? Figure::rate : Figure::price});
  const std::vector<SubColumn> parts = subColumns(kind);
  if (parts.size() == 1) return grid.AddColumn({text, "", width, Figure::amount});
  for (const SubColumn& part : parts) grid.AddColumn({std::string(part.caption), text, width, part.figure});
}

}  // namespace tz
