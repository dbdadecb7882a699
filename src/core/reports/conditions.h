// Conditions after validation: the request with every name resolved to what it stands for. Computations read this.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/data/init_combo_fun.h"
#include "core/reports/request.h"

namespace tz {

// What the clerk and class conditions name: one of their kind, or all that have none ("其它").
struct ClerkChoice {
  std::string name;  // empty: lines and units without a clerk

  [[nodiscard]] std::string shown() const { return name.empty() ? std::string(otherMembers) : name; }
};

// The items of a range by code, class by class.
struct ProjectRange {
  struct Items {
    std::string classId;
    std::vector<Id> ids;
  };
  bool all = true;  // no range was asked for
  std::vector<Items> classes = {};
};

// The accounts of a range by code.
struct AccountRange {
  bool all = true;  // no range was asked for
  std::vector<CodeInfo> accounts = {};
};

struct Conditions {
  Request request;
  std::shared_ptr<CGetData> data;  // lookups as of the same moment
  CodeInfo account;
  std::vector<CodeInfo> accounts;  // where a report covers several: those picked, none for all
  AccountAmounts amounts;          // of the account
  DeptInfo dept;                   // lDeptId 0: all departments, where a report offers that
  PersonInfo person;
  EnterInfo unit;
  EnterClassInfo unitClass;  // lId 0: units without a class
  ClerkChoice clerk;
  ProjClassInfo projectClass;
  ItemInfo project;
  ProjectRange projects;
  AccountRange accountRange;
  Analysis analysis = Analysis::balance;
  int from = 0;
  int to = 0;
  bool unposted = false;
  bool hideDetails = false;                    // the rows under each group are left out
  bool hideZero = false;                       // so are rows of nothing but zeros
  AmountFormat format = AmountFormat::amount;  // to show

  // An account as subtitles show it.
  [[nodiscard]] std::string accountText() const { return account.sCode + " " + account.sName; }
};

}  // namespace tz
