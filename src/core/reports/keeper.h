// The keeper of a ledger that windows read: the one connection through which archives and operators are changed. It
// lives as long as one directory is open; the windows go on reading through their own, which may not.
//
// Each change is one writing transaction in which nobody else changes the tables that are kept.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/data/new_ids.h"
#include "core/data/qncw_db.h"
#include "core/reports/messages.h"

namespace tz {

// Why nothing may be written: for the person, and in the database's own words.
struct KeepingObstacle {
  std::string text;
  std::string words = {};
};

class LedgerKeeper {
 public:
  // Opens the ledger at a path or server address to change these tables of the contract. Throws nothing of the
  // database: who may not write has an obstacle.
  LedgerKeeper(std::string address, std::vector<std::string_view> tables);

  [[nodiscard]] const std::optional<KeepingObstacle>& obstacle() const { return obstacle_; }
  // To be asked only where there is no obstacle.
  [[nodiscard]] const CQnCwDB& db() const { return db_; }
  [[nodiscard]] Connection& connection() const { return db_.Current(); }

  // Runs `work` in one transaction and keeps what it wrote, unless it answers with a refusal. New ids may be taken;
  // then `work` can run more than once. Throws DbError, and then nothing was written.
  template <class Work>
  std::optional<Refusal> change(const Work& work) {
    requireConnection();
    return withNewIds([&]() -> std::optional<Refusal> {
      Transaction transaction(connection(), Transaction::Purpose::writing);
      holdTables();
      if (std::optional<Refusal> refusal = work()) return refusal;
      transaction.commit();
      return std::nullopt;
    });
  }

 private:
  void open();
  void requireConnection();
  void holdTables();

  std::string address_;
  std::vector<std::string_view> tables_;
  CQnCwDB db_{Access::keeper};
  std::optional<KeepingObstacle> obstacle_;
};

}  // namespace tz
