// A computed report and its outputs. Every face of a report (terminal, JSON, files, window, page) reads this.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/data/amount_format.h"
#include "core/grid/row_subjects.h"
#include "core/grid/tz_grid.h"
#include "core/platform/sink.h"

namespace tz {

struct Conditions;  // core/reports

// Of a ledger with a running balance: which columns a line that carries it to the next page fills in, besides sums.
struct CarriedColumns {
  int caption = 0;
  int firstBalance = 0;  // direction, then the balance
  int lastBalance = 0;
};

struct ComputedReport {
  int report = 0;        // command id of the navigator
  int window = 0;        // dialog id of its window
  std::string title;     // print title
  std::string subtitle;  // one or two lines
  // Which months, date or year, in files, on the terminal and in JSON; above the grid of a window; on a printed page.
  // Empty for reports without one.
  std::string period;
  std::string paintedPeriod;
  std::string printedPeriod;
  std::string unit;                    // quantity unit and currency, as the amount format asks
  std::optional<AmountFormat> format;  // none for reports without formats
  // The other conditions, each with its caption: "项目范围: X1 至 X9".
  std::vector<std::string> conditions;
  // What was found beside the rows, said above a window's table: "方向: 借 1,000.00"; outputs have it among the
  // conditions.
  std::string found = {};
  // "122101 职工借款 李明 2025.01–2025.03", in lists of windows.
  std::string subject;
  // Proposed for its files, without an ending: title, subject, period.
  std::string fileName;
  // On a printed page: the company whose ledger it is, and the conditions without what the subtitle says already.
  std::string company = {};
  std::vector<std::string> printedConditions = {};
  std::optional<CarriedColumns> carried = {};  // none for reports that carry nothing over
  CTzGrid grid;
  RowSubjects subjects;     // of the grid's rows
  bool namesLines = false;  // JSON names the voucher line of each row
  // What a coloured row means, for outputs without colours; empty when no row can be coloured.
  std::string highlightMeaning;
  // What the rows were computed for: the conditions with every name resolved, and the amount formats that these offer,
  // all as of the moment of the rows. Windows show them; nothing more can be looked up through them.
  std::shared_ptr<const Conditions> resolved = {};
  std::vector<AmountFormat> formats = {};
};

// A line above the table.
struct HeadLine {
  enum class Kind { title, warning, text };
  Kind kind;
  std::string text;
};
// What stands above the table in everything that leaves the program: the title, which says when lines are missing; the
// warnings; subtitle, period, unit and conditions.
[[nodiscard]] std::vector<HeadLine> headLines(const ComputedReport& report);
// What stands below it.
[[nodiscard]] std::vector<std::string> remarks(const CTzGrid& grid);
// The caption of the column that marks coloured rows where colours are lost.
inline constexpr std::string_view markCaption = "标记";

struct TextOptions {
  bool colour = false;  // terminal colours: red entries red, coloured rows on their ground
};
// Columns aligned (Chinese characters count two), totals set apart.
bool writeText(const ComputedReport& report, const TextOptions& options, const Sink& sink);
// The JSON of the ledger contract.
bool writeJson(const ComputedReport& report, const Sink& sink);

// Columns that a text takes on a terminal.
[[nodiscard]] int displayWidth(std::string_view text);

}  // namespace tz
