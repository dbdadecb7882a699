#include "core/grid/row_subjects.h"

#include <utility>

namespace tz {

RowSubjects::Place RowSubjects::keep(Subject subject) {
  if (subjects_.back() != subject) subjects_.push_back(std::move(subject));
  return static_cast<Place>(subjects_.size() - 1);
}

void RowSubjects::set(std::int64_t row, Place subject, int level) {
  rowAt(row) = {.subject = subject, .level = static_cast<std::int8_t>(level)};
}

void RowSubjects::set(std::int64_t row, Place subject, int level, const LineId& line) {
  hasLines_ = true;
  rowAt(row) = {.line = line.line,
                .voucher = line.voucher,
                .subject = subject,
                .book = line.book,
                .level = static_cast<std::int8_t>(level),
                .isLine = true,
                .opening = line.opening};
}

const Subject& RowSubjects::of(std::int64_t row) const {
  const auto* const found = find(row);
  return found == nullptr ? subjects_.front() : subjects_.at(found->subject);
}

int RowSubjects::level(std::int64_t row) const {
  const auto* const found = find(row);
  return found == nullptr ? wholeReport : found->level;
}

std::optional<LineId> RowSubjects::line(std::int64_t row) const {
  const auto* const found = find(row);
  if (found == nullptr || !found->isLine) return std::nullopt;
  return LineId{.book = found->book, .line = found->line, .voucher = found->voucher, .opening = found->opening};
}

RowSubjects::Row& RowSubjects::rowAt(std::int64_t row) {
  const auto place = static_cast<std::size_t>(row);
  if (place == rows_.size()) return rows_.emplace_back();
  if (place > rows_.size()) rows_.resize(place + 1);
  return rows_[place];
}

const RowSubjects::Row* RowSubjects::find(std::int64_t row) const {
  return row >= 0 && row < size() ? &rows_[static_cast<std::size_t>(row)] : nullptr;
}

}  // namespace tz
