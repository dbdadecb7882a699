// The columns of a grid as they are shown: widths and places in pixels, and the captions above groups of neighbours.
// A column is as wide as its definition asks or as the rows of a sample need; a width that a person drew stays.
#pragma once

#include <QFontMetrics>
#include <QHash>
#include <QString>
#include <vector>

#include "core/grid/tz_grid.h"

namespace tz {

struct GridFonts {
  QFontMetrics line;
  QFontMetrics bold;
};

class GridViewColumns {
 public:
  // Neighbours with the same caption above them.
  struct Group {
    QString caption;
    int first;
    int last;
  };

  void Measure(const CTzGrid& grid, const GridFonts& fonts);

  [[nodiscard]] int Count() const { return static_cast<int>(captions_.size()); }
  [[nodiscard]] const QString& CaptionOf(int column) const { return captions_[static_cast<std::size_t>(column)]; }
  [[nodiscard]] const std::vector<Group>& Groups() const { return groups_; }
  [[nodiscard]] bool InGroup(int column) const;

  [[nodiscard]] int LeftOf(int column) const { return lefts_[static_cast<std::size_t>(column)]; }
  [[nodiscard]] int WidthOf(int column) const { return LeftOf(column + 1) - LeftOf(column); }
  [[nodiscard]] int TotalWidth() const { return lefts_.back(); }
  // Room to the right of all columns goes to the widest column of texts, unless a person has drawn it.
  void FillRoom(int width);
  // The column at a distance from the left edge of the first; the nearest one outside of all.
  [[nodiscard]] int ColumnAt(int x) const;
  // The column whose right edge lies there, to be drawn wider; -1 for none.
  [[nodiscard]] int EdgeAt(int x) const;

  void SetWidth(int column, int width);
  // As wide as its contents ask again.
  void ResetWidth(int column);
  // The widths that a person drew, by group and caption, to be kept and given back before the next measuring.
  [[nodiscard]] const QHash<QString, int>& Drawn() const { return drawn_; }
  void SetDrawn(const QHash<QString, int>& drawn) { drawn_ = drawn; }

  // Room between a cell's edge and its text.
  static constexpr int margin = 7;

 private:
  [[nodiscard]] int WidestText(const CTzGrid& grid) const;
  [[nodiscard]] static int ContentWidth(const CTzGrid& grid, int column, const GridFonts& fonts);
  void Place();

  std::vector<QString> captions_;
  std::vector<QString> keys_;  // group and caption: what a drawn width is remembered by
  std::vector<Group> groups_;
  std::vector<int> measured_;
  int elastic_ = -1;  // the column that takes the room; -1 for none
  int room_ = 0;
  std::vector<int> lefts_{0};  // one more than there are columns
  QHash<QString, int> drawn_;
};

}  // namespace tz
