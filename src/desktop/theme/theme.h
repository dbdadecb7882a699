// The colours of every window, named once: a light and a dark set. Applying one sets palette and style of the whole
// program; widgets that paint themselves read currentTheme() at each paint.
#pragma once

#include <QColor>

#include "core/grid/tz_grid.h"

namespace tz {

enum class ThemeChoice { system, light, dark };

struct Theme {
  bool dark;
  QColor ground;   // behind cards and grids
  QColor surface;  // cards, fields, cells
  QColor header;   // heads of grids
  QColor rail;     // the navigator's list of areas
  QColor railBand;
  QColor railText;
  QColor railSelected;
  QColor onRailSelected;
  QColor text;
  QColor mutedText;
  QColor disabledText;
  QColor accent;
  QColor onAccent;
  QColor accentSoft;  // tiles
  QColor hover;
  QColor pressed;
  QColor rule;        // lines between things
  QColor edge;        // of buttons and fields
  QColor strongRule;  // lines above totals
  QColor negative;    // red entries
  QColor warning;     // what must not be missed, and the ground below it
  QColor warningGround;
  QColor selection;   // selected cells, under their text
  QColor currentRow;  // laid over the grounds of the current row's cells
};

[[nodiscard]] const Theme& currentTheme();
// "system" takes dark when the desktop's own palette is dark at this moment.
void applyTheme(ThemeChoice choice);

// A row's colour as the theme shows it: as given in light, the same hue deep enough for light text in dark. A row
// without a colour of its own lies on the surface.
[[nodiscard]] QColor rowColour(Rgb colour);

}  // namespace tz
