#include "desktop/gridview/grid_view.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>
#include <limits>

#include "desktop/gridview/grid_accessible.h"
#include "desktop/gridview/grid_view_header.h"

namespace tz {
namespace {

constexpr int smallestRow = 24;
// So many cells are summed at once; a few milliseconds.
constexpr std::int64_t sumSlice = 200'000;
constexpr int dragInterval = 40;  // milliseconds

}  // namespace

GridView::GridView(QWidget* parent) : QAbstractScrollArea(parent), header_(new GridViewHeader(columns_, this)) {
  setFocusPolicy(Qt::StrongFocus);
  installGridAccessibility();
  setAccessibleName(QStringLiteral("报表"));
  setAttribute(Qt::WA_InputMethodEnabled);
  MakeBlockMenu();
  connect(header_, &GridViewHeader::widthsChanged, this, &GridView::LayOut);
  connect(header_, &GridViewHeader::fitWanted, this, &GridView::FitColumn);
  connect(header_, &GridViewHeader::moveWanted, this, &GridView::MoveColumn);
  connect(header_, &GridViewHeader::menuWanted, this, &GridView::OpenColumnMenu);
  connect(header_, &GridViewHeader::scrollWanted, this,
          [this](int by) { horizontalScrollBar()->setValue(horizontalScrollBar()->value() + by); });
  connect(header_, &GridViewHeader::columnClicked, this, [this](int column) {
    const int place = columns_.PlaceOf(column);
    SelectPlaces({0, rows_.Count() - 1, place, place});
  });
}

void GridView::SetReport(ComputedReport* report) { Show(report == nullptr ? nullptr : &report->grid, report); }

void GridView::SetGrid(CTzGrid* grid) { Show(grid, nullptr); }

void GridView::Show(CTzGrid* grid, const ComputedReport* report) {
  grid_ = grid;
  report_ = report;
  current_ = anchor_ = pressed_ = {};
  doubts_.clear();
  if (grid != nullptr) current_ = anchor_ = {grid->GetCurrentRow(), grid->GetCurrentCol()};
  Refresh();
  verticalScrollBar()->setValue(0);
  horizontalScrollBar()->setValue(0);
  if (current_.valid()) ShowCell(current_);
}

void GridView::Refresh() {
  static const CTzGrid nothing;
  columns_.Measure(grid_ != nullptr ? *grid_ : nothing, Fonts());
  rowHeight_ = std::max(smallestRow, fontMetrics().height() + 5);
  rowState_.Set(grid_, report_ == nullptr ? nullptr : &report_->subjects);
  const auto keep = [this](GridCell cell) {
    if (!cell.valid() || Empty()) return GridCell{};
    return GridCell{std::min(cell.row, RowCount() - 1),
                    columns_.NearestShown(std::min(cell.column, columns_.Count() - 1))};
  };
  current_ = keep(current_);
  anchor_ = keep(anchor_);
  KeepCurrentShown();
  if (current_.valid()) grid_->ActivateCell(current_.row, current_.column);
  LayOut();
  SumUp();
  if (QAccessible::isActive()) {
    QAccessibleTableModelChangeEvent reset(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&reset);
  }
  emit refreshed();
}

void GridView::SetHideZeros(bool hide) {
  hideZeros_ = hide;
  viewport()->update();
}

int GridView::AskedWidth() const {
  return columns_.AskedWidth() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

void GridView::LayOut() {
  const int headerHeight = header_->HeightNeeded();
  setViewportMargins(0, headerHeight, 0, 0);
  const QRect view = viewport()->geometry();
  columns_.FillRoom(view.width());
  header_->setGeometry(view.left(), view.top() - headerHeight, view.width(), headerHeight);
  header_->update();

  // A scroll bar counts in int; grids of more than eighty million rows do not occur.
  const std::int64_t height = rows_.Count() * rowHeight_;
  const auto limit = static_cast<std::int64_t>(std::numeric_limits<int>::max());
  verticalScrollBar()->setRange(0, static_cast<int>(std::clamp<std::int64_t>(height - view.height(), 0, limit)));
  verticalScrollBar()->setPageStep(view.height());
  verticalScrollBar()->setSingleStep(rowHeight_);
  horizontalScrollBar()->setRange(0, std::max(0, columns_.TotalWidth() - view.width()));
  horizontalScrollBar()->setPageStep(view.width());
  horizontalScrollBar()->setSingleStep(rowHeight_);
  columns_.SetOffset(horizontalScrollBar()->value());
  viewport()->update();
}

int GridView::TopOf(std::int64_t place) const {
  constexpr std::int64_t far = std::numeric_limits<int>::max() / 2;
  return static_cast<int>(std::clamp(place * rowHeight_ - verticalScrollBar()->value(), -far, far));
}

QRect GridView::CellRect(std::int64_t row, int column) const {
  const GridCell place = PlaceOf({row, column});
  if (!place.valid() || !rows_.Shows(row)) return {};
  return {columns_.XOf(place.column), TopOf(place.row), columns_.WidthOf(place.column), rowHeight_};
}

QRect GridView::VisiblePart(GridCell cell) const {
  const GridCell place = PlaceOf(cell);
  if (!place.valid()) return {};
  QRect view = viewport()->rect();
  if (!columns_.IsFrozen(place.column)) view.setLeft(columns_.FrozenWidth());
  return CellRect(cell.row, cell.column).intersected(view);
}

GridCell GridView::PlaceOf(GridCell cell) const {
  if (!cell.valid() || !columns_.IsShown(cell.column)) return {};
  return {rows_.PlaceOf(cell.row), columns_.PlaceOf(cell.column)};
}

GridCell GridView::CellOfPlace(GridCell place) const {
  if (!place.valid() || place.column >= columns_.ShownCount()) return {};
  return {rows_.RowAt(place.row), columns_.ColumnAtPlace(place.column)};
}

GridPart GridView::SelectedPart() const {
  const GridRange selected = Selection();
  GridPart part{.rows = &rows_, .top = selected.top, .bottom = selected.bottom};
  if (selected.empty()) return part;
  const auto first = columns_.Shown().begin();
  part.columns.assign(first + selected.left, first + selected.right + 1);
  return part;
}

GridCell GridView::CellAt(QPoint place) const {
  if (Empty()) return {};
  if (const auto heading = StuckAt(place)) return CellOfPlace({rows_.PlaceOf(*heading), columns_.PlaceAt(place.x())});
  return CellBelow(place);
}

GridCell GridView::CellBelow(QPoint place) const {
  const std::int64_t row = (static_cast<std::int64_t>(verticalScrollBar()->value()) + place.y()) / rowHeight_;
  return CellOfPlace({std::clamp<std::int64_t>(row, 0, rows_.Count() - 1), columns_.PlaceAt(place.x())});
}

bool GridView::SetCurrent(std::int64_t row, int column) {
  if (grid_ == nullptr || !grid_->ActivateCell(row, column)) return false;
  MoveTo({row, columns_.NearestShown(column)}, false);
  return true;
}

void GridView::SelectAll() { SelectPlaces({0, rows_.Count() - 1, 0, columns_.ShownCount() - 1}); }

bool GridView::SelectPlaces(const GridRange& places) {
  const bool inside =
      places.top >= 0 && places.left >= 0 && places.bottom < rows_.Count() && places.right < columns_.ShownCount();
  if (places.empty() || !inside) return false;
  Select(CellOfPlace({places.top, places.left}), CellOfPlace({places.bottom, places.right}));
  return true;
}

void GridView::MoveTo(GridCell cell, bool extend) {
  if (!cell.valid()) return;
  Select(extend && anchor_.valid() ? anchor_ : cell, cell);
  ShowCell(cell);
}

void GridView::Select(GridCell anchor, GridCell current) {
  const bool moved = current != current_;
  if (!moved && anchor == anchor_) return;
  anchor_ = anchor;
  current_ = current;
  viewport()->update();
  SumUp();
  if (!moved) return;
  grid_->ActivateCell(current.row, current.column);
  TellCurrent();
  emit currentChanged(current.row, current.column);
}

void GridView::ShowCell(GridCell cell) {
  const QRect place = CellRect(cell.row, cell.column);
  const QRect view = viewport()->rect();
  QScrollBar* vertical = verticalScrollBar();
  const int covered = StuckAbove(cell.row) * rowHeight_;
  if (place.top() < covered) vertical->setValue(vertical->value() + place.top() - covered);
  if (place.bottom() > view.bottom()) vertical->setValue(vertical->value() + place.bottom() - view.bottom());
  ShowColumnInView(cell.column);
}

void GridView::SumUp() {
  sum_ = grid_ == nullptr ? RangeSum() : RangeSum(*grid_, SelectedPart());
  summing_.start(0, this);
}

void GridView::TellCurrent() {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent event(this, QAccessible::Focus);
  const GridCell place = PlaceOf(current_);
  event.setChild(static_cast<int>(place.row) * columns_.ShownCount() + place.column);
  QAccessible::updateAccessibility(&event);
}

void GridView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == summing_.timerId()) {
    if (grid_ != nullptr && !sum_.Add(*grid_, sumSlice)) return;
    summing_.stop();
    LineSums sums = sum_.Sums();
    sums.ofVouchers = ShowsVoucherLines();
    emit selectionSummaryChanged(sums);
  } else if (event->timerId() == dragging_.timerId()) {
    MoveTo(CellBelow(pointer_), true);
  } else {
    QAbstractScrollArea::timerEvent(event);
  }
}

GridCell GridView::PlaceFor(const QKeyEvent& event) const {
  // Before any cell is current, the first key goes to the first one.
  const bool first = !current_.valid();
  GridCell cell = first ? GridCell{0, 0} : PlaceOf(current_);
  const bool control = event.modifiers().testFlag(Qt::ControlModifier);
  const std::int64_t page = std::max(viewport()->height() / rowHeight_ - 1, 1);
  const std::int64_t lastRow = rows_.Count() - 1;
  const int lastColumn = columns_.ShownCount() - 1;
  switch (event.key()) {
    case Qt::Key_Up:
      cell.row = control ? 0 : cell.row - 1;
      break;
    case Qt::Key_Down:
      cell.row = control ? lastRow : cell.row + 1;
      break;
    case Qt::Key_PageUp:
      cell.row -= page;
      break;
    case Qt::Key_PageDown:
      cell.row += page;
      break;
    case Qt::Key_Left:
      cell.column = control ? 0 : cell.column - 1;
      break;
    case Qt::Key_Right:
      cell.column = control ? lastColumn : cell.column + 1;
      break;
    case Qt::Key_Home:
      cell = {control ? 0 : cell.row, 0};
      break;
    case Qt::Key_End:
      cell = {control ? lastRow : cell.row, lastColumn};
      break;
    default:
      return {};
  }
  if (first) return {0, 0};
  return {std::clamp<std::int64_t>(cell.row, 0, lastRow), std::clamp(cell.column, 0, lastColumn)};
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
  const auto controlAndShift = Qt::ControlModifier | Qt::ShiftModifier;
  if (event->key() == Qt::Key_Menu || (event->key() == Qt::Key_F10 && shift)) {
    OpenMenuAtCurrent();
  } else if (Empty()) {
    if (!TakeTyping(*event)) event->ignore();
  } else if (ArrangeByKey(*event)) {
    event->accept();
  } else if (event->matches(QKeySequence::Copy)) {
    Copy();
  } else if (event->key() == Qt::Key_C && event->modifiers() == controlAndShift) {
    CopyWithHeadings();
  } else if (event->matches(QKeySequence::SelectAll)) {
    SelectAll();
  } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && current_.valid()) {
    emit rowActivated(current_.row);
  } else if (TakeBlockKey(*event)) {
    event->accept();
  } else if (const GridCell cell = CellOfPlace(PlaceFor(*event)); cell.valid()) {
    MoveTo(cell, shift);
  } else if (!TakeTyping(*event)) {
    event->ignore();
  }
}

void GridView::mousePressEvent(QMouseEvent* event) {
  pointer_ = pressedAt_ = event->position().toPoint();
  pressed_ = {};
  if (event->button() != Qt::LeftButton || Empty() || TakeBlockClick(pointer_)) return;
  const GridCell cell = CellAt(pointer_);
  const bool extends = event->modifiers().testFlag(Qt::ShiftModifier);
  if (!extends && VisiblePart(cell).contains(pointer_)) pressed_ = cell;
  MoveTo(cell, extends);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = event->position().toPoint();
  if (!event->buttons().testFlag(Qt::LeftButton) || Empty()) return;
  const bool trembles = (pointer_ - pressedAt_).manhattanLength() < QApplication::startDragDistance();
  if (pressed_.valid() && trembles) return;
  pressed_ = {};
  MoveTo(CellBelow(pointer_), true);
  // Held outside, the pointer goes on scrolling.
  if (viewport()->rect().contains(pointer_)) {
    dragging_.stop();
  } else if (!dragging_.isActive()) {
    dragging_.start(dragInterval, this);
  }
}

void GridView::mouseReleaseEvent(QMouseEvent* /*event*/) {
  dragging_.stop();
  const GridCell cell = std::exchange(pressed_, {});
  if (cell.valid()) emit cellClicked(cell.row, cell.column);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const GridCell cell = CellAt(place);
  if (event->button() == Qt::LeftButton && !TakeBlockClick(place) && VisiblePart(cell).contains(place)) {
    MoveTo(cell, false);
    if (cell.column != marks_.column) emit rowActivated(cell.row);
  }
}

void GridView::scrollContentsBy(int dx, int /*dy*/) {
  if (dx != 0) {
    columns_.SetOffset(horizontalScrollBar()->value());
    header_->update();
  }
  viewport()->update();
}

void GridView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  LayOut();
}

void GridView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) Refresh();
}

void GridView::CellChanged(GridCell cell) {
  viewport()->update();
  const GridCell place = PlaceOf(cell);
  if (!QAccessible::isActive() || !place.valid()) return;
  QAccessibleEvent event(this, QAccessible::NameChanged);
  event.setChild(static_cast<int>(place.row) * columns_.ShownCount() + place.column);
  QAccessible::updateAccessibility(&event);
}

void GridView::SetDoubt(GridCell cell, const QString& reason) {
  const std::pair key(cell.row, cell.column);
  if (reason.isEmpty()) {
    doubts_.erase(key);
  } else {
    doubts_[key] = reason;
  }
  viewport()->update();
}

QString GridView::DoubtOf(GridCell cell) const {
  const auto found = doubts_.find({cell.row, cell.column});
  return found == doubts_.end() ? QString() : found->second;
}

// The full text of a cell that is too narrow for it, or why it is hatched.
bool GridView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const GridCell cell = CellAt(help->pos());
  const QRect place = VisiblePart(cell);
  const bool inside = place.contains(help->pos());
  const QString doubt = inside ? DoubtOf(cell) : QString();
  const QString text = !inside ? QString() : doubt.isEmpty() ? ShownText(cell.row, cell.column) : doubt;
  const bool fits =
      doubt.isEmpty() && fontMetrics().horizontalAdvance(text) <= place.width() - 2 * GridViewColumns::margin;
  QToolTip::showText(help->globalPos(), fits ? QString() : text.toHtmlEscaped(), viewport(), place);
  return true;
}

}  // namespace tz
