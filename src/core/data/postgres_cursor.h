// The rows of one PostgreSQL statement in binary form: all at once, or block by block from a server-side cursor, so
// that a million rows take little memory and several cursors can be read side by side.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/data/connection.h"
#include "core/data/postgres_session.h"

namespace tz {

class PostgresCursor final : public Cursor {
 public:
  // Inside a transaction rows stay at the server until they are asked for, block by block or all at once.
  enum class Rows { block, all };
  PostgresCursor(std::shared_ptr<PostgresSession> session, const Sql& sql, Rows rows);
  ~PostgresCursor() override;

  bool next() override;
  [[nodiscard]] int columns() const override { return static_cast<int>(types_.size()); }
  [[nodiscard]] std::string columnName(int column) const override;
  [[nodiscard]] CellKind kind(int column) const override;
  [[nodiscard]] std::int64_t integer(int column) const override;
  [[nodiscard]] double real(int column) const override;
  [[nodiscard]] std::string_view text(int column) const override;
  [[nodiscard]] Date date(int column) const override;
  [[nodiscard]] std::string anyText(int column) const override;

 private:
  void fetch();
  [[nodiscard]] std::string_view bytes(int column) const;
  template <class Number>
  [[nodiscard]] Number numberIn(int column) const;
  [[noreturn]] void refuse(int column, const std::string& what) const;
  [[nodiscard]] Oid type(int column) const { return types_[static_cast<std::size_t>(column)]; }

  const PostgresClient& client_;
  std::shared_ptr<PostgresSession> session_;
  PostgresResult rows_;
  std::string name_;  // of the server-side cursor; empty when every row is here
  std::uint64_t transaction_ = 0;
  bool oneBlock_ = false;  // the first block holds every row
  std::vector<Oid> types_;
  mutable std::vector<std::string> written_;  // texts of values that are no texts
  int row_ = -1;
  int rowCount_ = 0;
};

}  // namespace tz
