#include "desktop/frame/dialog_keys.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>

namespace tz {
namespace {

void giveKey(QPushButton& button, const char* key, const QString& tip) {
  button.setShortcut(QKeySequence(QString::fromLatin1(key)));
  button.setToolTip(tip);
  button.setAccessibleDescription(tip);
}

}  // namespace

void giveDialogKeys(QPushButton& ok, QPushButton& cancel) {
  giveKey(ok, "Alt+O", QStringLiteral("Alt+O 或 Ctrl+Enter"));
  giveKey(cancel, "Alt+C", QStringLiteral("Alt+C 或 Esc"));
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* confirms = new QShortcut(QKeySequence(Qt::CTRL | key), ok.window());
    QObject::connect(confirms, &QShortcut::activated, &ok, &QPushButton::click);
  }
}

bool clickButtonOf(const QWidget& dialog, const QKeyEvent& key) {
  const QKeySequence pressed(key.keyCombination());
  for (auto* button : dialog.findChildren<QAbstractButton*>()) {
    if (button->shortcut() != pressed || !button->isVisible()) continue;
    button->click();
    return true;
  }
  return false;
}

}  // namespace tz
