#include "desktop/shell/launch_window_list.h"

#include <QAction>
#include <QMenu>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>

#include "desktop/frame/fit_window.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/process_window.h"
#include "desktop/frame/window_places.h"
#include "desktop/shell/launch.h"

namespace tz {
namespace {

constexpr const char* searchKey = "Ctrl+K";

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

// The first nine are opened by their figure.
QString entryOf(const QWidget& window, int number) {
  const auto* launched = qobject_cast<const ProcessWindow*>(&window);
  QString entry = launched == nullptr ? window.windowTitle() : launched->ListEntry();
  entry.replace(QLatin1Char('&'), QStringLiteral("&&"));
  constexpr int mostFigures = 9;
  return number > mostFigures ? entry : QStringLiteral("&%1　%2").arg(number).arg(entry);
}

void fill(QMenu* menu, ReportLauncher& launcher) {
  menu->clear();
  const QWidget* here = menu->parentWidget();
  for (int number = 0; QWidget * window : allWindows(launcher)) {
    auto* action = menu->addAction(entryOf(*window, ++number));
    action->setCheckable(true);
    action->setChecked(here != nullptr && window == here->window());
    QObject::connect(action, &QAction::triggered, window, [window] { bringToFront(window); });
  }
  menu->addSeparator();
  auto* search = menu->addAction(QStringLiteral("查找分录(&K)…\t") + QLatin1String(searchKey));
  QObject::connect(search, &QAction::triggered, &launcher, &ReportLauncher::OpenSearch);
  menu->addSeparator();
  const bool any = !launcher.Windows().empty();
  const auto add = [&](const char* name, const QString& text, auto&& command) {
    auto* action = menu->addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setEnabled(any);
    QObject::connect(action, &QAction::triggered, &launcher, command);
  };
  add("sideBySide", QStringLiteral("并排(&T)"), [&launcher, here] { layOutSideBySide(launcher, *here); });
  add("oneBehindTheOther", QStringLiteral("层叠(&S)"), [&launcher, here] { layOutOneBehindTheOther(launcher, *here); });
  add("closeAll", QStringLiteral("全部关闭(&A)"), [&launcher] {
    launcher.CloseAll();
    if (g_pDlgWnd != nullptr) bringToFront(g_pDlgWnd);
  });
}

QRect screenOf(const QWidget& here) { return here.screen()->availableGeometry(); }

}  // namespace

void layOutSideBySide(const ReportLauncher& launcher, const QWidget& here) {
  QSize least;
  for (const ProcessWindow* window : launcher.Windows()) least = least.expandedTo(window->LeastPlace());
  const auto places = sideBySide(screenOf(here), static_cast<int>(launcher.Windows().size()), least);
  for (std::size_t at = 0; at < places.size(); ++at) launcher.Windows()[at]->Arrange(places[at]);
  for (QWidget* window : launcher.Windows()) window->raise();
  // Whoever asked for it keeps the keyboard.
  auto* asking = qobject_cast<ProcessWindow*>(here.window());
  if (!places.empty()) bringToFront(asking != nullptr ? asking : launcher.Windows().front());
}

void layOutOneBehindTheOther(const ReportLauncher& launcher, const QWidget& here) {
  std::vector<QSize> sizes;
  int step = 0;
  for (const ProcessWindow* window : launcher.Windows()) {
    sizes.push_back(window->OwnSize().grownBy(frameOf(*window)));
    step = std::max(step, titleBarHeight(*window));
  }
  const auto places = oneBehindTheOther(screenOf(here), sizes, step);
  for (std::size_t at = 0; at < places.size(); ++at) {
    launcher.Windows()[at]->Arrange(places[at]);
    launcher.Windows()[at]->raise();
  }
  if (!places.empty()) bringToFront(launcher.Windows().back());
}

void bringToFront(QWidget* window) {
  if (window->isMinimized()) window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  window->raise();
  window->activateWindow();
}

QToolButton* menuButton(QMenu* menu, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setAutoRaise(true);
  QObject::connect(button, &QToolButton::clicked, menu, [button, menu] {
    // A toolbar without room for its end hides it; its key opens the menu all the same.
    const QWidget* shown = button->isVisible() ? button : button->parentWidget();
    menu->popup(shown->mapToGlobal(shown->rect().bottomLeft()));
  });
  return button;
}

void nameWindowButton(QToolButton& button) {
  button.setObjectName(QStringLiteral("windows"));
  button.setText(QStringLiteral("窗口 ▾"));
  button.setAccessibleName(QStringLiteral("窗口"));
  button.setToolTip(QStringLiteral("打开的窗口：切换、并排、层叠、全部关闭（Alt+W；Ctrl+Tab 换到下一个）"));
  auto* key = new QAction(button.window());
  key->setObjectName(QStringLiteral("windowList"));
  key->setShortcut(Qt::ALT | Qt::Key_W);
  QObject::connect(key, &QAction::triggered, &button, &QToolButton::click);
  button.window()->addAction(key);
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
  bar->addWidget(button);
  nameWindowButton(*button);
}

void addWindowKeys(QWidget& window, ReportLauncher& launcher) {
  const auto add = [&](const char* name, const char* keys, auto&& command) {
    auto* action = new QAction(&window);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(QKeySequence(QLatin1String(keys)));
    QObject::connect(action, &QAction::triggered, &launcher, command);
    window.addAction(action);
  };
  add("nextWindow", "Ctrl+Tab", [&window, &launcher] { goRound(&window, launcher, true); });
  add("previousWindow", "Ctrl+Shift+Tab", [&window, &launcher] { goRound(&window, launcher, false); });
  add("searchLedger", searchKey, [&launcher] { launcher.OpenSearch(); });
}

}  // namespace tz
