// A ledger as a few vectors, a question about it, and the answer of a second computation of every detail ledger, as
// slow and plain as can be: every step is a loop over all records. It knows nothing of the program's engine, formats or
// dialogs, so the two can only agree when both follow the same rules.
//
// Figures are doubles as the ledger holds them; nothing is rounded. A balance is positive on the debit side.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "core/data/records.h"

namespace tz::test::naive {

// An item of a project class.
struct Item {
  std::string classId;
  Id id = 0;
  std::string code, name;
};

struct Ledger {
  std::vector<CodeInfo> accounts;
  std::vector<CyrencyInfo> currencies;
  std::vector<DeptInfo> depts;
  std::vector<PersonInfo> persons;
  std::vector<EnterClassInfo> unitClasses;
  std::vector<EnterInfo> units;
  std::vector<ProjClassInfo> classes;
  std::vector<ProjCodesInfo> classesOfAccounts;
  std::vector<Item> items;
  std::vector<AssAccInfo> balances;
  std::vector<RegMainInfo> postedHeads;
  std::vector<RegSubInfo> postedLines;
  std::vector<UnregMainInfo> unpostedHeads;
  std::vector<UnregSubInfo> unpostedLines;
};

// What a report does not ask for stays empty.
struct Question {
  int report = 0;
  std::vector<std::string> accounts;  // several where the report takes a list
  std::string dept, person, unit, unitClass, clerk, projectClass, project, projectFrom, projectTo;
  int from = 1, to = 12;
  bool unposted = false, amountAnalysis = false;
  std::string format;  // empty: the account's richest
};

struct Row {
  std::vector<nlohmann::json> cells;  // texts, numbers and null
  bool unposted = false;
};

struct Answer {
  std::string refusal;  // nothing else is filled when there is one, or when the question is wrong use
  bool wrongUse = false;
  std::string title, subtitle, unit, format;
  std::vector<Row> rows;
  std::vector<std::string> notices;
};

[[nodiscard]] Answer detailLedger(const Ledger& ledger, const Question& question);

}  // namespace tz::test::naive
