// What tests of modal windows need: messages are recorded and answered instead of shown, and a script runs inside a
// modal window, pressing keys and buttons.
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTimer>
#include <QtTest>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "desktop/frame/message_box.h"
#include "desktop/theme/qt_text.h"

namespace tz::test {

// The messages of one test, in order, each answered by `answer`.
class RecordedMessages {
 public:
  RecordedMessages()
      : before_(setMessageHandler([this](const ShownMessage& message) {
          all.push_back(message);
          return answer;
        })) {}
  RecordedMessages(const RecordedMessages&) = delete;
  RecordedMessages& operator=(const RecordedMessages&) = delete;
  ~RecordedMessages() { setMessageHandler(std::move(before_)); }

  // The text of the last message, which is then forgotten; empty when there was none.
  std::string takeLast() {
    if (all.empty()) return {};
    auto text = all.back().text;
    all.clear();
    return text;
  }

  std::vector<ShownMessage> all;
  bool answer = true;

 private:
  MessageHandler before_;
};

// Waits until keys reach the window's own shortcuts. To the toolkit's own wait a window is active also while one that
// it belongs to is.
[[nodiscard]] inline bool waitActive(const QWidget* window) {
  return QTest::qWaitFor([&] { return QApplication::activeWindow() == window; });
}

// Runs `script` with the modal window that opens next, within five seconds. A script must end its window; one that does
// not fails the test.
inline void runInModal(std::function<void(QWidget&)> script, const QWidget* before, int patience) {
  constexpr int tick = 5;
  QTimer::singleShot(tick, [script = std::move(script), before, patience] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == before && patience > 0) return runInModal(script, before, patience - 1);
    auto* window = modal == before ? nullptr : qobject_cast<QDialog*>(modal);
    ASSERT_NE(window, nullptr) << "no modal window opened";
    if (!waitActive(window)) ADD_FAILURE() << "the window does not become active";
    try {
      script(*window);
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    if (!window->isVisible()) return;
    ADD_FAILURE() << "the window is still open";
    window->done(0);
  });
}

inline void inModal(std::function<void(QWidget&)> script) {
  runInModal(std::move(script), QApplication::activeModalWidget(), 1000);
}

template <class Control>
Control& control(const QWidget& window, const QString& id) {
  auto* found = window.findChild<Control*>(id);
  if (found == nullptr) throw std::runtime_error("no control " + fromQt(id));
  return *found;
}
inline void click(const QWidget& window, const QString& id) {
  QTest::mouseClick(&control<QAbstractButton>(window, id), Qt::LeftButton);
}

// Whatever the keyboard reaches has a name that a screen reader can say.
inline void expectNamed(const QWidget& window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const bool reached = widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) != 0;
    // The lines of combos and the parts of lists are their owners'.
    if (!reached || widget->focusProxy() != nullptr || widget->objectName().startsWith(QStringLiteral("qt_"))) continue;
    const auto* combo = qobject_cast<QComboBox*>(widget);
    // The name of a combo is the text that it shows.
    const bool described = combo != nullptr && combo->lineEdit() == nullptr;
    const QString name =
        QAccessible::queryAccessibleInterface(combo == nullptr || described ? widget : combo->lineEdit())
            ->text(described ? QAccessible::Description : QAccessible::Name);
    EXPECT_FALSE(name.isEmpty()) << widget->metaObject()->className() << ' ' << fromQt(widget->objectName());
  }
}

// Types as an input method does: Chinese text has no keys of its own.
inline void enterText(QWidget& edit, const QString& text) {
  QInputMethodEvent event;
  event.setCommitString(text);
  QApplication::sendEvent(&edit, &event);
}

}  // namespace tz::test
