// A report as one definition: ids, rights, texts, conditions, period, colours, toolbar, the function that computes it
// and what its rows lead to. The catalogue lists all of them; command line, windows and manual read them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/grid/row_subjects.h"
#include "core/output/report_output.h"
#include "core/reports/dialog_spec.h"
#include "core/reports/find_rule.h"
#include "core/reports/launch_check.h"
#include "core/reports/period_form.h"
#include "core/reports/window_command.h"

namespace tz {

enum class Area { person, department, plan, project, unit };
[[nodiscard]] std::string_view areaName(Area area);

// What a coloured row means, and under which conditions rows are coloured.
struct RowColours {
  std::string_view meaning = {};               // where colours are lost; empty: no row is ever coloured
  std::string_view help = {};                  // the same as a sentence of the manual
  bool (*apply)(const Conditions&) = nullptr;  // null: under all
};
inline constexpr RowColours unpostedColours{
    .meaning = "未记帐凭证",
    .help = "浅绿色的行来自未记帐凭证",
    .apply = [](const Conditions& conditions) { return conditions.unposted; },
};

// What Detail leads to from a row: another report, with the conditions that the row fills in. What the row is about and
// the conditions do not say is where one stands in it.
struct DetailTarget {
  int command = 0;
  Request conditions;
  Subject stand = {};
  std::optional<LineId> line = {};  // the very line, where one comes from a voucher
};
// Or the voucher, in which its line becomes the current one.
struct VoucherTarget {
  LineId line;
};
// Where a row leads, or why it leads nowhere.
using DrillAnswer = std::variant<DetailTarget, Refusal, VoucherTarget>;
// A row of what is shown, -1 where none is current.
struct DrillPlace {
  const Conditions& conditions;
  const ComputedReport& shown;
  std::int64_t row;
};
struct DrillCheck {
  bool (*passes)(const DrillPlace&);
  Message message;
  std::string_view advice;  // of the manual: why, and what to do
};
// What Detail does: its checks in their order, and where it leads when they pass.
struct DrillRule {
  static constexpr std::size_t mostChecks = 4;
  static constexpr std::size_t mostReports = 2;

  Few<int, mostReports> reports = {};  // none: the voucher
  Few<DrillCheck, mostChecks> checks = {};
  DrillAnswer (*target)(const DrillRule&, const DrillPlace&) = nullptr;
  // What the row's own member fills in, by its name in the first column, where the ledger asks for it.
  void (*fill)(DetailTarget&, const Subject&, const std::string& name) = nullptr;

  [[nodiscard]] DrillAnswer operator()(const Conditions& conditions, const ComputedReport& shown,
                                       std::int64_t row) const;
  // A report whose rows lead nowhere has none.
  [[nodiscard]] constexpr bool operator==(std::nullptr_t) const { return target == nullptr; }
};

// What a column holds and where its figures come from. Of a group of columns: what they have in common.
struct ColumnMeaning {
  std::string_view caption;
  std::string_view meaning;
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
  // For the manual: when an accountant takes it; which lines it takes, in which order and with which subtotals; what
  // holds for the whole family; and what its columns hold.
  std::string_view purpose = {};
  std::string_view about = {};
  std::span<const std::string_view> rules = {};
  std::span<const ColumnMeaning> columnMeanings = {};
  // Of the sample company, for the examples of help, where those of its area do not qualify.
  std::string_view exampleAccount = {};
  DialogSpec dialog = {};
  std::span<const WindowCommand> toolbar;
  PeriodForm period = monthsPeriod;
  RowColours colours = unpostedColours;
  // What its window says when no account qualifies.
  Message noAccountInWindow = messages::noMatchingAccount;

  // The printed subtitle of these conditions.
  std::string (*subtitle)(const Conditions&) = nullptr;
  // The amount formats that may be chosen for these conditions.
  std::vector<AmountFormat> (*formats)(const Conditions&) = nullptr;
  // The columns under these conditions, as far as they are known without the ledger.
  void (*columns)(const ReportDefinition&, const Conditions&, CTzGrid&) = nullptr;
  // Fills the grid, whose columns are not yet there, its notices and the subjects of its rows.
  void (*compute)(const ReportDefinition&, Session&, const Conditions&, ComputedReport&) = nullptr;

  // Checked in this order before the navigator or the command line opens it.
  std::span<const LaunchCheck> launchChecks = {};
  bool busyBox = false;  // while it computes, a box says so, besides the status line
  DrillRule detail = {};
  DrillRule generalLedger = {};  // where the command for it leads
  FindOf find = nullptr;         // null: nothing is found by a member
  // What makes its window do more than show, under the name that the windows' registry has it; empty for none.
  std::string_view feature = {};
};

// Toggles of a toolbar, and the condition that each turns on and off. No dialog asks for them.
struct RowToggle {
  WindowCommand command;
  ParameterKey key;
};
inline constexpr std::array rowToggles = {RowToggle{WindowCommand::groupRows, ParameterKey::hideDetails},
                                          RowToggle{WindowCommand::zeroRows, ParameterKey::hideZero}};

// Tabs of a toolbar, one of which is on: the value that each gives to a condition.
struct ToolbarTab {
  WindowCommand command;
  ParameterKey key;
  std::string_view value;
};
inline constexpr std::array toolbarTabs = {
    ToolbarTab{WindowCommand::tabDate, ParameterKey::clearingGrouping, "date"},
    ToolbarTab{WindowCommand::tabDept, ParameterKey::clearingGrouping, "dept"},
    ToolbarTab{WindowCommand::tabProject, ParameterKey::clearingGrouping, "project"},
    ToolbarTab{WindowCommand::tabClerk, ParameterKey::clearingGrouping, "clerk"},
};

// The conditions that a report takes: those of its dialog, the toggles and tabs of its toolbar, and the amount format
// where it has formats.
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

// Quantity unit and currency below the subtitle, as the amount format asks for them.
[[nodiscard]] std::string unitText(AmountFormat format, const AccountAmounts& amounts);

}  // namespace tz
