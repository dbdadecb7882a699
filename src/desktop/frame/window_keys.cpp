#include "desktop/frame/window_keys.h"

#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

namespace tz {
namespace {

class WindowKeys : public QObject {
 public:
  explicit WindowKeys(QWidget& window) : QObject(&window), window_(window) {}

  // A field asks for a key before it becomes a shortcut; left unanswered, it does.
  bool eventFilter(QObject* /*field*/, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const QKeySequence pressed(static_cast<QKeyEvent*>(event)->keyCombination());
    const auto actions = window_.findChildren<QAction*>();
    const bool ours =
        std::ranges::any_of(actions, [&](const QAction* action) { return action->shortcuts().contains(pressed); });
    if (ours) event->ignore();
    return ours;
  }

 private:
  QWidget& window_;
};

}  // namespace

void putWindowKeysFirst(QWidget& window) {
  auto* keys = new WindowKeys(window);
  for (QWidget* field : window.findChildren<QWidget*>()) {
    const bool takesText = qobject_cast<QComboBox*>(field) != nullptr || qobject_cast<QLineEdit*>(field) != nullptr;
    if (takesText) field->installEventFilter(keys);
  }
}

}  // namespace tz
