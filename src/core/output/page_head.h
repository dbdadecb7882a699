// What stands above the table on every page: title, company, period, subtitle and unit as the report's family gives
// them, its further conditions and its warnings.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/output/page_columns.h"
#include "core/output/report_output.h"

namespace tz {

struct HeadPiece {
  enum class Face : std::uint8_t { title, text, warning };
  enum class Place : std::uint8_t { left, centre, right };

  std::string text;
  Face face = Face::text;
  Place place = Place::left;
  double top = 0;   // points from the top margin
  double size = 0;  // of its letters, points
};

struct PageHead {
  std::vector<HeadPiece> pieces;
  double height = 0;  // points
};

// By whom and when pages are printed, at the foot of each; empty texts are left out.
struct PageStamp {
  std::string printedBy;
  std::string printedAt;  // "2006-01-31 09:30"
};

[[nodiscard]] PageHead pageHead(const ComputedReport& report, const PageColumns& columns, double columnEm);

}  // namespace tz
