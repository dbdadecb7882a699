#include "desktop/gridview/grid_accessible.h"

#include <algorithm>
#include <limits>

namespace tz {
namespace {

constexpr int mostCells = 1000;

int clamped(std::int64_t number) {
  return static_cast<int>(std::min<std::int64_t>(number, std::numeric_limits<int>::max()));
}

// One cell; it lives until the grid's contents change.
class CellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  CellAccessible(const GridAccessible& table, GridCell place) : table_(table), place_(place) {}

  [[nodiscard]] GridCell Place() const { return place_; }

  [[nodiscard]] bool isValid() const override {
    return table_.isValid() && place_.row < table_.rowCount() && place_.column < table_.columnCount();
  }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override { return const_cast<GridAccessible*>(&table_); }
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    if (kind == QAccessible::Description) {
      const QString column = table_.columnDescription(place_.column);
      const QString doubt = table_.View().DoubtOf(Own());
      return doubt.isEmpty() ? column : column + QStringLiteral("：") + doubt;
    }
    return kind == QAccessible::Name ? table_.View().SpokenText(Own().row, Own().column) : QString();
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  [[nodiscard]] QRect rect() const override {
    const QRect place = table_.View().CellRect(Own().row, Own().column);
    return {table_.View().viewport()->mapToGlobal(place.topLeft()), place.size()};
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Cell; }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = state.selectable = state.readOnly = true;
    state.selected = isSelected();
    state.focused = table_.View().hasFocus() && table_.View().Current() == Own();
    state.offscreen = !table_.View().VisiblePart(Own()).isValid();
    if (const GridBlock* block = table_.View().Blocks().TitledBy(Own().row)) {
      state.expandable = true;
      state.collapsed = block->folded;
      state.expanded = !block->folded;
    }
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this) : nullptr;
  }

  [[nodiscard]] bool isSelected() const override {
    return table_.View().Selection().contains(place_.row, place_.column);
  }
  [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  [[nodiscard]] int columnIndex() const override { return place_.column; }
  [[nodiscard]] int rowIndex() const override { return clamped(place_.row); }
  [[nodiscard]] int columnExtent() const override { return 1; }
  [[nodiscard]] int rowExtent() const override { return 1; }
  [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

 private:
  [[nodiscard]] GridCell Own() const { return isValid() ? table_.View().CellOfPlace(place_) : GridCell{}; }

  const GridAccessible& table_;
  GridCell place_;
};

QAccessibleInterface* makeGridInterface(const QString& /*className*/, QObject* object) {
  auto* view = qobject_cast<GridView*>(object);
  return view == nullptr ? nullptr : new GridAccessible(view);
}

}  // namespace

void installGridAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory(makeGridInterface);
    return true;
  }();
  Q_UNUSED(installed)
}

GridAccessible::GridAccessible(GridView* view) : QAccessibleWidget(view, QAccessible::Table) {}

GridAccessible::~GridAccessible() { Forget(); }

void GridAccessible::Forget() {
  for (const QAccessible::Id id : std::as_const(cells_)) QAccessible::deleteAccessibleInterface(id);
  cells_.clear();
}

void* GridAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

int GridAccessible::childCount() const { return clamped(View().Rows().Count() * columnCount()); }

QAccessibleInterface* GridAccessible::child(int index) const {
  const int columns = columnCount();
  return columns == 0 || index < 0 ? nullptr : cellAt(index / columns, index % columns);
}

int GridAccessible::indexOfChild(const QAccessibleInterface* cell) const {
  const auto* one = dynamic_cast<const CellAccessible*>(cell);
  return one == nullptr ? -1 : clamped(one->Place().row * columnCount() + one->Place().column);
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const {
  const QPoint place = View().viewport()->mapFromGlobal(QPoint(x, y));
  const GridCell cell = View().CellAt(place);
  return View().VisiblePart(cell).contains(place) ? CellOf(cell) : nullptr;
}

QAccessibleInterface* GridAccessible::focusChild() const {
  const GridCell cell = View().Current();
  return cell.valid() && View().hasFocus() ? CellOf(cell) : nullptr;
}

QAccessibleInterface* GridAccessible::CellOf(GridCell cell) const {
  const GridCell place = View().PlaceOf(cell);
  return cellAt(clamped(place.row), place.column);
}

QAccessibleInterface* GridAccessible::cellAt(int row, int column) const {
  if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount()) return nullptr;
  constexpr int columnBits = 16;
  auto& id = cells_[(static_cast<qint64>(row) << columnBits) + column];
  if (id == 0) id = QAccessible::registerAccessibleInterface(new CellAccessible(*this, {row, column}));
  return QAccessible::accessibleInterface(id);
}

int GridAccessible::columnCount() const { return View().Columns().ShownCount(); }

int GridAccessible::rowCount() const { return clamped(View().Rows().Count()); }

QString GridAccessible::columnDescription(int column) const {
  const GridViewColumns& columns = View().Columns();
  return columns.FullCaptionOf(columns.ColumnAtPlace(column));
}

QString GridAccessible::rowDescription(int row) const { return QStringLiteral("第%1行").arg(row + 1); }

int GridAccessible::selectedCellCount() const {
  const GridRange selected = View().Selection();
  return selected.empty() ? 0 : clamped((selected.bottom - selected.top + 1) * (selected.right - selected.left + 1));
}

QList<QAccessibleInterface*> GridAccessible::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  const GridRange selected = View().Selection();
  if (selected.empty()) return cells;
  for (std::int64_t row = selected.top; row <= selected.bottom; ++row) {
    for (int column = selected.left; column <= selected.right && cells.size() < mostCells; ++column) {
      cells.append(cellAt(clamped(row), column));
    }
    if (cells.size() >= mostCells) break;
  }
  return cells;
}

int GridAccessible::selectedRowCount() const {
  const GridRange selected = View().Selection();
  return selected.empty() || !isRowSelected(clamped(selected.top)) ? 0 : clamped(selected.bottom - selected.top + 1);
}

QList<int> GridAccessible::selectedColumns() const {
  QList<int> columns;
  for (int column = 0; column < columnCount(); ++column) {
    if (isColumnSelected(column)) columns.append(column);
  }
  return columns;
}

QList<int> GridAccessible::selectedRows() const {
  QList<int> rows;
  const int first = clamped(View().Selection().top);
  for (int place = 0; place < std::min(selectedRowCount(), mostCells); ++place) rows.append(first + place);
  return rows;
}

bool GridAccessible::isColumnSelected(int column) const {
  const GridRange selected = View().Selection();
  return !selected.empty() && selected.top == 0 && selected.bottom == rowCount() - 1 && selected.left <= column &&
         column <= selected.right;
}

bool GridAccessible::isRowSelected(int row) const {
  const GridRange selected = View().Selection();
  return !selected.empty() && selected.left == 0 && selected.right == columnCount() - 1 && selected.top <= row &&
         row <= selected.bottom;
}

bool GridAccessible::selectRow(int row) { return View().SelectPlaces({row, row, 0, columnCount() - 1}); }

bool GridAccessible::selectColumn(int column) { return View().SelectPlaces({0, rowCount() - 1, column, column}); }

void GridAccessible::modelChange(QAccessibleTableModelChangeEvent* /*event*/) { Forget(); }

}  // namespace tz
