#include "desktop/gridview/grid_view_columns.h"

#include <algorithm>

namespace tz {
namespace {

constexpr int narrowest = 24;
// A long summary must not push the figures out of the window.
constexpr int widestMeasured = 320;
// Nor may room to spare part them from their dates.
constexpr int widestElastic = 480;
// Dates and voucher numbers gain nothing from more room.
constexpr int shortTexts = 90;
constexpr int edgeReach = 4;
constexpr std::int64_t sampleSize = 100;

// The first and the last rows, and some in between.
std::vector<std::int64_t> sampleOf(std::int64_t rows) {
  std::vector<std::int64_t> sample;
  if (rows <= 3 * sampleSize) {
    for (std::int64_t row = 0; row < rows; ++row) sample.push_back(row);
    return sample;
  }
  for (std::int64_t place = 0; place < sampleSize; ++place) {
    sample.push_back(place);
    sample.push_back(rows / sampleSize * place);
    sample.push_back(rows - 1 - place);
  }
  return sample;
}

}  // namespace

void GridViewColumns::Measure(const CTzGrid& grid, const GridFonts& fonts) {
  captions_.clear();
  keys_.clear();
  groups_.clear();
  measured_.clear();
  for (const GridColumn& column : grid.Columns()) {
    const int index = Count();
    const QString group = QString::fromStdString(column.group);
    captions_.push_back(QString::fromStdString(column.caption));
    keys_.push_back(group + QLatin1Char('\n') + captions_.back());
    measured_.push_back(std::max({column.width, std::min(ContentWidth(grid, index, fonts), widestMeasured),
                                  fonts.line.horizontalAdvance(captions_.back()) + 2 * margin}));
    if (group.isEmpty()) continue;
    const bool continues = !groups_.empty() && groups_.back().last == index - 1 && groups_.back().caption == group;
    if (continues) {
      groups_.back().last = index;
    } else {
      groups_.push_back({group, index, index});
    }
  }
  elastic_ = WidestText(grid);
  Place();
}

int GridViewColumns::WidestText(const CTzGrid& grid) const {
  int found = -1;
  int width = shortTexts;
  for (int index = 0; const GridColumn& column : grid.Columns()) {
    const int measured = measured_[static_cast<std::size_t>(index)];
    if (traitsOf(column.kind).content == ColumnTraits::Content::text && measured > width) {
      found = index;
      width = measured;
    }
    ++index;
  }
  return found;
}

void GridViewColumns::FillRoom(int width) {
  room_ = width;
  Place();
}

int GridViewColumns::ContentWidth(const CTzGrid& grid, int column, const GridFonts& fonts) {
  int widest = 0;
  for (const std::int64_t row : sampleOf(grid.GetRows())) {
    const RowKind kind = grid.RowKindAt(row);
    const bool bold = kind == RowKind::heading || addsUp(kind);
    const QFontMetrics& metrics = bold ? fonts.bold : fonts.line;
    widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(grid.ShownAt(row, column))));
  }
  return widest + 2 * margin + 1;
}

bool GridViewColumns::InGroup(int column) const {
  return std::ranges::any_of(groups_,
                             [&](const Group& group) { return group.first <= column && column <= group.last; });
}

void GridViewColumns::Place() {
  lefts_.assign(1, 0);
  for (std::size_t column = 0; column < measured_.size(); ++column) {
    lefts_.push_back(lefts_.back() + drawn_.value(keys_[column], measured_[column]));
  }
  if (elastic_ < 0 || drawn_.contains(keys_[static_cast<std::size_t>(elastic_)])) return;
  const int wanted = std::min(WidthOf(elastic_) + std::max(0, room_ - TotalWidth()), widestElastic);
  const int more = std::max(0, wanted - WidthOf(elastic_));
  for (auto edge = lefts_.begin() + elastic_ + 1; edge != lefts_.end(); ++edge) *edge += more;
}

int GridViewColumns::ColumnAt(int x) const {
  const auto after = std::upper_bound(lefts_.begin(), lefts_.end(), x);
  return std::clamp(static_cast<int>(after - lefts_.begin()) - 1, 0, std::max(Count() - 1, 0));
}

int GridViewColumns::EdgeAt(int x) const {
  for (int column = Count() - 1; column >= 0; --column) {
    if (std::abs(LeftOf(column + 1) - x) <= edgeReach) return column;
  }
  return -1;
}

void GridViewColumns::SetWidth(int column, int width) {
  drawn_[keys_[static_cast<std::size_t>(column)]] = std::max(width, narrowest);
  Place();
}

void GridViewColumns::ResetWidth(int column) {
  drawn_.remove(keys_[static_cast<std::size_t>(column)]);
  Place();
}

}  // namespace tz
