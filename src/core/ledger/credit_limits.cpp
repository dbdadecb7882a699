#include "core/ledger/credit_limits.h"

#include <cmath>

#include "core/grid/column_adder.h"
#include "core/ledger/balance_figures.h"

namespace tz {
namespace {

double limitOf(const Subject& subject, CGetData& data) {
  if (subject.unit != 0) return data.GetUnitCredit(subject.unit);
  return subject.unitClass ? data.GetEnterClassCredit(*subject.unitClass) : 0;
}

}  // namespace

int addLimitColumns(CTzGrid& grid, const Conditions& conditions) {
  constexpr int width = 100;
  if (!conditions.request.flag(ParameterKey::creditLimit)) return -1;
  const int first = grid.GetCols();
  CTzGridControl::AddCol(grid, "信用额度", width, ColumnKind::amount);
  CTzGridControl::AddCol(grid, "超额", width, ColumnKind::amount);
  return first;
}

void writeLimit(CTzGrid& grid, std::int64_t row, int column, const Subject& subject, double balance,
                const Conditions& conditions) {
  if (column < 0) return;
  const double limit = limitOf(subject, *conditions.data);
  if (limit == 0) return;
  grid.SetNumber(row, column, limit);
  const double owed = std::abs(balance);
  if (wholeMillionths(owed) > wholeMillionths(limit)) grid.SetNumber(row, column + 1, owed - limit);
}

}  // namespace tz
