// One open ledger database: statements in, typed rows out. Two backends stand behind it; nothing above src/data knows
// which. A failed statement throws DbError: a failure never looks like an empty result.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/data/address.h"
#include "core/data/dialect.h"
#include "core/data/value.h"

namespace tz {

class DbError : public std::runtime_error {
 public:
  enum class Kind {
    notFound,     // no such file or database
    unreachable,  // the server does not answer
    badLogon,     // the server does not take the user or the password
    notALedger,   // it is there, but it holds no ledger
    incomplete,   // a ledger without a table or column that is needed
    newer,        // made by a newer version of the program or of the database
    damaged,      // the file's contents are broken
    foreignLog,   // a log or journal beside the file is not this ledger's
    locked,       // somebody else holds it
    collided,     // undone by the database because of somebody else's transaction; it may begin anew
    changed,      // somebody wrote to it while it was read without a lock
    unreadable,   // the file's or folder's rights forbid to read it
    denied,       // the database refuses the statement
    full,         // no room on the disk
    disk,         // the disk failed
    lost,         // the connection broke
    silent,       // the server has stopped answering
    undecided,    // either of them while a transaction was being committed: nobody knows whether it is written
    duplicate,    // a unique rule would be broken
    otherType,    // a column of a type that cannot be read as what the ledger asks for
    shadowed,     // tables of one name in several schemas: it is open which ones are the ledger
    other,
  };

  DbError(Kind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}
  [[nodiscard]] Kind kind() const { return kind_; }

 private:
  Kind kind_;
};

// What a connection may do. The database itself enforces it.
enum class Access {
  read,    // nothing is written, not even an index
  report,  // marks, plan figures, intervals and the mark log
  keeper,  // everything: creating, importing, archives
};

enum class CellKind { null, integer, real, text, date, other };

// The rows of one SELECT, read forward once. Columns count from 0. A text view lives until the next call of next(). A
// cell that is no number or date where one is asked for throws DbError; NULL is 0, an empty text or no date.
class Cursor {
 public:
  Cursor() = default;
  Cursor(const Cursor&) = delete;
  Cursor& operator=(const Cursor&) = delete;
  virtual ~Cursor() = default;

  virtual bool next() = 0;
  [[nodiscard]] virtual int columns() const = 0;
  [[nodiscard]] virtual std::string columnName(int column) const = 0;
  // What the cell holds; to be asked before its value.
  [[nodiscard]] virtual CellKind kind(int column) const = 0;
  [[nodiscard]] virtual std::int64_t integer(int column) const = 0;
  [[nodiscard]] virtual double real(int column) const = 0;
  [[nodiscard]] virtual std::string_view text(int column) const = 0;
  [[nodiscard]] virtual Date date(int column) const = 0;
  // The value as text whatever its type; figures in the shortest form that reads back exactly.
  [[nodiscard]] virtual std::string anyText(int column) const = 0;
};

// Many rows into one table, in the order of the columns named when it was made. finish() makes sure that they arrived;
// a writer that is destroyed without it may have written any part, so it belongs inside a transaction.
class RowWriter {
 public:
  RowWriter() = default;
  RowWriter(const RowWriter&) = delete;
  RowWriter& operator=(const RowWriter&) = delete;
  virtual ~RowWriter() = default;

  virtual void put(std::int64_t value) = 0;
  virtual void put(double value) = 0;
  virtual void put(std::string_view value) = 0;
  virtual void put(Date value) = 0;
  virtual void endRow() = 0;
  virtual void finish() = 0;
};

class Connection {
 public:
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  virtual ~Connection() = default;

  [[nodiscard]] virtual std::unique_ptr<Cursor> query(const Sql& sql) = 0;
  // The same for whoever keeps every row anyway: a server sends them all at once instead of block by block, which saves
  // the trips of opening and closing.
  [[nodiscard]] virtual std::unique_ptr<Cursor> queryWhole(const Sql& sql) { return query(sql); }
  // Runs a statement without rows; returns how many rows it changed.
  virtual std::int64_t execute(const Sql& sql) = 0;
  [[nodiscard]] virtual std::unique_ptr<RowWriter> insertInto(std::string_view table,
                                                              std::span<const std::string> columns) = 0;

  // The first of `count` ids in a row for new records of a table, to be asked for inside the writing transaction that
  // uses them; no two operators get the same. Ids stay below 2^53, which spreadsheets and JSON hold exactly. See
  // new_ids.h for the one case in which the transaction has to begin anew.
  [[nodiscard]] virtual std::int64_t newIds(std::string_view table, std::int64_t count) = 0;

  [[nodiscard]] virtual const Dialect& dialect() const = 0;
  [[nodiscard]] virtual bool alive() = 0;
  // Called now and then during a long statement; answering true stops it with DbError.
  virtual void setCancelCheck(bool (*cancelled)(void*), void* context) = 0;

 protected:
  friend class Transaction;
  virtual void begin(bool writing) = 0;
  virtual void commit() = 0;
  virtual void rollback() noexcept = 0;
};

// One transaction from construction to commit(); destroyed without it, everything inside is undone. A reading one sees
// the ledger as it stood when it began.
class Transaction {
 public:
  enum class Purpose { reading, writing };
  Transaction(Connection& connection, Purpose purpose);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();
  void commit();

 private:
  Connection* connection_;
};

// Asked now and then while a server is waited for and the connection has no cancel check of its own, opening among it:
// true gives the waiting up. Empty: nobody is asked. `waited` grows from the start of each wait.
using ServerWaitCheck = std::function<bool(std::chrono::milliseconds waited)>;
[[nodiscard]] ServerWaitCheck& serverWaitCheck();

// Opens the ledger at a file path or a "postgresql://" address. Throws DbError when there is none, when it is no
// ledger, when its version is newer than this program's or when the access cannot be had.
//
// Columns of another type than the ledger's own (codes as numbers, numbers as texts, other collations) are read as if
// they had it, through views of this connection alone; the keeper works on the tables themselves.
[[nodiscard]] std::unique_ptr<Connection> openLedger(const std::string& address, Access access);
// For the check: read alone, every column as it is stored.
[[nodiscard]] std::unique_ptr<Connection> openAsStored(const std::string& address);
// A connection to a place that holds no ledger yet: a file that does not exist, or a database without ledger tables.
// The file lasts only when createLedger() makes it.
[[nodiscard]] std::unique_ptr<Connection> openEmpty(const std::string& address);

}  // namespace tz
