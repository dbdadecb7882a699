#include "core/receivables/mark_history.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>
#include <unordered_set>

namespace tz {
namespace {

using BatchPlace = std::uint32_t;

// A batch is named by the first of its ids, behind the last colon; 0 where it is named otherwise.
Id firstIdIn(std::string_view name) {
  name.remove_prefix(name.rfind(':') + 1);
  Id id = 0;
  const auto* const end = name.data() + name.size();
  const auto [read, error] = std::from_chars(name.data(), end, id);
  return error == std::errc{} && read == end ? id : 0;
}

struct LineKey {
  Id voucher = 0, line = 0;
  BatchPlace batch = 0;  // 0 where only the line matters

  bool operator==(const LineKey&) const = default;
};
struct LineKeyHash {
  std::size_t operator()(const LineKey& key) const {
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15U;
    auto hash = static_cast<std::uint64_t>(key.line) * spread;
    hash = (hash ^ (hash >> 32U) ^ static_cast<std::uint64_t>(key.voucher)) * spread;
    hash = (hash ^ (hash >> 32U) ^ key.batch) * spread;
    return hash ^ (hash >> 32U);
  }
};

class LogReader {
 public:
  // Rows without a voucher tell of plans.
  explicit LogReader(Connection& connection)
      : log_(connection.query("SELECT lId, lTieId, lLineId, byOld, byNew, sBatch, sOperator, sWhen FROM MarkLog "
                              "WHERE lTieId <> 0 ORDER BY lId DESC")) {}

  struct Row {
    Id line = 0, voucher = 0;
    std::uint8_t before = 0, after = 0;
    bool takenBack = false;
    BatchPlace batch = 0;
  };
  struct Batch {
    std::string name;
    MarkWork work;
    std::string who, when;  // of its last row
    Id firstId = 0;
    std::optional<BatchPlace> takes;  // the one that it takes back
    bool begun = false, wanted = false;

    [[nodiscard]] bool canBeTakenBack() const { return !name.empty() && !work.undone; }
  };

  // The next older row; null at the beginning of the log.
  const Row* readBack() {
    enum Column { id, voucher, line, before, after, name, who, when };
    if (!log_->next()) return nullptr;
    const auto place = placeOf(log_->text(name));
    auto& batch = batches_[place];
    if (batch.when.empty()) {
      batch.who = log_->text(who);
      batch.when = log_->text(when);
    }
    Row row{.line = log_->integer(line),
            .voucher = log_->integer(voucher),
            .before = markIn(before),
            .after = markIn(after),
            .batch = place};
    if (batch.takes) takenBack_.insert({row.voucher, row.line, *batch.takes});
    row.takenBack = takenBack_.contains({row.voucher, row.line, place});
    if (log_->integer(id) == batch.firstId && !batch.begun) {
      batch.begun = true;
      if (batch.wanted) --notBegun_;
    }
    rows_.push_back(row);
    return &rows_.back();
  }

  // Back to the beginning of a batch, and of each that was taken back since: what these made of a line no longer
  // counts.
  void readWhole(BatchPlace batch) {
    want(batch);
    while (notBegun_ > 0 && readBack() != nullptr) {
    }
  }

  BatchPlace placeOf(std::string_view name) {
    if (!batches_.empty() && batches_[latest_].name == name) return latest_;
    const std::string text(name);
    const auto found = places_.find(text);
    latest_ = found != places_.end() ? found->second : add(text);
    return latest_;
  }

  [[nodiscard]] const Batch& batch(BatchPlace place) const { return batches_[place]; }

  // Once it was read as a whole.
  [[nodiscard]] std::vector<BatchLine> linesOf(BatchPlace batch) const {
    std::unordered_map<LineKey, Story, LineKeyHash> stories;
    for (const auto& row : rows_) {
      if (row.batch == batch && !row.takenBack) stories.try_emplace({row.voucher, row.line});
    }
    auto place = rows_.size();
    while (place-- > 0) {
      const auto& row = rows_[place];
      const auto found = stories.find({row.voucher, row.line});
      if (found != stories.end()) found->second.push_back(&row);
    }
    std::vector<BatchLine> lines;
    lines.reserve(stories.size());
    for (const auto& [key, story] : stories) lines.push_back(lineOf(story, batch));
    std::ranges::sort(lines);
    return lines;
  }

 private:
  using Story = std::vector<const Row*>;  // of one line, the first row first

  [[nodiscard]] std::uint8_t markIn(int column) const {
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(log_->integer(column), 0, UINT8_MAX));
  }

  BatchPlace add(const std::string& name) {
    const auto place = static_cast<BatchPlace>(batches_.size());
    places_.emplace(name, place);
    batches_.push_back({.name = name, .work = workOf(name), .who = {}, .when = {}, .firstId = firstIdIn(name)});
    if (const auto taken = batchTakenBackBy(name)) {
      const auto other = placeOf(*taken);
      batches_[place].takes = other;
      want(other);
    }
    return place;
  }

  void want(BatchPlace place) {
    auto& batch = batches_[place];
    if (!batch.begun && !batch.wanted) ++notBegun_;
    batch.wanted = true;
  }

  [[nodiscard]] bool holds(const Row& row) const { return !batches_[row.batch].work.undone && !row.takenBack; }

  // What stood there before a row: what it says itself, unless a batch before it was taken back later. Then it is what
  // stood there after the last row that still holds.
  [[nodiscard]] int markBefore(const Story& story, std::size_t place) const {
    const int told = story[place]->before;
    int oldest = told;
    std::vector<BatchPlace> takenBackBefore;
    bool takenBackLater = false;
    while (place-- > 0 && !holds(*story[place])) {
      const auto& row = *story[place];
      oldest = row.before;
      if (const auto& taken = batches_[row.batch].takes) {
        takenBackBefore.push_back(*taken);
      } else if (std::ranges::find(takenBackBefore, row.batch) == takenBackBefore.end()) {
        takenBackLater = true;
      }
    }
    return takenBackLater ? oldest : told;
  }

  [[nodiscard]] BatchLine lineOf(const Story& story, BatchPlace batch) const {
    const auto ofBatch = [&](const Row* row) { return row->batch == batch && !row->takenBack; };
    const auto first = std::ranges::find_if(story, ofBatch);
    const auto last = std::ranges::find_if(story.rbegin(), story.rend(), ofBatch).base();
    return {.lTieId = (*first)->voucher,
            .lId = (*first)->line,
            .before = markBefore(story, static_cast<std::size_t>(first - story.begin())),
            .after = (*std::prev(last))->after,
            .changedSince = std::any_of(last, story.end(), [&](const Row* row) { return holds(*row); })};
  }

  std::unique_ptr<Cursor> log_;
  std::vector<Row> rows_;  // the last one first
  std::vector<Batch> batches_;
  std::unordered_map<std::string, BatchPlace> places_;
  BatchPlace latest_ = 0;
  std::unordered_set<LineKey, LineKeyHash> takenBack_;
  std::size_t notBegun_ = 0;  // of the batches that have to be read as a whole
};

MarkBatch wholeBatch(LogReader& log, BatchPlace place) {
  log.readWhole(place);
  const auto& batch = log.batch(place);
  return {batch.name, batch.work, batch.who, batch.when, log.linesOf(place)};
}

// The batch of the first of these rows whose line is still there.
std::optional<BatchPlace> firstThere(Connection& connection, const std::vector<LogReader::Row>& rows) {
  std::vector<MarkChange> lines;
  std::unordered_set<LineKey, LineKeyHash> named, there;
  for (const auto& row : rows) {
    if (named.insert({row.voucher, row.line}).second) lines.push_back({row.line, row.voucher});
  }
  for (const auto& line : readMarks(connection, lines)) there.insert({line.lTieId, line.lId});
  const auto found = std::ranges::find_if(rows, [&](const auto& row) {
    return there.contains({row.voucher, row.line});
  });
  return found == rows.end() ? std::nullopt : std::optional(found->batch);
}

}  // namespace

std::optional<MarkBatch> lastMarkBatch(Connection& connection) {
  LogReader log(connection);
  std::vector<LogReader::Row> rows;
  // The last batch is mostly the first one met; the lines of a year gone by are asked for many at once.
  std::size_t atOnce = 1;
  constexpr std::size_t mostAtOnce = 1000;
  for (const auto* row = log.readBack(); row != nullptr; row = log.readBack()) {
    if (row->takenBack || !log.batch(row->batch).canBeTakenBack()) continue;
    rows.push_back(*row);
    if (rows.size() < atOnce) continue;
    if (const auto found = firstThere(connection, rows)) return wholeBatch(log, *found);
    rows.clear();
    atOnce = mostAtOnce;
  }
  if (const auto found = firstThere(connection, rows)) return wholeBatch(log, *found);
  return std::nullopt;
}

std::optional<MarkBatch> markBatchNamed(Connection& connection, std::string_view name) {
  LogReader log(connection);
  auto batch = wholeBatch(log, log.placeOf(name));
  if (batch.lines.empty()) return std::nullopt;
  return batch;
}

}  // namespace tz
