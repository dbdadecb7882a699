// CProcess: what a command opens. A report asks for conditions, is created modeless under the navigator, refreshes
// itself, carries a toolbar of fixed commands and goes once it is closed. The navigator is one without a result window,
// which its owner keeps.
#pragma once

#include <QString>
#include <span>

class QAction;
class QToolBar;
class QWidget;

namespace tz {

class CTzResultDialog;

// One entry of a toolbar: picture, whose caption it takes, and command; both 0 for a separator.
struct CToolBarInfo {
  int bitmap = 0;
  int command = 0;
  const char* shortcut = "";  // portable text, empty for none
  const char* tip = "";
  bool checkable = false;
};

class CProcess {
 public:
  // Null for a process that is no result window.
  explicit CProcess(CTzResultDialog* window) : window_(window) {}
  CProcess(const CProcess&) = delete;
  CProcess& operator=(const CProcess&) = delete;

  // Asks for the conditions. True when the person confirmed them.
  virtual bool OnCommandQuery() = 0;
  // Shows the window and runs the report.
  virtual void RefreshDisplay() = 0;
  virtual ~CProcess() = default;

  // Creates the window under `parent`. False when its initialisation closed it: the object is gone.
  bool CreateTheDialog(QWidget* parent);
  [[nodiscard]] bool IsCreated() const { return created_; }

 protected:
  // Shows the window, the first time in the middle of its screen, aside of others that stand there.
  void ShowCenterWindow();
  // Once per window, when it is initialised.
  void ProcessInitDialog();
  // Fills a toolbar; each command goes to the window's OnCommand.
  void DrawAToolBar(QToolBar* bar, std::span<const CToolBarInfo> table);
  // The object goes when control is back in the event loop. False when there is no result window to go.
  bool DoPostNcDestroy();

 private:
  CTzResultDialog* window_;
  bool created_ = false;
};

}  // namespace tz
