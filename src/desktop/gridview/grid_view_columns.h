// The columns of a grid as they are shown. A column is one of the grid's own; a place is where one stands from left to
// right, without those that are hidden. Places have widths and, in pixels of the viewport, a left edge: those of the
// key columns (date, voucher, summary) stay where they are while the others scroll.
//
// A column is as wide as its definition asks or as the rows of a sample need; what a person drew, moved and hid stays.
#pragma once

#include <QFontMetrics>
#include <vector>

#include "core/grid/tz_grid.h"
#include "desktop/gridview/column_arrangement.h"

namespace tz {

struct GridFonts {
  QFontMetrics line;
  QFontMetrics bold;
};

class GridViewColumns {
 public:
  // Places beside each other whose columns have the same caption above them.
  struct Group {
    QString caption;
    int first;
    int last;
  };

  void Measure(const CTzGrid& grid, const GridFonts& fonts);

  // The grid's own columns.
  [[nodiscard]] int Count() const { return static_cast<int>(captions_.size()); }
  [[nodiscard]] bool Has(int column) const { return column >= 0 && column < Count(); }
  [[nodiscard]] const QString& CaptionOf(int column) const { return captions_[static_cast<std::size_t>(column)]; }
  // With that of its group, where it has one.
  [[nodiscard]] QString FullCaptionOf(int column) const;
  [[nodiscard]] bool InGroup(int column) const { return !groupOf_[static_cast<std::size_t>(column)].isEmpty(); }

  [[nodiscard]] int ShownCount() const { return static_cast<int>(shown_.size()); }
  [[nodiscard]] int ColumnAtPlace(int place) const { return shown_[static_cast<std::size_t>(place)]; }
  [[nodiscard]] const std::vector<int>& Shown() const { return shown_; }
  // -1 for a column that is hidden.
  [[nodiscard]] int PlaceOf(int column) const { return places_[static_cast<std::size_t>(column)]; }
  [[nodiscard]] bool IsShown(int column) const { return Has(column) && PlaceOf(column) >= 0; }
  // The column itself where it is shown, else one beside it.
  [[nodiscard]] int NearestShown(int column) const;
  [[nodiscard]] const std::vector<Group>& Groups() const { return groups_; }

  [[nodiscard]] int WidthOf(int place) const { return LeftOf(place + 1) - LeftOf(place); }
  [[nodiscard]] int TotalWidth() const { return lefts_.back(); }
  // The same without the room that is left to fill.
  [[nodiscard]] int AskedWidth() const { return asked_; }
  // Room to the right of all columns goes to the widest column of texts, unless a person has drawn it.
  void FillRoom(int width);
  // How far the columns are scrolled to the left.
  void SetOffset(int offset) { offset_ = offset; }

  // Whether some places have to be scrolled to beside others that stay.
  [[nodiscard]] bool Scrolls() const { return frozen_ > 0 && TotalWidth() > room_; }
  // The places that do not scroll: the first so many.
  [[nodiscard]] int FrozenCount() const { return frozen_; }
  [[nodiscard]] int FrozenWidth() const { return LeftOf(frozen_); }
  [[nodiscard]] bool IsFrozen(int place) const { return place < frozen_; }
  // Where a place begins in the viewport.
  [[nodiscard]] int XOf(int place) const { return LeftOf(place) - (IsFrozen(place) ? 0 : offset_); }
  // Where the edge before a place is seen; behind all there is one more.
  [[nodiscard]] int EdgeBefore(int place) const;
  // How far the columns are to be scrolled for a place to be seen in full, or from its beginning where it has no room.
  [[nodiscard]] int OffsetToShow(int place) const;
  // The place there in the viewport; the nearest one outside of all.
  [[nodiscard]] int PlaceAt(int x) const;
  // Before which place a column that is let go there comes to stand.
  [[nodiscard]] int InsertionAt(int x) const;
  // The place whose right edge lies there, to be drawn wider; -1 for none.
  [[nodiscard]] int EdgeAt(int x) const;

  void SetWidth(int place, int width);
  // As wide as their contents ask: those of the rows that are seen, and of a great many others.
  void Fit(const CTzGrid& grid, const std::vector<int>& columns, const std::vector<std::int64_t>& seen,
           const GridFonts& fonts);
  // Between the places around it; those from there on stand one further right.
  void Move(int from, int before);
  // False for the last one that is shown.
  [[nodiscard]] bool CanHide(int column) const { return IsShown(column) && ShownCount() > 1; }
  void SetShown(int column, bool shown);
  // As the report has them.
  void Reset();

  // To be kept, and given back before the next measuring.
  [[nodiscard]] const ColumnArrangement& Arrangement() const { return arrangement_; }
  void SetArrangement(ColumnArrangement arrangement) { arrangement_ = std::move(arrangement); }

  // Room between a cell's edge and its text.
  static constexpr int margin = 7;

 private:
  [[nodiscard]] int LeftOf(int place) const { return lefts_[static_cast<std::size_t>(place)]; }
  [[nodiscard]] const QString& KeyAt(int place) const { return keys_[static_cast<std::size_t>(ColumnAtPlace(place))]; }
  [[nodiscard]] int WidestText(const CTzGrid& grid) const;
  void Draw(int column, int width);
  // Which columns are shown, in which order, and the captions above them.
  void Arrange();
  void Place();
  void Widen(int place, int more);
  void WidenFigures();
  void Freeze();

  std::vector<QString> captions_;
  std::vector<QString> groupOf_;
  std::vector<QString> keys_;  // group and caption; of columns that share both, the later ones with a number
  std::vector<bool> keyColumn_;
  std::vector<bool> figure_;
  std::vector<int> measured_;
  int elastic_ = -1;  // the column that takes the room; -1 for none

  std::vector<int> order_;   // all columns
  std::vector<int> shown_;   // by place
  std::vector<int> places_;  // by column
  std::vector<Group> groups_;
  std::vector<int> lefts_{0};  // one more than there are places
  int frozen_ = 0;
  int room_ = 0;
  int asked_ = 0;
  int offset_ = 0;
  ColumnArrangement arrangement_;
};

}  // namespace tz
