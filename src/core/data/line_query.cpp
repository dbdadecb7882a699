#include "core/data/line_query.h"

namespace tz {

namespace {

Sql linesWithHeads(const LineQuery& query, std::string_view columns) {
  const bool posted = query.book == Book::posted;
  std::string text = "SELECT ";
  text += columns;
  // CROSS JOIN keeps SQLite from reading all heads of the period first.
  text += posted ? " FROM RegSub s CROSS JOIN RegMain m" : " FROM UnregSub s CROSS JOIN UnregMain m";
  text += " WHERE m.lTieId = s.lTieId AND m.byPeroid BETWEEN ? AND ? AND ";
  return Sql(text, query.firstPeriod, query.lastPeriod) + query.filter;
}

}  // namespace

Sql distinctStatement(const LineQuery& query, std::string_view column) {
  return linesWithHeads(query, "DISTINCT " + std::string(column));
}

Sql unorderedStatement(const LineQuery& query, std::string_view columns) { return linesWithHeads(query, columns); }

Sql lineStatement(const LineQuery& query, std::string_view columns) {
  std::string order = " ORDER BY ";
  if (!query.order.empty()) {
    order += query.order;
    order += ", ";
  }
  return linesWithHeads(query, columns) + Sql(order + "s.lId, s.lTieId");
}

}  // namespace tz
