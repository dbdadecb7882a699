// What a grid view offers on the clipboard and in its context menu.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMetaMethod>

#include "desktop/gridview/column_menu.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/gridview/row_filter.h"
#include "desktop/theme/qt_text.h"

namespace tz {

void GridView::Copy() const {
  if (grid_ == nullptr || Selection().empty()) return;
  QGuiApplication::clipboard()->setText(toQt(copyText(*grid_, SelectedPart())));
}

void GridView::CopyWithHeadings() const {
  if (report_ == nullptr || Selection().empty()) return;
  QGuiApplication::clipboard()->setText(toQt(copyTable(*report_, SelectedPart())));
}

// A right click takes the cell below it, unless that is one of those selected.
void GridView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Mouse) {
    OpenMenuAtCurrent();
    return;
  }
  const QPoint point = viewport()->mapFromGlobal(event->globalPos());
  const GridCell cell = CellAt(point);
  const GridCell place = PlaceOf(cell);
  const bool hit = VisiblePart(cell).contains(point);
  if (hit && !Selection().contains(place.row, place.column)) MoveTo(cell, false);
  OpenMenu(event->globalPos());
}

void GridView::OpenMenuAtCurrent() {
  const QRect view = viewport()->rect();
  const QRect seen = current_.valid() ? VisiblePart(current_) : view;
  OpenMenu(viewport()->mapToGlobal(seen.isEmpty() ? view.center() : seen.center()));
}

void GridView::OpenMenu(QPoint global) {
  // Some systems send the key and the event that follows from it.
  if (QApplication::activePopupWidget() != nullptr) return;
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("gridMenu"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const bool selected = !Selection().empty();
  const GridCell current = current_;
  const auto add = [&](const char* text, bool enabled, auto action) {
    menu->addAction(QString::fromUtf8(text), this, action)->setEnabled(enabled);
  };
  add("复制(&C)\tCtrl+C", selected, [this] { Copy(); });
  add("连同标题复制(&H)\tCtrl+Shift+C", selected && report_ != nullptr, [this] { CopyWithHeadings(); });
  add("全选(&A)\tCtrl+A", !Empty(), [this] { SelectAll(); });
  menu->addSeparator();
  if (isSignalConnected(QMetaMethod::fromSignal(&GridView::filterByWanted))) {
    const bool filters = current.valid() && canFilterBy(*grid_, current.row, current.column);
    add("按此筛选(&F)", filters, [=, this] { emit filterByWanted(current.row, current.column); });
  }
  add("列宽适合内容(&W)", current.valid(), [=, this] { FitColumn(current.column); });
  auto* columns = makeColumnMenu(*this, current.column, menu);
  columns->setTitle(QStringLiteral("列(&G)"));
  columns->setEnabled(columns_.Count() > 0);
  menu->addMenu(columns);
  if (!actions().isEmpty()) menu->addSeparator();
  menu->addActions(actions());
  menu->popup(global);
}

void GridView::OpenColumnMenu(int column, QPoint global) {
  if (QApplication::activePopupWidget() != nullptr || columns_.Count() == 0) return;
  auto* menu = makeColumnMenu(*this, column, this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->popup(global);
}

}  // namespace tz
