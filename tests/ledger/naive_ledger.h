// A second computation of the person three-column detail ledger, as slow and plain as can be: the ledger is a few
// vectors, every step is a loop over all of them. It knows nothing of the program's engine, formats or dialogs, so the
// two can only agree when both follow the same rules.
//
// Figures are doubles as the ledger holds them; nothing is rounded. A balance is positive on the debit side.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "data/records.h"

namespace tz::test::naive {

struct Ledger {
  std::vector<CodeInfo> accounts;
  std::vector<CyrencyInfo> currencies;
  std::vector<DeptInfo> depts;
  std::vector<PersonInfo> persons;
  std::vector<AssAccInfo> balances;
  std::vector<RegMainInfo> postedHeads;
  std::vector<RegSubInfo> postedLines;
  std::vector<UnregMainInfo> unpostedHeads;
  std::vector<UnregSubInfo> unpostedLines;
};

struct Question {
  std::string account, dept, person;
  int from = 1, to = 12;
  bool unposted = false;
  std::string format;  // empty: the account's richest
};

using Cell = std::variant<std::monostate, std::string, double>;

struct Row {
  std::vector<Cell> cells;
  bool green = false;
  int data = 0;
};

struct Answer {
  std::string refusal;  // nothing else is filled when there is one
  bool formatNotOffered = false;
  std::string subtitle, unit, format;
  std::vector<Row> rows;
  std::vector<std::string> notices;
};

[[nodiscard]] Answer threeColumnLedger(const Ledger& ledger, const Question& question);

}  // namespace tz::test::naive
