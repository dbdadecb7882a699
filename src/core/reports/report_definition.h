// A report as one definition: ids, rights, texts, conditions, toolbar and the function that computes it. The catalogue
// lists all of them; command line, windows and manual read them.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/output/report_output.h"
#include "core/reports/dialog_spec.h"

namespace tz {

enum class Area { person, department, plan, project, unit };
[[nodiscard]] std::string_view areaName(Area area);

// Commands of a report window; the numbers are those of its toolbar and of WM_COMMAND.
enum class WindowCommand {
  separator = 0,
  find = 50007,
  help = 50009,
  close = 50010,
  print = 50000,
  preview = 50001,
  exportFile = 50020,
  query = 50031,
  detail = 50052,
};

struct ReportDefinition {
  int command = 0;  // of the navigator; the report's id everywhere
  Area area = Area::person;
  int right = 0;
  std::string_view rightName;
  int window = 0;  // dialog id of its window
  std::string_view windowTitle;
  std::string_view paintedTitle;  // static 1010
  std::string_view printTitle;    // files, terminal and JSON
  // For the manual: what the report answers, which lines it takes, in which order and with which subtotals; and what
  // holds for the whole family.
  std::string_view about;
  std::span<const std::string_view> rules;
  DialogSpec dialog = {};
  std::span<const WindowCommand> toolbar;
  // What its window says when no account qualifies.
  Message noAccountInWindow = messages::noMatchingAccount;

  // The printed subtitle of these conditions.
  std::string (*subtitle)(const Conditions&) = nullptr;
  // The amount formats that may be chosen for these conditions.
  std::vector<AmountFormat> (*formats)(const Conditions&) = nullptr;
  // Fills the grid, whose columns are not yet there, its notices and the subjects of its rows.
  void (*compute)(const ReportDefinition&, Session&, const Conditions&, ComputedReport&) = nullptr;
};

// The conditions that a report takes: those of its dialog, and the amount format where it has formats.
[[nodiscard]] std::vector<ParameterKey> parametersOf(const ReportDefinition& report);
// Where the dialog has a list of accounts, several can be named: the option may be given once for each.
[[nodiscard]] bool takesSeveral(const ReportDefinition& report, ParameterKey key);

// What the conditions of a report name: what all its rows are about.
[[nodiscard]] Subject wholeSubject(const ReportDefinition& report, const Conditions& conditions);

// A computation that the person stopped; what was shown before stays.
struct Cancelled {};

using ReportOutcome = std::variant<ComputedReport, Refusal, Cancelled>;

struct RunOptions {
  // An amount format that the conditions do not offer gives way to the account's own, instead of being wrong use.
  bool formatYields = false;
  // Reads more of the same moment, behind the computation.
  std::function<void(const Conditions&)> alongside = {};
};

// Validates and computes. Throws WrongUse for a format that the conditions do not offer and DbError when the ledger
// cannot be read. Everything is read in one read transaction, which has ended when this returns.
[[nodiscard]] ReportOutcome runReport(const ReportDefinition& report, const Request& request, Session& session,
                                      const RunOptions& options = {});

// The formats of the account that is asked for, and the one of them that holds, while no report can be computed yet.
struct OfferedFormats {
  std::vector<AmountFormat> formats;
  std::optional<AmountFormat> chosen;  // none for reports without formats
};
[[nodiscard]] OfferedFormats offeredFormats(const ReportDefinition& report, const Request& request, const CQnCwDB& db);

// "月份: 2006.01 - 2006.03" of files, terminal and JSON.
[[nodiscard]] std::string periodText(int year, int from, int to);
// The painted and, for the detail ledgers, the printed form: "月份: 2006.1--2006.3".
[[nodiscard]] std::string paintedPeriodText(int year, int from, int to);
// Quantity unit and currency below the subtitle, as the amount format asks for them.
[[nodiscard]] std::string unitText(AmountFormat format, const AccountAmounts& amounts);

}  // namespace tz
