// The navigator (辅助核算), the window from which every report is opened. Six areas at the left exchange the commands
// at the right. What a command runs is set from outside; one that cannot be run is pale and says why.
#pragma once

#include <functional>

#include "desktop/frame/img_dlg.h"
#include "desktop/frame/process.h"
#include "desktop/shell/area_layout.h"

namespace tz {

// Who runs the commands. Without one, no command is available.
struct CommandRunner {
  std::function<QString(int command)> obstacle;  // why a command cannot be run; empty when it can
  std::function<void(int command)> run;
  std::function<void(unsigned context)> help;  // may be empty
  std::function<bool()> mayLeave;              // asked once, before it closes; may be empty
};

class Q_DECL_EXPORT CQnCwAssistantDlg : public CImgDlg, public CProcess {
  Q_OBJECT

 public:
  // Becomes the parent of report windows (g_pDlgWnd). The layout follows g_lpArgument.
  explicit CQnCwAssistantDlg(QWidget* parent);
  ~CQnCwAssistantDlg() override;

  void SetRunner(CommandRunner runner);
  [[nodiscard]] NavigatorArea CurrentArea() const { return area_; }

  // Shows anew which commands can be run.
  void ShowAvailable();

  // It has no conditions to ask for, and comes to the front as it is.
  bool OnCommandQuery() override { return false; }
  void RefreshDisplay() override;

  void OnTzAssistantArchive() { OpenArea(NavigatorArea::archive); }
  void OnTzAssistantPerson() { OpenArea(NavigatorArea::person); }
  void OnTzAssistantBranch() { OpenArea(NavigatorArea::department); }
  void OnTzAssistantPlan() { OpenArea(NavigatorArea::plan); }
  void OnTzAssistantProject() { OpenArea(NavigatorArea::project); }
  void OnTzAssistantUnit() { OpenArea(NavigatorArea::unit); }
  void OnTzAssistantExit();

 protected:
  bool OnInitDialog() override;
  // Enter and Esc leave the navigator open; the caption's close button and the exit picture close it.
  void OnOK() override {}
  void OnCancel() override {}
  void OnHelpInfo() override;
  void OnCommand(int id) override;
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] bool MayLeave() const { return !runner_.mayLeave || runner_.mayLeave(); }
  void InitAssistantWnd();
  void ClearAssistant();
  void InitArea(NavigatorArea area);
  void OpenArea(NavigatorArea area);
  [[nodiscard]] QString ObstacleOf(int command) const;
  void PaintRail(QPainter& painter) const;
  void PaintCard(QPainter& painter) const;

  CommandRunner runner_;
  Layout layout_;
  NavigatorArea area_ = NavigatorArea::archive;
};

}  // namespace tz
