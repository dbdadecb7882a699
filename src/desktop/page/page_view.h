// The sheets of a report below each other, one or two in a row, as they will be printed. Only those in sight are
// painted, so a thousand are there at once.
#pragma once

#include <QAbstractScrollArea>
#include <memory>

#include "desktop/page/page_painter.h"

namespace tz {

class PageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  // How large a sheet is shown: in percent of paper, or as the view has room.
  static constexpr int wholeSheet = 0;
  static constexpr int sheetWidth = -1;
  static constexpr int twoSheets = -2;  // beside each other, whole

  explicit PageView(QWidget* parent);

  // The pages must outlive it, or the next ones. Begins at the first sheet.
  void Show(const ReportPages& pages);
  void SetZoom(int zoom);
  [[nodiscard]] int Zoom() const { return zoom_; }
  // The percent that is shown now.
  [[nodiscard]] int Percent() const;
  [[nodiscard]] int Sheets() const;
  // The sheet that was gone to, from 0; after scrolling, the one in the middle of the view, the left one of two.
  [[nodiscard]] int Current() const { return current_; }
  void GoTo(int sheet);
  // By rows of sheets, forwards or backwards.
  void Turn(int rows) { GoTo(current_ + rows * Across()); }
  [[nodiscard]] bool AtEnd() const { return current_ / Across() + 1 >= Rows(); }

 signals:
  void currentChanged(int sheet);
  void zoomAsked(int steps);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  [[nodiscard]] int Across() const { return zoom_ == twoSheets ? 2 : 1; }
  [[nodiscard]] int Rows() const { return (Sheets() + Across() - 1) / Across(); }
  [[nodiscard]] double Scale() const;  // pixels a point
  [[nodiscard]] QSizeF SheetSize() const;
  [[nodiscard]] double RowHeight() const;
  [[nodiscard]] QRectF SheetPlace(int sheet) const;  // in the viewport
  [[nodiscard]] int SheetInTheMiddle() const;
  void LayOut();
  // Keeps the sheet in the middle while its size changes.
  template <typename Change>
  void KeepingPlace(Change change);
  // A whole sheet at once where it is seen whole, else as much as is seen.
  void Leaf(int direction);

  const ReportPages* pages_ = nullptr;
  std::unique_ptr<PagePainter> painter_;
  int zoom_ = wholeSheet;
  int current_ = 0;
};

}  // namespace tz
