#include "core/receivables/mark_history.h"

#include <algorithm>

#include "core/data/record_io.h"

namespace tz {

MarkHistory::MarkHistory(Connection& connection) {
  std::unordered_map<std::string, std::uint32_t> places;
  // Rows without a voucher tell of plans.
  const auto log = connection.query(
      "SELECT lTieId, lLineId, byOld, byNew, sOperator, sWhen, sBatch FROM MarkLog WHERE lTieId <> 0 ORDER BY lId");
  enum Column { voucher, line, before, after, who, when, name };
  std::string batchName;
  while (log->next()) {
    batchName = log->text(name);
    const auto [found, added] = places.try_emplace(batchName, static_cast<std::uint32_t>(batches_.size()));
    if (added) batches_.push_back({.name = batchName, .work = workOf(batchName), .who = {}, .when = {}});
    auto& batch = batches_[found->second];
    batch.who = log->text(who);
    batch.when = log->text(when);
    batch.lastRow = rows_.size();
    ++batch.rows;
    rows_.push_back({.line = log->integer(line),
                     .voucher = log->integer(voucher),
                     .before = static_cast<std::uint8_t>(log->integer(before)),
                     .after = static_cast<std::uint8_t>(log->integer(after)),
                     .batch = found->second});
  }
  for (auto& batch : batches_) batch.takenBack = places.contains(undoOf(batch.name));
}

std::vector<const MarkHistory::Batch*> MarkHistory::open() const {
  std::vector<const Batch*> found;
  for (const auto& batch : batches_) {
    if (!batch.name.empty() && !batch.work.undone && !batch.takenBack) found.push_back(&batch);
  }
  std::ranges::sort(found, std::greater(), &Batch::lastRow);
  return found;
}

const MarkHistory::Batch* MarkHistory::find(std::string_view name) const {
  const auto found = std::ranges::find(batches_, name, &Batch::name);
  return found == batches_.end() || found->takenBack ? nullptr : &*found;
}

// What stood there before a row. A batch that was taken back after it no longer counts: what stood before that one
// does.
int MarkHistory::markBefore(const Story& story, std::size_t place) const {
  int mark = rows_[story[place]].before;
  while (place-- > 0) {
    const auto& row = rows_[story[place]];
    if (batches_[row.batch].work.undone) continue;
    if (holds(row) || row.after != mark) break;
    mark = row.before;
  }
  return mark;
}

std::vector<MarkHistory::Line> MarkHistory::linesOf(const Batch& batch) const {
  const auto number = static_cast<std::uint32_t>(&batch - batches_.data());
  std::unordered_map<Id, Story> stories;
  for (const auto& row : rows_) {
    if (row.batch == number) stories.try_emplace(row.line);
  }
  for (std::size_t place = 0; place < rows_.size(); ++place) {
    const auto found = stories.find(rows_[place].line);
    if (found != stories.end()) found->second.push_back(place);
  }
  std::vector<Line> lines;
  for (const auto& [id, story] : stories) {
    const auto ofBatch = [&](std::size_t row) { return rows_[row].batch == number; };
    const auto first = std::ranges::find_if(story, ofBatch);
    const auto last = std::ranges::find_if(story.rbegin(), story.rend(), ofBatch).base();
    const auto heldLater = [&](std::size_t row) { return holds(rows_[row]); };
    lines.push_back({.lId = id,
                     .lTieId = rows_[*first].voucher,
                     .before = markBefore(story, static_cast<std::size_t>(first - story.begin())),
                     .after = rows_[*std::prev(last)].after,
                     .changedSince = std::any_of(last, story.end(), heldLater)});
  }
  return lines;
}

}  // namespace tz
