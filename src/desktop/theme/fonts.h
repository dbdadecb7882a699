// The faces of the windows. Reports ask for 宋体 and 楷体_GB2312; where those are not installed, packaged Song and Kai
// faces that hold the Chinese glyphs stand in. Call once, before the first window.
#pragma once

#include <QFont>

namespace tz {

void installFonts();

// Labels and figures of report windows.
[[nodiscard]] QFont songFont(int pixels);
// Titles of report windows.
[[nodiscard]] QFont kaiFont(int pixels);
// Everything else.
[[nodiscard]] QFont uiFont(int pixels, QFont::Weight weight = QFont::Normal);

}  // namespace tz
