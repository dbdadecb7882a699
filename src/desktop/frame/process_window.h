// ProcessWindow: the base of what a launcher opens and keeps, reports and windows that are none alike. It stands in the
// list of windows, Ctrl+Tab goes round it, and it keeps a slot and a size under its key.
#pragma once

#include "desktop/frame/process.h"
#include "desktop/frame/result_dialog.h"

namespace tz {

class ProcessWindow : public CTzResultDialog, public CProcess {
  Q_OBJECT

 public:
  ProcessWindow(int templateId, QSize templateUnits, QWidget* parent)
      : CTzResultDialog(templateId, templateUnits, parent), CProcess(this), templateId_(templateId) {}

  // The command of a report, the dialog id of any other window.
  [[nodiscard]] virtual int Key() const { return templateId_; }
  // How the list of windows names it.
  [[nodiscard]] virtual QString ListEntry() const { return windowTitle(); }
  // The toolbar at whose end the list of windows opens; null without one.
  [[nodiscard]] virtual QToolBar* CommandBar() const { return nullptr; }

  // Nothing to ask before it opens.
  bool OnCommandQuery() override { return true; }
  void RefreshDisplay() override { ShowCenterWindow(); }
  void OnCommand(int /*id*/) override {}
  void PostNcDestroy() override { DoPostNcDestroy(); }

 private:
  int templateId_;
};

}  // namespace tz
