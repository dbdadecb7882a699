// Which rows of a grid are shown: all of them, or runs of neighbours between hidden ones. A place counts the rows that
// are shown from the top; painting, scrolling and selecting work with places, all others with the grid's own rows.
// Costs nothing while every row is shown and four bytes a row at worst.
#pragma once

#include <cstdint>
#include <vector>

namespace tz {

// A bit for each row.
class RowBits {
 public:
  RowBits() = default;
  explicit RowBits(std::int64_t rows) : rows_(rows), words_(static_cast<std::size_t>((rows + 63) / 64)) {}

  [[nodiscard]] std::int64_t Rows() const { return rows_; }
  [[nodiscard]] bool At(std::int64_t row) const { return (words_[WordOf(row)] >> (row % 64) & 1U) != 0; }
  void Set(std::int64_t row) { words_[WordOf(row)] |= 1ULL << (row % 64); }
  // Both ends included.
  void SetRange(std::int64_t first, std::int64_t last);
  [[nodiscard]] bool AnyIn(std::int64_t first, std::int64_t last) const;
  [[nodiscard]] std::int64_t CountIn(std::int64_t first, std::int64_t last) const;
  [[nodiscard]] std::int64_t Count() const { return rows_ == 0 ? 0 : CountIn(0, rows_ - 1); }
  // The next row from `row` on whose bit is `set`; Rows() when there is none.
  [[nodiscard]] std::int64_t Next(std::int64_t row, bool set) const;
  // The next one from `row` upwards whose bit is set; -1 when there is none.
  [[nodiscard]] std::int64_t Previous(std::int64_t row) const;
  // Those of these that are not among others of as many rows.
  [[nodiscard]] RowBits Without(const RowBits& others) const;

 private:
  [[nodiscard]] static std::size_t WordOf(std::int64_t row) { return static_cast<std::size_t>(row) / 64; }

  std::int64_t rows_ = 0;
  std::vector<std::uint64_t> words_;
};

class ShownRows {
 public:
  void ShowAll(std::int64_t rows);
  void Hide(const RowBits& hidden);

  [[nodiscard]] bool All() const { return all_; }
  // Rows of the grid, and how many of them are shown.
  [[nodiscard]] std::int64_t Rows() const { return rows_; }
  [[nodiscard]] std::int64_t Count() const { return count_; }
  // The row at a place from 0 to Count() - 1.
  [[nodiscard]] std::int64_t RowAt(std::int64_t place) const;
  [[nodiscard]] bool Shows(std::int64_t row) const;
  // The place of a row; of one that is hidden that of the next row above it which is shown, or else the first; -1 when
  // none is.
  [[nodiscard]] std::int64_t PlaceOf(std::int64_t row) const;

 private:
  // Neighbours that are shown, by their first row and its place.
  struct Run {
    std::int32_t row;
    std::int32_t place;
  };

  [[nodiscard]] std::int64_t LengthOf(std::size_t run) const;
  // The last run that begins at or above a row; none is the number of runs.
  [[nodiscard]] std::size_t RunAbove(std::int64_t row) const;

  bool all_ = true;
  std::int64_t rows_ = 0;
  std::int64_t count_ = 0;
  std::vector<Run> runs_;
};

}  // namespace tz
