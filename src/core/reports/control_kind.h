// What a kind of control means, one record per kind: its conditions, what its list offers, which entry of it a request
// means, and how the condition is told once it is resolved. Dialogs, windows, checks, completion and file names all go
// by it; a new kind is one more record, and a field for the dialog.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "core/reports/offers.h"

namespace tz {

struct ControlKind {
  ControlSpec::Kind kind;
  std::span<const ParameterKey> keys = {};  // where it asks for several conditions; else it is the control's own
  ComboList (*offered)(const OfferQuestion&) = nullptr;        // null: it has no list
  bool follows = false;                                        // the offer depends on the conditions before it
  std::optional<Id> (*meant)(const OfferQuestion&) = nullptr;  // the id of the record meant; null: the text alone tells
  std::string (*member)(const Conditions&) = nullptr;          // the member, told behind the control's caption
  std::string (*told)(const ControlSpec&, const Conditions&) = nullptr;  // the whole words, where they are others
  // Gives the member another name, which shows whether a text tells it.
  void (*rename)(Conditions&) = nullptr;
  // Of a condition that says more than its member: the rest, for where the member is told already.
  std::string (*unsaid)(const Conditions&) = nullptr;
  // What it adds to the name of a file. A person's department and a project's class say nothing more.
  std::string (*inFileName)(const DialogSpec&, const Conditions&) = nullptr;
};

[[nodiscard]] const ControlKind& controlKind(ControlSpec::Kind kind);

// What one control of the dialog asks for, "项目范围: X1 至 X9"; empty when it asks for nothing. Months are not among
// them: the period line tells them.
[[nodiscard]] std::string conditionText(const ControlSpec& control, const Conditions& conditions);

}  // namespace tz
