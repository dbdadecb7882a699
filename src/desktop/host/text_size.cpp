#include "desktop/host/text_size.h"

#include <QAction>
#include <QMenu>
#include <algorithm>

#include "desktop/frame/fit_window.h"
#include "desktop/frame/img_dlg.h"
#include "desktop/host/settings.h"
#include "desktop/theme/fonts.h"

namespace tz {
namespace {

// So many steps up the list of sizes.
int sizeBeside(int steps) {
  const auto* const present = std::ranges::find(textSizes, textSize());
  const auto place = present - textSizes.begin() + steps;
  return textSizes.at(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(place, 0, std::ssize(textSizes) - 1)));
}

void choose(int percent, HostSettings& settings, CImgDlg& navigator) {
  if (percent == textSize()) return;
  settings.SetTextSize(percent);
  applyTextSize(settings, navigator);
}

}  // namespace

void applyTextSize(const HostSettings& settings, CImgDlg& navigator) {
  setTextSize(settings.TextSize());
  if (navigator.isMaximized()) return;
  navigator.resize((navigator.minimumSize() * textSize() / usualTextSize).boundedTo(roomFor(navigator)));
  if (navigator.isVisible()) keepOnScreen(navigator);
}

void fillTextSizes(QMenu* menu, HostSettings& settings, CImgDlg& navigator) {
  for (const int percent : textSizes) {
    auto* action = menu->addAction(QStringLiteral("%1 %").arg(percent));
    action->setCheckable(true);
    QObject::connect(action, &QAction::triggered, &navigator,
                     [percent, &settings, &navigator] { choose(percent, settings, navigator); });
    QObject::connect(menu, &QMenu::aboutToShow, action,
                     [action, percent] { action->setChecked(percent == textSize()); });
  }
}

void addTextSizeKeys(QWidget& window, HostSettings& settings, CImgDlg& navigator) {
  const auto add = [&](const char* name, const QList<QKeySequence>& keys, auto size) {
    auto* action = new QAction(&window);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(keys);
    QObject::connect(action, &QAction::triggered, &navigator,
                     [&settings, &navigator, size] { choose(size(), settings, navigator); });
    window.addAction(action);
  };
  // The plus of most keyboards is a shifted "=".
  add("textLarger", {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, [] { return sizeBeside(1); });
  add("textSmaller", {Qt::CTRL | Qt::Key_Minus}, [] { return sizeBeside(-1); });
  add("textUsual", {Qt::CTRL | Qt::Key_0}, [] { return usualTextSize; });
}

}  // namespace tz
