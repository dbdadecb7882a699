// The head of a grid view: captions, captions above groups, and the edges by which columns are drawn wider.
#pragma once

#include <QWidget>

#include "desktop/gridview/grid_view_columns.h"

namespace tz {

class GridViewHeader : public QWidget {
  Q_OBJECT

 public:
  GridViewHeader(GridViewColumns& columns, QWidget* parent);

  [[nodiscard]] int HeightNeeded() const;
  // Where a caption stands: over both levels when no group stands above it; empty for a hidden column.
  [[nodiscard]] QRect CaptionRect(int column) const;
  [[nodiscard]] QRect GroupRect(const GridViewColumns::Group& group) const;
  // What of it is neither below the columns that do not scroll nor out of the window: there its caption stands.
  [[nodiscard]] QRect VisiblePart(const GridViewColumns::Group& group) const;

 signals:
  void widthsChanged();
  void fitWanted(int column);
  void columnClicked(int column);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  [[nodiscard]] int LevelHeight() const;
  void PaintCaptions(QPainter& painter, int firstPlace, int lastPlace);
  void PaintCaption(QPainter& painter, const QRect& place, const QRect& seen, const QString& caption);

  GridViewColumns& columns_;
  int drawnPlace_ = -1;
  int grip_ = 0;  // from the pointer to the edge it took
};

}  // namespace tz
