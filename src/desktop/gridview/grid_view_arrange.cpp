// What a person does with the columns of a grid view: draws them wider, fits, moves, hides and puts them back.
#include <QAccessible>
#include <QKeyEvent>
#include <QScrollBar>

#include "desktop/gridview/grid_view.h"
#include "desktop/gridview/grid_view_header.h"

namespace tz {

GridFonts GridView::Fonts() const {
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  return {QFontMetrics(font()), QFontMetrics(bold)};
}

void GridView::SetArrangement(const ColumnArrangement& arrangement) {
  columns_.SetArrangement(arrangement);
  Refresh();
}

void GridView::SetColumnWidth(int column, int width) {
  if (!columns_.IsShown(column)) return;
  columns_.SetWidth(columns_.PlaceOf(column), width);
  LayOut();
}

void GridView::FitColumn(int column) {
  if (columns_.Has(column)) Fit({column});
}

void GridView::FitColumns() { Fit(columns_.Shown()); }

void GridView::Fit(const std::vector<int>& columns) {
  if (grid_ == nullptr) return;
  std::vector<std::int64_t> seen;
  const std::int64_t first = verticalScrollBar()->value() / rowHeight_;
  const std::int64_t last = std::min(first + viewport()->height() / rowHeight_ + 1, rows_.Count() - 1);
  for (std::int64_t place = first; place <= last; ++place) seen.push_back(rows_.RowAt(place));
  columns_.Fit(*grid_, columns, seen, Fonts());
  LayOut();
}

bool GridView::ArrangeByKey(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Escape) return header_->CancelMove();
  const bool asked = (event.modifiers() & ~Qt::KeypadModifier) == (Qt::ControlModifier | Qt::ShiftModifier);
  const bool left = event.key() == Qt::Key_Left;
  if (!asked || (!left && event.key() != Qt::Key_Right)) return false;
  if (current_.valid()) ShiftColumn(current_.column, left ? -1 : 1);
  return true;
}

void GridView::ShowColumn(int column, bool shown) {
  if (!columns_.Has(column)) return;
  columns_.SetShown(column, shown);
  ColumnsChanged();
}

void GridView::MoveColumn(int column, int before) {
  if (!columns_.IsShown(column)) return;
  columns_.Move(columns_.PlaceOf(column), before);
  ColumnsChanged();
}

void GridView::ShiftColumn(int column, int places) {
  if (!columns_.IsShown(column)) return;
  const int place = columns_.PlaceOf(column);
  MoveColumn(column, places > 0 ? place + places + 1 : place + places);
  ShowColumnInView(column);
}

void GridView::ShowColumnInView(int column) {
  if (columns_.IsShown(column)) horizontalScrollBar()->setValue(columns_.OffsetToShow(columns_.PlaceOf(column)));
}

void GridView::ResetColumns() {
  columns_.Reset();
  ColumnsChanged();
}

void GridView::ColumnsChanged() {
  const GridCell before = current_;
  if (anchor_.valid()) anchor_.column = columns_.NearestShown(anchor_.column);
  if (current_.valid()) current_.column = columns_.NearestShown(current_.column);
  LayOut();
  SumUp();
  if (QAccessible::isActive()) {
    QAccessibleTableModelChangeEvent reset(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&reset);
  }
  emit columnsArranged();
  if (current_.valid()) TellCurrent();
  if (current_ == before) return;
  grid_->ActivateCell(current_.row, current_.column);
  emit currentChanged(current_.row, current_.column);
}

}  // namespace tz
