// How rows and cells of a grid view look.
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

#include "desktop/gridview/grid_view.h"
#include "desktop/theme/pixel_lines.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

// Columns of one or two signs, such as the direction, read best in the middle.
constexpr int narrowColumn = 60;

// Half as deep while the keys go elsewhere.
QColor currentRowGround(bool focus) {
  QColor ground = currentTheme().currentRow;
  if (!focus) ground.setAlpha(ground.alpha() / 2);
  return ground;
}

}  // namespace

struct GridView::Style {
  QFont font;
  QColor text;
};

// The columns that scroll, or those that do not: which places, and from where to where in the viewport.
struct GridView::Part {
  int firstPlace;
  int lastPlace;
  int left;
  int width;
};

void GridView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const QRect area = event->rect();
  painter.fillRect(area, currentTheme().ground);
  if (Empty()) {
    PaintNothing(painter);
    return;
  }
  const int frozen = columns_.FrozenWidth();
  const int end = std::min(columns_.TotalWidth() - horizontalScrollBar()->value(), viewport()->width());
  if (area.right() >= frozen && end > frozen) {
    PaintPart(painter, area,
              {columns_.PlaceAt(std::max(area.left(), frozen)), columns_.PlaceAt(area.right()), frozen, end - frozen});
  }
  if (area.left() < frozen) PaintPart(painter, area, {0, columns_.FrozenCount() - 1, 0, frozen});
}

void GridView::PaintPart(QPainter& painter, const QRect& area, const Part& part) const {
  painter.setClipRect(PixelLines(painter).Aligned({part.left, area.top(), part.width, area.height()}));
  const std::int64_t scrolled = verticalScrollBar()->value();
  const std::int64_t first = (scrolled + area.top()) / rowHeight_;
  const std::int64_t last = std::min((scrolled + area.bottom()) / rowHeight_, rows_.Count() - 1);
  for (std::int64_t place = first; place <= last; ++place) PaintRow(painter, place, TopOf(place), part);
  const GridCell current = PlaceOf(current_);
  if (hasFocus() && current.column >= part.firstPlace && current.column <= part.lastPlace) {
    PixelLines(painter).Frame(CellRect(current_.row, current_.column), currentTheme().accent, 2);
  }
  PaintStuck(painter, part);
  painter.setClipping(false);
}

// The current row looks otherwise while the keys go elsewhere.
void GridView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

// Inner headings first, so that one which is pushed out goes below the outer one.
void GridView::PaintStuck(QPainter& painter, const Part& part) const {
  const auto headings = StuckHeadings();
  std::for_each(headings.rbegin(), headings.rend(), [&](const auto& heading) {
    PaintRow(painter, rows_.PlaceOf(heading.row), heading.top, part);
    PixelLines(painter).Bottom({part.left, heading.top, part.width, rowHeight_}, currentTheme().strongRule);
  });
}

// A triangle that points down into an open block and to the side of a folded one.
void GridView::PaintSign(QPainter& painter, const QRect& sign, bool folded) const {
  const QPointF middle = QRectF(sign).center();
  constexpr double half = 4;
  constexpr double quarter = 2.5;
  QPolygonF triangle;
  if (folded) {
    triangle << middle + QPointF(-quarter, -half) << middle + QPointF(half - 0.5, 0)
             << middle + QPointF(-quarter, half);
  } else {
    triangle << middle + QPointF(-half, -quarter) << middle + QPointF(half, -quarter)
             << middle + QPointF(0, half - 0.5);
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(folded ? currentTheme().accent : currentTheme().mutedText);
  painter.drawPolygon(triangle);
  painter.restore();
}

void GridView::PaintNothing(QPainter& painter) const {
  painter.setPen(currentTheme().mutedText);
  const bool filtered = rowState_.Filtered() && RowCount() > 0;
  const QString text = filtered ? QStringLiteral("没有符合筛选条件的%1，这张表的行都隐藏着。\n按 Esc 清除筛选。")
                                      .arg(ShowsVoucherLines() ? QStringLiteral("分录") : QStringLiteral("行"))
                                : emptyText_;
  painter.drawText(viewport()->rect(), Qt::AlignCenter, text);
  if (hasFocus()) PixelLines(painter).Frame(viewport()->rect(), currentTheme().accent, 2);
}

void GridView::PaintRow(QPainter& painter, std::int64_t place, int top, const Part& part) const {
  const Theme& theme = currentTheme();
  const std::int64_t row = rows_.RowAt(place);
  const RowKind kind = grid_->RowKindAt(row);
  const Rgb colour = grid_->BackgroundAt(row);
  const QRect line(part.left, top, part.width, rowHeight_);
  const bool stuck = top != TopOf(place);
  painter.fillRect(line, colour == noColour && (addsUp(kind) || stuck) ? theme.header : rowColour(colour));

  const PixelLines lines(painter);
  const auto cellAt = [&](int shown) { return QRect(columns_.XOf(shown), top, columns_.WidthOf(shown), rowHeight_); };
  const GridRange selected = Selection();
  const int left = std::max(selected.left, part.firstPlace);
  const int right = std::min(selected.right, part.lastPlace);
  if (place >= selected.top && place <= selected.bottom && left <= right) {
    painter.fillRect(cellAt(left).united(cellAt(right)), theme.selection);
  }
  if (row == current_.row) painter.fillRect(line, currentRowGround(hasFocus()));

  Style style{font(), theme.text};
  if (kind == RowKind::heading) style.text = theme.accent;
  if (kind == RowKind::opening) style.text = theme.mutedText;
  if (kind == RowKind::heading || addsUp(kind)) style.font.setWeight(QFont::DemiBold);
  painter.setFont(style.font);
  for (int shown = part.firstPlace; shown <= part.lastPlace; ++shown) {
    QRect cell = cellAt(shown);
    if (const QRect sign = shown == 0 ? SignRect(row, top) : QRect(); sign.isValid()) {
      PaintSign(painter, sign, Blocks().TitledBy(row)->folded);
      cell.setLeft(sign.right() - GridViewColumns::margin / 2);
    }
    PaintCell(painter, cell, row, columns_.ColumnAtPlace(shown), style);
  }

  lines.Bottom(line, theme.rule);
  for (int shown = part.firstPlace; shown <= part.lastPlace; ++shown) lines.Right(cellAt(shown), theme.rule);
  if (addsUp(kind)) lines.Top(line, theme.strongRule, kind == RowKind::total ? 2 : 1);
  if (part.left == 0 && columns_.Scrolls()) lines.Right(line, theme.strongRule, 2);
}

QString GridView::ShownText(std::int64_t row, int column) const {
  const bool number = grid_->TypeAt(row, column) == CTzGrid::CellType::number;
  const bool hidden = hideZeros_ && number && grid_->NumberAt(row, column) == 0 && !addsUp(grid_->RowKindAt(row));
  return hidden ? QString() : QString::fromStdString(grid_->ShownAt(row, column));
}

QString GridView::SpokenText(std::int64_t row, int column) const {
  const QString shown = ShownText(row, column);
  const bool mark = column == marks_.column && marks_.words && grid_->RowKindAt(row) == RowKind::line;
  return mark ? marks_.words(shown) : shown;
}

void GridView::PaintCell(QPainter& painter, const QRect& cell, std::int64_t row, int column, const Style& style) const {
  const CTzGrid::CellType type = grid_->TypeAt(row, column);
  const bool doubtful = !doubts_.empty() && doubts_.contains({row, column});
  if (doubtful) {
    painter.fillRect(cell.adjusted(0, 0, -1, -1), QBrush(currentTheme().warning, Qt::BDiagPattern));
  }
  if (type == CTzGrid::CellType::empty) return;
  if (!mark_.empty() && mark_.Matches(*grid_, row, column)) {
    painter.fillRect(cell.adjusted(0, 0, -1, -1), currentTheme().warningGround);
  }
  QRect room = cell.adjusted(GridViewColumns::margin, 0, -GridViewColumns::margin, 0);
  QString text = ShownText(row, column);
  const QFontMetrics metrics(style.font);
  if (type == CTzGrid::CellType::number) {
    painter.setPen(grid_->NumberAt(row, column) < 0 ? currentTheme().negative : style.text);
    // A figure that lost its first digits, in a narrow column or below those that stay, would read as another figure.
    if (!columns_.IsFrozen(columns_.PlaceOf(column))) room.setLeft(std::max(room.left(), columns_.FrozenWidth() + 2));
    if (metrics.horizontalAdvance(text) > room.width()) text = QString(room.width() / 8, QLatin1Char('#'));
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, text);
    return;
  }
  painter.setPen(style.text);
  const bool narrow = grid_->Columns()[static_cast<std::size_t>(column)].width <= narrowColumn;
  const bool centred = narrow || column == marks_.column;
  const Qt::Alignment side = Qt::AlignVCenter | (centred ? Qt::AlignHCenter : Qt::AlignLeft);
  text = metrics.elidedText(text, Qt::ElideRight, room.width());
  if (doubtful && !text.isEmpty()) {
    // A sign between the lines of the hatching could not be told from them.
    const QRect sign =
        QStyle::alignedRect(Qt::LeftToRight, side, {metrics.horizontalAdvance(text), metrics.height()}, room);
    painter.fillRect(sign.adjusted(-GridViewColumns::margin / 2, 0, GridViewColumns::margin / 2, 0),
                     currentTheme().warningGround);
  }
  painter.drawText(room, static_cast<int>(side) | Qt::TextSingleLine, text);
}

}  // namespace tz
