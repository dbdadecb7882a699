// CTzResultDialog: the base of report windows, a modeless dialog that Enter and Esc never close. Its template gives the
// smallest size.
#pragma once

#include <QDialog>

namespace tz {

// Dialog units of a template as pixels at 100 %.
[[nodiscard]] QSize pixelsOf(QSize dialogUnits);

class CTzResultDialog : public QDialog {
  Q_OBJECT

 public:
  // The framework's help command.
  static constexpr int helpCommand = 57670;

  CTzResultDialog(int templateId, QSize templateUnits, QWidget* parent);

  // Runs once, when the window is created. False: the window closes itself instead of opening.
  virtual bool OnInitDialog() = 0;
  // A command of the toolbar or of the framework.
  virtual void OnCommand(int id) = 0;
  // What follows when the window has ended, closed by whatever way.
  virtual void PostNcDestroy() = 0;

 signals:
  // The window has ended; its object goes once control is back in the event loop.
  void closed();

 protected:
  virtual void OnOK() {}
  virtual void OnCancel() {}
  // Ends the window, past OnOK and OnCancel.
  void EndDialog(int result);

  void accept() override { OnOK(); }
  void reject() override { OnCancel(); }
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool ended_ = false;
};

}  // namespace tz
