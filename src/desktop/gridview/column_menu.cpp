#include "desktop/gridview/column_menu.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include "desktop/gridview/grid_view.h"

namespace tz {
namespace {

class ColumnMenu : public QMenu {
 public:
  ColumnMenu(GridView& view, int column, QWidget* parent);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddCommands(int column);
  void AddColumns();
  // True when a column was checked or unchecked, which leaves the menu open.
  static bool Toggle(QAction* action);
  void FollowView();

  GridView& view_;
  QList<QAction*> columns_;  // by column
};

ColumnMenu::ColumnMenu(GridView& view, int column, QWidget* parent) : QMenu(parent), view_(view) {
  setObjectName(QStringLiteral("columnMenu"));
  AddCommands(column);
  addSeparator();
  AddColumns();
  FollowView();
  connect(&view, &GridView::columnsArranged, this, &ColumnMenu::FollowView);
}

void ColumnMenu::AddCommands(int column) {
  const GridViewColumns& columns = view_.Columns();
  const bool shown = column >= 0 && columns.IsShown(column);
  const int place = shown ? columns.PlaceOf(column) : -1;
  const auto add = [this](const char* text, bool enabled, auto action) {
    QMenu::addAction(QString::fromUtf8(text), &view_, action)->setEnabled(enabled);
  };
  add("列宽适合内容(&W)", shown, [this, column] { view_.FitColumn(column); });
  add("所有列宽适合内容(&A)", true, [this] { view_.FitColumns(); });
  add("隐藏此列(&H)", shown && columns.CanHide(column), [this, column] { view_.ShowColumn(column, false); });
  add("左移(&L)\tCtrl+Shift+←", place > 0, [this, column] { view_.ShiftColumn(column, -1); });
  add("右移(&R)\tCtrl+Shift+→", shown && place + 1 < columns.ShownCount(),
      [this, column] { view_.ShiftColumn(column, 1); });
  add("恢复默认列(&D)", !view_.Arrangement().empty(), [this] { view_.ResetColumns(); });
}

void ColumnMenu::AddColumns() {
  for (int column = 0; column < view_.Columns().Count(); ++column) {
    QString caption = view_.Columns().FullCaptionOf(column);
    QAction* action = QMenu::addAction(caption.replace(QLatin1Char('&'), QStringLiteral("&&")));
    action->setCheckable(true);
    connect(action, &QAction::triggered, &view_, [this, column](bool shown) { view_.ShowColumn(column, shown); });
    columns_.append(action);
  }
}

void ColumnMenu::FollowView() {
  const GridViewColumns& columns = view_.Columns();
  for (int column = 0; column < columns.Count() && column < columns_.size(); ++column) {
    columns_[column]->setChecked(columns.IsShown(column));
    columns_[column]->setEnabled(!columns.IsShown(column) || columns.CanHide(column));
  }
}

bool ColumnMenu::Toggle(QAction* action) {
  if (action == nullptr || !action->isCheckable() || !action->isEnabled()) return false;
  action->trigger();
  return true;
}

void ColumnMenu::mouseReleaseEvent(QMouseEvent* event) {
  if (!Toggle(actionAt(event->position().toPoint()))) QMenu::mouseReleaseEvent(event);
}

void ColumnMenu::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space || !Toggle(activeAction())) QMenu::keyPressEvent(event);
}

}  // namespace

QMenu* makeColumnMenu(GridView& view, int column, QWidget* parent) { return new ColumnMenu(view, column, parent); }

}  // namespace tz
