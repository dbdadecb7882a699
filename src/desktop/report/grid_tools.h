// What a report's window has around its table for looking through it: the row of the filter above, the line for
// locating below, and their keys. Both look through the rows in slices, so that a window stays alive over a million of
// them.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPointer>

#include "desktop/gridview/row_filter.h"
#include "desktop/gridview/row_search.h"

class QAction;
class QInputMethodEvent;
class QVBoxLayout;

namespace tz {

class FilterRow;
class GridView;
class LocateBar;

class GridTools : public QObject {
  Q_OBJECT

 public:
  // The body holds the table. Ctrl+F locates where the report's own Find does not take it.
  GridTools(GridView& view, QVBoxLayout& body, bool findIsFree);

  // Opens and closes the filter's row; for the button of the window and the menu of the table.
  [[nodiscard]] QAction* FilterAction() const { return filterAction_; }
  // By the text, the date or the amount of a cell.
  void FilterBy(qint64 row, int column);
  // Nothing is filtered and located any more.
  void EndAll();

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void MakeActions(bool findIsFree);
  void ShowFilter(bool shown);
  void BeginFilter();
  void GoOnFiltering();
  void ShowOutline();
  void OnRefreshed();
  void OnRowsChanged();
  void OnEscaped();

  void Locate(const QString& text);
  void Compose(QInputMethodEvent* event);
  void BeginSearch();
  void GoOnSearching();
  // To the next place or the one before; to the first one, where typing began, when neither.
  void GoTo(int step);
  void ShowPlace(std::int64_t row);
  void EndLocating();

  GridView& view_;
  FilterRow* filterRow_;
  LocateBar* locateBar_;
  QAction* filterAction_ = nullptr;

  FilterRun filterRun_;
  QBasicTimer filtering_;
  RowSearch search_;
  QBasicTimer searching_;
  bool searched_ = true;       // all rows
  std::int64_t from_ = 0;      // where typing began
  std::int64_t reached_ = -1;  // the row that was located
};

}  // namespace tz
