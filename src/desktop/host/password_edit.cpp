#include "desktop/host/password_edit.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/frame/announce.h"

namespace tz {

PasswordEdit::PasswordEdit(const QString& name, const QString& caption, QWidget* parent)
    : QWidget(parent),
      line_(new QLineEdit(this)),
      lock_(new QLabel(QStringLiteral("大写锁定（Caps Lock）好像开着"), this)) {
  line_->setObjectName(name);
  line_->setAccessibleName(caption);
  line_->setEchoMode(QLineEdit::Password);
  line_->installEventFilter(this);
  lock_->setObjectName(name + QStringLiteral("Lock"));
  lock_->setForegroundRole(QPalette::PlaceholderText);
  lock_->hide();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  layout->addWidget(line_);
  layout->addWidget(lock_);
  setFocusProxy(line_);
}

bool PasswordEdit::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(receiver, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() == Qt::Key_CapsLock) {
    lock_->hide();  // whatever it was, the next letter tells
  } else if (key->text().size() == 1 && key->text().at(0).isLetter()) {
    const QChar letter = key->text().at(0);
    const bool shift = key->modifiers().testFlag(Qt::ShiftModifier);
    const bool locked = letter.isUpper() ? !shift : letter.isLower() && shift;
    if (locked && lock_->isHidden()) announce(lock_);
    lock_->setVisible(locked);
  }
  return QWidget::eventFilter(receiver, event);
}

}  // namespace tz
