#include "core/reports/standing_row.h"

namespace tz {
namespace {

bool agree(Id one, Id other) { return one == 0 || other == 0 || one == other; }

template <class Value>
bool agree(const std::optional<Value>& one, const std::optional<Value>& other) {
  return !one || !other || *one == *other;
}

// Whether a row that is about one can be about the other: nothing that both name differs.
bool agree(const Subject& one, const Subject& other) {
  const bool sameItem = one.item == 0 || other.item == 0 || one.itemClass == other.itemClass;
  return sameItem && agree(one.item, other.item) && agree(one.account, other.account) && agree(one.dept, other.dept) &&
         agree(one.person, other.person) && agree(one.unit, other.unit) && agree(one.unitClass, other.unitClass) &&
         agree(one.clerk, other.clerk);
}

}  // namespace

std::optional<StandingRow> standingRow(const ComputedReport& report, const DetailTarget& target) {
  const auto& subjects = report.subjects;
  const auto& member = target.stand;
  for (std::int64_t row = 0; target.line && row < subjects.size(); ++row) {
    if (subjects.line(row) == target.line) return StandingRow{.row = row, .isLine = true};
  }
  std::optional<StandingRow> begins;
  const Subject* last = nullptr;  // rows that follow on each other share theirs
  bool agrees = false;
  for (std::int64_t row = 0; row < subjects.size(); ++row) {
    const Subject& subject = subjects.of(row);
    if (&subject != last) agrees = agree(subject, member);
    last = &subject;
    if (!agrees) continue;
    if (subjects.line(row)) return StandingRow{.row = row, .isLine = true};
    const auto kind = report.grid.RowKindAt(row);
    if (!begins && (kind == RowKind::heading || kind == RowKind::opening)) begins = StandingRow{.row = row};
  }
  return begins;
}

}  // namespace tz
