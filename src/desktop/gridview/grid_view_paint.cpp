// How rows and cells of a grid view look.
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include "desktop/gridview/grid_view.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

// Columns of one or two signs, such as the direction, read best in the middle.
constexpr int narrowColumn = 60;

}  // namespace

struct GridView::Style {
  QFont font;
  QColor text;
};

void GridView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), currentTheme().ground);
  if (Empty()) {
    PaintNothing(painter);
    return;
  }
  const QRect area = event->rect();
  const int offset = horizontalScrollBar()->value();
  const std::int64_t scrolled = verticalScrollBar()->value();
  const std::int64_t first = (scrolled + area.top()) / rowHeight_;
  const std::int64_t last = std::min((scrolled + area.bottom()) / rowHeight_, rows_.Count() - 1);
  const int firstColumn = columns_.ColumnAt(area.left() + offset);
  const int lastColumn = columns_.ColumnAt(area.right() + offset);
  for (std::int64_t place = first; place <= last; ++place) PaintRow(painter, place, firstColumn, lastColumn);

  if (!current_.valid() || !hasFocus()) return;
  painter.setPen(QPen(currentTheme().accent, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(CellRect(current_.row, current_.column).adjusted(1, 0, -2, -1));
}

void GridView::PaintNothing(QPainter& painter) const {
  painter.setPen(currentTheme().mutedText);
  painter.drawText(viewport()->rect(), Qt::AlignCenter, emptyText_);
}

void GridView::PaintRow(QPainter& painter, std::int64_t place, int firstColumn, int lastColumn) const {
  const Theme& theme = currentTheme();
  const std::int64_t row = rows_.RowAt(place);
  const RowKind kind = grid_->RowKindAt(row);
  const Rgb colour = grid_->BackgroundAt(row);
  const QRect line(-horizontalScrollBar()->value(), TopOf(place), columns_.TotalWidth(), rowHeight_);
  const auto cellAt = [&](int column) {
    return QRect(line.left() + columns_.LeftOf(column), line.top(), columns_.WidthOf(column), rowHeight_);
  };
  painter.fillRect(line, colour == noColour && addsUp(kind) ? theme.header : rowColour(colour));

  const GridRange selected = Selection();
  if (place >= selected.top && place <= selected.bottom) {
    const int left = columns_.LeftOf(selected.left);
    const int width = columns_.LeftOf(selected.right + 1) - left;
    painter.fillRect(QRect(line.left() + left, line.top(), width, rowHeight_), theme.selection);
  }

  Style style{font(), theme.text};
  if (kind == RowKind::heading) style.text = theme.accent;
  if (kind == RowKind::opening) style.text = theme.mutedText;
  if (kind == RowKind::heading || addsUp(kind)) style.font.setWeight(QFont::DemiBold);
  painter.setFont(style.font);
  for (int column = firstColumn; column <= lastColumn; ++column) {
    PaintCell(painter, cellAt(column), row, column, style);
  }

  painter.setPen(theme.rule);
  painter.drawLine(line.bottomLeft(), line.bottomRight());
  for (int column = firstColumn; column <= lastColumn; ++column) {
    const QRect cell = cellAt(column);
    painter.drawLine(cell.topRight(), cell.bottomRight());
  }
  if (addsUp(kind)) {
    painter.setPen(QPen(theme.strongRule, kind == RowKind::total ? 2 : 1));
    painter.drawLine(line.topLeft(), line.topRight());
  }
}

QString GridView::ShownText(std::int64_t row, int column) const {
  const bool number = grid_->TypeAt(row, column) == CTzGrid::CellType::number;
  const bool hidden = hideZeros_ && number && grid_->NumberAt(row, column) == 0 && !addsUp(grid_->RowKindAt(row));
  return hidden ? QString() : QString::fromStdString(grid_->ShownAt(row, column));
}

void GridView::PaintCell(QPainter& painter, const QRect& cell, std::int64_t row, int column, const Style& style) const {
  const CTzGrid::CellType type = grid_->TypeAt(row, column);
  if (type == CTzGrid::CellType::empty) return;
  const QRect room = cell.adjusted(GridViewColumns::margin, 0, -GridViewColumns::margin, 0);
  QString text = ShownText(row, column);
  const QFontMetrics metrics(style.font);
  if (type == CTzGrid::CellType::number) {
    painter.setPen(grid_->NumberAt(row, column) < 0 ? currentTheme().negative : style.text);
    // A figure that lost its first digits would read as another figure.
    if (metrics.horizontalAdvance(text) > room.width()) text = QString(room.width() / 8, QLatin1Char('#'));
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, text);
    return;
  }
  painter.setPen(style.text);
  const bool narrow = grid_->Columns()[static_cast<std::size_t>(column)].width <= narrowColumn;
  const Qt::Alignment side = narrow ? Qt::AlignHCenter : Qt::AlignLeft;
  painter.drawText(room, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine,
                   metrics.elidedText(text, Qt::ElideRight, room.width()));
}

}  // namespace tz
