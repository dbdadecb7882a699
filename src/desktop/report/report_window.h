// The window of every report: painted heading with condition combos, toolbar, grid and status line over one definition.
// It asks for its conditions, computes through the core and shows what came back. A computation that is refused, fails
// or is stopped leaves what was shown, conditions included. What a window does beyond that is its report's feature.
//
// In five sources: the window and what it shows, its commands (report_window_commands.cpp), what it does with paper
// and files (report_window_pages.cpp), conditions that are changed on the live window
// (report_window_conditions.cpp), and what it does for its feature (report_window_features.cpp).
#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <optional>

#include "core/reports/report_definition.h"
#include "desktop/frame/need_bitmap.h"
#include "desktop/frame/process_window.h"
#include "desktop/report/export_file.h"
#include "desktop/report/report_feature.h"

class QAction;
class QVBoxLayout;

namespace tz {

class ConditionStore;
class CTzQueryDialog;
class GridTools;
class GridView;
class LongWork;
class NoticeBar;
class PageOutput;
class ReportHeading;
class ReportStatus;
struct KeptPages;
struct MonthSpan;

// What a window shows, and the conditions that it would ask for again.
struct ShownReport {
  Request request;
  ComputedReport report;
};

class ReportWindow : public ProcessWindow {
  Q_OBJECT

 public:
  ReportWindow(const ReportDefinition& definition, QWidget* parent);
  ~ReportWindow() override;

  // Lets exports begin in the folder of the last one. What it calls must outlive the window.
  void KeepFolder(ExportFolder folder);
  // The same for how its pages are made.
  void KeepPages(KeptPages kept);
  // Lets the condition dialog keep conditions under names. The store must outlive the window.
  void OfferSaved(ConditionStore& store) { store_ = &store; }

  bool OnCommandQuery() override;
  void RefreshDisplay() override;

  // Conditions copied from another report, in place of the dialog.
  void SetConditions(const Request& request);
  // The same of a drill-down; once it is shown, the first line about the member is current.
  void SetConditions(const DetailTarget& target);
  [[nodiscard]] const Request& GetRequest() const { return request_; }
  [[nodiscard]] bool ConditionsSet() const { return conditionsSet_; }
  [[nodiscard]] const ReportDefinition& Definition() const { return definition_; }
  // What the window shows; null before the first report.
  [[nodiscard]] const ShownReport* Shown() const { return shown_ ? &*shown_ : nullptr; }
  [[nodiscard]] GridView& Grid() const { return *view_; }
  [[nodiscard]] QToolBar& ToolBar() const { return *toolBar_; }
  // The button of a command; null where the report has none such.
  [[nodiscard]] QAction* ActionOf(int command) const;
  // Where the grid stands: a feature puts its own controls above it or below.
  [[nodiscard]] QVBoxLayout& Body() const { return *body_; }

  [[nodiscard]] int Key() const override { return definition_.command; }
  // Its title and, once it shows something, of whom.
  [[nodiscard]] QString ListEntry() const override;
  // What is shown, "122101 职工借款 李明 2025.01–2025.03"; empty before the first report.
  [[nodiscard]] QString Subject() const;
  [[nodiscard]] QToolBar* CommandBar() const override { return toolBar_; }

  // Computes with the conditions as they are; what was shown stays when that comes to nothing.
  void Recompute();
  // The same; the line that was current is current again, and where it was, in the column of the same caption, as far
  // as it is still there.
  void RecomputeInPlace();

  // For features. Work beside the window: `words` stand in the status line where it takes longer, `boxWords` in a busy
  // box, unless they are empty; `unit` is what its steps are called. Throws what the work throws; does nothing while
  // other work runs.
  void Work(const QString& words, const QString& boxWords, const std::function<void(Session&, LongWork&)>& work,
            const QString& unit = QStringLiteral("行"));
  // Runs a piece of work; its failure stands in the status line, and what was shown stays.
  void Attempt(const std::function<void()>& work);
  void TellFailure(const std::exception& error);
  // In the status line, for some seconds.
  void TellNews(const QString& text);
  // Makes a cell that was found current, also in a folded block; a filter that hides its row is named.
  void GoTo(qint64 row, int column);
  // Another name and tip for a button.
  void Rename(WindowCommand command, const QString& caption, const QString& tip);
  // What is done with the report that is shown, with another one; `asker` is the window above which is asked.
  void PrintReport(const ComputedReport& report, QWidget* asker);
  void PreviewReport(const ComputedReport& report, QWidget* asker);
  void ExportReport(const ComputedReport& report, QWidget* asker);

  // Writes what is shown; how that went stands in the status line.
  void ExportTo(const ExportTarget& target);

  bool OnInitDialog() override;
  // The feature first, then what the table of commands has for it.
  void OnCommand(int id) override;
  void OnQuery();
  void OnExport();
  void OnPrint();
  void OnPreview();
  void OnDetail();
  void OnGeneralLedger();
  void OnFind();
  void OnHelp();
  // Shows other rows of the same report, or all of them again.
  template <ParameterKey key>
  void OnToggle() {
    Toggle(key);
  }
  // Shows the rows in the order of a tab.
  template <WindowCommand command>
  void OnTab() {
    OpenTab(command);
  }
  void OnClose() { EndDialog(Accepted); }

 signals:
  // Another report is to open with these conditions.
  void detailWanted(const tz::DetailTarget& target);
  // The voucher of a line is to open.
  void voucherWanted(const tz::LineId& line);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  // Keys of the grid, which its feature takes first.
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void LayOut();
  void DrawToolBar();
  void ConnectParts();
  // Buttons lose their texts where the window is too narrow: first those whose pictures everybody knows, then all.
  void FitToolBar();
  // Goes where the current row leads.
  void Follow(const DrillRule& detail);
  void Toggle(ParameterKey key);
  void OpenTab(WindowCommand command);
  // The buttons of toggles and tabs, and their entries in the menu, as the conditions have them.
  void ShowToggles();
  // In the grid's menu, where somebody answers it.
  void OfferInMenu(WindowCommand command, const char* text);
  void Show(ComputedReport computed);
  void ShowRows(std::int64_t rows, const std::vector<Notice>& notices);
  void StandOn(const DetailTarget& target);
  // Where rows lead on, a key can take the first one at once.
  void StandOnFirstRow();
  void KeepShown();
  void TellSubject();
  // The host keeps what was last asked for by hand.
  void KeepLast();
  // What was shown stays; where nothing was, the window says so and what to do.
  void TellStopped();
  // Departments change their persons: with none chosen there is nothing to show yet.
  void OnConditionChosen(ParameterKey key, const MemberChoice& member);
  void OnMonthsChosen(MonthSpan months);
  void OnFormatChosen(AmountFormat format);
  // After a condition that no list depends on.
  void RecomputeOrAwait();
  void AwaitPerson(bool personsChange);
  [[nodiscard]] static QString PersonWanted();
  // Whether somebody answers a command, and whether it waits for rows that it takes.
  [[nodiscard]] bool Answered(int command) const;
  [[nodiscard]] bool Waits(int command) const;
  void EnableCommands();
  void OnRowActivated(qint64 row);

  const ReportDefinition& definition_;
  std::unique_ptr<CNeedBitmap> background_;
  ConditionStore* store_ = nullptr;
  std::unique_ptr<Session> querySession_;
  QPointer<CTzQueryDialog> queryDialog_;  // ours, but its parent may go first
  Request request_;
  bool conditionsSet_ = false;
  bool firstShow_ = true;
  bool awaitsPerson_ = false;
  bool changedByHand_ = false;
  std::optional<DetailTarget> stand_;  // once what is asked for is shown
  std::optional<ShownReport> shown_;
  std::unique_ptr<ReportFeature> feature_;

  QToolBar* toolBar_ = nullptr;
  int toolBarWidth_ = 0;  // with all texts
  QVBoxLayout* body_ = nullptr;
  ReportHeading* heading_ = nullptr;
  NoticeBar* warnings_ = nullptr;
  GridView* view_ = nullptr;
  GridTools* tools_ = nullptr;
  ReportStatus* status_ = nullptr;
  std::unique_ptr<PageOutput> pages_;
};

}  // namespace tz
