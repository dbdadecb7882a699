// Opens a file or a folder with the program that the desktop has for it.
#pragma once

#include <QString>
#include <functional>

namespace tz {

// Calls `failed` when there is none, perhaps a while later: some desktops tell only when their helper has ended.
void openPath(const QString& path, const std::function<void()>& failed);

}  // namespace tz
