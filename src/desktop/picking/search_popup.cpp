#include "desktop/picking/search_popup.h"

#include <QApplication>
#include <QCompleter>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QWindow>

#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int aroundText = 6;  // pixels of a row above and below its text

bool isTab(int key) { return key == Qt::Key_Tab || key == Qt::Key_Backtab; }

// A press where an open list was in the way means what lies there, as if the list had never been open.
void pressBehind(const QMouseEvent& press) {
  const QPoint place = press.globalPosition().toPoint();
  QWidget* target = QApplication::widgetAt(place);
  const QWidget* modal = QApplication::activeModalWidget();
  if (target == nullptr || (modal != nullptr && target->window() != modal)) return;
  QWindow* window = target->window()->windowHandle();
  for (QWidget* one = target; one != nullptr; one = one->isWindow() ? nullptr : one->parentWidget()) {
    if (!one->isEnabled() || (one->focusPolicy() & Qt::ClickFocus) == 0) continue;
    one->setFocus(Qt::MouseFocusReason);
    break;
  }
  if (window == nullptr) return;
  QMouseEvent again(press.type(), window->mapFromGlobal(press.globalPosition()), press.globalPosition(), press.button(),
                    press.buttons(), press.modifiers());
  QCoreApplication::sendEvent(window, &again);
}

}  // namespace

QPalette fieldColours(bool miss) {
  QPalette colours;
  if (!miss) return colours;
  colours.setColor(QPalette::Text, currentTheme().negative);
  colours.setColor(QPalette::Highlight, currentTheme().negative);
  colours.setColor(QPalette::HighlightedText, currentTheme().surface);
  return colours;
}

QVariant FoundTexts::data(const QModelIndex& index, int role) const {
  if (role == Qt::SizeHintRole) return QSize(0, QFontMetrics(QApplication::font()).height() + aroundText);
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
  return text_(PlaceOf(index.row()));
}

SearchPopup::SearchPopup(FoundTexts& found, QWidget& field)
    : QObject(&field), found_(found), field_(field), list_(new QCompleter(&found, this)) {
  list_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  list_->setMaxVisibleItems(rowsAtOnce);
  list_->setWidget(&field);
  QAbstractItemView* view = list_->popup();
  view->installEventFilter(this);
  view->setTextElideMode(Qt::ElideRight);
  // However many are found, only those in sight cost anything.
  if (auto* rows = qobject_cast<QListView*>(view)) rows->setUniformItemSizes(true);
  connect(list_, qOverload<const QModelIndex&>(&QCompleter::activated), this, [this](const QModelIndex& index) {
    emit taken(found_.PlaceOf(index.row()));
    emit clicked();
  });
}

void SearchPopup::Open(int marked) {
  list_->popup()->setFocusProxy(&field_);
  list_->complete();
  // The row is only marked: the field keeps what is being typed.
  const QSignalBlocker quiet(list_);
  list_->popup()->setCurrentIndex(marked < 0 ? QModelIndex() : list_->completionModel()->index(marked, 0));
}

void SearchPopup::Close() { list_->popup()->hide(); }

bool SearchPopup::IsOpen() const { return list_->popup()->isVisible(); }

bool SearchPopup::TakeMarked() {
  const QModelIndex marked = list_->popup()->currentIndex();
  Close();
  if (!marked.isValid() || marked.row() >= found_.rowCount()) return false;
  emit taken(found_.PlaceOf(marked.row()));
  return true;
}

bool SearchPopup::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) return OnKey(*static_cast<QKeyEvent*>(event));
  // A slow window system gives a list that has closed the focus for a moment, which must not lead back to its field.
  if (event->type() == QEvent::Hide) list_->popup()->setFocusProxy(nullptr);
  const bool pressed = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
  if (pressed && OnPress(*static_cast<QMouseEvent*>(event))) return true;
  return QObject::eventFilter(watched, event);
}

bool SearchPopup::OnPress(const QMouseEvent& press) {
  QAbstractItemView* view = list_->popup();
  if (view->rect().contains(press.position().toPoint())) return false;
  view->setAttribute(Qt::WA_NoMouseReplay);  // where the platform would do the same
  Close();
  pressBehind(press);
  return true;
}

bool SearchPopup::OnKey(const QKeyEvent& key) {
  const auto send = [&key](QWidget& target) {
    QKeyEvent again(QEvent::KeyPress, key.key(), key.modifiers(), key.text());
    QApplication::sendEvent(&target, &again);
    return true;
  };
  // A key that was on its way when the list closed.
  if (QWidget* there = field_.window()->focusWidget(); !IsOpen() && there != nullptr) return send(*there);
  if (key.key() == Qt::Key_Escape) {
    Close();
    emit escaped();
    return true;
  }
  const bool takes = isEnterKey(key.key()) || isTab(key.key());
  const bool isWindows = key.key() == Qt::Key_F2 || (key.modifiers() & Qt::AltModifier) != 0;
  if (!takes && !isWindows) return false;
  if (takes) {
    TakeMarked();
  } else {
    Close();
  }
  // The same key then means to the window what it means in any other field.
  return send(field_);
}

}  // namespace tz
