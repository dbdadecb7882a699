#include "desktop/gridview/grid_view_header.h"

#include <QMouseEvent>
#include <QPainter>

#include "desktop/theme/theme.h"

namespace tz {

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
  painter.setClipping(false);
  painter.setPen(theme.strongRule);
  painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

void GridViewHeader::PaintCaptions(QPainter& painter, int firstPlace, int lastPlace) {
  for (int place = firstPlace; place <= lastPlace; ++place) {
    const int column = columns_.ColumnAtPlace(place);
    const QRect caption = CaptionRect(column);
    PaintCaption(painter, caption, caption, columns_.CaptionOf(column));
  }
}

void GridViewHeader::PaintCaption(QPainter& painter, const QRect& place, const QRect& seen, const QString& caption) {
  if (!place.intersects(rect())) return;
  const Theme& theme = currentTheme();
  painter.setPen(theme.rule);
  painter.drawLine(place.topRight(), place.bottomRight());
  painter.drawLine(place.bottomLeft(), place.bottomRight());
  painter.setPen(theme.text);
  const QRect room = seen.adjusted(4, 0, -4, 0);
  painter.drawText(room, Qt::AlignCenter, fontMetrics().elidedText(caption, Qt::ElideRight, room.width()));
}

void GridViewHeader::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || columns_.ShownCount() == 0) return;
  const int x = qRound(event->position().x());
  drawnPlace_ = columns_.EdgeAt(x);
  if (drawnPlace_ >= 0) {
    grip_ = columns_.XOf(drawnPlace_) + columns_.WidthOf(drawnPlace_) - x;
    return;
  }
  const int column = columns_.ColumnAtPlace(columns_.PlaceAt(x));
  if (CaptionRect(column).right() >= x) emit columnClicked(column);
}

void GridViewHeader::mouseMoveEvent(QMouseEvent* event) {
  const int x = qRound(event->position().x());
  if (drawnPlace_ < 0) {
    setCursor(columns_.EdgeAt(x) >= 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
    return;
  }
  columns_.SetWidth(drawnPlace_, x + grip_ - columns_.XOf(drawnPlace_));
  emit widthsChanged();
}

void GridViewHeader::mouseReleaseEvent(QMouseEvent* /*event*/) { drawnPlace_ = -1; }

void GridViewHeader::mouseDoubleClickEvent(QMouseEvent* event) {
  const int place = columns_.EdgeAt(qRound(event->position().x()));
  if (place >= 0) emit fitWanted(columns_.ColumnAtPlace(place));
}

}  // namespace tz
