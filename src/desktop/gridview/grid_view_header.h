// The head of a grid view: captions, captions above groups, and the edges by which columns are drawn wider.
#pragma once

#include <QWidget>

#include "desktop/gridview/grid_view_columns.h"

namespace tz {

class GridViewHeader : public QWidget {
  Q_OBJECT

 public:
  GridViewHeader(GridViewColumns& columns, QWidget* parent);

  // How far the columns are scrolled to the left.
  void SetOffset(int offset);
  [[nodiscard]] int HeightNeeded() const;
  // Where a caption stands: over both levels when no group stands above it.
  [[nodiscard]] QRect CaptionRect(int column) const;
  [[nodiscard]] QRect GroupRect(const GridViewColumns::Group& group) const;

 signals:
  void widthsChanged();
  void columnClicked(int column);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  [[nodiscard]] int LevelHeight() const;

  GridViewColumns& columns_;
  int offset_ = 0;
  int drawnColumn_ = -1;
  int grip_ = 0;  // from the pointer to the edge it took
};

}  // namespace tz
