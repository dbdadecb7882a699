// Proves that a ledger keeps the rules which every report relies on: types and ranges, unique keys, references, the
// account tree, vouchers that balance, and auxiliary balances that follow from the posted lines. Sums are compared in
// whole millionths, or as closely as a double holds them. Each table is read once; only vouchers' heads and the
// balances are kept in memory.
#pragma once

#include <functional>
#include <string>

#include "core/data/connection.h"

namespace tz {

struct Violation {
  std::string table;
  std::string record;  // "lId=5"; empty when the table as a whole is meant
  std::string problem;
  bool hint = false;  // against no rule, but worth knowing by whoever reads the figures

  [[nodiscard]] std::string text() const {
    return (hint ? "提示：" : "") + table + (record.empty() ? "" : " " + record) + "：" + problem;
  }
};

// The connection is the keeper's or one from openAsStored(). Calls `found` for every violation and hint, table by
// table. Odd contents never throw; DbError only when the database fails, first of all when its file is broken: every
// page of it is looked at. Belongs inside a reading transaction.
void checkLedger(Connection& connection, const std::function<void(const Violation&)>& found);

}  // namespace tz
