#include "desktop/frame/picture_accessible.h"

#include "desktop/frame/img_dlg_button.h"

namespace tz {
namespace {

QAccessibleInterface* makePictureInterface(const QString& /*className*/, QObject* object) {
  auto* button = qobject_cast<PictureButton*>(object);
  return button == nullptr ? nullptr : new PictureAccessible(button);
}

}  // namespace

void PictureAccessible::Install() {
  [[maybe_unused]] static const bool once = [] {
    QAccessible::installFactory(makePictureInterface);
    return true;
  }();
}

PictureAccessible::PictureAccessible(PictureButton* button) : QAccessibleWidget(button, QAccessible::Button) {}

PictureButton& PictureAccessible::Button() const { return *static_cast<PictureButton*>(widget()); }

QString PictureAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Name ? Button().text() : QAccessibleWidget::text(kind);
}

QAccessible::State PictureAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.disabled = !Button().IsAvailable();
  state.checkable = Button().isCheckable();
  state.checked = Button().isChecked();
  state.pressed = Button().isDown();
  return state;
}

QStringList PictureAccessible::actionNames() const { return {pressAction(), setFocusAction()}; }

void PictureAccessible::doAction(const QString& action) {
  if (action == pressAction()) {
    // Later: a command may show a dialog, and the reader would wait for its answer until that closes.
    QMetaObject::invokeMethod(&Button(), &PictureButton::click, Qt::QueuedConnection);
  } else {
    QAccessibleWidget::doAction(action);
  }
}

}  // namespace tz
