// One connection to a PostgreSQL server: statements out, whole results in, failures as DbError. Every wait asks the
// cancel check and ends when the server has been silent for too long (TZ_SERVER_TIMEOUT in seconds, 300 unless set, 0
// for ever); the connection is given up then. Cursor, writer and connection share one session.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/data/connection.h"
#include "core/data/postgres_client.h"
#include "core/data/value.h"

namespace tz {

class PostgresSession {
 public:
  explicit PostgresSession(const std::string& address);
  PostgresSession(const PostgresSession&) = delete;
  PostgresSession& operator=(const PostgresSession&) = delete;
  ~PostgresSession();

  // One statement; rows come in binary form.
  [[nodiscard]] PostgresResult run(const std::string& text, const std::vector<Value>& values = {});
  // Statements without values or rows: settings, BEGIN, ROLLBACK.
  PostgresResult command(const char* text);
  // The same for one whose outcome must be known: nobody stops waiting for it.
  PostgresResult commit(const char* text);
  // Runs "COPY … FROM STDIN" with rows in COPY's text form.
  void copyIn(const std::string& statement, std::string_view rows);

  void setCancelCheck(bool (*cancelled)(void*), void* context);
  [[nodiscard]] PGTransactionStatusType transactionStatus() const {
    return abandoned_ ? PQTRANS_UNKNOWN : client_.PQtransactionStatus(handle_);
  }
  [[nodiscard]] bool broken() const { return abandoned_ || client_.PQstatus(handle_) != CONNECTION_OK; }
  // Server-side cursors live as long as the transaction with this number, and carry names of their own.
  [[nodiscard]] std::uint64_t transactionNumber() const { return transactionNumber_; }
  [[nodiscard]] bool transactionWrites() const { return transactionWrites_; }
  void countTransaction(bool writing) {
    ++transactionNumber_;
    transactionWrites_ = writing;
  }
  [[nodiscard]] std::string newCursorName() { return "tz" + std::to_string(++cursorNumber_); }

 private:
  using Clock = std::chrono::steady_clock;
  // How a wait ends early: the server is asked to stop the statement, or it is left alone.
  enum class Stop { atServer, byLeaving, never };
  struct Wait {
    Clock::time_point start = Clock::now();
    Clock::time_point heard = start;  // when the server was last heard of
    Clock::time_point stopped;        // when the person wanted to stop
  };

  void connect(const std::string& address);
  [[nodiscard]] std::chrono::seconds connectTime() const;
  PostgresResult collect(int sent, Stop stop);
  void flush(Stop stop);
  void await(Stop stop, Wait& wait);
  void waitABit(SocketUse use, Stop stop, Wait& wait);
  [[nodiscard]] bool cancelWanted();
  [[nodiscard]] bool stopWanted(const Wait& wait);
  void sendCancel();
  [[noreturn]] void abandon(DbError::Kind kind, const std::string& message);
  [[noreturn]] void fail(const PGresult* result) const;

  const PostgresClient& client_;
  PGconn* handle_ = nullptr;
  bool (*cancelled_)(void*) = nullptr;
  void* context_ = nullptr;
  Clock::time_point lastCheck_;
  std::chrono::seconds answerTime_;
  bool abandoned_ = false;
  std::uint64_t transactionNumber_ = 0;
  bool transactionWrites_ = false;
  std::uint64_t cursorNumber_ = 0;
};

}  // namespace tz
