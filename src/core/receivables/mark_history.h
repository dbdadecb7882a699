// The log of marks as a story, read from its end and no further back than a question takes: which batch was the last,
// which lines it marked, and what their marks were before.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/data/connection.h"
#include "core/data/marks.h"
#include "core/reports/marking.h"

namespace tz {

// A line of a batch: what the batch made of it and what it was before, as far as earlier batches still hold.
struct BatchLine {
  Id lTieId = 0, lId = 0;
  int before = 0, after = 0;
  bool changedSince = false;  // by a batch that holds

  auto operator<=>(const BatchLine&) const = default;
};

// A batch of marks, without the lines for which it was taken back.
struct MarkBatch {
  std::string name;
  MarkWork work;
  std::string who, when;         // of its last row
  std::vector<BatchLine> lines;  // by voucher and line
};

// Both inside the caller's transaction. A row of a batch was taken back when a later row of the same line takes that
// batch back; what is marked under its name after that is another matter.

// The last batch that can be taken back and has lines that are still there.
[[nodiscard]] std::optional<MarkBatch> lastMarkBatch(Connection& connection);
// Nothing where all of it was taken back.
[[nodiscard]] std::optional<MarkBatch> markBatchNamed(Connection& connection, std::string_view name);

}  // namespace tz
