#include "core/output/text_layout.h"

#include <algorithm>

#include "core/output/column_widths.h"
#include "core/output/report_output.h"

namespace tz {
namespace {

constexpr int gap = 2;
constexpr int markWidth = 2;

bool anyColoured(const CTzGrid& grid) {
  for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
    if (grid.BackgroundAt(row) != noColour) return true;
  }
  return false;
}

}  // namespace

std::vector<TextGroup> groupsOf(const CTzGrid& grid) {
  std::vector<TextGroup> groups;
  const auto& columns = grid.Columns();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].group.empty()) continue;
    const int place = static_cast<int>(i);
    const bool goesOn = i > 0 && columns[i - 1].group == columns[i].group;
    if (goesOn) {
      groups.back().last = place;
    } else {
      groups.push_back({place, place});
    }
  }
  return groups;
}

TextLayout::TextLayout(const CTzGrid& grid) : groups(groupsOf(grid)), marked(anyColoured(grid)) {
  const std::vector<int> contents = contentWidths(grid);
  for (std::size_t i = 0; i < contents.size(); ++i) {
    const GridColumn& column = grid.Columns()[i];
    columns.push_back(
        {0, std::max(contents[i], displayWidth(column.caption)), traitsOf(column.kind).alignsRight(), column.kind});
  }
  for (const TextGroup& group : groups) {
    int span = (group.last - group.first) * gap;
    for (int i = group.first; i <= group.last; ++i) span += columns[static_cast<std::size_t>(i)].width;
    const int caption = displayWidth(grid.Columns()[static_cast<std::size_t>(group.first)].group);
    columns[static_cast<std::size_t>(group.last)].width += std::max(caption - span, 0);
  }
  int start = marked ? markWidth : 0;
  for (TextColumn& column : columns) {
    column.start = start;
    start += column.width + gap;
  }
  width = columns.empty() ? 0 : columns.back().start + columns.back().width;
}

}  // namespace tz
