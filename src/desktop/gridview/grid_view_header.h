// The head of a grid view: captions, captions above groups, the edges by which columns are drawn wider. A caption is
// clicked to select its column and drawn elsewhere to move it; a mark shows where it comes to stand.
#pragma once

#include <QBasicTimer>
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
  // False when no column was being moved.
  bool CancelMove();

 signals:
  void widthsChanged();
  void fitWanted(int column);
  void columnClicked(int column);
  // Before the column at that place, or behind all.
  void moveWanted(int column, int before);
  void menuWanted(int column, QPoint global);
  // Further to the right, or to the left: a column is held at the edge.
  void scrollWanted(int by);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool event(QEvent* event) override;

 private:
  [[nodiscard]] int LevelHeight() const;
  void PaintCaptions(QPainter& painter, int firstPlace, int lastPlace);
  void PaintCaption(QPainter& painter, const QRect& place, const QRect& seen, const QString& caption);

  // The column whose caption stands there; -1 for none.
  [[nodiscard]] int ColumnAt(int x) const;
  void HoldAt(QPoint pointer);
  void PaintMove(QPainter& painter) const;

  GridViewColumns& columns_;
  int drawnPlace_ = -1;
  int grip_ = 0;           // from the pointer to the edge it took
  int heldColumn_ = -1;    // its caption is held
  int heldAt_ = 0;         // where it was taken
  bool moving_ = false;    // and has been drawn away from there
  int insertBefore_ = -1;  // -1: let go here, it stays where it was
  QPoint pointer_;
  QBasicTimer scrolling_;
};

}  // namespace tz
