// The columns in which amounts stand on vouchers, digit by digit: a line between any two places, a stronger one at
// every third, a red one between yuan and jiao.
#pragma once

#include <QFontMetrics>
#include <QRect>

class QPainter;

namespace tz {

class MoneyGrid {
 public:
  // Wide enough for these amounts, and never narrower than a hundred million.
  void Hold(double amount);
  [[nodiscard]] int WidthFor(const QFontMetrics& metrics) const;

  // The names of the places: 亿千百十万千百十元角分.
  void PaintPlaces(QPainter& painter, const QRect& column) const;
  void PaintLines(QPainter& painter, const QRect& column) const;
  // In a line of that rectangle; nothing for 0 unless `zeros`. Negative ones are red, behind their minus.
  void PaintAmount(QPainter& painter, const QRect& column, double amount, bool zeros) const;

 private:
  [[nodiscard]] QRect Place(const QRect& column, int fromRight) const;

  int places_ = leastPlaces;
  static constexpr int leastPlaces = 11;
};

}  // namespace tz
