// The line below a report's table in which one types what to go to, and which place of how many is reached.
#pragma once

#include <QWidget>

class QInputMethodEvent;
class QLineEdit;
class QToolButton;

namespace tz {

class ElidedLabel;

struct Located {
  qint64 number = -1;  // of the place that is reached, counted from 1; -1 while there is none
  qint64 found = 0;    // that can be gone to
  qint64 filtered = 0;
  qint64 inHiddenTotals = 0;
  bool finished = false;  // all rows were looked at
};

class LocateBar : public QWidget {
  Q_OBJECT

 public:
  explicit LocateBar(QWidget* parent);

  // Takes the focus, with this text to be gone on with; an empty one keeps the last, to be typed over.
  void Open(const QString& text);
  // A text is being composed elsewhere: it is seen here, and goes on here once its first part is finished.
  void Compose(QInputMethodEvent& event);
  [[nodiscard]] QString Text() const;
  void ShowResult(const Located& located);

 signals:
  void textChanged(const QString& text);
  void nextWanted();
  void previousWanted();
  void closed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QToolButton* AddButton(const char* id, const QString& text, const QString& name, const QString& keys);

  QLineEdit* field_;
  ElidedLabel* result_;
};

}  // namespace tz
