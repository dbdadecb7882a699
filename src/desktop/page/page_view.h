// The sheets of a report below each other, as they will be printed. Only those in sight are painted, so a thousand are
// there at once.
#pragma once

#include <QAbstractScrollArea>
#include <QPixmap>
#include <memory>

#include "desktop/page/page_painter.h"

namespace tz {

class PageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  // How large a sheet is shown: in percent of paper, or as the view has room.
  static constexpr int wholeSheet = 0;
  static constexpr int sheetWidth = -1;

  explicit PageView(QWidget* parent);

  // The pages must outlive it, or the next ones.
  void Show(const ReportPages& pages);
  void SetZoom(int zoom);
  [[nodiscard]] int Zoom() const { return zoom_; }
  // The percent that is shown now.
  [[nodiscard]] int Percent() const;
  [[nodiscard]] int Sheets() const;
  // The sheet that takes the middle of the view, from 0.
  [[nodiscard]] int Current() const;
  void GoTo(int sheet);

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
  [[nodiscard]] double Scale() const;  // pixels a point
  [[nodiscard]] QSizeF SheetSize() const;
  [[nodiscard]] QRectF SheetPlace(int sheet) const;  // in the viewport
  void LayOut();
  // Keeps the sheet in the middle while its size changes.
  template <typename Change>
  void KeepingPlace(Change change);

  const ReportPages* pages_ = nullptr;
  std::unique_ptr<PagePainter> painter_;
  int zoom_ = wholeSheet;
};

}  // namespace tz
