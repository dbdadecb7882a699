// Why something could not be done, below the field where it happened: the reason, and behind "详细" the words of the
// database.
#pragma once

#include <QWidget>

class QLabel;
class QToolButton;

namespace tz {

struct Failure {
  QString text;
  QString detail = {};  // for whoever looks after the ledger; empty for none
};

class FailureNote : public QWidget {
  Q_OBJECT

 public:
  explicit FailureNote(QWidget* parent);

  void Tell(const Failure& failure);
  void Clear() { hide(); }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Paint();

  QLabel* text_;
  QToolButton* more_;
  QLabel* detail_;
};

}  // namespace tz
