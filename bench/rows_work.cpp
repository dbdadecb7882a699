#include "bench/rows_work.h"

#include <QCoreApplication>

#include "bench/grid_work.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/gridview/row_filter.h"

namespace tz::bench {
namespace {

constexpr std::int64_t allRows = 1'000'000;

bool readCells(const CTzGrid& grid) {
  double sum = 0;
  for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
    for (int column = 0; column < grid.GetCols(); ++column) {
      const bool number = grid.TypeAt(row, column) == CTzGrid::CellType::number;
      sum += number ? grid.NumberAt(row, column) : static_cast<double>(grid.TextAt(row, column).size());
    }
  }
  return sum > 0;
}

bool filter(GridView& view, const ComputedReport& report) {
  FilterRun run(report, {.text = "记-12", .from = 1000, .to = 100'000});
  (void)run.Add(allRows * report.grid.GetCols());
  view.SetKept(run.Kept());
  return view.Rows().Count() > 0 && view.Rows().Count() < allRows;
}

bool selectAll(GridView& view) {
  bool summed = false;
  view.SelectPlaces({0, 0, 0, 0});
  const auto told = QObject::connect(&view, &GridView::selectionSummaryChanged,
                                     [&](const LineSums& sums) { summed = sums.rows == allRows; });
  view.SelectAll();
  while (!summed) QCoreApplication::processEvents();
  QObject::disconnect(told);
  return summed;
}

}  // namespace

bool workWithRows(const std::string& work, int times) {
  auto report = makeBlocks(allRows);
  GridView view;
  view.SetReport(&report);
  for (int time = 0; time < times; ++time) {
    bool done = work == "none";
    if (work == "bare") done = readCells(report.grid);
    if (work == "filter") done = filter(view, report);
    if (work == "select") done = selectAll(view);
    if (work == "fold") {
      view.SetOutline(time % 2 == 0 ? 2 : 0);
      done = (view.Rows().Count() == allRows) == (time % 2 != 0);
    }
    if (!done) return false;
  }
  return true;
}

}  // namespace tz::bench
