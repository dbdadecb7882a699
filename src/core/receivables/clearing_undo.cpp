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

constexpr int largestMark = 2;

struct UndoPlan {
  MarkBatch batch;
  std::vector<MarkChange> changes;
  Undone result;
};

// Lines that stay as they are have a row in the log as well: it tells that the batch was taken back for them.
UndoPlan planOf(Connection& connection, MarkBatch batch) {
  std::vector<MarkChange> lines;
  lines.reserve(batch.lines.size());
  for (const auto& line : batch.lines) lines.push_back({line.lId, line.lTieId});
  std::map<std::pair<Id, Id>, int> now;
  for (const auto& one : readMarks(connection, lines)) now[{one.lTieId, one.lId}] = one.mark;
  UndoPlan plan{.batch = std::move(batch), .changes = {}, .result = {}};
  for (const auto& line : plan.batch.lines) {
    const auto found = now.find({line.lTieId, line.lId});
    if (found == now.end()) continue;
    const int mark = found->second;
    const bool stays = line.changedSince || mark != line.after;
    const int wanted = stays ? mark : std::min(line.before, largestMark);
    if (stays) ++plan.result.kept;
    if (wanted != mark) ++plan.result.lines;
    plan.changes.push_back({line.lId, line.lTieId, mark, wanted});
  }
  return plan;
}

std::optional<UndoPlan> planFor(Connection& connection, const std::string& name) {
  Transaction reading(connection, Transaction::Purpose::reading);
  std::optional<UndoPlan> plan;
  if (auto batch = markBatchNamed(connection, name)) plan = planOf(connection, std::move(*batch));
  reading.commit();
  return plan;
}

// Marks alone do not tell: a line may have been opened and matched again, by another batch.
bool toldAlike(Connection& connection, const MarkBatch& batch) {
  const auto now = markBatchNamed(connection, batch.name);
  return now && std::ranges::includes(now->lines, batch.lines);
}

}  // namespace

std::optional<LastBatch> lastBatch(Session& session) {
  const CancelWatch watch(session);
  auto& connection = session.db.Current();
  Transaction reading(connection, Transaction::Purpose::reading);
  const auto found = lastMarkBatch(connection);
  reading.commit();
  if (!found) return std::nullopt;
  return LastBatch{found->name, found->work, found->who, found->when, std::ssize(found->lines)};
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
    const auto plan = planFor(connection, batch.name);
    if (!plan) return Refusal{.text = "这一批标记已被别人撤销"};
    if (plan->changes.empty()) return refusalWith(nothingToUndo);
    const auto stillSo = [&] { return toldAlike(connection, plan->batch); };
    if (std::holds_alternative<MarksOvertaken>(markLines(session, plan->changes, undoOf(batch.name), stillSo))) {
      return std::nullopt;
    }
    return plan->result;
  });
}

}  // namespace tz
