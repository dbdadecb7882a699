// How windows come to be: reports from a command of the navigator, through the rights check and the condition dialog,
// or from another report, with its conditions and without a dialog; windows that are no report as whoever opens them
// made them. What others lead to has a slot with its current window; a window that ends clears its slot.
#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/reports/operator.h"
#include "core/reports/report_definition.h"
#include "desktop/report/export_file.h"

class QWidget;

namespace tz {

struct ArchiveDirectory;
class ConditionStore;
class ProcessWindow;
class ReportWindow;
class VoucherWindow;

class ReportLauncher : public QObject {
  Q_OBJECT

 public:
  using Find = std::function<const ReportDefinition*(int command)>;

  explicit ReportLauncher(Operator who, Find find);
  ~ReportLauncher() override;

  // Where files of windows that are no report begin.
  void KeepFolder(ExportFolder folder) { exportFolder_ = std::move(folder); }
  // Lets condition dialogs keep conditions under names. The store must outlive the windows.
  void OfferSaved(ConditionStore& store) { store_ = &store; }

  // Asked before each command and drill-down for the operator with the rights of now: they may change while he works.
  using RightsNow = std::function<Operator(const Operator& who)>;
  void FollowRights(RightsNow rightsNow) { rightsNow_ = std::move(rightsNow); }
  void ReadRights();
  [[nodiscard]] const Operator& Who() const { return who_; }

  // Why the operator cannot run a command of the navigator; empty when he can.
  [[nodiscard]] std::string Obstacle(int command) const;
  // A command of the navigator. Nothing happens without the right, and nothing stays when the first query is cancelled.
  void Launch(int command);
  // A drill-down: takes the slot's window, whoever opened it, or makes one. Null when the window could not open;
  // whoever lacks the right to that report is told so.
  ReportWindow* LaunchFromReport(const DetailTarget& target, QWidget* parent);
  // The voucher of a line, in the window that all reports share. Null when there is none to show.
  VoucherWindow* OpenVoucher(const LineId& line, QWidget* asker);
  // The search across the ledger, which has one window: brought to the front where it is open.
  void OpenSearch();
  // Opens a window that is no report, under the navigator, and gives it the slot of its key. False when it closed
  // itself instead; it goes once it is closed.
  bool Open(ProcessWindow* window);

  // By the key of the window; null when none is open.
  [[nodiscard]] ProcessWindow* SlotOf(int key) const;
  // The open windows in the order in which they opened.
  [[nodiscard]] const std::vector<ProcessWindow*>& Windows() const { return windows_; }
  void CloseAll();

 signals:
  void opened(tz::ProcessWindow* window);
  void windowsChanged();
  // Commands that could be run cannot, or the other way round.
  void rightsChanged();

 private:
  void RunDirectory(const ArchiveDirectory& directory);
  [[nodiscard]] bool MayLaunch(const ReportDefinition& report) const;
  [[nodiscard]] ReportWindow* NewWindow(const ReportDefinition& report, QWidget* parent);
  // Whether vouchers may be read; told over `asker` when not.
  [[nodiscard]] bool MayRead(QWidget* asker, std::string_view what);
  // Creates a window; the conditions of a report are set. False when it closed itself.
  bool Create(ProcessWindow* window);
  void Forget(ProcessWindow* window);

  Operator who_;
  Find find_;
  RightsNow rightsNow_;
  ConditionStore* store_ = nullptr;
  ExportFolder exportFolder_;
  std::map<int, ProcessWindow*> slots_;
  std::vector<ProcessWindow*> windows_;
};

}  // namespace tz
