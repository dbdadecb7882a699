#include "desktop/manual/manual.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

#include "desktop/frame/manual_page.h"
#include "desktop/manual/manual_window.h"

namespace tz {
namespace {

QPointer<ManualWindow>& theManual() {
  static QPointer<ManualWindow> window;
  return window;
}

// A dialog that ends leaves the manual to the one below it, or to nobody; the manual stays.
class Beside : public QObject {
 public:
  explicit Beside(QWidget& dialog) : QObject(&dialog) { dialog.installEventFilter(this); }

  bool eventFilter(QObject* dialog, QEvent* event) override {
    if (event->type() == QEvent::Hide) {
      if (theManual() != nullptr) theManual()->StandBeside(QApplication::activeModalWidget());
      dialog->removeEventFilter(this);
      deleteLater();
    }
    return false;
  }
};

class ManualKey : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !receiver->isWidgetType()) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
    auto* widget = static_cast<QWidget*>(receiver);
    const QString page = manualPageOf(widget);
    if (page.isEmpty()) return false;
    showManual(widget->window(), page);
    return true;
  }
};

}  // namespace

void showManual(QWidget* /*asker*/, const QString& page) {
  if (theManual() == nullptr) theManual() = new ManualWindow;
  theManual()->Open(manualPlace(page));
  QWidget* modal = QApplication::activeModalWidget();
  if (modal != nullptr) new Beside(*modal);
  if (theManual()->isMinimized()) theManual()->setWindowState(theManual()->windowState() & ~Qt::WindowMinimized);
  theManual()->show();
  theManual()->StandBeside(modal);
  theManual()->raise();
  theManual()->activateWindow();
}

void closeManual() { delete theManual().data(); }

void installManualKey() { qApp->installEventFilter(new ManualKey(qApp)); }

}  // namespace tz
