// Whether a cell shows what somebody typed: a part of its text, in capitals or small, wide or narrow letters, or of its
// figure, with thousands separators or without, or of its date. Cells of a single Chinese sign, such as the direction,
// are not what anybody looks for.
#pragma once

#include <string>
#include <string_view>

#include "core/grid/tz_grid.h"

namespace tz {

// As texts are compared: small letters, wide letters and signs as narrow ones.
[[nodiscard]] std::string foldedText(std::string_view text);

class CellMatcher {
 public:
  CellMatcher() = default;
  explicit CellMatcher(std::string_view typed);

  // With nothing typed no cell matches.
  [[nodiscard]] bool empty() const { return text_.empty(); }
  [[nodiscard]] bool Matches(const CTzGrid& grid, std::int64_t row, int column) const;
  // The same for texts and dates alone.
  [[nodiscard]] bool MatchesText(const CTzGrid& grid, std::int64_t row, int column) const;

 private:
  std::string text_;
  std::string figure_;  // without separators; empty when what was typed is in no figure
  bool dated_ = false;  // a date may show it
};

}  // namespace tz
