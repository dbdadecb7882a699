// What the list of a condition offers, read by the condition dialog, the combos of a report's window, the checks and
// the completion of the command line alike. Every entry carries the id of its record: a member picked from a list
// travels as that id, together with the text that it went by.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/reports/dialog_spec.h"

namespace tz {

// A list as it is asked for: of which control, and which conditions stand already. All must outlive it.
struct OfferQuestion {
  const DialogSpec& dialog;
  const ControlSpec& control;
  ParameterKey key;
  const Request& soFar;
  const CQnCwDB& db;
  CGetData& data;
};

// Accounts and project classes as "code name", members of archives by name, and by code and name where several bear one
// name. Nothing for a condition that the dialog has no list of. Throws DbError.
[[nodiscard]] ComboList offered(const DialogSpec& dialog, ParameterKey key, const Request& soFar, const CQnCwDB& db);
[[nodiscard]] ComboList offered(const OfferQuestion& question);

// Whether what the control offers depends on the conditions before it.
[[nodiscard]] bool offerFollows(const ControlSpec& control);

// The place in an offer of what the conditions name; -1 for none.
[[nodiscard]] int placeIn(const ComboList& offer, const DialogSpec& dialog, ParameterKey key, const Request& soFar,
                          const CQnCwDB& db);
[[nodiscard]] int placeIn(const ComboList& offer, const OfferQuestion& question);

// An entry as a request carries it: conditions that are asked for by code keep the code of a text alone.
[[nodiscard]] std::string valueOf(ParameterKey key, const std::string& entry);
[[nodiscard]] MemberChoice choiceOf(ParameterKey key, const ComboEntry& entry);

// The control of a dialog that asks for a condition; null when there is none.
[[nodiscard]] const ControlSpec* controlOf(const DialogSpec& dialog, ParameterKey key);

// Lets conditions that belong to the account follow another one: a clerk or a project class that it does not have
// becomes the first one that it has, and the range of projects of that class opens to all.
void followAccount(const DialogSpec& dialog, Request& request, const CQnCwDB& db);

// The accounts that a dialog asks for.
[[nodiscard]] std::vector<CodeInfo> accountsOf(const DialogSpec& dialog, const CQnCwDB& db);
// The classes that the account carries, else those of the accounts below it.
[[nodiscard]] std::vector<ProjClassInfo> classesOfAccount(const CQnCwDB& db, CGetData& data, const CodeInfo& account);

// One function per list, and which of its records the conditions mean.
namespace offers {
ComboList accounts(const OfferQuestion& question);
ComboList accountRange(const OfferQuestion& question);
ComboList depts(const OfferQuestion& question);    // "全部" first where the control offers that
ComboList persons(const OfferQuestion& question);  // of the department, where one is named
ComboList units(const OfferQuestion& question);
ComboList unitClasses(const OfferQuestion& question);       // "其它" last, without an id
ComboList clerks(const OfferQuestion& question);            // on lines of the account; "其它" last, without an id
ComboList classesOfAccount(const OfferQuestion& question);  // all where no account is asked for
ComboList projects(const OfferQuestion& question);          // all classes, or the items of the class, by the key
ComboList projectRange(const OfferQuestion& question);      // the items of the class, of the account's first, or all

std::optional<Id> deptMeant(const OfferQuestion& question);
std::optional<Id> personMeant(const OfferQuestion& question);
std::optional<Id> unitMeant(const OfferQuestion& question);
std::optional<Id> unitClassMeant(const OfferQuestion& question);
}  // namespace offers

}  // namespace tz
