// The line below a report's table in which one types what to go to, and which place of how many is reached.
#pragma once

#include <QWidget>

class QInputMethodEvent;
class QLineEdit;
class QToolButton;

namespace tz {

class ElidedLabel;

class LocateBar : public QWidget {
  Q_OBJECT

 public:
  explicit LocateBar(QWidget* parent);

  // Takes the focus, with this text to be gone on with; an empty one keeps the last, to be typed over.
  void Open(const QString& text);
  // A text is being composed elsewhere: it is seen here, and goes on here once its first part is finished.
  void Compose(QInputMethodEvent& event);
  [[nodiscard]] QString Text() const;
  // Counted from 1; -1 while there is none yet. Of none it says that nothing was found.
  void ShowResult(qint64 number, qint64 of, bool finished);

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
