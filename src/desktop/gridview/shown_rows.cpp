#include "desktop/gridview/shown_rows.h"

#include <algorithm>
#include <bit>

namespace tz {
namespace {

constexpr std::int64_t wordBits = 64;
constexpr std::uint64_t allBits = ~std::uint64_t{0};

// The bits of a word from one row to another, which lie in it or beyond its ends.
std::uint64_t bitsOf(std::int64_t word, std::int64_t first, std::int64_t last) {
  const std::int64_t from = std::max<std::int64_t>(first - word * wordBits, 0);
  const std::int64_t to = std::min<std::int64_t>(last - word * wordBits, wordBits - 1);
  return allBits << from & allBits >> (wordBits - 1 - to);
}

}  // namespace

void RowBits::SetRange(std::int64_t first, std::int64_t last) {
  for (std::int64_t word = first / wordBits; word * wordBits <= last; ++word) {
    words_[static_cast<std::size_t>(word)] |= bitsOf(word, first, last);
  }
}

bool RowBits::AnyIn(std::int64_t first, std::int64_t last) const {
  for (std::int64_t word = first / wordBits; word * wordBits <= last; ++word) {
    if ((words_[static_cast<std::size_t>(word)] & bitsOf(word, first, last)) != 0) return true;
  }
  return false;
}

std::int64_t RowBits::CountIn(std::int64_t first, std::int64_t last) const {
  std::int64_t count = 0;
  for (std::int64_t word = first / wordBits; word * wordBits <= last; ++word) {
    count += std::popcount(words_[static_cast<std::size_t>(word)] & bitsOf(word, first, last));
  }
  return count;
}

std::int64_t RowBits::Next(std::int64_t row, bool set) const {
  for (std::int64_t word = row / wordBits; word * wordBits < rows_; ++word) {
    const std::uint64_t bits = words_[static_cast<std::size_t>(word)];
    const std::uint64_t found = (set ? bits : ~bits) & bitsOf(word, row, rows_ - 1);
    if (found != 0) return word * wordBits + std::countr_zero(found);
  }
  return rows_;
}

std::int64_t RowBits::Previous(std::int64_t row) const {
  for (std::int64_t word = row / wordBits; row >= 0 && word >= 0; --word) {
    const std::uint64_t found = words_[static_cast<std::size_t>(word)] & bitsOf(word, 0, row);
    if (found != 0) return word * wordBits + wordBits - 1 - std::countl_zero(found);
  }
  return -1;
}

RowBits RowBits::Without(const RowBits& others) const {
  RowBits left = *this;
  for (std::size_t word = 0; word < words_.size(); ++word) left.words_[word] &= ~others.words_[word];
  return left;
}

void ShownRows::ShowAll(std::int64_t rows) {
  all_ = true;
  rows_ = count_ = rows;
  runs_ = {};
}

void ShownRows::Hide(const RowBits& hidden) {
  all_ = false;
  rows_ = hidden.Rows();
  count_ = 0;
  runs_.clear();
  for (std::int64_t row = hidden.Next(0, false); row < rows_;) {
    const std::int64_t end = hidden.Next(row, true);
    runs_.push_back({static_cast<std::int32_t>(row), static_cast<std::int32_t>(count_)});
    count_ += end - row;
    row = hidden.Next(end, false);
  }
  runs_.shrink_to_fit();
  if (count_ == rows_) ShowAll(rows_);
}

std::int64_t ShownRows::LengthOf(std::size_t run) const {
  return (run + 1 < runs_.size() ? runs_[run + 1].place : count_) - runs_[run].place;
}

std::size_t ShownRows::RunAbove(std::int64_t row) const {
  const auto after = std::ranges::upper_bound(runs_, row, {}, [](const Run& run) { return std::int64_t{run.row}; });
  return after == runs_.begin() ? runs_.size() : static_cast<std::size_t>(after - runs_.begin()) - 1;
}

std::int64_t ShownRows::RowAt(std::int64_t place) const {
  if (all_) return place;
  const auto after = std::ranges::upper_bound(runs_, place, {}, [](const Run& run) { return std::int64_t{run.place}; });
  const Run& run = *(after - 1);
  return run.row + place - run.place;
}

bool ShownRows::Shows(std::int64_t row) const {
  if (row < 0 || row >= rows_) return false;
  if (all_) return true;
  const std::size_t run = RunAbove(row);
  return run < runs_.size() && row < runs_[run].row + LengthOf(run);
}

std::int64_t ShownRows::PlaceOf(std::int64_t row) const {
  if (all_) return row;
  if (count_ == 0) return -1;
  const std::size_t run = RunAbove(row);
  return run == runs_.size() ? 0 : runs_[run].place + std::min(row - runs_[run].row, LengthOf(run) - 1);
}

}  // namespace tz
