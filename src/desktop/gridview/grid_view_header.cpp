#include "desktop/gridview/grid_view_header.h"

#include <QMouseEvent>
#include <QPainter>

#include "desktop/theme/theme.h"

namespace tz {

GridViewHeader::GridViewHeader(GridViewColumns& columns, QWidget* parent) : QWidget(parent), columns_(columns) {
  setMouseTracking(true);
}

void GridViewHeader::SetOffset(int offset) {
  offset_ = offset;
  update();
}

int GridViewHeader::LevelHeight() const { return fontMetrics().height() + 8; }

int GridViewHeader::HeightNeeded() const { return LevelHeight() * (columns_.Groups().empty() ? 1 : 2); }

QRect GridViewHeader::CaptionRect(int column) const {
  const int top = columns_.InGroup(column) ? LevelHeight() : 0;
  return {columns_.LeftOf(column) - offset_, top, columns_.WidthOf(column), height() - top};
}

QRect GridViewHeader::GroupRect(const GridViewColumns::Group& group) const {
  const int left = columns_.LeftOf(group.first);
  return {left - offset_, 0, columns_.LeftOf(group.last + 1) - left, LevelHeight()};
}

void GridViewHeader::paintEvent(QPaintEvent* /*event*/) {
  const Theme& theme = currentTheme();
  QPainter painter(this);
  painter.fillRect(rect(), theme.header);
  QFont font = painter.font();
  font.setWeight(QFont::Medium);
  painter.setFont(font);
  const auto cell = [&](const QRect& place, const QString& caption) {
    if (!place.intersects(rect())) return;
    painter.setPen(theme.rule);
    painter.drawLine(place.topRight(), place.bottomRight());
    painter.drawLine(place.bottomLeft(), place.bottomRight());
    painter.setPen(theme.text);
    const QRect room = place.adjusted(4, 0, -4, 0);
    painter.drawText(room, Qt::AlignCenter, fontMetrics().elidedText(caption, Qt::ElideRight, room.width()));
  };
  for (int column = 0; column < columns_.Count(); ++column) cell(CaptionRect(column), columns_.CaptionOf(column));
  for (const auto& group : columns_.Groups()) cell(GroupRect(group), group.caption);
  painter.setPen(theme.strongRule);
  painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

void GridViewHeader::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || columns_.Count() == 0) return;
  const int x = qRound(event->position().x()) + offset_;
  drawnColumn_ = columns_.EdgeAt(x);
  if (drawnColumn_ >= 0) {
    grip_ = columns_.LeftOf(drawnColumn_ + 1) - x;
  } else if (x < columns_.TotalWidth()) {
    emit columnClicked(columns_.ColumnAt(x));
  }
}

void GridViewHeader::mouseMoveEvent(QMouseEvent* event) {
  const int x = qRound(event->position().x()) + offset_;
  if (drawnColumn_ < 0) {
    setCursor(columns_.EdgeAt(x) >= 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
    return;
  }
  columns_.SetWidth(drawnColumn_, x + grip_ - columns_.LeftOf(drawnColumn_));
  emit widthsChanged();
}

void GridViewHeader::mouseReleaseEvent(QMouseEvent* /*event*/) { drawnColumn_ = -1; }

void GridViewHeader::mouseDoubleClickEvent(QMouseEvent* event) {
  const int column = columns_.EdgeAt(qRound(event->position().x()) + offset_);
  if (column < 0) return;
  columns_.ResetWidth(column);
  emit widthsChanged();
}

}  // namespace tz
