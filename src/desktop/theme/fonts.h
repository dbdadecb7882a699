// The faces of the windows, and how large they are. Reports ask for 宋体 and 楷体_GB2312; where those are not
// installed, packaged Song and Kai faces that hold the Chinese glyphs stand in.
#pragma once

#include <QFont>
#include <array>

namespace tz {

// Call once, before the first window.
void installFonts();

// Percent of the usual size.
inline constexpr std::array textSizes = {90, 100, 115, 130, 150};
inline constexpr int usualTextSize = 100;
[[nodiscard]] int textSize();
// The nearest of those sizes, for every window at once: each is told that the application's font changes.
void setTextSize(int percent);

// Pixels at the usual size; what comes back has the present one. Widgets with such a font of their own ask anew when
// the application's font changes.
[[nodiscard]] QFont songFont(int pixels);  // labels of report windows
[[nodiscard]] QFont kaiFont(int pixels);   // their titles
// Everything else, in exactly so many pixels: what paints on a scale of its own.
[[nodiscard]] QFont uiFont(int pixels, QFont::Weight weight = QFont::Normal);

}  // namespace tz
