// The log of marks as a story: its batches, which of them were taken back, and what a line's mark was before one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/data/connection.h"
#include "core/data/marks.h"
#include "core/reports/marking.h"

namespace tz {

class MarkHistory {
 public:
  struct Batch {
    std::string name;
    MarkWork work;
    std::string who, when;  // of its last row
    std::size_t firstRow = 0, lastRow = 0;
    std::int64_t rows = 0;
    std::optional<std::size_t> takenBackAt;  // the first row that did so
  };
  // A line of a batch: what the batch made of it and what it was before, as far as earlier batches still hold.
  struct Line {
    Id lId = 0, lTieId = 0;
    int before = 0, after = 0;
    bool changedSince = false;  // by a batch that holds
  };

  // Reads the whole log.
  explicit MarkHistory(Connection& connection);

  // The batches that can be taken back, the last one first.
  [[nodiscard]] std::vector<const Batch*> open() const;
  // Null for a batch that can no longer be taken back.
  [[nodiscard]] const Batch* find(std::string_view name) const;
  [[nodiscard]] std::vector<Line> linesOf(const Batch& batch) const;

 private:
  struct Row {
    Id line = 0, voucher = 0;
    std::uint8_t before = 0, after = 0;
    std::uint32_t batch = 0;
  };
  using Story = std::vector<std::size_t>;  // the rows of one line, in their order

  [[nodiscard]] int markBefore(const Story& story, std::size_t place) const;
  [[nodiscard]] bool holds(const Row& row) const {
    const auto& batch = batches_[row.batch];
    return !batch.work.undone && !batch.takenBackAt;
  }

  std::vector<Row> rows_;
  std::vector<Batch> batches_;
};

}  // namespace tz
