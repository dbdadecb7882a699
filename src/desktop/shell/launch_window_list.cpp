#include "desktop/shell/launch_window_list.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include "desktop/frame/globals.h"
#include "desktop/frame/process_window.h"
#include "desktop/shell/launch.h"

namespace tz {
namespace {

std::vector<QWidget*> allWindows(const ReportLauncher& launcher) {
  std::vector<QWidget*> all;
  if (g_pDlgWnd != nullptr) all.push_back(g_pDlgWnd);
  all.insert(all.end(), launcher.Windows().begin(), launcher.Windows().end());
  return all;
}

void goRound(const QWidget* from, const ReportLauncher& launcher, bool forward) {
  const auto all = allWindows(launcher);
  const auto here = static_cast<std::size_t>(std::ranges::find(all, from) - all.begin());
  bringToFront(all[(here + (forward ? 1 : all.size() - 1)) % all.size()]);
}

void fill(QMenu* menu, const ReportLauncher& launcher) {
  menu->clear();
  for (QWidget* window : allWindows(launcher)) {
    const auto* launched = qobject_cast<ProcessWindow*>(window);
    QString entry = launched == nullptr ? window->windowTitle() : launched->ListEntry();
    auto* action = menu->addAction(entry.replace(QLatin1Char('&'), QStringLiteral("&&")));
    action->setCheckable(true);
    action->setChecked(window->isActiveWindow());
    QObject::connect(action, &QAction::triggered, window, [window] { bringToFront(window); });
  }
}

}  // namespace

void bringToFront(QWidget* window) {
  if (window->isMinimized()) window->showNormal();
  window->raise();
  window->activateWindow();
}

QToolButton* menuButton(QMenu* menu, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setAutoRaise(true);
  QObject::connect(button, &QToolButton::clicked, menu,
                   [button, menu] { menu->popup(button->mapToGlobal(button->rect().bottomLeft())); });
  return button;
}

void listWindows(QMenu* menu, ReportLauncher& launcher) {
  QObject::connect(menu, &QMenu::aboutToShow, &launcher, [menu, &launcher] { fill(menu, launcher); });
}

void addWindowList(ProcessWindow& window, ReportLauncher& launcher) {
  addWindowKeys(window, launcher);
  QToolBar* bar = window.CommandBar();
  if (bar == nullptr) return;
  auto* gap = new QWidget(bar);
  gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(gap);
  auto* menu = new QMenu(bar);
  listWindows(menu, launcher);
  QToolButton* button = menuButton(menu, bar);
  button->setText(QStringLiteral("窗口 ▾"));
  button->setToolTip(QStringLiteral("打开的窗口（Ctrl+Tab）"));
  bar->addWidget(button);
}

void addWindowKeys(QWidget& window, ReportLauncher& launcher) {
  const auto add = [&](const char* name, const char* keys, bool forward) {
    auto* action = new QAction(&window);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(QKeySequence(QLatin1String(keys)));
    QObject::connect(action, &QAction::triggered, &launcher,
                     [&window, &launcher, forward] { goRound(&window, launcher, forward); });
    window.addAction(action);
  };
  add("nextWindow", "Ctrl+Tab", true);
  add("previousWindow", "Ctrl+Shift+Tab", false);
}

}  // namespace tz
