// Pictures as icons of toolbars, drawn on demand in the colours of the current theme, pale when disabled.
#pragma once

#include <QIcon>

namespace tz {

[[nodiscard]] QIcon pictureIcon(int id);

}  // namespace tz
