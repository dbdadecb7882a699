// One connection to a PostgreSQL server: statements out, whole results in, failures as DbError. Every wait polls the
// cancel check. Cursor, writer and connection share one session.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/postgres_client.h"
#include "data/value.h"

namespace tz {

class PostgresSession {
 public:
  explicit PostgresSession(const std::string& address);
  PostgresSession(const PostgresSession&) = delete;
  PostgresSession& operator=(const PostgresSession&) = delete;
  ~PostgresSession();

  // One statement; rows come in binary form.
  [[nodiscard]] PostgresResult run(const std::string& text, const std::vector<Value>& values = {});
  // Statements without values or rows that nothing stops half way: settings, BEGIN, COMMIT, ROLLBACK.
  PostgresResult command(const char* text);
  // Runs "COPY … FROM STDIN" with rows in COPY's text form.
  void copyIn(const std::string& statement, std::string_view rows);

  void setCancelCheck(bool (*cancelled)(void*), void* context);
  [[nodiscard]] PGTransactionStatusType transactionStatus() const { return client_.PQtransactionStatus(handle_); }
  [[nodiscard]] bool broken() const { return client_.PQstatus(handle_) != CONNECTION_OK; }
  // Server-side cursors live as long as the transaction with this number, and carry names of their own.
  [[nodiscard]] std::uint64_t transactionNumber() const { return transactionNumber_; }
  void countTransaction() { ++transactionNumber_; }
  [[nodiscard]] std::string newCursorName() { return "tz" + std::to_string(++cursorNumber_); }

 private:
  enum class Stop { allowed, never };

  void connect(const std::string& address);
  PostgresResult collect(int sent, Stop stop);
  void await(Stop stop);
  [[nodiscard]] bool cancelWanted();
  void sendCancel();
  [[noreturn]] void fail(const PGresult* result) const;

  const PostgresClient& client_;
  PGconn* handle_ = nullptr;
  bool (*cancelled_)(void*) = nullptr;
  void* context_ = nullptr;
  std::chrono::steady_clock::time_point lastCheck_;
  std::uint64_t transactionNumber_ = 0;
  std::uint64_t cursorNumber_ = 0;
};

}  // namespace tz
