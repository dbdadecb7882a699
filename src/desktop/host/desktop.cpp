#include "desktop/host/desktop.h"

#include <QActionGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <array>

#include "core/catalogue/catalogue.h"
#include "desktop/frame/globals.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/host/logon_dialog.h"
#include "desktop/host/text_size.h"
#include "desktop/report/report_window.h"
#include "desktop/shell/launch_window_list.h"
#include "desktop/shell/navigator_help.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int exitPictureCommand = 10239;
constexpr int barGap = 12;

// Right of the areas' pictures begins the card that the bar stands on.
constexpr int personAreaCommand = 10182;
constexpr int cardInset = 38;

}  // namespace

Desktop::Desktop(HostSettings& settings, const OpenLedger& ledger, Operator who)
    : settings_(settings),
      conditions_(settings.ConditionFile()),
      operatorName_(toQt(who.name)),
      navigator_(nullptr),
      launcher_(who, findReport),
      openLedger_(ledger) {
  g_operator = std::move(who);
  launcher_.OfferSaved(conditions_);
  navigator_.SetRunner({[this](int command) { return toQt(launcher_.Obstacle(command)); },
                        [this](int command) { launcher_.Launch(command); },
                        [this](unsigned) { showNavigatorHelp(&navigator_); }});
  connect(&launcher_, &ReportLauncher::opened, this, &Desktop::Welcome);
  connect(&navigator_, &QDialog::finished, this, &Desktop::Finish);
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
  bar_ = new QWidget(&navigator_);
  auto* menu = new QMenu(bar_);
  FillLedgerMenu(menu);
  ledger_ = menuButton(menu, bar_);
  ledger_->setToolTip(QStringLiteral("帐套：%1").arg(openLedger_.Name()));
  auto* list = new QMenu(bar_);
  listWindows(list, launcher_);
  windows_ = menuButton(list, bar_);
  windows_->setText(QStringLiteral("窗口 ▾"));
  windows_->setToolTip(QStringLiteral("打开的窗口"));
  auto* row = new QHBoxLayout(bar_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(4);
  row->addWidget(ledger_);
  row->addWidget(windows_);
  row->addStretch(1);
  navigator_.installEventFilter(this);
}

void Desktop::FillLedgerMenu(QMenu* menu) {
  menu->addAction(QStringLiteral("登录日期…"), this, [this] {
    if (const auto date = askLogonDate(&navigator_, g_tmLogonTime, openLedger_.AccountYear())) {
      g_tmLogonTime = *date;
      PlaceBar();
    }
  });
  AddThemes(menu->addMenu(QStringLiteral("外观")));
  fillTextSizes(menu->addMenu(QStringLiteral("文字大小")), settings_, navigator_);
  menu->addSeparator();
  menu->addAction(QStringLiteral("打开其他帐套…"), this, &Desktop::anotherWanted);
  menu->addAction(QStringLiteral("退出"), &navigator_, &QWidget::close);
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

void Desktop::PlaceBar() {
  const auto* exit = navigator_.findChild<QWidget*>(QString::number(exitPictureCommand));
  const auto* area = navigator_.findChild<QWidget*>(QString::number(personAreaCommand));
  if (exit == nullptr || area == nullptr) return;
  const int left = area->geometry().right() + cardInset;
  const int width = exit->x() - barGap - left;
  const int height = bar_->sizeHint().height();
  bar_->setGeometry(left, exit->geometry().center().y() - height / 2, width, height);

  QString shown = toQt(isoText(g_tmLogonTime)) + QStringLiteral(" · ") + openLedger_.Name();
  if (!operatorName_.isEmpty()) shown = operatorName_ + QStringLiteral(" · ") + shown;
  constexpr int arrowAndMargins = 40;
  const int room = width - windows_->sizeHint().width() - arrowAndMargins;
  ledger_->setText(ledger_->fontMetrics().elidedText(shown, Qt::ElideRight, room) + QStringLiteral(" ▾"));
  bar_->layout()->activate();
}

bool Desktop::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
    QMetaObject::invokeMethod(this, &Desktop::PlaceBar, Qt::QueuedConnection);
  }
  return QObject::eventFilter(receiver, event);
}

void Desktop::Welcome(ProcessWindow* window) {
  const int key = window->Key();
  const QSize size = settings_.WindowSize(key);
  if (size.isValid()) window->resize(size);
  addWindowList(*window, launcher_);
  addTextSizeKeys(*window, settings_, navigator_);
  if (auto* report = qobject_cast<ReportWindow*>(window)) WelcomeReport(*report);
  connect(window, &ProcessWindow::closed, this, [this, window, key] {
    if (!window->isMaximized()) settings_.SetWindowSize(key, window->size());
  });
}

void Desktop::WelcomeReport(ReportWindow& window) {
  window.KeepFolder({.last = [this] { return settings_.ExportFolder(); },
                     .keep = [this](const QString& folder) { settings_.SetExportFolder(folder); }});
  window.Grid().SetArrangement(settings_.Columns(window.Key()));
  connect(&window, &ReportWindow::closed, this,
          [this, &window] { settings_.SetColumns(window.Key(), window.Grid().Arrangement()); });
}

void Desktop::Finish() {
  launcher_.CloseAll();
  emit finished();
}

void Desktop::Close() {
  launcher_.CloseAll();
  navigator_.hide();
}

}  // namespace tz
