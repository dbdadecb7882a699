#include "core/grid/tz_grid.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "core/grid/figures.h"

namespace tz {
namespace {

constexpr std::size_t chunkBytes = std::size_t{256} * 1024;
constexpr std::size_t recentTexts = 1024;

}  // namespace

void CTzGrid::Clear() { *this = CTzGrid(); }

void CTzGrid::AddColumn(GridColumn column) {
  if (!cellBlocks_.empty()) throw std::logic_error("columns are added before the first row");
  columns_.push_back(std::move(column));
}

void CTzGrid::SetRows(std::int64_t rows) {
  rows = std::max<std::int64_t>(rows, 0);
  const auto wanted = static_cast<std::size_t>(rows);
  while (cellBlocks_.size() * rowsPerBlock < wanted) AddBlock();
  if (rows > rowCount_) ClearRows(static_cast<std::size_t>(rowCount_), wanted);
  rowCount_ = rows;
  if (currentRow_ >= rows) currentRow_ = currentColumn_ = -1;
}

// A block is not touched before its rows are used, so that a small report does not pay for a full block.
void CTzGrid::AddBlock() {
  cellBlocks_.push_back(std::make_unique_for_overwrite<Cell[]>(rowsPerBlock * columns_.size()));  // NOLINT
  rowBlocks_.push_back(std::make_unique_for_overwrite<Row[]>(rowsPerBlock));                      // NOLINT
}

void CTzGrid::ClearRows(std::size_t first, std::size_t end) {
  while (first < end) {
    const std::size_t block = first / rowsPerBlock;
    const std::size_t from = first % rowsPerBlock;
    const std::size_t to = std::min(rowsPerBlock, from + (end - first));
    std::fill(&cellBlocks_[block][from * columns_.size()], &cellBlocks_[block][to * columns_.size()], Cell{});
    std::fill(&rowBlocks_[block][from], &rowBlocks_[block][to], Row{noColour, 0, RowKind::line});
    first += to - from;
  }
}

bool CTzGrid::SetText(std::int64_t row, int column, std::string_view text) {
  if (!Inside(row, column) || text.size() > std::numeric_limits<std::uint32_t>::max()) return false;
  Cell& cell = At(row, column);
  if (text.size() <= Cell::longestShort) {
    cell.bytes_[0] = static_cast<char>(Cell::shortTag + static_cast<char>(text.size()));
    std::copy(text.begin(), text.end(), cell.bytes_.data() + 1);
    return true;
  }
  const auto length = static_cast<std::uint32_t>(text.size());
  cell.setLast(Cell::longTag, Store(text));
  std::memcpy(cell.bytes_.data() + 4, &length, sizeof length);
  return true;
}

bool CTzGrid::SetNumber(std::int64_t row, int column, double number) {
  if (!Inside(row, column)) return false;
  At(row, column).setLast(Cell::numberTag, number);
  return true;
}

bool CTzGrid::SetDate(std::int64_t row, int column, Date date) {
  if (!Inside(row, column)) return false;
  At(row, column).setLast(Cell::dateTag, date);
  return true;
}

const char* CTzGrid::Store(std::string_view text) {
  if (recent_.empty()) recent_.resize(recentTexts);
  std::string_view& known = recent_[std::hash<std::string_view>{}(text) % recentTexts];
  if (known != text) {
    char* place = Reserve(text.size());
    std::copy(text.begin(), text.end(), place);
    known = {place, text.size()};
  }
  return known.data();
}

char* CTzGrid::Reserve(std::size_t size) {
  if (chunks_.empty() || size > chunkSize_ - chunkUsed_) {
    chunkSize_ = std::max(size, chunkBytes);
    chunks_.push_back(std::make_unique_for_overwrite<char[]>(chunkSize_));  // NOLINT
    chunkTotal_ += chunkSize_;
    chunkUsed_ = 0;
  }
  char* place = chunks_.back().get() + chunkUsed_;
  chunkUsed_ += size;
  return place;
}

bool CTzGrid::SetBackground(std::int64_t row, Rgb colour) {
  if (!HasRow(row)) return false;
  RowAt(row).colour = colour;
  return true;
}

bool CTzGrid::SetRowData(std::int64_t row, std::int32_t data) {
  if (!HasRow(row)) return false;
  RowAt(row).data = data;
  return true;
}

bool CTzGrid::SetRowKind(std::int64_t row, RowKind kind) {
  if (!HasRow(row)) return false;
  RowAt(row).kind = kind;
  return true;
}

std::string CTzGrid::ShownAt(std::int64_t row, int column) const {
  std::string shown;
  switch (TypeAt(row, column)) {
    case CellType::empty:
      break;
    case CellType::text:
      shown = TextAt(row, column);
      break;
    case CellType::number:
      appendFigure(shown, NumberAt(row, column), columns_[static_cast<std::size_t>(column)].kind);
      break;
    case CellType::date:
      appendDate(shown, DateAt(row, column), columns_[static_cast<std::size_t>(column)].kind);
      break;
  }
  return shown;
}

Rgb CTzGrid::BackgroundAt(std::int64_t row) const { return HasRow(row) ? RowAt(row).colour : noColour; }

std::int32_t CTzGrid::RowDataAt(std::int64_t row) const { return HasRow(row) ? RowAt(row).data : 0; }

bool CTzGrid::ActivateCell(std::int64_t row, int column) {
  if (!Inside(row, column)) return false;
  currentRow_ = row;
  currentColumn_ = column;
  return true;
}

std::size_t CTzGrid::MemoryUsed() const {
  const std::size_t perBlock = rowsPerBlock * (columns_.size() * sizeof(Cell) + sizeof(Row));
  return cellBlocks_.size() * perBlock + chunkTotal_ + recent_.capacity() * sizeof(std::string_view);
}

}  // namespace tz
