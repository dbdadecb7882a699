// Takes batches of marks back, the last one first. Taking back is no batch itself: it is written under the name of the
// batch that it takes back.
#include <algorithm>
#include <fmt/format.h>
#include <map>

#include "core/receivables/clearing_marks.h"
#include "core/receivables/mark_history.h"
#include "core/receivables/marks_in_turn.h"

namespace tz {
namespace {

constexpr int automaticMark = 2;

std::vector<MarkChange> unread(const std::vector<MarkHistory::Line>& lines) {
  std::vector<MarkChange> changes;
  changes.reserve(lines.size());
  for (const auto& line : lines) changes.push_back({line.lId, line.lTieId, 0, 0});
  return changes;
}

struct UndoPlan {
  std::vector<MarkChange> changes;
  Undone result;
};

UndoPlan planOf(Connection& connection, const std::vector<MarkHistory::Line>& lines) {
  std::map<std::pair<Id, Id>, int> now;
  for (const auto& one : readMarks(connection, unread(lines))) now[{one.lTieId, one.lId}] = one.mark;
  UndoPlan plan;
  const MarkHistory::Line* there = nullptr;
  for (const auto& line : lines) {
    const auto found = now.find({line.lTieId, line.lId});
    if (found == now.end()) continue;
    there = &line;
    if (line.changedSince || found->second != line.after) {
      ++plan.result.kept;
    } else if (line.before != line.after) {
      // Other programs may have written more than the three marks.
      plan.changes.push_back({line.lId, line.lTieId, line.after, std::min(line.before, automaticMark)});
    }
  }
  plan.result.lines = static_cast<std::int64_t>(plan.changes.size());
  // Where every line stays as it is, one of them tells the log that the batch was taken back.
  if (plan.changes.empty() && there != nullptr) {
    const int mark = now.at({there->lTieId, there->lId});
    plan.changes.push_back({there->lId, there->lTieId, mark, mark});
  }
  return plan;
}

}  // namespace

std::optional<LastBatch> lastBatch(Session& session) {
  const CancelWatch watch(session);
  auto& connection = session.db.Current();
  const MarkHistory history(connection);
  for (const auto* batch : history.open()) {
    if (readMarks(connection, unread(history.linesOf(*batch))).empty()) continue;
    return LastBatch{batch->name, batch->work, batch->who, batch->when, batch->rows};
  }
  return std::nullopt;
}

Question undoQuestion(const LastBatch& batch) {
  // A ledger without operators knows no names.
  const auto whose = batch.who.empty() ? std::string() : fmt::format("{}的", batch.who);
  return {.text = fmt::format("最近一批是{}{}（{}，{} 条分录）。要撤销吗?", whose, workText(batch.work),
                              localTextOf(batch.when), batch.lines),
          .defaultsToNo = true};
}

UndoOutcome undoBatch(Session& session, const LastBatch& batch) {
  if (batch.who != session.who.name && !session.ask(undoQuestion(batch))) return Cancelled{};
  return marksInTurn<UndoOutcome>(session, [&]() -> std::optional<UndoOutcome> {
    auto& connection = session.db.Current();
    const MarkHistory history(connection);
    const auto* found = history.find(batch.name);
    if (found == nullptr) return Refusal{.text = "这一批标记已被别人撤销"};
    const auto plan = planOf(connection, history.linesOf(*found));
    if (plan.changes.empty()) return refusalWith(nothingToUndo);
    if (std::holds_alternative<MarksOvertaken>(markLines(session, plan.changes, undoOf(batch.name)))) {
      return std::nullopt;
    }
    return plan.result;
  });
}

}  // namespace tz
