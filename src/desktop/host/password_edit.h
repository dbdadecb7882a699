// A line for a password, and below it, while capital letters seem to be locked, a word about that. What the keyboard's
// lock is set to no toolkit tells; a letter that comes in the other case than Shift asks for gives it away.
#pragma once

#include <QLineEdit>

class QLabel;

namespace tz {

class PasswordEdit : public QWidget {
  Q_OBJECT

 public:
  // `name` is the line's object name, `caption` what a screen reader calls it.
  PasswordEdit(const QString& name, const QString& caption, QWidget* parent);

  [[nodiscard]] QLineEdit* Line() const { return line_; }

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  QLineEdit* line_;
  QLabel* lock_;
};

}  // namespace tz
