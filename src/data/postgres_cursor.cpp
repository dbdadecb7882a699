#include "data/postgres_cursor.h"

#include <charconv>

#include "data/backends.h"
#include "data/postgres_values.h"

namespace tz {
namespace {

using namespace postgres;

constexpr int blockRows = 4096;

// As far as the text is a number; 0 when it is none.
template <class Number>
Number numberOf(std::string_view text) {
  Number number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

PostgresCursor::PostgresCursor(std::shared_ptr<PostgresSession> session, const Sql& sql)
    : client_(postgresClient()), session_(std::move(session)) {
  if (session_->transactionStatus() == PQTRANS_INTRANS) {
    name_ = session_->newCursorName();
    transaction_ = session_->transactionNumber();
    (void)session_->run("DECLARE " + name_ + " NO SCROLL CURSOR FOR " + sql.numbered(), sql.values());
    fetch();
  } else {
    rows_ = session_->run(sql.numbered(), sql.values());
    rowCount_ = client_.PQntuples(rows_.get());
  }
  for (int column = 0; column < client_.PQnfields(rows_.get()); ++column) {
    types_.push_back(client_.PQftype(rows_.get(), column));
    if (!isReadable(types_.back())) {
      throw DbError(DbError::Kind::other, "the column " + columnName(column) + " is of a type that is not read");
    }
  }
  written_.resize(types_.size());
}

PostgresCursor::~PostgresCursor() {
  // The server drops cursors with their transaction; within it an open one would keep its table from being changed.
  if (name_.empty() || transaction_ != session_->transactionNumber()) return;
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
    case float8Type:
      return static_cast<std::int64_t>(real(column));
    default:
      return numberOf<std::int64_t>(text(column));
  }
}

double PostgresCursor::real(int column) const {
  const auto value = bytes(column);
  if (value.empty()) return 0;
  switch (type(column)) {
    case float8Type:
      return float8(value);
    case float4Type:
      return float4(value);
    case int8Type:
    case int4Type:
    case int2Type:
    case boolType:
    case oidType:
      return static_cast<double>(integer(column));
    default:
      return numberOf<double>(text(column));
  }
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
  if (type(column) == dateType) return dateFromDays(dateDays(value));
  const auto date = parseIsoDate(text(column));
  if (!date) throw DbError(DbError::Kind::damaged, "not a date: " + std::string(text(column)));
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
    case float8Type:
      return shortestText(real(column));
    case dateType:
      return isoText(date(column));
    case numericType: {
      auto text = numericText(value);
      return text.find('.') == std::string::npos ? text : shortestText(numberOf<double>(text));
    }
    default:
      return std::string(value);
  }
}

}  // namespace tz
