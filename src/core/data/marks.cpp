#include "core/data/marks.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <stdexcept>

#include "core/data/new_ids.h"
#include "core/data/record_io.h"

namespace tz {
namespace {

using Changes = std::vector<MarkChange>;

// As many as a database looks up one by one rather than read the whole table for: PostgreSQL does that for a thousand
// where the table has fewer than a quarter of a million lines, and then time grows with their square.
constexpr std::size_t linesPerStatement = 250;

// Voucher by voucher: whoever changes the same lines meets them in the same order, so that nobody waits for one
// another.
Changes inOrder(std::span<const MarkChange> changes) {
  Changes sorted(changes.begin(), changes.end());
  const auto key = [](const MarkChange& one) { return std::pair(one.lTieId, one.lId); };
  std::ranges::sort(sorted, {}, key);
  const auto twice = std::ranges::adjacent_find(sorted, {}, key);
  if (twice != sorted.end()) throw std::invalid_argument(fmt::format("line {} is to be marked twice", twice->lId));
  return sorted;
}

// work( "(1, 7, 0, 2), (2, 7, 0, 2), …" ) for the lines in turn: id, voucher, mark read, mark wanted.
void forEachList(const Changes& changes, const auto& work) {
  for (std::size_t first = 0; first < changes.size(); first += linesPerStatement) {
    const auto end = std::min(first + linesPerStatement, changes.size());
    fmt::memory_buffer list;
    for (auto place = first; place < end; ++place) {
      const auto& one = changes[place];
      fmt::format_to(std::back_inserter(list), "{}({}, {}, {}, {})", place == first ? "" : ", ", one.lId, one.lTieId,
                     one.read, one.wanted);
    }
    work(fmt::to_string(list));
  }
}

// Other programs may have written more than the three marks; all of these stand for the last one.
int loggedMark(int mark) { return mark == 0 || mark == 1 ? mark : 2; }

// A mark that no report may write stays; the log alone tells of it.
bool toldOnly(const MarkChange& one) { return one.read == one.wanted && one.read != loggedMark(one.read); }

bool allChanged(Connection& connection, Changes changes) {
  std::erase_if(changes, toldOnly);
  std::int64_t changed = 0;
  forEachList(changes, [&](const std::string& list) {
    changed += connection.execute(
        Sql(fmt::format("UPDATE RegSub SET byFlag = v.column4 FROM (VALUES {}) AS v WHERE RegSub.lId = v.column1 AND "
                        "RegSub.lTieId = v.column2 AND RegSub.byFlag = v.column3",
                        list)));
  });
  return changed == static_cast<std::int64_t>(changes.size());
}

// The batch is named by the first of its ids, which no other has.
std::string logMarks(Connection& connection, const Changes& changes, const MarkOrigin& origin) {
  auto id = connection.newIds(MarkLogInfo::table, static_cast<std::int64_t>(changes.size()));
  auto batch = origin.batch.value_or(origin.newBatch + std::to_string(id));
  const auto log = connection.insertInto(MarkLogInfo::table, columnNames<MarkLogInfo>());
  for (const auto& one : changes) {
    writeRow(*log, MarkLogInfo{.lId = id++,
                               .lTieId = one.lTieId,
                               .lLineId = one.lId,
                               .byOld = loggedMark(one.read),
                               .byNew = loggedMark(one.wanted),
                               .sOperator = origin.who,
                               .sWhen = origin.when,
                               .sBatch = batch});
  }
  log->finish();
  return batch;
}

std::vector<LineMark> marksNow(Connection& connection, const Changes& changes) {
  std::vector<LineMark> marks;
  forEachList(changes, [&](const std::string& list) {
    const auto rows =
        connection.query(Sql(fmt::format("SELECT s.lId, s.lTieId, s.byFlag FROM (VALUES {}) AS v CROSS JOIN RegSub s "
                                         "WHERE s.lId = v.column1 AND s.lTieId = v.column2",
                                         list)));
    while (rows->next()) marks.push_back({rows->integer(0), rows->integer(1), static_cast<int>(rows->integer(2))});
  });
  std::ranges::sort(marks, {}, [](const LineMark& one) { return std::pair(one.lTieId, one.lId); });
  return marks;
}

}  // namespace

std::vector<LineMark> readMarks(Connection& connection, std::span<const MarkChange> lines) {
  return marksNow(connection, inOrder(lines));
}

MarkOutcome writeMarks(Connection& connection, std::span<const MarkChange> changes, const MarkOrigin& origin,
                       const StillSo& stillSo) {
  if (changes.empty()) return MarksWritten{};
  return writeMarks(
      connection, [&] { return Changes(changes.begin(), changes.end()); }, origin, stillSo);
}

MarkOutcome writeMarks(Connection& connection, const ReadChanges& read, const MarkOrigin& origin,
                       const StillSo& stillSo) {
  return withNewIds([&]() -> MarkOutcome {
    Changes sorted;
    {
      Transaction writing(connection, Transaction::Purpose::writing);
      sorted = inOrder(read());
      if (sorted.empty()) return MarksWritten{};
      if (allChanged(connection, sorted) && (!stillSo || stillSo())) {
        MarksWritten written{logMarks(connection, sorted, origin)};
        writing.commit();
        return written;
      }
    }
    Transaction reading(connection, Transaction::Purpose::reading);
    MarksOvertaken overtaken{marksNow(connection, sorted)};
    reading.commit();
    return overtaken;
  });
}

}  // namespace tz
