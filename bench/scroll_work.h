// Scrolling page by page through a million rows, each page painted: in the grid's view, and in an empty table of the
// window toolkit that is as large.
#pragma once

namespace tz::bench {

void scrollGrid(int pages);
void scrollEmptyTable(int pages);

}  // namespace tz::bench
