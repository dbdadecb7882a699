// What tells the detail ledgers apart, a record for each, for the naive computation.
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

enum class Entity { account, dept, person, unit, project };

// Within a block; the line's id always decides at last.
enum class Order { entryDate, voucher, entryDateAndVoucher };

struct Group {
  Entity entity;
  const char* subtotal;
};

struct Orders {
  Order posted = Order::entryDate, unposted = Order::entryDate;
};

struct Wording {
  const char* title;
  const char* subtitle;  // with {account}, {dept}, {person}, {unit}, {unit class}, {clerk}, {project} in it
  const char* opening;   // the opening row's caption
};

struct AccountRule {
  Accounts which;
  const char* flags;           // that an account must have to be offered; "B alone": just that one
  const char* noAccount = "";  // the message for none
};

// A name that the dialog asks for, with the messages for none, an unknown one and one without any records.
struct Name {
  const char* missing = nullptr;  // null: none given is looked up like any other
  const char* unknown = nullptr;  // null: the dialog does not ask for it
  const char* idle = nullptr;     // null: not looked at
};

struct Report {
  int id = 0;
  Wording wording;
  AccountRule accounts;
  Name dept = {}, unit = {};
  bool person = false;            // the person of the department is asked for
  const char* noClass = nullptr;  // project reports: refused when no class is defined
  bool classOfAccount = false;    // the class is one of the account's
  bool project = false;           // an item of the class is asked for
  std::string_view chosen = "";   // dimensions of its lines: those named in the question, d p u i; D: all, when none is
  std::string_view some = "";     // dimensions that its lines must have, whichever they are
  std::vector<Group> groups = {};  // outer first
  bool onlyRealOpenings = false;   // balances without an opening amount are passed over, their quantity as well
  bool columns = false;            // a column per sub-account
  Orders order = {};
};

// Null for another report.
[[nodiscard]] const Report* findNaive(int id);
[[nodiscard]] const std::vector<Report>& allNaive();

}  // namespace tz::test::naive
