#include "desktop/gridview/grid_view_columns.h"

#include <algorithm>
#include <cmath>

#include "desktop/theme/fonts.h"

namespace tz {
namespace {

constexpr int narrowest = 24;
// A long summary must not push the figures out of the window.
constexpr int widestMeasured = 320;
// Nor may room to spare part them from their dates.
constexpr int widestElastic = 480;
// Wider than any screen is of no use.
constexpr int widestFitted = 1200;
// Dates and voucher numbers gain nothing from more room.
constexpr int shortTexts = 90;
constexpr int edgeReach = 4;
constexpr std::int64_t sampleSize = 100;
// Some tens of milliseconds.
constexpr std::int64_t fittedCells = 100'000;
// Of texts alike in length not the longest is the widest.
constexpr std::size_t fittedCandidates = 64;
// Of the viewport, in hundredths: key columns leave the others room.
constexpr int frozenShare = 55;

// Of a width at the usual size of texts.
int atTextSize(int width) { return width * textSize() / usualTextSize; }

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

int contentWidth(const CTzGrid& grid, int column, const std::vector<std::int64_t>& rows, const GridFonts& fonts) {
  int widest = 0;
  for (const std::int64_t row : rows) {
    const RowKind kind = grid.RowKindAt(row);
    const bool bold = kind == RowKind::heading || addsUp(kind);
    const QFontMetrics& metrics = bold ? fonts.bold : fonts.line;
    widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(grid.ShownAt(row, column))));
  }
  return widest + 2 * GridViewColumns::margin + 1;
}

// How many signs a figure takes, nearly, without forming its text.
double figureLength(double number, const FigureForm& form) {
  const double size = std::abs(number);
  double length = size < 1 ? 1 : std::floor(std::log10(size)) + 1;
  if (number < 0) length += 1;
  if (form.fixed()) return length;
  int decimals = form.decimals;
  for (double rest = std::round(size * form.scale); decimals > form.kept && std::fmod(rest, 10) == 0; rest /= 10) {
    --decimals;
  }
  return length + decimals;
}

double roughLength(const CTzGrid& grid, std::int64_t row, int column) {
  if (grid.TypeAt(row, column) != CTzGrid::CellType::number) {
    return static_cast<double>(grid.TextAt(row, column).size());
  }
  const ColumnKind kind = grid.Columns()[static_cast<std::size_t>(column)].kind;
  const double bold = addsUp(grid.RowKindAt(row)) ? 0.5 : 0;
  return figureLength(grid.NumberAt(row, column), traitsOf(kind).form) + bold;
}

// Those that fitting looks at: what is seen, the last ones with their totals, and as many others as take no time.
std::vector<std::int64_t> fittedRows(std::int64_t rows, std::size_t columns, std::vector<std::int64_t> seen) {
  const std::int64_t step = std::max<std::int64_t>(1, rows * static_cast<std::int64_t>(columns) / fittedCells);
  for (std::int64_t row = 0; row < rows; row += step) seen.push_back(row);
  for (std::int64_t row = std::max<std::int64_t>(0, rows - sampleSize); row < rows; ++row) seen.push_back(row);
  return seen;
}

// Of them those that may be the widest in a column: longest texts, longest figures.
std::vector<std::int64_t> widestRows(const CTzGrid& grid, int column, const std::vector<std::int64_t>& rows) {
  struct Candidate {
    double length;
    std::int64_t row;
  };
  const auto longer = [](const Candidate& one, const Candidate& other) { return one.length > other.length; };
  std::vector<Candidate> texts;
  std::vector<Candidate> numbers;
  for (const std::int64_t row : rows) {
    auto& heap = grid.TypeAt(row, column) == CTzGrid::CellType::number ? numbers : texts;
    const Candidate candidate{roughLength(grid, row, column), row};
    if (heap.size() == fittedCandidates && !longer(candidate, heap.front())) continue;
    if (heap.size() == fittedCandidates) {
      std::ranges::pop_heap(heap, longer);
      heap.pop_back();
    }
    heap.push_back(candidate);
    std::ranges::push_heap(heap, longer);
  }
  std::vector<std::int64_t> widest;
  for (const auto& heap : {texts, numbers}) {
    for (const Candidate& candidate : heap) widest.push_back(candidate.row);
  }
  return widest;
}

}  // namespace

void GridViewColumns::Measure(const CTzGrid& grid, const GridFonts& fonts) {
  captions_.clear();
  groupOf_.clear();
  keys_.clear();
  keyColumn_.clear();
  figure_.clear();
  measured_.clear();
  QHash<QString, int> alike;
  const auto sample = sampleOf(grid.GetRows());
  for (const GridColumn& column : grid.Columns()) {
    const int index = Count();
    captions_.push_back(QString::fromStdString(column.caption));
    groupOf_.push_back(QString::fromStdString(column.group));
    const QString name = groupOf_.back() + QLatin1Char('\n') + captions_.back();
    const int before = alike[name]++;
    keys_.push_back(before == 0 ? name : name + QLatin1Char('\n') + QString::number(before + 1));
    figure_.push_back(traitsOf(column.kind).isNumber());
    keyColumn_.push_back(column.group.empty() && !figure_.back());
    const int content = std::min(contentWidth(grid, index, sample, fonts), atTextSize(widestMeasured));
    measured_.push_back(
        std::max({atTextSize(column.width), content, fonts.line.horizontalAdvance(captions_.back()) + 2 * margin}));
  }
  elastic_ = WidestText(grid);
  Arrange();
}

QString GridViewColumns::FullCaptionOf(int column) const {
  return InGroup(column) ? groupOf_[static_cast<std::size_t>(column)] + u' ' + CaptionOf(column) : CaptionOf(column);
}

int GridViewColumns::WidestText(const CTzGrid& grid) const {
  int found = -1;
  int width = atTextSize(shortTexts);
  for (int index = 0; const GridColumn& column : grid.Columns()) {
    const int measured = measured_[static_cast<std::size_t>(index)];
    const bool wider = found < 0 ? measured >= width : measured > width;
    if (traitsOf(column.kind).content == ColumnTraits::Content::text && wider) {
      found = index;
      width = measured;
    }
    ++index;
  }
  return found;
}

void GridViewColumns::Arrange() {
  order_ = orderedColumns(keys_, arrangement_.moved);
  shown_.clear();
  for (const int column : order_) {
    if (!arrangement_.hidden.contains(keys_[static_cast<std::size_t>(column)])) shown_.push_back(column);
  }
  // A table without columns would be a riddle.
  if (shown_.empty() && !order_.empty()) {
    for (const QString& key : keys_) arrangement_.hidden.remove(key);
    shown_ = order_;
  }
  places_.assign(captions_.size(), -1);
  groups_.clear();
  for (int place = 0; place < ShownCount(); ++place) {
    const auto column = static_cast<std::size_t>(ColumnAtPlace(place));
    places_[column] = place;
    const QString& group = groupOf_[column];
    if (group.isEmpty()) continue;
    if (!groups_.empty() && groups_.back().last == place - 1 && groups_.back().caption == group) {
      groups_.back().last = place;
    } else {
      groups_.push_back({group, place, place});
    }
  }
  Place();
}

void GridViewColumns::FillRoom(int width) {
  room_ = width;
  Place();
}

void GridViewColumns::Place() {
  lefts_.assign(1, 0);
  for (const int column : shown_) {
    const auto index = static_cast<std::size_t>(column);
    const auto drawn = arrangement_.widths.constFind(keys_[index]);
    const int width = drawn == arrangement_.widths.constEnd() ? measured_[index] : atTextSize(*drawn);
    lefts_.push_back(lefts_.back() + width);
  }
  asked_ = lefts_.back();
  const int elastic = elastic_ < 0 ? -1 : PlaceOf(elastic_);
  if (elastic >= 0 && !arrangement_.widths.contains(KeyAt(elastic))) {
    const int wanted = std::min(WidthOf(elastic) + std::max(0, room_ - TotalWidth()), atTextSize(widestElastic));
    Widen(elastic, std::max(0, wanted - WidthOf(elastic)));
    WidenFigures();
  }
  Freeze();
}

void GridViewColumns::Widen(int place, int more) {
  for (auto edge = lefts_.begin() + place + 1; edge != lefts_.end(); ++edge) *edge += more;
}

// What the texts leave goes to the figures in equal parts, as long as none becomes more than twice as wide.
void GridViewColumns::WidenFigures() {
  std::vector<int> figures;
  for (int place = 0; place < ShownCount(); ++place) {
    const bool drawn = arrangement_.widths.contains(KeyAt(place));
    if (!drawn && figure_[static_cast<std::size_t>(ColumnAtPlace(place))]) figures.push_back(place);
  }
  if (figures.empty()) return;
  const int part = std::max(0, room_ - TotalWidth()) / static_cast<int>(figures.size());
  for (const int place : figures) Widen(place, std::min(part, WidthOf(place)));
}

void GridViewColumns::Freeze() {
  frozen_ = 0;
  const int most = room_ * frozenShare / 100;
  while (frozen_ < ShownCount() && keyColumn_[static_cast<std::size_t>(ColumnAtPlace(frozen_))] &&
         LeftOf(frozen_ + 1) <= most) {
    ++frozen_;
  }
}

int GridViewColumns::NearestShown(int column) const {
  if (!Has(column) || IsShown(column)) return column;
  const auto place = std::ranges::find(order_, column);
  const auto shown = [this](int other) { return IsShown(other); };
  const auto after = std::find_if(place, order_.end(), shown);
  return after != order_.end() ? *after : shown_.back();
}

int GridViewColumns::OffsetToShow(int place) const {
  if (IsFrozen(place)) return offset_;
  const int least = LeftOf(place + 1) - room_;
  const int most = LeftOf(place) - FrozenWidth();
  return std::min(std::max(offset_, least), most);
}

int GridViewColumns::PlaceAt(int x) const {
  const int along = x < FrozenWidth() ? x : x + offset_;
  const auto after = std::ranges::upper_bound(lefts_, along);
  return std::clamp(static_cast<int>(after - lefts_.begin()) - 1, 0, std::max(ShownCount() - 1, 0));
}

int GridViewColumns::EdgeBefore(int place) const { return place <= frozen_ ? LeftOf(place) : LeftOf(place) - offset_; }

int GridViewColumns::InsertionAt(int x) const {
  const int place = PlaceAt(x);
  return x < XOf(place) + WidthOf(place) / 2 ? place : place + 1;
}

int GridViewColumns::EdgeAt(int x) const {
  int found = -1;
  int reach = edgeReach;
  for (int place = ShownCount() - 1; place >= 0; --place) {
    const int edge = XOf(place) + WidthOf(place);
    const bool covered = !IsFrozen(place) && edge < FrozenWidth();
    if (covered || std::abs(edge - x) > reach) continue;
    found = place;
    reach = std::abs(edge - x) - 1;
  }
  return found;
}

void GridViewColumns::SetWidth(int place, int width) { Draw(ColumnAtPlace(place), width); }

void GridViewColumns::Fit(const CTzGrid& grid, const std::vector<int>& columns, const std::vector<std::int64_t>& seen,
                          const GridFonts& fonts) {
  const auto rows = fittedRows(grid.GetRows(), columns.size(), seen);
  for (const int column : columns) {
    const int caption =
        fonts.line.horizontalAdvance(captions_[static_cast<std::size_t>(column)]) + 2 * GridViewColumns::margin;
    const int needed = contentWidth(grid, column, widestRows(grid, column, rows), fonts);
    Draw(column, std::max(std::min(needed, widestFitted), caption));
  }
  Place();
}

void GridViewColumns::Draw(int column, int width) {
  const int atUsualSize = (std::max(width, narrowest) * usualTextSize + textSize() - 1) / textSize();
  arrangement_.widths[keys_[static_cast<std::size_t>(column)]] = atUsualSize;
}

void GridViewColumns::Move(int from, int before) {
  if (from < 0 || from >= ShownCount() || before < 0 || before > ShownCount()) return;
  if (before == from || before == from + 1) return;
  const int column = ColumnAtPlace(from);
  std::vector<int> order = order_;
  std::erase(order, column);
  // Behind what stands before it, so that hidden columns keep their neighbours.
  if (before == 0) {
    order.insert(order.begin(), column);
  } else {
    order.insert(std::ranges::find(order, ColumnAtPlace(before - 1)) + 1, column);
  }
  arrangement_.moved = movesTo(order, column, keys_, arrangement_.moved);
  Arrange();
}

void GridViewColumns::SetShown(int column, bool shown) {
  const QString& key = keys_[static_cast<std::size_t>(column)];
  if (shown) {
    arrangement_.hidden.remove(key);
  } else if (CanHide(column)) {
    arrangement_.hidden.insert(key);
  }
  Arrange();
}

void GridViewColumns::Reset() {
  arrangement_ = {};
  Arrange();
}

}  // namespace tz
