// What tells the reports of accounts apart, a record for each, for the naive computation: which lines, in which order
// and blocks. No words: those stand in golden files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tz::test::naive {

enum class Accounts {
  none,    // the report asks for no account
  any,     // one of the flag
  leaf,    // a posting account of the flag
  parent,  // one of the flag that is no posting account
  list,    // any number of them; none: all
};

enum class Entity { account, dept, person, unit, project, unitClass, clerk };

// Within a block; the line's id always decides at last.
enum class Order { entryDate, voucher, entryDateAndVoucher };

struct Orders {
  Order posted = Order::entryDate, unposted = Order::entryDate;
};

struct AccountRule {
  Accounts which;
  const char* flags;  // that an account must have to be offered; "= D CD": its flags are written as one of these
};

// What the dialog asks of a department.
enum class Dept {
  notAsked,
  given,          // one that exists
  active,         // and has records
  personsActive,  // and has records that name a person
  orAll,          // none stands for all
  ofList,         // none stands for the first
};

enum class Family {
  detail,   // lines with a running balance
  balance,  // a row per member
  periods,  // a row per month
};

// Of balance tables: what a row's opening is.
enum class OpeningOf { firstRecord, latestRecord, lines };

struct Report {
  int id = 0;
  int right = 0;
  AccountRule accounts;
  Dept dept = Dept::notAsked;
  bool person = false;           // the person of the department is asked for
  bool unit = false;             // a unit is asked for
  bool unitOrAll = false;        // a unit may be asked for
  bool unitClass = false;        // its units are those of a class
  bool clerk = false;            // its units and lines are those of a clerk
  bool classesNeeded = false;    // refused where no project class is defined
  bool classOfAccount = false;   // the class is one of the account's
  bool classListed = false;      // the class is one of all, none stands for the first
  bool project = false;          // an item of the class is asked for
  bool classNamed = false;       // and the class as well
  std::string_view chosen = "";  // dimensions of its lines: those named in the question, d p u i; D, U: all, when none
                                 // is; I: the items of the class
  std::string_view some = "";    // dimensions that its lines must have, whichever they are
  std::vector<Entity> groups = {};  // outer first
  bool onlyRealOpenings = false;    // balances without an opening amount are passed over, their quantity as well
  bool onlyMetAccounts = false;     // only accounts that have lines up to the last month
  bool fromYearsStart = false;      // its opening is the year's, with the lines before the first month
  bool columns = false;             // a column per sub-account
  Orders order = {};
  Family family = Family::detail;
  bool personActive = true;  // the person must have records
  // Of balance tables: the columns before the figures, each a group and what is told of it: c code, n name.
  std::string_view keys = "";
  OpeningOf opening = OpeningOf::firstRecord;
  bool byCode = false;           // its accounts stand by their codes
  bool earlierUnposted = false;  // unposted lines before the range move the opening
  bool turns = false;            // its groups can be asked for the other way round
  bool unitClassesNeeded = false;
  bool groupsClose = false;                       // groups outside the innermost one end in a row
  bool accountRange = false;                      // its accounts can be those of a range
  bool deptAlone = false;                         // with one department asked for it has no groups but the inner ones
  bool headed = false;                            // groups open with a row of their own figures
  bool hidesDetails = false, hidesZeros = false;  // can be asked to
  bool yearTotals = false;                        // of periods
  bool months = true;                             // asked for; otherwise the whole year
  bool amounts = false;                           // a range of amounts and a side are asked for
  bool limits = false;                            // credit limits can be shown
};

// Null for a report about which nothing is known here: its golden file is all that tests its figures.
[[nodiscard]] const Report* findNaive(int id);
[[nodiscard]] const std::vector<Report>& allNaive();

}  // namespace tz::test::naive
