// What a screen reader sees of a grid view: a table of all the rows and columns that are shown, also of those out of
// sight. A cell is named by its text and described by its column's caption; cells are made when they are asked for.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

#include "desktop/gridview/grid_view.h"

namespace tz {

// Makes the interfaces of grid views known to the toolkit; further calls do nothing.
void installGridAccessibility();

class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit GridAccessible(GridView* view);
  ~GridAccessible() override;
  GridAccessible(const GridAccessible&) = delete;
  GridAccessible& operator=(const GridAccessible&) = delete;

  [[nodiscard]] GridView& View() const { return *static_cast<GridView*>(widget()); }

  void* interface_cast(QAccessible::InterfaceType type) override;
  // The cells, row by row.
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* cell) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] QAccessibleInterface* focusChild() const override;

  [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
  [[nodiscard]] int columnCount() const override;
  [[nodiscard]] int rowCount() const override;
  [[nodiscard]] QString columnDescription(int column) const override;
  [[nodiscard]] QString rowDescription(int row) const override;
  [[nodiscard]] int selectedCellCount() const override;
  // Of a larger selection the first thousand.
  [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
  [[nodiscard]] int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
  [[nodiscard]] int selectedRowCount() const override;
  // Columns and rows are selected when they are so in full.
  [[nodiscard]] QList<int> selectedColumns() const override;
  [[nodiscard]] QList<int> selectedRows() const override;
  [[nodiscard]] bool isColumnSelected(int column) const override;
  [[nodiscard]] bool isRowSelected(int row) const override;
  bool selectRow(int row) override;
  bool selectColumn(int column) override;
  // A selection is one range: nothing can be taken out of it.
  bool unselectRow(int /*row*/) override { return false; }
  bool unselectColumn(int /*column*/) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent* event) override;

 private:
  void Forget();
  // Of one of the grid's own cells.
  [[nodiscard]] QAccessibleInterface* CellOf(GridCell cell) const;

  mutable QHash<qint64, QAccessible::Id> cells_;
};

}  // namespace tz
