// The menu of a grid view's columns: what is done with one of them and with all, and all of them by caption, those that
// are shown with a check mark. It stays open while columns are checked, so that many are shown or hidden at once.
#pragma once

class QMenu;
class QWidget;

namespace tz {

class GridView;

// About one of the grid's columns, -1 for none. It belongs to the parent.
[[nodiscard]] QMenu* makeColumnMenu(GridView& view, int column, QWidget* parent);

}  // namespace tz
