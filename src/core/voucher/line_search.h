// The search across the ledger: lines by amount, voucher, summary and business number, of posted and unposted vouchers
// and of those of period 0. Each of the two tables of lines is gone through once, by the database, and only what was
// found comes back. That needs no index of its own: one over the searched columns would be a sixth of the ledger for a
// quarter of the time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "core/data/get_data.h"
#include "core/grid/row_subjects.h"
#include "core/output/report_output.h"
#include "core/reports/messages.h"
#include "core/reports/session.h"
#include "core/voucher/search_text.h"

namespace tz {

struct FoundBy {
  bool amount = false;
  bool voucher = false;
  bool summary = false;
  bool business = false;

  [[nodiscard]] bool any() const { return amount || voucher || summary || business; }
};

// A line with the names of what it carries; empty for what it does not carry.
struct FoundLine {
  int period = 0;
  std::string word;
  int number = 0;
  LineId id;
  Date date;  // of the voucher
  std::string summary;
  std::string business;
  double debit = 0;
  double credit = 0;
  bool isDebit = false;
  Subject about;
  FoundBy by;

  struct Names {
    std::string account, accountName, dept, person, unit, project;
  } names;
};

struct FoundLines {
  std::int64_t found = 0;        // all of them
  std::vector<FoundLine> lines;  // the first ones by period, voucher word, number and line
  bool stopped = false;          // before all lines were looked at
};

struct LineSearch {
  SearchText text;
  std::size_t most = 1000;  // lines to give back; the others are counted
  // Told now and then of what was found so far, the first lines of it with their names: at the first line, then
  // whenever the found ones have doubled.
  std::function<void(const FoundLines& soFar)> onSome = {};
};

// In one read transaction. Refused when the ledger is not open; throws DbError when it cannot be read. Whoever stops it
// (session.cancelled) gets what was found until then.
[[nodiscard]] std::variant<FoundLines, Refusal> searchLines(Session& session, const LineSearch& search);

// The found lines as a table, which says how many are not in it.
[[nodiscard]] ComputedReport foundReport(const SearchText& text, const FoundLines& found);

// "金额、摘要".
[[nodiscard]] std::string foundByText(const FoundBy& by);

}  // namespace tz
