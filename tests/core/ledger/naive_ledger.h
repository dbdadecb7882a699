// A ledger as a few vectors, a question about it, and the answer of a second computation of every report of accounts,
// as slow and plain as can be: every step is a loop over all records. It knows nothing of the program's engine, formats
// or dialogs, so the two can only agree when both follow the same rules. It computes figures, order and names; what
// rows, titles and messages say in fixed words stands in golden files and in the table of refusals.
//
// Figures are doubles as the ledger holds them; nothing is rounded. A balance is positive on the debit side.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "core/data/records.h"
#include "core/grid/tz_grid.h"
#include "core/reports/parameter.h"

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
  std::string accountFrom, accountTo;
  int from = 1, to = 12;
  bool unposted = false, amountAnalysis = false, limits = false, turned = false;
  bool hideDetails = false, hideZeros = false;
  double least = 0, most = 0;  // of closing balances
  std::string side;            // "debit" or "credit": of closing balances alone
  std::string format;          // empty: the account's richest
};

struct Row {
  RowKind kind = RowKind::line;
  // Texts, numbers and null; where a row has a caption, that cell is "caption".
  std::vector<nlohmann::json> cells;
  bool unposted = false;
  std::size_t captionAt = 2;

  [[nodiscard]] bool hasCaption() const { return cells.at(captionAt) == "caption"; }
};

struct Answer {
  // The condition that is refused: nothing else is filled then, or when the question is wrong use.
  std::optional<ParameterKey> refused;
  bool wrongUse = false;
  std::string unit, format;
  std::vector<Row> rows;
  std::vector<int> notices;  // the number that each tells; 0 for none
};

[[nodiscard]] Answer answerTo(const Ledger& ledger, const Question& question);

}  // namespace tz::test::naive
