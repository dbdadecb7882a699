// The log of who marked, matched and planned: the rows of MarkLog with what they are about, the latest first, as they
// belong together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/grid/row_subjects.h"
#include "core/output/report_output.h"
#include "core/reports/session.h"

namespace tz {

struct LogAsk {
  std::string by;                // an operator's name; empty: everybody
  std::optional<Date> from, to;  // days of this machine's clock, both taken in
  std::size_t most = 10'000;     // rows to give back; the others are counted
};

struct LogEntry {
  std::string when;   // as the ledger keeps it: UTC, "2006-01-31T08:05:09Z"
  std::string shown;  // by this machine's clock, "2006-01-31 16:05:09"
  std::string by;     // empty: nobody needed to log on
  std::string work;   // what was done, as the batch names it or the marks before and after tell
  std::string batch;
  int before = 0, after = 0;
  // The line with its voucher, or the plan; nothing where it is no longer there.
  std::optional<LineId> line;  // none of a plan
  bool there = false;
  int period = 0;
  Date date;
  std::string word;
  int number = 0;
  std::string account, accountName, summary;
  bool isDebit = false;
  double amount = 0;

  [[nodiscard]] bool isPlan() const { return !line; }
};

// Of one act: marked or planned at once.
[[nodiscard]] bool together(const LogEntry& one, const LogEntry& other);

struct WorkLog {
  std::int64_t found = 0;  // all rows that were asked for
  std::vector<LogEntry> entries;
  bool kept = true;  // false in a ledger made elsewhere that has no such log
};

// In one read transaction. Throws DbError.
[[nodiscard]] WorkLog readWorkLog(Session& session, const LogAsk& asked);
// As a table, which says how many are not in it. The rows of one batch stand below a heading of their own.
[[nodiscard]] ComputedReport logReport(const LogAsk& asked, const WorkLog& log);

}  // namespace tz
