// Two-clearing by hand: one line toggled, all marks of a kind reversed, the last batch of marks taken back; each is one
// transaction with its rows in the mark log. A mark changes only where it still holds what was read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "core/reports/marking.h"
#include "core/reports/messages.h"
#include "core/reports/report_definition.h"

namespace tz {

// "√" of a line cleared by hand, "○" of one cleared automatically, nothing of an open one.
[[nodiscard]] std::string_view markSign(int mark);

// The right that a kind's marks need, and its name.
struct ClearingRight {
  int right;
  std::string_view name;
};
[[nodiscard]] ClearingRight rightOf(ClearingKind kind);

// A posted line of a person or a unit.
struct ClearedLine {
  Id line = 0, voucher = 0;
  bool ofPerson = false, ofUnit = false;  // and its account keeps them
  int mark = 0;

  [[nodiscard]] bool isOf(ClearingKind kind) const { return kind == ClearingKind::person ? ofPerson : ofUnit; }
};
// By its lId, and its lTieId where that is known: the shorter way to it. A refusal where there is none, or several.
[[nodiscard]] std::variant<ClearedLine, Refusal> findClearedLine(Session& session, Id line, Id voucher = 0);

// The mark that a line has now.
struct Toggled {
  int mark = 0;
};
// Another operator was there since the mark that the person sees: nothing is written.
struct ToggleOvertaken {
  int mark = 0;      // what it is now
  std::string text;  // says so, and who it was
};
using ToggleOutcome = std::variant<Toggled, ToggleOvertaken, Refusal>;

// An open line becomes cleared by hand, a cleared one open, however it was cleared. `seen` is the mark that the person
// looks at; without one, whatever it is now is toggled. Throws DbError, after which nothing is written.
[[nodiscard]] ToggleOutcome toggleMark(Session& session, ClearingKind kind, Id line, Id voucher = 0,
                                       std::optional<int> seen = {});

// How many lines changed; Cancelled where the person said no, or stopped it.
using ReverseOutcome = std::variant<std::int64_t, Cancelled>;
[[nodiscard]] Question reverseQuestion(ClearingKind kind);
// Asks, then opens every cleared line of every person, or of every unit, on every account. Throws DbError.
[[nodiscard]] ReverseOutcome reverseClearing(Session& session, ClearingKind kind);

// The last batch of marks that was not taken back and has lines that are still there.
struct LastBatch {
  std::string name;
  MarkWork work;
  std::string who;
  std::string when;  // UTC
  std::int64_t lines = 0;
};
[[nodiscard]] std::optional<LastBatch> lastBatch(Session& session);
// Asked where the batch is another operator's.
[[nodiscard]] Question undoQuestion(const LastBatch& batch);

struct Undone {
  std::int64_t lines = 0;  // that have the mark of before again
  std::int64_t kept = 0;   // that were changed since and stay as they are
};
using UndoOutcome = std::variant<Undone, Refusal, Cancelled>;
// Takes the batch back, in one transaction. What somebody changed later stays. Refused where another operator has taken
// it back meanwhile. Throws DbError.
[[nodiscard]] UndoOutcome undoBatch(Session& session, const LastBatch& batch);

inline constexpr Message nothingToUndo{"没有可以撤销的两清标记"};

}  // namespace tz
