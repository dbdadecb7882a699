#include "core/operators/work_log.h"

#include <ctime>
#include <fmt/chrono.h>
#include <fmt/format.h>
#include <map>
#include <tuple>

#include "core/reports/cancel_watch.h"
#include "core/reports/marking.h"
#include "core/reports/plan_log.h"

namespace tz {
namespace {

std::string shownMoment(const std::string& when) {
  const auto moment = momentOfUtc(when);
  if (!moment) return when;
  return fmt::format("{:%Y-%m-%d %H:%M:%S}", fmt::localtime(std::chrono::system_clock::to_time_t(*moment)));
}

// The moment at which a day begins here, as the log writes moments.
std::string beginningOf(Date day, int daysLater) {
  constexpr int firstYear = 1900;
  std::tm time{};
  time.tm_year = day.year - firstYear;
  time.tm_mon = day.month - 1;
  time.tm_mday = day.day + daysLater;
  time.tm_isdst = -1;
  return utcText(std::chrono::sys_seconds(std::chrono::seconds(std::mktime(&time))));
}

Sql conditionOf(const LogAsk& asked) {
  Sql condition("1 = 1");
  if (!asked.by.empty()) condition += Sql(" AND sOperator = ?", asked.by);
  if (asked.from) condition += Sql(" AND sWhen >= ?", beginningOf(*asked.from, 0));
  if (asked.to) condition += Sql(" AND sWhen < ?", beginningOf(*asked.to, 1));
  return condition;
}

bool isKept(Connection& connection) {
  try {
    (void)connection.query(Sql("SELECT 1 FROM MarkLog WHERE 1 = 0"))->next();
    return true;
  } catch (const DbError& error) {
    if (error.kind() == DbError::Kind::incomplete) return false;
    throw;
  }
}

std::string markWorkText(const LogEntry& entry) {
  const auto work = workOf(entry.batch);
  if (work.undone || work.what == MarkWork::What::match || work.what == MarkWork::What::reverse) return workText(work);
  if (entry.after == 0) return "取消勾对";
  if (work.what == MarkWork::What::toggle) return workText(work);
  return entry.after == 1 ? "手工勾对" : "自动勾对";
}

LogEntry entryAt(const Cursor& row) {
  LogEntry entry;
  int column = 0;
  const LineId line{Book::posted, row.integer(column + 1), row.integer(column)};
  column += 2;
  entry.before = static_cast<int>(row.integer(column++));
  entry.after = static_cast<int>(row.integer(column++));
  entry.by = row.text(column++);
  entry.when = row.text(column++);
  entry.batch = row.text(column++);
  entry.shown = shownMoment(entry.when);
  if (line.voucher != 0) entry.line = line;
  entry.work = entry.line ? markWorkText(entry) : planWorkText(entry.batch, entry.before, entry.after);
  entry.there = row.kind(column) != CellKind::null;
  if (!entry.there) return entry;
  entry.period = static_cast<int>(row.integer(column++));
  entry.account = row.text(column++);
  entry.accountName = row.text(column++);
  entry.summary = row.text(column++);
  entry.isDebit = row.integer(column++) != 0;
  entry.amount = row.real(column++);
  entry.date = row.date(column++);
  entry.word = row.text(column++);
  entry.number = static_cast<int>(row.integer(column++));
  return entry;
}

// Puts rows that come latest first together by act, each act's in the order of their ids.
std::vector<LogEntry> byAct(std::vector<LogEntry> latestFirst) {
  std::map<std::tuple<std::string_view, std::string_view, std::string_view>, std::size_t> acts;
  std::vector<std::pair<std::size_t, std::size_t>> order;
  for (std::size_t row = 0; row < latestFirst.size(); ++row) {
    const auto& one = latestFirst[row];
    const auto act = acts.try_emplace({one.when, one.batch, one.by}, acts.size()).first->second;
    order.emplace_back(act, latestFirst.size() - row);
  }
  std::ranges::sort(order);
  std::vector<LogEntry> entries;
  entries.reserve(order.size());
  for (const auto& [act, fromEnd] : order) entries.push_back(std::move(latestFirst[latestFirst.size() - fromEnd]));
  return entries;
}

// The latest rows first, those of one act in the order of their ids; only as many as are wanted are joined.
std::vector<LogEntry> readEntries(Connection& connection, const LogAsk& asked) {
  auto sql =
      Sql("SELECT l.lTieId, l.lLineId, l.byOld, l.byNew, l.sOperator, l.sWhen, l.sBatch, "
          "COALESCE(m.byPeroid, p.byPeroid), c.sCode, c.sName, s.sDigest, s.bDirect, s.mMoney, m.dtBill, m.sWord, "
          "m.nNumber "
          "FROM (SELECT * FROM MarkLog WHERE ");
  sql += conditionOf(asked);
  sql += Sql(" ORDER BY sWhen DESC, lId DESC LIMIT ?", static_cast<std::int64_t>(asked.most));
  sql +=
      Sql(") l LEFT JOIN RegSub s ON s.lTieId = l.lTieId AND s.lId = l.lLineId AND l.lTieId > 0 "
          "LEFT JOIN RegMain m ON m.lTieId = s.lTieId "
          "LEFT JOIN Plan p ON l.lTieId = 0 AND p.lId = l.lLineId "
          "LEFT JOIN Code c ON c.lId = COALESCE(s.lCodeId, p.lCodeId) "
          "ORDER BY l.sWhen DESC, l.lId DESC");
  const auto cursor = connection.query(sql);
  std::vector<LogEntry> entries;
  while (cursor->next()) entries.push_back(entryAt(*cursor));
  return byAct(std::move(entries));
}

}  // namespace

bool together(const LogEntry& one, const LogEntry& other) {
  return one.when == other.when && one.batch == other.batch && one.by == other.by;
}

WorkLog readWorkLog(Session& session, const LogAsk& asked) {
  WorkLog log;
  auto& connection = session.db.Current();
  log.kept = isKept(connection);
  if (!log.kept) return log;
  const CancelWatch watch(session);
  Transaction reading(connection, Transaction::Purpose::reading);
  {
    const auto count = connection.query(Sql("SELECT count(*) FROM MarkLog WHERE ") + conditionOf(asked));
    if (count->next()) log.found = count->integer(0);
  }
  log.entries = readEntries(connection, asked);
  reading.commit();
  return log;
}

}  // namespace tz
