// The PostgreSQL backend: one database of a server holds one ledger.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <random>

#include "core/data/backends.h"
#include "core/data/postgres_cursor.h"
#include "core/data/postgres_dialect.h"
#include "core/data/postgres_session.h"
#include "core/data/postgres_writer.h"

namespace tz {
namespace {

// Without a look at the table and without a lock, which a ledger that is spread over several servers would have on one
// of them only: the seconds since 2020 and 22 bits of chance. Two operators would have to begin in one second and side
// by side among four million places; the table's key then refuses one of them. Those of one process grow, and so do
// those of whoever sees what others have written: `last` is the greatest id that stands there.
std::int64_t idsOfTheMoment(std::int64_t count, std::int64_t last) {
  static std::mutex lock;
  static std::int64_t next = 0;
  static std::mt19937_64 chance{std::random_device{}()};
  constexpr auto begin = std::chrono::sys_days{std::chrono::year{2020} / 1 / 1};
  constexpr int chanceBits = 22;
  constexpr std::int64_t gap = 1024;
  const auto seconds = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now() - begin).count();
  const std::lock_guard hold(lock);
  const auto place = static_cast<std::int64_t>(chance() & ((std::uint64_t{1} << chanceBits) - 1));
  const auto first =
      std::max({(std::max<std::int64_t>(seconds, 1) << chanceBits) + place, next, last + 1 + place % gap});
  next = first + count;
  return first;
}

class PostgresConnection final : public Connection {
 public:
  explicit PostgresConnection(const std::string& address) : session_(std::make_shared<PostgresSession>(address)) {}

  std::unique_ptr<Cursor> query(const Sql& sql) override {
    requireTaken(sql);
    return std::make_unique<PostgresCursor>(session_, sql, PostgresCursor::Rows::block);
  }
  std::unique_ptr<Cursor> queryWhole(const Sql& sql) override {
    requireTaken(sql);
    return std::make_unique<PostgresCursor>(session_, sql, PostgresCursor::Rows::all);
  }
  std::int64_t execute(const Sql& sql) override {
    requireTaken(sql);
    const auto result = session_->run(sql.numbered(), sql.values());
    return std::strtoll(postgresClient().PQcmdTuples(result.get()), nullptr, 10);
  }
  std::unique_ptr<RowWriter> insertInto(std::string_view table, std::span<const std::string> columns) override {
    return std::make_unique<PostgresWriter>(session_, table, columns);
  }
  std::int64_t newIds(std::string_view table, std::int64_t count) override {
    const auto last = query(Sql("SELECT coalesce(max(lId), 0) FROM " + std::string(table)));
    last->next();
    return idsOfTheMoment(count, last->integer(0));
  }
  const Dialect& dialect() const override {
    static const PostgresDialect dialect;
    return dialect;
  }
  bool alive() override {
    try {
      session_->command("");  // answered even inside a failed transaction
    } catch (const DbError&) {
      return !session_->broken();
    }
    return true;
  }
  void setCancelCheck(bool (*cancelled)(void*), void* context) override {
    session_->setCancelCheck(cancelled, context);
  }
  void command(const char* text) { session_->command(text); }
  void takeDataStatementsOnly() { dataOnly_ = true; }

 protected:
  void begin(bool writing) override {
    // Whatever a server or a role takes by default: what is written looks at what is there now, again and again.
    session_->command(writing ? "BEGIN ISOLATION LEVEL READ COMMITTED"
                              : "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
    session_->countTransaction(writing);
  }
  void commit() override {
    const auto result = commitOrDoubt();
    // A transaction in which a statement failed answers COMMIT by undoing everything.
    if (std::string_view(postgresClient().PQcmdStatus(result.get())) == "ROLLBACK") {
      throw DbError(DbError::Kind::other, "nothing was written, because a statement before had failed");
    }
  }
  void rollback() noexcept override {
    if (session_->broken() || session_->transactionStatus() == PQTRANS_IDLE) return;
    try {
      session_->command("ROLLBACK");
    } catch (const DbError&) {
      // A broken connection undoes everything at the server as well.
    }
  }

 private:
  PostgresResult commitOrDoubt() {
    const bool sound = !session_->broken();
    try {
      return session_->commit("COMMIT");
    } catch (const DbError& error) {
      const bool noAnswer = error.kind() == DbError::Kind::lost || error.kind() == DbError::Kind::silent;
      if (sound && noAnswer) throw DbError(DbError::Kind::undecided, error.what());
      throw;
    }
  }

  // By the first word: the protocol takes one statement at a time, and values never stand in its text.
  void requireTaken(const Sql& sql) const {
    static constexpr std::array taken = {"SELECT", "WITH", "INSERT", "UPDATE", "DELETE", "EXPLAIN"};
    if (!dataOnly_) return;
    const auto text = sql.numbered();
    const auto begins = [&](std::string_view word) {
      return text.starts_with(word) && text.find_first_of(" \n(", word.size()) == word.size();
    };
    if (std::ranges::any_of(taken, begins)) return;
    throw DbError(DbError::Kind::denied, "this connection takes statements on rows only");
  }

  std::shared_ptr<PostgresSession> session_;
  bool dataOnly_ = false;
};

}  // namespace

std::unique_ptr<Connection> openPostgres(const std::string& address, Access access) {
  auto connection = std::make_unique<PostgresConnection>(address);
  // Every row of a cursor is read, so plans are made for the whole; who waits for a lock hears of it.
  // Every order that a report asks for has its index; for a member of few lines the server would sort all the same.
  // A sort that is left counts as so dear that the server would compile the plan, which takes longer than most reports.
  std::string settings =
      "SET client_min_messages = warning; SET cursor_tuple_fraction = 1; SET enable_sort = off; SET jit = off; SET "
      "enable_incremental_sort = off; SET lock_timeout = '5s'";
  if (access == Access::read) settings += "; SET default_transaction_read_only = on";
  connection->command(settings.c_str());
  return connection;
}

void takeDataStatementsOnly(Connection& connection) {
  dynamic_cast<PostgresConnection&>(connection).takeDataStatementsOnly();
}

}  // namespace tz
