#include "desktop/gridview/grid_view_header.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "desktop/theme/pixel_lines.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

// Further away from the head a column that is let go stays where it was.
constexpr int moveReach = 60;
// Held so near to an edge, it scrolls: so far each time.
constexpr int scrollStrip = 20;
constexpr int scrollStep = 24;
constexpr int scrollInterval = 40;  // milliseconds
constexpr int markWidth = 3;
constexpr int captionMargin = 4;

}  // namespace

GridViewHeader::GridViewHeader(GridViewColumns& columns, QWidget* parent) : QWidget(parent), columns_(columns) {
  setMouseTracking(true);
}

int GridViewHeader::LevelHeight() const { return fontMetrics().height() + 8; }

int GridViewHeader::HeightNeeded() const { return LevelHeight() * (columns_.Groups().empty() ? 1 : 2); }

QRect GridViewHeader::CaptionRect(int column) const {
  if (!columns_.IsShown(column)) return {};
  const int place = columns_.PlaceOf(column);
  const int top = columns_.InGroup(column) ? LevelHeight() : 0;
  return {columns_.XOf(place), top, columns_.WidthOf(place), height() - top};
}

QRect GridViewHeader::GroupRect(const GridViewColumns::Group& group) const {
  const int left = columns_.XOf(group.first);
  return {left, 0, columns_.XOf(group.last) + columns_.WidthOf(group.last) - left, LevelHeight()};
}

QRect GridViewHeader::VisiblePart(const GridViewColumns::Group& group) const {
  QRect seen = rect();
  seen.setLeft(columns_.FrozenWidth());
  return GroupRect(group).intersected(seen);
}

void GridViewHeader::paintEvent(QPaintEvent* /*event*/) {
  const Theme& theme = currentTheme();
  QPainter painter(this);
  painter.fillRect(rect(), theme.header);
  QFont font = painter.font();
  font.setWeight(QFont::Medium);
  painter.setFont(font);
  const int frozen = columns_.FrozenWidth();
  painter.setClipRect(rect().adjusted(frozen, 0, 0, 0));
  PaintCaptions(painter, columns_.FrozenCount(), columns_.ShownCount() - 1);
  for (const auto& group : columns_.Groups())
    PaintCaption(painter, GroupRect(group), VisiblePart(group), group.caption);
  painter.setClipRect(0, 0, frozen, height());
  PaintCaptions(painter, 0, columns_.FrozenCount() - 1);
  if (columns_.Scrolls()) PixelLines(painter).Right(QRect(0, 0, frozen, height()), theme.strongRule, 2);
  painter.setClipping(false);
  PixelLines(painter).Bottom(rect(), theme.strongRule);
  if (moving_) PaintMove(painter);
}

void GridViewHeader::PaintCaptions(QPainter& painter, int firstPlace, int lastPlace) {
  for (int place = firstPlace; place <= lastPlace; ++place) {
    const int column = columns_.ColumnAtPlace(place);
    const QRect caption = CaptionRect(column);
    QRect seen = caption;
    if (!columns_.IsFrozen(place)) seen.setLeft(std::max(seen.left(), columns_.FrozenWidth()));
    PaintCaption(painter, caption, seen, columns_.CaptionOf(column));
  }
}

void GridViewHeader::PaintCaption(QPainter& painter, const QRect& place, const QRect& seen, const QString& caption) {
  if (!place.intersects(rect())) return;
  const Theme& theme = currentTheme();
  const PixelLines lines(painter);
  lines.Right(place, theme.rule);
  lines.Bottom(place, theme.rule);
  painter.setPen(theme.text);
  if (!seen.isValid()) return;
  const QRect room = seen.adjusted(captionMargin, 0, -captionMargin, 0);
  painter.drawText(room, Qt::AlignCenter, fontMetrics().elidedText(caption, Qt::ElideRight, room.width()));
}

// The column that is held, and a mark where it comes to stand.
void GridViewHeader::PaintMove(QPainter& painter) const {
  const Theme& theme = currentTheme();
  QColor veil = theme.accent;
  veil.setAlphaF(0.2F);
  painter.fillRect(CaptionRect(heldColumn_), veil);
  if (insertBefore_ < 0) return;
  const int edge = columns_.EdgeBefore(insertBefore_);
  painter.fillRect(QRect(std::clamp(edge - 1, 0, width() - markWidth), 0, markWidth, height()), theme.accent);
}

int GridViewHeader::ColumnAt(int x) const {
  if (columns_.ShownCount() == 0) return -1;
  const int column = columns_.ColumnAtPlace(columns_.PlaceAt(x));
  return CaptionRect(column).right() >= x ? column : -1;
}

void GridViewHeader::mousePressEvent(QMouseEvent* event) {
  CancelMove();
  if (event->button() != Qt::LeftButton) return;
  const int x = qRound(event->position().x());
  drawnPlace_ = columns_.EdgeAt(x);
  if (drawnPlace_ >= 0) {
    grip_ = columns_.XOf(drawnPlace_) + columns_.WidthOf(drawnPlace_) - x;
  } else {
    heldColumn_ = ColumnAt(x);
    heldAt_ = x;
  }
}

void GridViewHeader::mouseMoveEvent(QMouseEvent* event) {
  const int x = qRound(event->position().x());
  if (drawnPlace_ >= 0) {
    columns_.SetWidth(drawnPlace_, x + grip_ - columns_.XOf(drawnPlace_));
    emit widthsChanged();
  } else if (heldColumn_ >= 0) {
    HoldAt(event->position().toPoint());
  } else {
    setCursor(columns_.EdgeAt(x) >= 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
  }
}

void GridViewHeader::HoldAt(QPoint pointer) {
  pointer_ = pointer;
  moving_ = moving_ || std::abs(pointer.x() - heldAt_) >= QApplication::startDragDistance();
  if (!moving_) return;
  const bool near = pointer.y() > -moveReach && pointer.y() < height() + moveReach;
  const int from = columns_.PlaceOf(heldColumn_);
  insertBefore_ = near ? columns_.InsertionAt(pointer.x()) : -1;
  if (insertBefore_ == from || insertBefore_ == from + 1) insertBefore_ = -1;
  setCursor(near ? Qt::ClosedHandCursor : Qt::ForbiddenCursor);
  const bool atLeft = pointer.x() >= columns_.FrozenWidth() && pointer.x() < columns_.FrozenWidth() + scrollStrip;
  const bool atEdge = pointer.x() < 0 || atLeft || pointer.x() > width() - scrollStrip;
  if (!near || !atEdge) {
    scrolling_.stop();
  } else if (!scrolling_.isActive()) {
    scrolling_.start(scrollInterval, this);
  }
  update();
}

void GridViewHeader::timerEvent(QTimerEvent* /*event*/) {
  emit scrollWanted(pointer_.x() > width() / 2 ? scrollStep : -scrollStep);
  HoldAt(pointer_);
}

bool GridViewHeader::CancelMove() {
  const bool moving = moving_;
  scrolling_.stop();
  heldColumn_ = -1;
  insertBefore_ = -1;
  moving_ = false;
  if (moving) setCursor(Qt::ArrowCursor);
  update();
  return moving;
}

void GridViewHeader::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  drawnPlace_ = -1;
  const int column = heldColumn_;
  const int before = insertBefore_;
  const bool moved = CancelMove();
  if (column >= 0 && !moved) emit columnClicked(column);
  if (moved && before >= 0) emit moveWanted(column, before);
}

void GridViewHeader::mouseDoubleClickEvent(QMouseEvent* event) {
  const int place = columns_.EdgeAt(qRound(event->position().x()));
  if (place >= 0 && event->button() == Qt::LeftButton) emit fitWanted(columns_.ColumnAtPlace(place));
}

void GridViewHeader::contextMenuEvent(QContextMenuEvent* event) {
  CancelMove();
  emit menuWanted(ColumnAt(event->pos().x()), event->globalPos());
}

// The full caption of a column that is too narrow for it.
bool GridViewHeader::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int column = ColumnAt(help->pos().x());
  const QRect place = CaptionRect(column);
  const bool hit = column >= 0 && place.contains(help->pos());
  const bool fits =
      hit && fontMetrics().horizontalAdvance(columns_.CaptionOf(column)) <= place.width() - 2 * captionMargin;
  QToolTip::showText(help->globalPos(), hit && !fits ? columns_.CaptionOf(column).toHtmlEscaped() : QString(), this,
                     place);
  return true;
}

}  // namespace tz
