#include "desktop/host/desktop.h"

#include <QActionGroup>
#include <QGuiApplication>
#include <QMenu>
#include <array>

#include "core/catalogue/catalogue.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/message_box.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/host/desktop_bar.h"
#include "desktop/host/logon_dialog.h"
#include "desktop/host/operator_form.h"
#include "desktop/host/operators_dialog.h"
#include "desktop/host/text_size.h"
#include "desktop/host/work_log_window.h"
#include "desktop/manual/manual.h"
#include "desktop/report/page_output.h"
#include "desktop/report/report_window.h"
#include "desktop/report/search_window.h"
#include "desktop/report/voucher_window.h"
#include "desktop/shell/launch_window_list.h"
#include "desktop/theme/qt_text.h"

namespace tz {

Desktop::Desktop(HostSettings& settings, const OpenLedger& ledger, Operator who)
    : settings_(settings),
      conditions_(settings.ConditionFile(), fromQt(ledger.Address())),
      navigator_(nullptr),
      launcher_(who, findReport),
      openLedger_(ledger) {
  g_operator = std::move(who);
  launcher_.OfferSaved(conditions_);
  launcher_.KeepFolder(FolderOfFiles());
  launcher_.FollowRights([this](const Operator& now) { return withRightsOfNow(openLedger_.Database(), now); });
  // A command of the navigator may be what notices it: its picture is still needed.
  connect(&launcher_, &ReportLauncher::rightsChanged, this, &Desktop::OnRights, Qt::QueuedConnection);
  navigator_.SetRunner({[this](int command) { return toQt(launcher_.Obstacle(command)); },
                        [this](int command) { launcher_.Launch(command); },
                        [this](unsigned) { showManual(&navigator_, QStringLiteral("start#导航窗口")); },
                        [this] { return MayLeave(QStringLiteral("退出")); }});
  connect(&launcher_, &ReportLauncher::opened, this, &Desktop::Welcome);
  connect(&launcher_, &ReportLauncher::windowsChanged, this, [this] { leaves_ = false; });
  connect(&navigator_, &QDialog::finished, this, &Desktop::Finish);
  connect(qApp, &QGuiApplication::commitDataRequest, this, &Desktop::OnSessionEnd, Qt::DirectConnection);
  addWindowKeys(navigator_, launcher_);
  addTextSizeKeys(navigator_, settings_, navigator_);
  AddBar();
}

Desktop::~Desktop() = default;

void Desktop::Show() {
  navigator_.RefreshDisplay();
  applyTextSize(settings_, navigator_);
}

void Desktop::AddBar() {
  auto* menu = new QMenu;
  FillLedgerMenu(menu);
  auto* list = new QMenu;
  listWindows(list, launcher_);
  bar_ = new DesktopBar(navigator_, menu, list);
  connect(bar_, &DesktopBar::searchWanted, &launcher_, &ReportLauncher::OpenSearch);
  bar_->SetLedger(openLedger_.Name());
  ShowWho();
}

void Desktop::ShowWho() {
  const QString date = toQt(isoText(g_tmLogonTime));
  const QString name = toQt(launcher_.Who().name);
  bar_->SetWho(name.isEmpty() ? date : name + QStringLiteral(" · ") + date);
}

void Desktop::FillLedgerMenu(QMenu* menu) {
  menu->addAction(QStringLiteral("查找分录…\tCtrl+K"), &launcher_, &ReportLauncher::OpenSearch);
  menu->addSeparator();
  menu->addAction(QStringLiteral("登录日期…"), this, [this] {
    if (const auto date = askLogonDate(&navigator_, g_tmLogonTime, openLedger_.AccountYear())) {
      g_tmLogonTime = *date;
      ShowWho();
    }
  });
  AddOperatorEntries(menu);
  AddThemes(menu->addMenu(QStringLiteral("外观")));
  fillTextSizes(menu->addMenu(QStringLiteral("文字大小")), settings_, navigator_);
  menu->addSeparator();
  menu->addAction(QStringLiteral("使用手册\tF1"), this, [this] { showManual(&navigator_, QStringLiteral("index")); });
  menu->addSeparator();
  menu->addAction(QStringLiteral("打开其他帐套…"), this, &Desktop::anotherWanted);
  menu->addAction(QStringLiteral("退出"), &navigator_, &QWidget::close);
}

void Desktop::AddOperatorEntries(QMenu* menu) {
  auto* keep = menu->addAction(QString(), this, &Desktop::KeepOperators);
  auto* own = menu->addAction(QString(), this, [this] { (void)changeOwnPassword(&navigator_); });
  menu->addAction(QStringLiteral("操作日志…"), this, &Desktop::OpenWorkLog);
  auto* again = menu->addAction(QString(), this, &Desktop::logonWanted);
  keep->setObjectName(QStringLiteral("operators"));
  own->setObjectName(QStringLiteral("ownPassword"));
  again->setObjectName(QStringLiteral("logonAgain"));
  connect(menu, &QMenu::aboutToShow, this, [=, this] {
    launcher_.ReadRights();
    const Operator& who = launcher_.Who();
    const auto offer = [](QAction* action, const QString& caption, const QString& obstacle) {
      action->setEnabled(obstacle.isEmpty());
      action->setText(obstacle.isEmpty() ? caption : QStringLiteral("%1（%2）").arg(caption, obstacle));
    };
    const QString nobody = who.id == 0 && who.everyRight ? QStringLiteral("帐套没有操作员") : QString();
    offer(keep, QStringLiteral("操作员…"), who.everyRight ? QString() : QStringLiteral("需要全部权限"));
    offer(own, QStringLiteral("更改口令…"), who.id == 0 ? QStringLiteral("没有登录") : QString());
    offer(again, QStringLiteral("重新登录…"), nobody);
  });
}

void Desktop::KeepOperators() {
  OperatorsDialog(g_lpszQnZwDBName, launcher_.Who(), &navigator_).exec();
  const bool loggedOn = launcher_.Who().id != 0;
  launcher_.ReadRights();
  // Whoever works without a name in a ledger that asks for one now, or the other way round, begins anew.
  try {
    if (needsLogon(openLedger_.Database()) != loggedOn) emit logonWanted();
  } catch (const DbError& error) {
    AfxMessageBox(&navigator_, error);
  }
}

void Desktop::OpenWorkLog() {
  launcher_.ReadRights();
  if (ProcessWindow* open = launcher_.SlotOf(WorkLogWindow::workLogWindow)) return open->RefreshDisplay();
  auto* window = new WorkLogWindow(launcher_.Who(), nullptr);
  connect(window, &WorkLogWindow::voucherWanted, this,
          [this, window](const LineId& line) { launcher_.OpenVoucher(line, window); });
  launcher_.Open(window);
}

void Desktop::OnRights() {
  g_operator = launcher_.Who();
  navigator_.ShowAvailable();
  ShowWho();
}

void Desktop::AddThemes(QMenu* menu) {
  static constexpr std::array themes = {
      std::pair(ThemeChoice::system, "跟随系统"),
      std::pair(ThemeChoice::light, "浅色"),
      std::pair(ThemeChoice::dark, "深色"),
  };
  auto* group = new QActionGroup(menu);
  for (const auto& [choice, caption] : themes) {
    auto* action = group->addAction(menu->addAction(QString::fromUtf8(caption)));
    action->setCheckable(true);
    action->setChecked(settings_.Theme() == choice);
    connect(action, &QAction::triggered, this, [this, choice = choice] {
      settings_.SetTheme(choice);
      applyTheme(choice);
    });
  }
}

bool Desktop::MayLeave(const QString& why) {
  const auto open = launcher_.Windows().size();
  if (open == 0 || leaves_) return true;
  if (asking_) return false;
  asking_ = true;
  const QString text = QStringLiteral("还有 %1 个报表窗口开着，要全部关闭并%2吗？").arg(open).arg(why);
  const bool leaves = AfxMessageBox(&navigator_, Question{.text = fromQt(text), .defaultsToNo = true});
  asking_ = false;
  return leaves;
}

void Desktop::OnSessionEnd(QSessionManager& manager) {
  if (launcher_.Windows().empty() || !manager.allowsInteraction()) return;
  leaves_ = MayLeave(QStringLiteral("退出"));
  manager.release();
  if (!leaves_) manager.cancel();
}

void Desktop::Welcome(ProcessWindow* window) {
  const int key = window->Key();
  if (const QSize size = settings_.WindowSize(key); size.isValid()) window->RestoreSize(size);
  if (settings_.Maximized(key)) window->setWindowState(window->windowState() | Qt::WindowMaximized);
  addWindowList(*window, launcher_);
  addTextSizeKeys(*window, settings_, navigator_);
  if (auto* report = qobject_cast<ReportWindow*>(window)) {
    WelcomeTable(*report);
    WelcomePages(*report);
  }
  if (auto* voucher = qobject_cast<VoucherWindow*>(window)) WelcomePages(*voucher);
  if (auto* search = qobject_cast<SearchWindow*>(window)) WelcomeTable(*search);
  if (auto* log = qobject_cast<WorkLogWindow*>(window)) WelcomeTable(*log);
  connect(window, &ProcessWindow::closed, this, [this, window, key] {
    // A minimised window goes back to what it was.
    settings_.SetMaximized(key, window->windowState().testFlag(Qt::WindowMaximized));
    if (window->SizedByHand()) settings_.SetWindowSize(key, window->NormalSize());
  });
}

ExportFolder Desktop::FolderOfFiles() {
  return {.last = [this] { return settings_.ExportFolder(); },
          .keep = [this](const QString& folder) { settings_.SetExportFolder(folder); }};
}

template <class Window>
void Desktop::WelcomePages(Window& window) {
  window.KeepFolder(FolderOfFiles());
  const int key = window.Key();
  window.KeepPages({.last = [this, key] { return settings_.Pages(key); },
                    .keep = [this, key](const PageOptions& options) { settings_.SetPages(key, options); }});
}

template <class Window>
void Desktop::WelcomeTable(Window& window) {
  window.KeepFolder(FolderOfFiles());
  window.Grid().SetArrangement(settings_.Columns(window.Key()));
  connect(&window, &Window::closed, this,
          [this, &window] { settings_.SetColumns(window.Key(), window.Grid().Arrangement()); });
}

void Desktop::Finish() {
  launcher_.CloseAll();
  closeManual();
  emit finished();
}

void Desktop::Close() {
  launcher_.CloseAll();
  closeManual();
  navigator_.hide();
}

}  // namespace tz
