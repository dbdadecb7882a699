// How large the texts of all windows are: a menu, and keys in each window. The size is remembered, and the navigator,
// whose picture has one layout, grows with it as far as the screen allows.
#pragma once

class QMenu;
class QWidget;

namespace tz {

class CImgDlg;
class HostSettings;

// The size that the host remembers, for all windows there are.
void applyTextSize(const HostSettings& settings, CImgDlg& navigator);
// The present size is checked each time the menu opens.
void fillTextSizes(QMenu* menu, HostSettings& settings, CImgDlg& navigator);
// Ctrl++ larger, Ctrl+- smaller, Ctrl+0 as usual.
void addTextSizeKeys(QWidget& window, HostSettings& settings, CImgDlg& navigator);

}  // namespace tz
