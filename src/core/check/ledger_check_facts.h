// What the checks know of a ledger's small tables while they go over vouchers, balances and plans.
#pragma once

#include <map>
#include <set>
#include <unordered_map>

#include "core/check/ledger_check_rows.h"

namespace tz::check {

struct Dimensions {
  Id dept = 0, person = 0, unit = 0, item = 0;
  std::string projectClass;
};

struct Facts {
  int year = 0;  // 0 when the account set does not tell
  std::string scheme;
  std::unordered_map<Id, CodeInfo> codes;
  std::unordered_set<Id> departments, persons, units, unitClasses;
  std::map<std::string, std::unordered_set<Id>, std::less<>> items;  // by class
  std::unordered_set<int> currencies;
};

// "科目 122101", for texts about a line or balance.
[[nodiscard]] std::string accountText(const Facts& facts, Id account);
// Reports ids that name nothing.
void checkDimensions(const Facts& facts, Report& report, std::string_view table, const std::string& record,
                     const Dimensions& dimensions);
// What the account's flags ask for and the ids do not give, and what they give without being asked; nothing when they
// agree. A person stands with his department, so an account of persons has departments as well.
[[nodiscard]] std::string wrongDimensions(const CodeInfo& code, const Dimensions& dimensions);
// The account exists and is a leaf; answers whether it exists.
bool checkLeaf(const Facts& facts, Report& report, std::string_view table, const std::string& record, Id account);

// These fill the facts, in this order.
void checkAccountSet(Connection& connection, Report& report, Facts& facts);
void checkCurrencies(Connection& connection, Report& report, Facts& facts);
void checkArchives(Connection& connection, Report& report, Facts& facts);
void checkChart(Connection& connection, Report& report, Facts& facts);
void checkProjects(Connection& connection, Report& report, Facts& facts);
void checkProjectCodes(Connection& connection, Report& report, const Facts& facts);
// And these use them.
void checkPlans(Connection& connection, Report& report, const Facts& facts);
void checkOperators(Connection& connection, Report& report);

}  // namespace tz::check
