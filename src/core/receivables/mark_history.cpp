#include "core/receivables/mark_history.h"

#include <algorithm>

#include "core/data/record_io.h"

namespace tz {
namespace {

// A line's id and its voucher's: on a server the first alone may stand in several vouchers.
using MarkedLine = std::pair<Id, Id>;
struct MarkedLineHash {
  std::size_t operator()(const MarkedLine& line) const {
    constexpr std::size_t spread = 0x9E3779B97F4A7C15U;
    return std::hash<Id>()(line.first) ^ std::hash<Id>()(line.second) * spread;
  }
};

}  // namespace

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
    if (added) batches_.push_back({.name = batchName, .work = workOf(batchName), .firstRow = rows_.size()});
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
  for (auto& batch : batches_) {
    const auto undo = places.find(undoOf(batch.name));
    if (undo != places.end()) batch.takenBackAt = batches_[undo->second].firstRow;
  }
}

std::vector<const MarkHistory::Batch*> MarkHistory::open() const {
  std::vector<const Batch*> found;
  for (const auto& batch : batches_) {
    if (!batch.name.empty() && !batch.work.undone && !batch.takenBackAt) found.push_back(&batch);
  }
  std::ranges::sort(found, std::greater(), &Batch::lastRow);
  return found;
}

const MarkHistory::Batch* MarkHistory::find(std::string_view name) const {
  const auto found = std::ranges::find(batches_, name, &Batch::name);
  return found == batches_.end() || found->takenBackAt ? nullptr : &*found;
}

// What stood there before a row. A batch that was taken back after it no longer counts: what stood before that one
// does. One that was taken back before it had left nothing behind by then.
int MarkHistory::markBefore(const Story& story, std::size_t place) const {
  const auto changed = story[place];
  int mark = rows_[changed].before;
  while (place-- > 0) {
    const auto& row = rows_[story[place]];
    const auto& batch = batches_[row.batch];
    const bool undone = batch.work.undone || (batch.takenBackAt && *batch.takenBackAt < changed);
    if (undone) continue;
    if (holds(row) || row.after != mark) break;
    mark = row.before;
  }
  return mark;
}

std::vector<MarkHistory::Line> MarkHistory::linesOf(const Batch& batch) const {
  const auto number = static_cast<std::uint32_t>(&batch - batches_.data());
  std::unordered_map<MarkedLine, Story, MarkedLineHash> stories;
  const auto lineOf = [](const Row& row) { return MarkedLine(row.line, row.voucher); };
  for (const auto& row : rows_) {
    if (row.batch == number) stories.try_emplace(lineOf(row));
  }
  for (std::size_t place = 0; place < rows_.size(); ++place) {
    const auto found = stories.find(lineOf(rows_[place]));
    if (found != stories.end()) found->second.push_back(place);
  }
  std::vector<Line> lines;
  for (const auto& [marked, story] : stories) {
    const auto ofBatch = [&](std::size_t row) { return rows_[row].batch == number; };
    const auto first = std::ranges::find_if(story, ofBatch);
    const auto last = std::ranges::find_if(story.rbegin(), story.rend(), ofBatch).base();
    const auto heldLater = [&](std::size_t row) { return holds(rows_[row]); };
    lines.push_back({.lId = marked.first,
                     .lTieId = marked.second,
                     .before = markBefore(story, static_cast<std::size_t>(first - story.begin())),
                     .after = rows_[*std::prev(last)].after,
                     .changedSince = std::any_of(last, story.end(), heldLater)});
  }
  return lines;
}

}  // namespace tz
