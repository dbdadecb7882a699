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

// As many as a database looks up one by one rather than read the whole table for.
constexpr std::size_t linesPerStatement = 1000;

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

// A mark that stays what it is is not written: it may be another program's, which nobody may set.
bool allChanged(Connection& connection, Changes changes) {
  std::erase_if(changes, [](const MarkChange& one) { return one.read == one.wanted; });
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
                               .byOld = one.read,
                               .byNew = one.wanted,
                               .sOperator = origin.who,
                               .sWhen = origin.when,
                               .sBatch = batch});
  }
  log->finish();
  return batch;
}

std::vector<LineMark> marksNow(Connection& connection, const Changes& changes) {
  std::vector<LineMark> marks;
  Transaction reading(connection, Transaction::Purpose::reading);
  forEachList(changes, [&](const std::string& list) {
    const auto rows =
        connection.query(Sql(fmt::format("SELECT s.lId, s.lTieId, s.byFlag FROM (VALUES {}) AS v CROSS JOIN RegSub s "
                                         "WHERE s.lId = v.column1 AND s.lTieId = v.column2",
                                         list)));
    while (rows->next()) marks.push_back({rows->integer(0), rows->integer(1), static_cast<int>(rows->integer(2))});
  });
  reading.commit();
  std::ranges::sort(marks, {}, [](const LineMark& one) { return std::pair(one.lTieId, one.lId); });
  return marks;
}

}  // namespace

std::vector<LineMark> readMarks(Connection& connection, std::span<const MarkChange> lines) {
  return marksNow(connection, inOrder(lines));
}

MarkOutcome writeMarks(Connection& connection, std::span<const MarkChange> changes, const MarkOrigin& origin) {
  if (changes.empty()) return MarksWritten{};
  const auto sorted = inOrder(changes);
  return withNewIds([&]() -> MarkOutcome {
    {
      Transaction writing(connection, Transaction::Purpose::writing);
      if (allChanged(connection, sorted)) {
        MarksWritten written{logMarks(connection, sorted, origin)};
        writing.commit();
        return written;
      }
    }
    return MarksOvertaken{marksNow(connection, sorted)};
  });
}

}  // namespace tz
