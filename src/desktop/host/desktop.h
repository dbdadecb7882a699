// One open ledger on the screen: the navigator, its report windows, and what the host adds to them: the ledger's name
// and menu, the list of windows, and what is remembered.
#pragma once

#include <memory>

#include "desktop/host/open_ledger.h"
#include "desktop/host/settings.h"
#include "desktop/query/condition_store.h"
#include "desktop/shell/launch.h"
#include "desktop/shell/navigator.h"

class QMenu;
class QToolButton;

namespace tz {

class Desktop : public QObject {
  Q_OBJECT

 public:
  Desktop(HostSettings& settings, const OpenLedger& ledger, Operator who);
  ~Desktop() override;

  void Show();

  // Closes the reports and the navigator without saying that the desktop is finished.
  void Close();
  [[nodiscard]] QWidget* Navigator() { return &navigator_; }

 signals:
  // The navigator and all its reports are closed.
  void finished();
  // Another ledger is to be chosen; this one stays until that one is open.
  void anotherWanted();

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void AddBar();
  void FillLedgerMenu(QMenu* menu);
  void AddThemes(QMenu* menu);
  // Beside the exit, with as much of the ledger's name as there is room for.
  void PlaceBar();
  void Welcome(ProcessWindow* window);
  // What a report keeps besides its size: the folder of its files, what was made of its columns.
  void WelcomeReport(ReportWindow& window);
  void Finish();

  HostSettings& settings_;
  FileConditionStore conditions_;
  QString operatorName_;
  CQnCwAssistantDlg navigator_;
  ReportLauncher launcher_;
  const OpenLedger& openLedger_;
  QWidget* bar_ = nullptr;
  QToolButton* ledger_ = nullptr;
  QToolButton* windows_ = nullptr;
};

}  // namespace tz
