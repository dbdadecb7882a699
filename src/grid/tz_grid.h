// The table that every report writes into and that window, page, file and terminal read. Cells are typed: empty, text
// or number, 16 bytes each; a number keeps its full value, how it is shown is its column's matter. Rows carry a kind,
// a background colour and a data value. Columns have captions on two levels.
//
// A write outside the grid is refused (false) and changes nothing.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tz {

// How the numbers of a column are shown: amounts with two decimals, quantities and prices with up to four, rates with up
// to six, counts with none.
enum class Figure : std::uint8_t { none, amount, quantity, price, rate, count };

struct GridColumn {
  std::string caption;
  std::string group;  // caption above it, shared by neighbours; empty = one level
  int width = 0;      // pixels at 100 %
  Figure figure = Figure::none;  // none: a text column
};

// What a row is, so that every output can set totals apart.
enum class RowKind : std::uint8_t { line, opening, heading, subtotal, total };

using Rgb = std::uint32_t;
inline constexpr Rgb noColour = 0xFFFFFFFF;
// Rows of unposted vouchers, and other rows that are to stand out.
inline constexpr Rgb lightGreen = 0xE0FFE0;

class CTzGrid {
 public:
  enum class CellType : std::uint8_t { empty, text, number };

  CTzGrid() = default;
  CTzGrid(CTzGrid&&) noexcept = default;
  CTzGrid& operator=(CTzGrid&&) noexcept = default;
  CTzGrid(const CTzGrid&) = delete;
  CTzGrid& operator=(const CTzGrid&) = delete;
  ~CTzGrid() = default;

  // Removes rows and columns, notices stay out too: the grid is as new.
  void Clear();
  // Columns are added before the first row.
  void AddColumn(GridColumn column);
  [[nodiscard]] const std::vector<GridColumn>& Columns() const { return columns_; }
  [[nodiscard]] int GetCols() const { return static_cast<int>(columns_.size()); }

  void SetRows(std::int64_t rows);
  [[nodiscard]] std::int64_t GetRows() const { return rowCount_; }

  bool SetText(std::int64_t row, int column, std::string_view text);
  bool SetNumber(std::int64_t row, int column, double number);
  bool SetBackground(std::int64_t row, Rgb colour);
  bool SetRowData(std::int64_t row, std::int32_t data);
  bool SetRowKind(std::int64_t row, RowKind kind);

  [[nodiscard]] CellType TypeAt(std::int64_t row, int column) const;
  // The text of a text cell; empty for the others. Valid until the grid changes.
  [[nodiscard]] std::string_view TextAt(std::int64_t row, int column) const;
  // The number of a number cell; 0 for the others.
  [[nodiscard]] double NumberAt(std::int64_t row, int column) const;
  // The cell as it is shown: a text, or the number in its column's form.
  [[nodiscard]] std::string ShownAt(std::int64_t row, int column) const;
  [[nodiscard]] Rgb BackgroundAt(std::int64_t row) const;
  [[nodiscard]] std::int32_t RowDataAt(std::int64_t row) const;
  [[nodiscard]] RowKind RowKindAt(std::int64_t row) const;

  [[nodiscard]] std::int64_t GetCurrentRow() const { return currentRow_; }
  [[nodiscard]] int GetCurrentCol() const { return currentColumn_; }
  // Makes a cell current; refused outside the grid.
  bool ActivateCell(std::int64_t row, int column);

  // Sentences below the grid that say what its rows do not show.
  std::vector<std::string> notices;

  // Bytes held for rows and cells.
  [[nodiscard]] std::size_t MemoryUsed() const;

 private:
  // A cell of 16 bytes. tag 0: empty; 1: number in the last eight bytes; 2: long text, its length in bytes 4 to 7 and
  // its place in the heap in the last eight; 16 + n: a text of n bytes (up to 15) in the bytes after the tag.
  struct Cell {
    std::array<unsigned char, 16> bytes;
  };
  struct Row {
    Rgb colour;
    std::int32_t data;
    RowKind kind;
  };
  static constexpr std::int64_t rowsPerBlock = 4096;

  [[nodiscard]] bool Inside(std::int64_t row, int column) const;
  [[nodiscard]] Cell& At(std::int64_t row, int column);
  [[nodiscard]] const Cell& At(std::int64_t row, int column) const;
  [[nodiscard]] Row& RowAt(std::int64_t row) { return rowBlocks_[row / rowsPerBlock][row % rowsPerBlock]; }
  [[nodiscard]] const Row& RowAt(std::int64_t row) const { return rowBlocks_[row / rowsPerBlock][row % rowsPerBlock]; }
  [[nodiscard]] std::uint64_t Store(std::string_view text);

  std::vector<GridColumn> columns_;
  std::int64_t rowCount_ = 0;
  std::vector<std::unique_ptr<Cell[]>> cellBlocks_;  // NOLINT: arrays of one block's size, never resized
  std::vector<std::unique_ptr<Row[]>> rowBlocks_;    // NOLINT
  std::vector<std::unique_ptr<std::string>> heap_;   // chunks of long texts; a place is chunk << 32 | offset
  std::uint64_t lastPlace_ = 0;
  std::string_view lastText_;
  std::int64_t currentRow_ = -1;
  int currentColumn_ = -1;
};

}  // namespace tz
