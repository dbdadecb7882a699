// CGeneralDialog: the busy box over a window whose report takes long. It looks modal, but computation and box share one
// thread: whoever computes lets the events through now and then.
#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tz {

class CGeneralDialog : public QDialog {
  Q_OBJECT

 public:
  explicit CGeneralDialog(QWidget* parent);

  void Begin();
  void SetTextGeneral(const QString& text);
  // Of so many steps; until it is told, the bar only shows that something goes on.
  void SetProgress(int done, int of);
  void End();

 signals:
  // By the button, Esc or the caption.
  void cancelled();

 protected:
  void accept() override {}
  void reject() override { emit cancelled(); }
  void timerEvent(QTimerEvent* event) override;

 private:
  QLabel* text_;
  QProgressBar* bar_;
  QPushButton* cancel_;
};

}  // namespace tz
