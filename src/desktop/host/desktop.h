// One open ledger on the screen: the navigator, its report windows, and what the host adds to them: the ledger's name
// and menu, the list of windows, and what is remembered; and the question before all of it closes.
#pragma once

#include <QSessionManager>
#include <memory>

#include "desktop/host/open_ledger.h"
#include "desktop/host/settings.h"
#include "desktop/query/condition_store.h"
#include "desktop/report/export_file.h"
#include "desktop/shell/launch.h"
#include "desktop/shell/navigator.h"

class QMenu;

namespace tz {

class DesktopBar;

class Desktop : public QObject {
  Q_OBJECT

 public:
  Desktop(HostSettings& settings, const OpenLedger& ledger, Operator who);
  ~Desktop() override;

  void Show();

  // Whether the windows may be closed for something else, "退出": asks once when reports are open, and never twice at
  // the same time.
  [[nodiscard]] bool MayLeave(const QString& why);
  // Closes the reports and the navigator without saying that the desktop is finished.
  void Close();
  [[nodiscard]] QWidget* Navigator() { return &navigator_; }

 signals:
  // The navigator and all its reports are closed.
  void finished();
  // Another ledger is to be chosen; this one stays until that one is open.
  void anotherWanted();
  // Somebody is to log on to this ledger; everything stays until he has.
  void logonWanted();

 private:
  void AddBar();
  void ShowWho();
  void FillLedgerMenu(QMenu* menu);
  // What has to do with operators; what somebody may not do is pale and says why.
  void AddOperatorEntries(QMenu* menu);
  void KeepOperators();
  void OpenWorkLog();
  void OnRights();
  void AddThemes(QMenu* menu);
  void OnSessionEnd(QSessionManager& manager);
  void Welcome(ProcessWindow* window);
  // What a window keeps besides its size: the folder of its files, how its pages are made, what was made of its
  // columns.
  [[nodiscard]] ExportFolder FolderOfFiles();
  template <class Window>
  void WelcomePages(Window& window);
  template <class Window>
  void WelcomeTable(Window& window);
  void Finish();

  HostSettings& settings_;
  FileConditionStore conditions_;
  CQnCwAssistantDlg navigator_;
  ReportLauncher launcher_;
  const OpenLedger& openLedger_;
  DesktopBar* bar_ = nullptr;
  bool asking_ = false;
  bool leaves_ = false;  // the session ends, and that was agreed to
};

}  // namespace tz
