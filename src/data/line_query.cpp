#include "data/line_query.h"

namespace tz {

Sql lineStatement(const LineQuery& query, std::string_view columns) {
  const bool posted = query.book == Book::posted;
  std::string text = "SELECT ";
  text += columns;
  // CROSS JOIN keeps SQLite from reading all heads of the period first.
  text += posted ? " FROM RegSub s CROSS JOIN RegMain m" : " FROM UnregSub s CROSS JOIN UnregMain m";
  text += " WHERE m.lTieId = s.lTieId AND m.byPeroid BETWEEN ? AND ? AND ";
  auto sql = Sql(text, query.firstPeriod, query.lastPeriod) + query.filter;
  std::string order = " ORDER BY ";
  if (!query.order.empty()) {
    order += query.order;
    order += ", ";
  }
  return sql + Sql(order + "s.lId, s.lTieId");
}

}  // namespace tz
