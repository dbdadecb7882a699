// The table that every report writes into and that window, page, file and terminal read. Cells are typed: empty, text,
// number or date, 16 bytes each; a number keeps its full value, how it is shown is its column's matter. Any column may
// hold cells of any type. Rows carry a kind, a background colour and a data value. Columns have captions on two levels.
//
// A write outside the grid is refused (false) and changes nothing.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/data/value.h"
#include "core/grid/column_kind.h"
#include "core/grid/notice.h"

namespace tz {

struct GridColumn {
  std::string caption;
  std::string group;  // caption above it, shared by neighbours; empty = one level
  int width = 0;      // pixels at 100 %
  ColumnKind kind = ColumnKind::text;
};

// What a row is, so that every output can set totals apart.
enum class RowKind : std::uint8_t { line, opening, heading, monthTotal, yearTotal, subtotal, total };

// Rows that add others up, of a month as of a group.
[[nodiscard]] constexpr bool addsUp(RowKind kind) { return kind >= RowKind::monthTotal; }

using Rgb = std::uint32_t;
inline constexpr Rgb noColour = 0xFFFFFFFF;
// Rows of unposted vouchers, and other rows that are to stand out.
inline constexpr Rgb lightGreen = 0xE0FFE0;

class CTzGrid {
 public:
  enum class CellType : std::uint8_t { empty, text, number, date };

  // A cell of 16 bytes. tag 0: empty; 1: number in the last eight bytes; 2: long text, its length in bytes 4 to 7 and
  // its address in the last eight; 3: date in the last eight; 16 + n: a text of n bytes (up to 15) in the bytes after
  // the tag.
  class Cell {
   public:
    [[nodiscard]] CellType type() const;
    // Of a cell of another type: empty, 0 or no date. A text is valid until the grid changes.
    [[nodiscard]] std::string_view text() const;
    [[nodiscard]] double number() const { return bytes_[0] == numberTag ? last<double>() : 0; }
    [[nodiscard]] Date date() const { return bytes_[0] == dateTag ? last<Date>() : Date{}; }

   private:
    friend class CTzGrid;
    static constexpr char emptyTag = 0;
    static constexpr char numberTag = 1;
    static constexpr char longTag = 2;
    static constexpr char dateTag = 3;
    static constexpr char shortTag = 16;
    static constexpr std::size_t longestShort = 15;

    template <class Value>
    [[nodiscard]] Value last() const {
      Value value;
      std::memcpy(&value, bytes_.data() + 8, sizeof value);
      return value;
    }
    template <class Value>
    void setLast(char tag, const Value& value) {
      bytes_[0] = tag;
      std::memcpy(bytes_.data() + 8, &value, sizeof value);
    }

    alignas(8) std::array<char, 16> bytes_;
  };

  CTzGrid() = default;
  CTzGrid(CTzGrid&&) noexcept = default;
  CTzGrid& operator=(CTzGrid&&) noexcept = default;
  CTzGrid(const CTzGrid&) = delete;
  CTzGrid& operator=(const CTzGrid&) = delete;
  ~CTzGrid() = default;

  // Removes rows, columns and notices: the grid is as new.
  void Clear();
  // Columns are added before the first row; later ones throw std::logic_error.
  void AddColumn(GridColumn column);
  [[nodiscard]] const std::vector<GridColumn>& Columns() const { return columns_; }
  [[nodiscard]] int GetCols() const { return static_cast<int>(columns_.size()); }

  // New rows are empty lines without colour, their data 0.
  void SetRows(std::int64_t rows);
  [[nodiscard]] std::int64_t GetRows() const { return rowCount_; }

  bool SetText(std::int64_t row, int column, std::string_view text);
  bool SetNumber(std::int64_t row, int column, double number);
  bool SetDate(std::int64_t row, int column, Date date);
  bool SetBackground(std::int64_t row, Rgb colour);
  bool SetRowData(std::int64_t row, std::int32_t data);
  bool SetRowKind(std::int64_t row, RowKind kind);

  // The cells of a row of the grid, for whoever reads all of them. Valid until the grid changes.
  [[nodiscard]] std::span<const Cell> CellsOf(std::int64_t row) const { return {&At(row, 0), columns_.size()}; }
  // Outside the grid a cell reads as empty, a row as a plain line.
  [[nodiscard]] CellType TypeAt(std::int64_t row, int column) const;
  // The text of a text cell; empty for the others. Valid until the grid changes.
  [[nodiscard]] std::string_view TextAt(std::int64_t row, int column) const;
  // The number of a number cell; 0 for the others.
  [[nodiscard]] double NumberAt(std::int64_t row, int column) const;
  // The date of a date cell; an empty one for the others.
  [[nodiscard]] Date DateAt(std::int64_t row, int column) const;
  // The cell as it is shown: a text, the number in its column's form, or "2006.01.05".
  [[nodiscard]] std::string ShownAt(std::int64_t row, int column) const;
  [[nodiscard]] Rgb BackgroundAt(std::int64_t row) const;
  [[nodiscard]] std::int32_t RowDataAt(std::int64_t row) const;
  [[nodiscard]] RowKind RowKindAt(std::int64_t row) const;

  [[nodiscard]] std::int64_t GetCurrentRow() const { return currentRow_; }
  [[nodiscard]] int GetCurrentCol() const { return currentColumn_; }
  // Makes a cell current; refused outside the grid.
  bool ActivateCell(std::int64_t row, int column);

  std::vector<Notice> notices;

  // Bytes held for rows and cells.
  [[nodiscard]] std::size_t MemoryUsed() const;

 private:
  struct Row {
    Rgb colour;
    std::int32_t data;
    RowKind kind;
  };
  static constexpr std::size_t rowsPerBlock = 4096;

  [[nodiscard]] bool HasRow(std::int64_t row) const { return row >= 0 && row < rowCount_; }
  [[nodiscard]] bool Inside(std::int64_t row, int column) const {
    return HasRow(row) && column >= 0 && static_cast<std::size_t>(column) < columns_.size();
  }
  [[nodiscard]] Cell& At(std::int64_t row, int column) const {
    const auto place = static_cast<std::size_t>(row);
    return cellBlocks_[place / rowsPerBlock]
                      [(place % rowsPerBlock) * columns_.size() + static_cast<std::size_t>(column)];
  }
  [[nodiscard]] Row& RowAt(std::int64_t row) const {
    const auto place = static_cast<std::size_t>(row);
    return rowBlocks_[place / rowsPerBlock][place % rowsPerBlock];
  }
  void AddBlock();
  void ClearRows(std::size_t first, std::size_t end);
  [[nodiscard]] const char* Store(std::string_view text);
  [[nodiscard]] char* Reserve(std::size_t size);

  std::vector<GridColumn> columns_;
  std::int64_t rowCount_ = 0;
  std::vector<std::unique_ptr<Cell[]>> cellBlocks_;  // NOLINT: arrays of one block's size, never resized
  std::vector<std::unique_ptr<Row[]>> rowBlocks_;    // NOLINT
  // Long texts live in chunks until Clear. Summaries repeat a lot: the last text of each hash is taken again.
  std::vector<std::unique_ptr<char[]>> chunks_;  // NOLINT
  std::size_t chunkUsed_ = 0;
  std::size_t chunkSize_ = 0;
  std::size_t chunkTotal_ = 0;
  std::vector<std::string_view> recent_;
  std::int64_t currentRow_ = -1;
  int currentColumn_ = -1;
};

inline CTzGrid::CellType CTzGrid::Cell::type() const {
  const char tag = bytes_[0];
  if (tag == emptyTag) return CellType::empty;
  if (tag == numberTag) return CellType::number;
  return tag == dateTag ? CellType::date : CellType::text;
}

inline std::string_view CTzGrid::Cell::text() const {
  if (bytes_[0] >= shortTag) return {bytes_.data() + 1, static_cast<std::size_t>(bytes_[0] - shortTag)};
  if (bytes_[0] != longTag) return {};
  std::uint32_t length = 0;
  std::memcpy(&length, bytes_.data() + 4, sizeof length);
  return {last<const char*>(), length};
}

inline CTzGrid::CellType CTzGrid::TypeAt(std::int64_t row, int column) const {
  return Inside(row, column) ? At(row, column).type() : CellType::empty;
}

inline RowKind CTzGrid::RowKindAt(std::int64_t row) const { return HasRow(row) ? RowAt(row).kind : RowKind::line; }

inline std::string_view CTzGrid::TextAt(std::int64_t row, int column) const {
  return Inside(row, column) ? At(row, column).text() : std::string_view();
}

inline double CTzGrid::NumberAt(std::int64_t row, int column) const {
  return Inside(row, column) ? At(row, column).number() : 0;
}

inline Date CTzGrid::DateAt(std::int64_t row, int column) const {
  return Inside(row, column) ? At(row, column).date() : Date{};
}

}  // namespace tz
