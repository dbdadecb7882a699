// CTzResultDialog: the base of report windows, a modeless dialog that Enter and Esc never close. Its template gives the
// smallest size. It knows which size and place the program gave it and which a person: what a person drew stays.
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

  // Before the window first shows: the size in which a person left it.
  void RestoreSize(QSize size);
  // Shows the window, the first time in the middle of its screen or aside of the windows that stand there.
  void ShowPlaced();
  // Lets a window that nobody has sized grow to a width, as far as there is room. It never shrinks.
  void OpenWide(int width);
  // Takes a place among other windows, frame included.
  void Arrange(const QRect& place);
  // The size that it had before it was arranged, unless a person has sized it since.
  [[nodiscard]] QSize OwnSize() const { return own_.isValid() && !SizedByHand() ? own_ : NormalSize(); }
  // Without its being maximised.
  [[nodiscard]] QSize NormalSize() const;
  [[nodiscard]] bool SizedByHand() const { return NormalSize() != given_; }
  // The least that it takes among other windows, frame included.
  [[nodiscard]] QSize LeastPlace() const;

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
  void MoveToFreePlace();
  void KeepTitleInSight();

  bool ended_ = false;
  bool placed_ = false;
  bool mayGrow_ = true;  // nobody has given it a size or a place of its own
  QSize given_;
  QSize own_;  // before it was arranged
  QPoint givenPlace_;
};

}  // namespace tz
