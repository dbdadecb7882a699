// How report windows come to be: from a command of the navigator, through the rights check and the condition dialog, or
// from another report, with its conditions and without a dialog. Report kinds that others drill into have a slot with
// their current window; a window that ends clears its slot.
#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/reports/operator.h"
#include "core/reports/report_definition.h"

class QWidget;

namespace tz {

class ConditionStore;
class ReportWindow;

class ReportLauncher : public QObject {
  Q_OBJECT

 public:
  using Find = std::function<const ReportDefinition*(int command)>;

  explicit ReportLauncher(Operator who, Find find);
  ~ReportLauncher() override;

  // Lets condition dialogs keep conditions under names. The store must outlive the windows.
  void OfferSaved(ConditionStore& store) { store_ = &store; }

  // Why the operator cannot run a command of the navigator; empty when he can.
  [[nodiscard]] std::string Obstacle(int command) const;
  // A command of the navigator. Nothing happens without the right, and nothing stays when the first query is cancelled.
  void Launch(int command);
  // A drill-down: takes the slot's window or makes one. Null when the window could not open.
  ReportWindow* LaunchFromReport(int command, const Request& conditions, QWidget* parent);

  [[nodiscard]] ReportWindow* SlotOf(int command) const;
  // The open windows in the order in which they opened.
  [[nodiscard]] const std::vector<ReportWindow*>& Windows() const { return windows_; }
  void CloseAll();

 signals:
  void opened(tz::ReportWindow* window);
  void windowsChanged();

 private:
  [[nodiscard]] bool MayLaunch(const ReportDefinition& report) const;
  [[nodiscard]] ReportWindow* NewWindow(const ReportDefinition& report, QWidget* parent) const;
  // Creates the window of a report whose conditions are set. False when it closed itself.
  bool Create(ReportWindow* window);
  void Forget(ReportWindow* window);

  Operator who_;
  Find find_;
  ConditionStore* store_ = nullptr;
  std::map<int, ReportWindow*> slots_;
  std::vector<ReportWindow*> windows_;
};

}  // namespace tz
