#include "core/data/postgres_writer.h"

#include <cassert>

#include "core/data/backends.h"

namespace tz {
namespace {

constexpr std::size_t blockBytes = 1 << 20;

}  // namespace

PostgresWriter::PostgresWriter(std::shared_ptr<PostgresSession> session, std::string_view table,
                               std::span<const std::string> columns)
    : session_(std::move(session)), columns_(columns.size()) {
  statement_ = "COPY " + std::string(table) + " (";
  for (const auto& column : columns) statement_ += (&column == columns.data() ? "" : ", ") + column;
  statement_ += ") FROM STDIN";
}

void PostgresWriter::beginValue() {
  if (place_++ != 0) rows_ += '\t';
}

void PostgresWriter::put(std::int64_t value) {
  beginValue();
  rows_ += std::to_string(value);
}

void PostgresWriter::put(double value) {
  beginValue();
  rows_ += shortestText(value);
}

void PostgresWriter::put(std::string_view value) {
  beginValue();
  for (const char c : value) {
    switch (c) {
      case '\\':
        rows_ += "\\\\";
        break;
      case '\t':
        rows_ += "\\t";
        break;
      case '\n':
        rows_ += "\\n";
        break;
      case '\r':
        rows_ += "\\r";
        break;
      default:
        rows_ += c;
    }
  }
}

void PostgresWriter::put(Date value) {
  beginValue();
  rows_ += isoText(value);
}

void PostgresWriter::endRow() {
  assert(place_ == columns_);
  place_ = 0;
  rows_ += '\n';
  if (rows_.size() >= blockBytes) finish();
}

void PostgresWriter::finish() {
  if (!rows_.empty()) session_->copyIn(statement_, rows_);
  rows_.clear();
}

}  // namespace tz
