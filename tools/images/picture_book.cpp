#include "images/picture_book.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QPixmap>
#include <QTest>
#include <QTimer>
#include <stdexcept>

namespace tz::images {
namespace {

[[noreturn]] void fail(const QString& words) { throw std::runtime_error(words.toStdString()); }

// Styles follow the active window: a picture of one that is not active yet would lack its focus.
void settle(QWidget& window) {
  if (window.windowType() != Qt::Popup && !QTest::qWaitForWindowActive(&window)) fail(QStringLiteral("not active"));
  QApplication::processEvents();
}

}  // namespace

void PictureBook::Take(QWidget& window, const QString& name) const {
  QApplication::sendPostedEvents();
  QApplication::processEvents();
  const int percent = qRound(window.devicePixelRatioF() * 100);
  const QString file = folder_.filePath(QStringLiteral("%1-%2-%3.png").arg(name, theme_).arg(percent));
  if (!window.grab().save(file)) fail(QStringLiteral("cannot write ") + file);
}

void PictureBook::Keep(const QImage& picture, const QString& name) const {
  const QString file = folder_.filePath(QStringLiteral("%1-%2-100.png").arg(name, theme_));
  if (!picture.save(file)) fail(QStringLiteral("cannot write ") + file);
}

void PictureBook::TakeModal(const QString& name, const std::function<void()>& open, const Step& first,
                            const Step& then) const {
  bool taken = false;
  // What goes wrong inside must not pass through the window's own event loop.
  QTimer::singleShot(0, [&] {
    auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (window == nullptr) return;
    try {
      settle(*window);
      if (first) first(*window);
      QApplication::processEvents();
      Take(*window, name);
      taken = true;
      if (then) then(*window);
    } catch (const std::exception&) {
      taken = false;
    }
    window->done(QDialog::Rejected);
  });
  open();
  if (!taken) fail(QStringLiteral("no picture of ") + name);
}

void PictureBook::TakePopup(const QString& name, const std::function<void()>& open) const {
  open();
  QApplication::processEvents();
  QWidget* popup = QApplication::activePopupWidget();
  if (popup == nullptr) fail(QStringLiteral("no popup for ") + name);
  Take(*popup, name);
  popup->close();
}

}  // namespace tz::images
