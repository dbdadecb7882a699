#include "core/grid/tz_grid.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

#include "core/grid/row_subjects.h"
#include "core/output/grid_reports.h"

namespace tz::test {
namespace {

CTzGrid gridOf(int columns, std::int64_t rows) {
  CTzGrid grid;
  for (int i = 0; i < columns; ++i) grid.AddColumn({"列", "", 100, ColumnKind::amount});
  grid.SetRows(rows);
  return grid;
}

TEST(TzGrid, KeepsCellsOfEveryKindAndLength) {
  CTzGrid grid = gridOf(3, 1);
  for (std::size_t length : {0U, 1U, 15U, 16U, 17U, 300'000U}) {
    const std::string text(length, 'x');
    ASSERT_TRUE(grid.SetText(0, 0, text));
    EXPECT_EQ(grid.TypeAt(0, 0), CTzGrid::CellType::text);
    EXPECT_EQ(grid.TextAt(0, 0), text);
  }
  ASSERT_TRUE(grid.SetNumber(0, 1, -0.1));
  EXPECT_EQ(grid.TypeAt(0, 1), CTzGrid::CellType::number);
  EXPECT_EQ(grid.NumberAt(0, 1), -0.1);
  EXPECT_EQ(grid.TextAt(0, 1), "");
  EXPECT_EQ(grid.TypeAt(0, 2), CTzGrid::CellType::empty);
  EXPECT_TRUE(grid.DateAt(0, 2).empty());
  ASSERT_TRUE(grid.SetDate(0, 2, Date{2006, 1, 5}));
  EXPECT_EQ(grid.TypeAt(0, 2), CTzGrid::CellType::date);
  EXPECT_EQ(grid.DateAt(0, 2), (Date{2006, 1, 5}));
  EXPECT_EQ(grid.ShownAt(0, 2), "2006.01.05");
  EXPECT_EQ(grid.TextAt(0, 2), "");
  EXPECT_EQ(grid.NumberAt(0, 2), 0);
  EXPECT_TRUE(grid.DateAt(0, 0).empty());
  // A cell can change its kind.
  ASSERT_TRUE(grid.SetNumber(0, 0, 1234.5));
  ASSERT_TRUE(grid.SetText(0, 1, "个人期初个人期初"));
  EXPECT_EQ(grid.ShownAt(0, 0), "1,234.50");
  EXPECT_EQ(grid.ShownAt(0, 1), "个人期初个人期初");
  EXPECT_EQ(grid.NumberAt(0, 1), 0);
}

TEST(TzGrid, RefusesWritesOutsideWithoutHarm) {
  CTzGrid grid = gridOf(7, 5);
  grid.SetText(4, 6, "last");
  for (const auto& [row, column] : {std::pair{-1, 0}, {5, 0}, {0, -1}, {0, 7}, {4, 9}, {1'000'000, 0}}) {
    EXPECT_FALSE(grid.SetNumber(row, column, 1));
    EXPECT_FALSE(grid.SetDate(row, column, Date{2006, 1, 5}));
    EXPECT_FALSE(grid.SetText(row, column, "text of more than fifteen bytes"));
    EXPECT_FALSE(grid.ActivateCell(row, column));
    EXPECT_EQ(grid.TypeAt(row, column), CTzGrid::CellType::empty);
    EXPECT_EQ(grid.ShownAt(row, column), "");
  }
  EXPECT_FALSE(grid.SetBackground(5, lightGreen));
  EXPECT_FALSE(grid.SetRowData(-1, 3));
  EXPECT_FALSE(grid.SetRowKind(std::numeric_limits<std::int64_t>::max(), RowKind::total));
  EXPECT_EQ(grid.TextAt(4, 6), "last");
  EXPECT_THROW(grid.AddColumn({"late", "", 1, ColumnKind::text}), std::logic_error);
}

TEST(TzGrid, RowsThatComeBackAreEmpty) {
  CTzGrid grid = gridOf(2, 10'000);  // three blocks
  grid.SetText(9'999, 1, "x");
  grid.SetRowKind(9'999, RowKind::total);
  grid.SetBackground(9'999, lightGreen);
  grid.SetRowData(9'999, 1);
  grid.SetText(4'095, 0, "end of a block");
  grid.SetText(4'096, 0, "start of a block");
  ASSERT_TRUE(grid.ActivateCell(9'999, 1));
  grid.SetRows(9'000);
  EXPECT_EQ(grid.GetCurrentRow(), -1);
  grid.SetRows(10'000);
  EXPECT_EQ(grid.TypeAt(9'999, 1), CTzGrid::CellType::empty);
  EXPECT_EQ(grid.RowKindAt(9'999), RowKind::line);
  EXPECT_EQ(grid.BackgroundAt(9'999), noColour);
  EXPECT_EQ(grid.RowDataAt(9'999), 0);
  EXPECT_EQ(grid.TextAt(4'095, 0), "end of a block");
  EXPECT_EQ(grid.TextAt(4'096, 0), "start of a block");
}

TEST(TzGrid, TextsSurviveAMove) {
  CTzGrid grid = gridOf(1, 2);
  grid.SetText(0, 0, "short");
  grid.SetText(1, 0, "a summary of more than fifteen bytes");
  const CTzGrid moved = std::move(grid);
  EXPECT_EQ(moved.TextAt(0, 0), "short");
  EXPECT_EQ(moved.TextAt(1, 0), "a summary of more than fifteen bytes");
}

TEST(TzGrid, AMillionRowsAndTheirSubjectsStayBelow200BytesEach) {
  constexpr std::int64_t rows = 1'000'000;
  CTzGrid grid = gridOf(7, 0);
  RowSubjects subjects;
  for (std::int64_t row = 0; row < rows; ++row) {
    grid.SetRows(row + 1);
    grid.SetDate(row, 0, Date{2006, 1, 5});
    // Every third summary is one of its own, the others are among 100 usual ones.
    const bool own = row % 3 == 0;
    grid.SetText(row, 2, "报销差旅费及住宿费等 " + std::to_string(own ? row : row % 100));
    grid.SetNumber(row, 3, static_cast<double>(row));
    // A block of ten rows, with a subject of its own.
    subjects.set(row, subjects.keep({.account = 1, .unit = 1 + row / 10}), 0, {Book::unposted, row, row / 4});
  }
  EXPECT_LT(grid.MemoryUsed() + subjects.memoryUsed(), 200 * rows);
  EXPECT_EQ(subjects.of(999'989).unit, 99'999);
  EXPECT_EQ(subjects.line(999'989), (LineId{Book::unposted, 999'989, 249'997}));
  EXPECT_EQ(grid.TextAt(999'999, 2), "报销差旅费及住宿费等 999999");
  EXPECT_EQ(grid.TextAt(999'998, 2), "报销差旅费及住宿费等 98");
  EXPECT_EQ(grid.NumberAt(500'000, 3), 500'000);
}

TEST(ColumnAdder, AGroupOfOneColumnHasOneLevel) {
  CTzGrid grid;
  CTzGridControl::AddGroup(grid, "借方", 100, {ColumnKind::debitAmount});
  CTzGridControl::AddGroup(grid, "余额", 90, {ColumnKind::foreign, ColumnKind::rate});
  std::string captions;
  for (const GridColumn& column : grid.Columns()) {
    captions += column.group + "|" + column.caption + std::to_string(column.width) + " ";
  }
  EXPECT_EQ(captions, "|借方100 余额|外币90 余额|汇率90 ");
}

TEST(ColumnKinds, StandAtTheirPlacesInTheTable) {
  for (std::size_t place = 0; place < columnKinds.size(); ++place) {
    const auto& traits = columnKinds.at(place);
    EXPECT_EQ(static_cast<std::size_t>(traits.kind), place);
    EXPECT_EQ(traits.form.scale, std::pow(10, traits.form.decimals)) << place;
    EXPECT_EQ(traits.sum == ColumnTraits::Sum::ofLines, !traits.sumName.empty()) << place;
  }
}

}  // namespace
}  // namespace tz::test
