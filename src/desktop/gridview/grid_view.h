// Shows a CTzGrid: a head of one or two levels and rows of one height, of which only the visible ones are ever painted,
// so that millions scroll as well as ten. The grid stays its owner's; after a change of its contents call Refresh. Its
// context menu ends with the actions that were added to it as to any widget.
//
// Cells are named by the grid's own rows and columns in all that the view says and is told. What is shown, and where,
// are places: rows and columns counted as they are shown. A selection is a rectangle of places, and copies and sums are
// of what is shown.
#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <functional>
#include <map>
#include <optional>

#include "desktop/gridview/cell_matcher.h"
#include "desktop/gridview/grid_rows.h"
#include "desktop/gridview/grid_view_columns.h"
#include "desktop/gridview/grid_view_selection.h"

class QMenu;

namespace tz {

class GridViewHeader;

// A column of signs that mark lines. Its cells take clicks for themselves, so that a double click there opens no row;
// its signs stand in the middle; a filter can keep the lines without one.
struct MarkColumn {
  int column = -1;                                    // -1: none
  std::function<QString(const QString& sign)> words;  // what a line's sign is to a screen reader, also none
  QString withoutMark = {};                           // what the filter calls the lines without one
};

class GridView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit GridView(QWidget* parent = nullptr);

  // Null shows nothing. Starts at the top, on the grid's current cell if it has one.
  void SetGrid(CTzGrid* grid);
  // A report whose grid is shown, so that its table can be copied with what stands above it.
  void SetReport(ComputedReport* report);
  // Rows and columns are measured anew; the current cell stays where it still exists.
  void Refresh();
  // Zero figures are left out; totals keep theirs.
  void SetHideZeros(bool hide);
  // What stands in the middle of a grid without rows.
  void SetEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
  }

  // Makes a cell current, alone selected and visible; false outside the grid.
  bool SetCurrent(std::int64_t row, int column);
  [[nodiscard]] GridCell Current() const { return current_; }
  // Makes a row current, opens what is folded around it and shows it from the beginning of its block; false outside the
  // grid and for a row that is hidden otherwise.
  bool StandOn(std::int64_t row);
  // In places; empty when there is none.
  [[nodiscard]] GridRange Selection() const { return GridRange::between(PlaceOf(anchor_), PlaceOf(current_)); }
  [[nodiscard]] GridPart SelectedPart() const;
  void SelectAll();
  // From the upper left corner to the lower right one, which becomes current; false outside what is shown.
  bool SelectPlaces(const GridRange& places);
  // Puts the selected cells on the clipboard; with headings, under what stands above the report's table.
  void Copy() const;
  void CopyWithHeadings() const;

  // Where a cell is shown, and which cell is shown at a place. A hidden row has the place of the next one above it that
  // is shown; a hidden column has none.
  [[nodiscard]] GridCell PlaceOf(GridCell cell) const;
  [[nodiscard]] GridCell CellOfPlace(GridCell place) const;
  // In pixels of the viewport, beyond its edges and below the columns that do not scroll too; empty for what is hidden.
  [[nodiscard]] QRect CellRect(std::int64_t row, int column) const;
  // What of it can be seen.
  [[nodiscard]] QRect VisiblePart(GridCell cell) const;
  // The cell at a place of the viewport, the nearest one outside of all; none in an empty grid.
  [[nodiscard]] GridCell CellAt(QPoint place) const;
  [[nodiscard]] QString ShownText(std::int64_t row, int column) const;
  // The same for a screen reader.
  [[nodiscard]] QString SpokenText(std::int64_t row, int column) const;
  [[nodiscard]] std::int64_t RowCount() const { return grid_ != nullptr ? grid_->GetRows() : 0; }
  [[nodiscard]] const ShownRows& Rows() const { return rows_; }
  [[nodiscard]] const ComputedReport* Report() const { return report_; }
  // Whether the lines that are shown are those of vouchers, "分录"; those of tables are rows.
  [[nodiscard]] bool ShowsVoucherLines() const { return report_ == nullptr || report_->subjects.hasLines(); }

  // Blocks: grid_view_blocks.cpp.
  [[nodiscard]] const GridBlocks& Blocks() const { return rowState_.Blocks(); }
  // Folds the innermost open block around the current row, or opens the outermost folded one; false when there is none.
  bool FoldAtCurrent();
  bool OpenAtCurrent();
  // What can be shown: everything, then the totals of ever larger blocks ("全部", "月合计", "个人小计"), and which of
  // these is chosen. It stays for the reports that follow.
  [[nodiscard]] QStringList OutlineNames() const;
  [[nodiscard]] int Outline() const { return rowState_.Outline(); }
  void SetOutline(int outline);
  // "本月合计" and "本年累计"; a folded month keeps the one that stands for it.
  [[nodiscard]] bool MonthTotalsHidden() const { return rowState_.MonthTotalsHidden(); }
  void HideMonthTotals(bool hide);
  // Opens the folded blocks in which a row is hidden.
  void Reveal(std::int64_t row);
  [[nodiscard]] BarredRows Barred() const { return rowState_.Barred(); }
  [[nodiscard]] bool FoldsKept() const { return rowState_.FoldsKept(); }
  // To the next block or to the one before; false when there is none.
  bool GoToBlock(bool next);
  // The lines that a filter keeps; without a value every line. All blocks open for a filter.
  void SetKept(std::optional<RowBits> kept);
  // Sets apart the cells that match; an empty one none.
  void Mark(const CellMatcher& matcher);

  void SetMarkColumn(MarkColumn marks) { marks_ = std::move(marks); }
  [[nodiscard]] const MarkColumn& Marks() const { return marks_; }
  // Something else was written into a row: it is painted anew, and a screen reader told of the cell.
  void CellChanged(GridCell cell);
  // Hatches a cell that may not show what the ledger holds, with the reason as its tip; without one it is as the
  // others. Another report begins without.
  void SetDoubt(GridCell cell, const QString& reason);
  [[nodiscard]] QString DoubtOf(GridCell cell) const;

  // How wide the view would be to show every column.
  [[nodiscard]] int AskedWidth() const;
  [[nodiscard]] int RowHeight() const { return rowHeight_; }
  [[nodiscard]] GridViewHeader* Header() const { return header_; }

  [[nodiscard]] const GridViewColumns& Columns() const { return columns_; }
  // What a person made of the columns, to be kept and given back.
  [[nodiscard]] const ColumnArrangement& Arrangement() const { return columns_.Arrangement(); }
  void SetArrangement(const ColumnArrangement& arrangement);
  void SetColumnWidth(int column, int width);
  void FitColumn(int column);
  void FitColumns();
  void ShowColumn(int column, bool shown);
  // Before the column that stands at that place, or behind all; by so many places.
  void MoveColumn(int column, int before);
  void ShiftColumn(int column, int places);
  void ResetColumns();

 signals:
  // Another grid is shown, or this one anew: every row of it that the outline does not fold.
  void refreshed();
  // Other rows of the same grid are shown than before.
  void shownRowsChanged();
  // What has happened to the rows, in words.
  void told(const QString& text);
  // Somebody begins to type a text, or composes one, while the grid has the focus.
  void typed(const QString& text);
  void composing(QInputMethodEvent* event);
  // Keys that the grid itself has no use for: what narrows its rows or looks through them ends, or goes on.
  void escaped();
  void currentChanged(qint64 row, int column);
  void selectionSummaryChanged(const tz::LineSums& sums);
  // Enter or a double click on a row.
  void rowActivated(qint64 row);
  // A cell was clicked, and is current now; not by the click that opens a row, nor by one that extends a selection.
  void cellClicked(qint64 row, int column);
  // Lines like this cell's are to be shown alone; the menu offers it when somebody listens and a filter keeps them.
  void filterByWanted(qint64 row, int column);
  // Columns were moved, hidden or shown.
  void columnsArranged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Style;
  // A heading that stays in sight above the lines of its block.
  struct StuckHeading {
    std::int64_t row;
    int top;
  };

  [[nodiscard]] bool Empty() const { return rows_.Count() == 0 || columns_.Count() == 0; }
  // The line of pixels at which a place begins, in the viewport.
  [[nodiscard]] int TopOf(std::int64_t place) const;
  void Show(CTzGrid* grid, const ComputedReport* report);

  [[nodiscard]] int MostStuck() const;
  // How many headings stay in sight above a row.
  [[nodiscard]] int StuckAbove(std::int64_t row) const;
  // Outer ones first.
  [[nodiscard]] std::vector<StuckHeading> StuckHeadings() const;
  [[nodiscard]] std::optional<std::int64_t> StuckAt(QPoint point) const;
  // The cell below a point, also where a heading covers it.
  [[nodiscard]] GridCell CellBelow(QPoint place) const;
  // Where the sign of a row's block stands; nothing for the other rows.
  [[nodiscard]] QRect SignRect(std::int64_t row, int top) const;
  // The block whose sign stands there.
  [[nodiscard]] const GridBlock* SignAt(QPoint point) const;
  // A click on a sign or on a heading that stays; false for other places.
  bool TakeBlockClick(QPoint point);
  bool TakeBlockKey(const QKeyEvent& event);
  bool TakeTyping(const QKeyEvent& event);
  void Fold(const GridBlock& block, bool folded);
  [[nodiscard]] bool ShowsMonths(bool folded) const;
  // Shows other rows; the current one, or that which takes its place, stays where it is in the window.
  void ChangeRows(const std::function<void()>& change);
  // What is current and selected is among the rows that are shown.
  void KeepCurrentShown();
  void ShowAtTop(std::int64_t row);
  void MakeBlockMenu();
  void FillBlockMenu(QMenu& menu);

  // The place that a key leads to.
  [[nodiscard]] GridCell PlaceFor(const QKeyEvent& event) const;
  void MoveTo(GridCell cell, bool extend);
  void Select(GridCell anchor, GridCell current);
  void ShowCell(GridCell cell);
  void ShowColumnInView(int column);
  void LayOut();
  void SumUp();
  void TellCurrent();
  [[nodiscard]] GridFonts Fonts() const;
  void Fit(const std::vector<int>& columns);
  // The columns stand otherwise: what is current and selected stays where it can.
  void ColumnsChanged();
  // Keys that are about columns; false for others.
  bool ArrangeByKey(const QKeyEvent& event);
  // What the keys do with cells and columns, then the view's own actions.
  void OpenMenu(QPoint global);
  void OpenColumnMenu(int column, QPoint global);
  void OpenMenuAtCurrent();

  struct Part;

  void PaintNothing(QPainter& painter) const;
  void PaintPart(QPainter& painter, const QRect& area, const Part& part) const;
  // At a height of the viewport.
  void PaintRow(QPainter& painter, std::int64_t place, int top, const Part& part) const;
  void PaintStuck(QPainter& painter, const Part& part) const;
  void PaintSign(QPainter& painter, const QRect& sign, bool folded) const;
  void PaintCell(QPainter& painter, const QRect& cell, std::int64_t row, int column, const Style& style) const;

  CTzGrid* grid_ = nullptr;
  const ComputedReport* report_ = nullptr;
  GridRows rowState_;
  const ShownRows& rows_ = rowState_.Shown();
  CellMatcher mark_;
  MarkColumn marks_;
  std::map<std::pair<std::int64_t, int>, QString> doubts_;
  GridViewColumns columns_;
  GridViewHeader* header_;
  int rowHeight_ = 24;
  bool hideZeros_ = false;
  QString emptyText_;
  GridCell anchor_;
  GridCell current_;
  RangeSum sum_;
  QBasicTimer summing_;
  QBasicTimer dragging_;
  QPoint pointer_;
  GridCell pressed_;  // until it is a click or becomes a drag
  QPoint pressedAt_;
};

}  // namespace tz
