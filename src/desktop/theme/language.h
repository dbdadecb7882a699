// The words of the toolkit's own windows (choosing a file, the menu of a field) in Chinese, as ours are. Call once,
// before the first window.
#pragma once

namespace tz {

void installLanguage();

}  // namespace tz
