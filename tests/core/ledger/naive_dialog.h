// What a question names, looked up in the ledger by the rules of the report's dialog, for the naive computation.
#pragma once

#include "core/ledger/naive_ledger.h"
#include "core/ledger/naive_reports.h"

namespace tz::test::naive {

struct Chosen {
  std::optional<ParameterKey> refused;
  std::vector<CodeInfo> accounts;  // none: all
  DeptInfo dept;                   // lDeptId 0: all departments
  PersonInfo person;
  EnterInfo unit;
  EnterClassInfo unitClass;  // lId 0: units without one
  std::string clerk;         // empty: lines without one
  std::string classId;       // of the project area
  Item project;
  // Items by code, both ends included; an empty end is open. In use when one of them is given.
  std::string projectFrom, projectTo;
};

// Whether the dialog has the account on its list.
[[nodiscard]] bool offers(const Report& report, const CodeInfo& account);
[[nodiscard]] Chosen choose(const Ledger& ledger, const Report& report, const Question& question);

}  // namespace tz::test::naive
