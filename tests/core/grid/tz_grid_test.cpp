#include "core/grid/tz_grid.h"

#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

#include "core/grid/row_subjects.h"
#include "core/output/grid_reports.h"

namespace tz::test {
namespace {

CTzGrid gridOf(int columns, std::int64_t rows) {
  CTzGrid grid;
  for (int i = 0; i < columns; ++i) grid.AddColumn({"列", "", 100, Figure::amount});
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
    EXPECT_FALSE(grid.SetText(row, column, "text of more than fifteen bytes"));
    EXPECT_FALSE(grid.ActivateCell(row, column));
    EXPECT_EQ(grid.TypeAt(row, column), CTzGrid::CellType::empty);
    EXPECT_EQ(grid.ShownAt(row, column), "");
  }
  EXPECT_FALSE(grid.SetBackground(5, lightGreen));
  EXPECT_FALSE(grid.SetRowData(-1, 3));
  EXPECT_FALSE(grid.SetRowKind(std::numeric_limits<std::int64_t>::max(), RowKind::total));
  EXPECT_EQ(grid.TextAt(4, 6), "last");
  EXPECT_THROW(grid.AddColumn({"late", "", 1, Figure::none}), std::logic_error);
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
    grid.SetText(row, 0, "2006.01.05");
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

TEST(ColumnAdder, BuildsTheRichestLayout) {
  CTzGrid grid;
  CTzGridControl::AddCol(grid, "摘要", 120, -1);
  CTzGridControl::AddCol(grid, "单价", 60, -2);
  CTzGridControl::AddCol(grid, "汇率", 60, -2);
  CTzGridControl::AddCol(grid, "借方", 100, 3);
  CTzGridControl::AddCol(grid, "余额", 90, 7);
  std::string captions;
  std::string figures;
  for (const GridColumn& column : grid.Columns()) {
    captions += column.group + column.caption + std::to_string(column.width) + " ";
    figures += std::to_string(static_cast<int>(column.figure));
  }
  EXPECT_EQ(captions,
            "摘要120 单价60 汇率60 借方数量100 借方外币100 借方金额100 "
            "余额数量90 余额单价90 余额外币90 余额汇率90 余额金额90 ");
  EXPECT_EQ(figures, "03421123141");
}

TEST(ColumnAdder, GroupsOfOneColumnHaveOneLevel) {
  for (const int kind : {0, 4}) {
    CTzGrid grid;
    CTzGridControl::AddCol(grid, "借方", 100, kind);
    ASSERT_EQ(grid.GetCols(), 1);
    EXPECT_EQ(grid.Columns()[0].caption, "借方");
    EXPECT_EQ(grid.Columns()[0].group, "");
  }
}

TEST(ColumnAdder, MovementAndBalanceGroupsDiffer) {
  const auto captionsOf = [](int kind) {
    CTzGrid grid;
    CTzGridControl::AddCol(grid, "组", 100, kind);
    std::string captions;
    for (const GridColumn& column : grid.Columns()) captions += column.caption + " ";
    return captions;
  };
  EXPECT_EQ(captionsOf(1), "数量 金额 ");
  EXPECT_EQ(captionsOf(2), "外币 金额 ");
  EXPECT_EQ(captionsOf(5), "数量 单价 金额 ");
  EXPECT_EQ(captionsOf(6), "外币 汇率 金额 ");
}

}  // namespace
}  // namespace tz::test
