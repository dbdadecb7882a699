// A condition dialog as data: its controls and its checks in their order. validate() serves the dialog's OK button and
// the command line alike.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "reports/conditions.h"
#include "reports/messages.h"
#include "reports/session.h"

namespace tz {

// One condition on the dialog: control 2206 for the account, an edit with a button for a name, and so on.
struct ControlSpec {
  enum class Kind { accountCombo, deptReference, personReference, months, checkBox };

  Kind kind;
  ParameterKey key;  // of months: the first one; the last one follows
  int id;
  int companion = 0;  // the VIEW button of a reference, the second combo of months
  std::string_view caption;
};

// What a check works on: conditions are resolved step by step, each check behind those it needs.
struct CheckContext {
  Session& session;
  const Request& request;
  Conditions& conditions;
};

struct Check {
  bool (*passes)(CheckContext&);
  MessageId message;
  ParameterKey about;  // the condition that the person should look at
};

struct DialogSpec {
  int id;
  std::string_view title;
  std::string_view accountWhere;  // which accounts the combo offers; empty = no account condition
  MessageId noAccount;            // when there are none, or the one asked for is not among them
  std::span<const ControlSpec> controls;
  std::span<const Check> checks;  // behind the account's
};

// The accounts that the dialog offers, as "code name".
[[nodiscard]] ComboList offeredAccounts(const DialogSpec& dialog, const CQnCwDB& db);

// The conditions, or the first refusal in the dialog's order. Throws DbError when the ledger cannot be read.
[[nodiscard]] std::variant<Conditions, Refusal> validate(const DialogSpec& dialog, const Request& request,
                                                         Session& session);

// Checks that dialogs have in common.
namespace checks {
bool deptGiven(CheckContext& context);
bool deptKnown(CheckContext& context);
bool deptActive(CheckContext& context);
bool personGiven(CheckContext& context);
bool personKnown(CheckContext& context);
bool personOfDept(CheckContext& context);
bool personActive(CheckContext& context);
}  // namespace checks

}  // namespace tz
