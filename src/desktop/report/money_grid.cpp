#include "desktop/report/money_grid.h"

#include <QPainter>
#include <algorithm>

#include "core/grid/figures.h"
#include "desktop/theme/pixel_lines.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int cents = 2;

// The digits of an amount as figures show it, with its minus and without its point.
QString digitsOf(double amount) {
  QString text = toQt(figureText(amount, ColumnKind::amount));
  text.remove(u',').remove(u'.');
  while (text.size() > 1 && text.front() == u'0') text.remove(0, 1);
  return text;
}

QString placeName(int fromRight) {
  static const QString names = QStringLiteral("分角元十百千万十百千亿十百千万十百千");
  return fromRight < names.size() ? names.mid(fromRight, 1) : QString();
}

}  // namespace

void MoneyGrid::Hold(double amount) { places_ = std::max(places_, static_cast<int>(digitsOf(amount).size())); }

int MoneyGrid::WidthFor(const QFontMetrics& metrics) const { return places_ * metrics.horizontalAdvance(u'0') * 2; }

QRect MoneyGrid::Place(const QRect& column, int fromRight) const {
  const auto edge = [&](int place) { return column.left() + column.width() * place / places_; };
  const int left = edge(places_ - 1 - fromRight);
  return {left, column.top(), edge(places_ - fromRight) - left, column.height()};
}

void MoneyGrid::PaintPlaces(QPainter& painter, const QRect& column) const {
  painter.save();
  QFont small = painter.font();
  small.setPixelSize(small.pixelSize() * 5 / 6);
  painter.setFont(small);
  for (int place = 0; place < places_; ++place) {
    painter.drawText(Place(column, place), Qt::AlignCenter, placeName(place));
  }
  painter.restore();
}

void MoneyGrid::PaintLines(QPainter& painter, const QRect& column) const {
  const Theme& theme = currentTheme();
  const PixelLines lines(painter);
  for (int place = 0; place + 1 < places_; ++place) {
    const bool third = place > cents && (place - cents) % 3 == 2;
    const QColor& colour = place + 1 == cents ? theme.negative : third ? theme.strongRule : theme.rule;
    lines.Left(Place(column, place), colour);
  }
}

void MoneyGrid::PaintAmount(QPainter& painter, const QRect& column, double amount, bool zeros) const {
  if (amount == 0 && !zeros) return;
  QString digits = digitsOf(amount);
  // A yuan stands before jiao and fen, "0.05".
  const bool negative = digits.startsWith(u'-');
  if (negative) digits.remove(0, 1);
  digits = digits.rightJustified(cents + 1, u'0');
  if (negative) digits.prepend(u'−');
  painter.save();
  painter.setPen(negative ? currentTheme().negative : currentTheme().text);
  for (int place = 0; place < digits.size(); ++place) {
    painter.drawText(Place(column, place), Qt::AlignCenter, digits.mid(digits.size() - 1 - place, 1));
  }
  painter.restore();
}

}  // namespace tz
