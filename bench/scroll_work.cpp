#include "bench/scroll_work.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QScrollBar>
#include <QTableView>

#include "bench/grid_work.h"
#include "desktop/gridview/grid_view.h"

namespace tz::bench {
namespace {

constexpr int million = 1'000'000;
constexpr int columns = 7;

class EmptyModel : public QAbstractTableModel {
 public:
  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : million; }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : columns; }
  [[nodiscard]] QVariant data(const QModelIndex& /*index*/, int /*role*/) const override { return {}; }
};

// A step is as long as that no row of one page is on the next.
void scroll(QAbstractScrollArea& view, int pages) {
  view.resize(1000, 700);
  view.show();
  QApplication::processEvents();
  auto* bar = view.verticalScrollBar();
  const int step = bar->maximum() / (pages + 1);
  for (int page = 1; page <= pages; ++page) {
    bar->setValue(page * step);
    QApplication::processEvents();
  }
}

}  // namespace

void scrollGrid(int pages) {
  auto report = makeReport(million);
  GridView view;
  view.SetGrid(&report.grid);
  scroll(view, pages);
}

void scrollEmptyTable(int pages) {
  EmptyModel model;
  QTableView view;
  view.setModel(&model);
  scroll(view, pages);
}

}  // namespace tz::bench
