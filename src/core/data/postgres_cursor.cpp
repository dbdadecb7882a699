#include "core/data/postgres_cursor.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "core/data/backends.h"
#include "core/data/postgres_values.h"

namespace tz {
namespace {

using namespace postgres;

constexpr int blockRows = 4096;

std::string_view withoutBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

}  // namespace

PostgresCursor::PostgresCursor(std::shared_ptr<PostgresSession> session, const Sql& sql, Rows rows)
    : client_(postgresClient()), session_(std::move(session)) {
  const auto text = sql.numbered();
  // A cursor takes three trips to the server.
  const bool atOnce = rows == Rows::all || text.ends_with(" LIMIT 1");
  if (session_->transactionStatus() == PQTRANS_INTRANS && !atOnce) {
    name_ = session_->newCursorName();
    transaction_ = session_->transactionNumber();
    (void)session_->run("DECLARE " + name_ + " NO SCROLL CURSOR FOR " + text, sql.values());
    fetch();
    oneBlock_ = rowCount_ < blockRows;
  } else {
    rows_ = session_->run(text, sql.values());
    rowCount_ = client_.PQntuples(rows_.get());
  }
  for (int column = 0; column < client_.PQnfields(rows_.get()); ++column) {
    types_.push_back(client_.PQftype(rows_.get(), column));
  }
  written_.resize(types_.size());
}

PostgresCursor::~PostgresCursor() {
  // The server drops cursors with their transaction; within it an open one would keep its table from being changed, and
  // one of many rows what it has gathered.
  if (name_.empty() || transaction_ != session_->transactionNumber()) return;
  if (oneBlock_ && !session_->transactionWrites()) return;
  if (session_->transactionStatus() != PQTRANS_INTRANS) return;
  try {
    session_->command(("CLOSE " + name_).c_str());
  } catch (const DbError&) {
    // The connection broke; whoever uses it next is told.
  }
}

void PostgresCursor::fetch() {
  rows_ = session_->run("FETCH " + std::to_string(blockRows) + " FROM " + name_);
  rowCount_ = client_.PQntuples(rows_.get());
  row_ = -1;
}

bool PostgresCursor::next() {
  if (row_ + 1 >= rowCount_ && !name_.empty() && rowCount_ == blockRows) fetch();
  if (row_ + 1 >= rowCount_) return false;
  ++row_;
  return true;
}

std::string PostgresCursor::columnName(int column) const { return client_.PQfname(rows_.get(), column); }

std::string_view PostgresCursor::bytes(int column) const {
  return {client_.PQgetvalue(rows_.get(), row_, column),
          static_cast<std::size_t>(client_.PQgetlength(rows_.get(), row_, column))};
}

CellKind PostgresCursor::kind(int column) const {
  if (client_.PQgetisnull(rows_.get(), row_, column) != 0) return CellKind::null;
  switch (type(column)) {
    case int8Type:
    case int4Type:
    case int2Type:
    case oidType:
      return CellKind::integer;
    case float8Type:
    case float4Type:
    case numericType:
      return CellKind::real;
    case dateType:
      return CellKind::date;
    default:
      return isText(type(column)) ? CellKind::text : CellKind::other;
  }
}

void PostgresCursor::refuse(int column, const std::string& what) const {
  throw DbError(DbError::Kind::otherType, columnName(column) + " " + what);
}

// A text is a number as a whole or not at all; blanks are 0.
template <class Number>
Number PostgresCursor::numberIn(int column) const {
  const auto value = withoutBlanks(text(column));
  if (value.empty()) return 0;
  Number number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  const bool whole = end == value.data() + value.size() || type(column) == numericType;
  if (error != std::errc{} || !whole) refuse(column, "不是数：" + std::string(value));
  return number;
}

std::int64_t PostgresCursor::integer(int column) const {
  const auto value = bytes(column);
  if (value.empty()) return 0;
  switch (type(column)) {
    case int8Type:
      return bigEndian<std::int64_t>(value);
    case int4Type:
      return bigEndian<std::int32_t>(value);
    case int2Type:
      return bigEndian<std::int16_t>(value);
    case boolType:
      return value.front();
    case oidType:
      return bigEndian<std::uint32_t>(value);
    case float4Type:
    case float8Type: {
      const double figure = real(column);
      if (std::abs(figure) >= 0x1p63) refuse(column, "不是可用的编号：" + shortestText(figure));
      return static_cast<std::int64_t>(figure);
    }
    default:
      return numberIn<std::int64_t>(column);
  }
}

double PostgresCursor::real(int column) const {
  const auto value = bytes(column);
  if (value.empty()) return 0;
  double figure = 0;
  switch (type(column)) {
    case float8Type:
      figure = float8(value);
      break;
    case float4Type:
      figure = float4(value);
      break;
    case int8Type:
    case int4Type:
    case int2Type:
    case boolType:
    case oidType:
      return static_cast<double>(integer(column));
    default:
      figure = numberIn<double>(column);
  }
  if (!std::isfinite(figure)) refuse(column, "不是数：" + shortestText(figure));
  return figure;
}

std::string_view PostgresCursor::text(int column) const {
  if (isText(type(column))) return bytes(column);
  auto& written = written_[static_cast<std::size_t>(column)];
  written = type(column) == numericType && !bytes(column).empty() ? numericText(bytes(column)) : anyText(column);
  return written;
}

Date PostgresCursor::date(int column) const {
  const auto value = bytes(column);
  if (value.empty()) return {};
  std::optional<Date> date;
  if (type(column) != dateType) {
    date = parseIsoDate(text(column));
  } else if (const auto days = dateDays(value); days >= firstDay && days <= lastDay) {
    date = dateFromDays(static_cast<std::int32_t>(days));
  }
  if (!date) throw DbError(DbError::Kind::otherType, columnName(column) + " 不是日期：" + anyText(column));
  return *date;
}

std::string PostgresCursor::anyText(int column) const {
  const auto value = bytes(column);
  if (value.empty()) return {};
  switch (type(column)) {
    case int8Type:
    case int4Type:
    case int2Type:
    case boolType:
    case oidType:
      return std::to_string(integer(column));
    case float4Type:
      return shortestText(float4(value));
    case float8Type:
      return shortestText(float8(value));
    case dateType:
      return dateText(value);
    case numericType: {
      auto text = numericText(value);
      return text.find('.') == std::string::npos ? text : shortestText(std::strtod(text.c_str(), nullptr));
    }
    default:
      if (isText(type(column))) return std::string(value);
      throw DbError(DbError::Kind::otherType, columnName(column) + " 的类型不能读，请转换后再打开");
  }
}

}  // namespace tz
