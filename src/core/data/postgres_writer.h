// Rows on their way into one table by COPY. They are gathered and sent in blocks, each a COPY of its own, so that the
// connection stays free for other statements and other writers in between.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "core/data/connection.h"
#include "core/data/postgres_session.h"

namespace tz {

class PostgresWriter final : public RowWriter {
 public:
  PostgresWriter(std::shared_ptr<PostgresSession> session, std::string_view table,
                 std::span<const std::string> columns);

  void put(std::int64_t value) override;
  void put(double value) override;
  void put(std::string_view value) override;
  void put(Date value) override;
  void endRow() override;
  void finish() override;

 private:
  void beginValue();

  std::shared_ptr<PostgresSession> session_;
  std::string statement_;
  std::size_t columns_;
  std::size_t place_ = 0;
  std::string rows_;
};

}  // namespace tz
