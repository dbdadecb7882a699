#include "desktop/host/desktop_bar.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QToolButton>

#include "desktop/frame/elided_label.h"
#include "desktop/shell/launch_window_list.h"
#include "desktop/shell/navigator.h"
#include "desktop/theme/fonts.h"

namespace tz {
namespace {

constexpr int exitPictureCommand = 10239;
// Right of the areas' pictures begins the card that the bar stands on.
constexpr int personAreaCommand = 10182;

// At 100 %.
constexpr int cardInset = 38;
constexpr int barGap = 12;
constexpr int betweenRows = 4;
constexpr int barPixels = 13;

// As a button shows it: no letter of a name is a key.
QString withoutMnemonics(QString text) { return text.replace(QLatin1Char('&'), QStringLiteral("&&")); }

}  // namespace

DesktopBar::DesktopBar(CQnCwAssistantDlg& navigator, QMenu* ledgerMenu, QMenu* windowMenu)
    : QObject(&navigator),
      navigator_(navigator),
      ledger_(menuButton(ledgerMenu, &navigator)),
      windows_(menuButton(windowMenu, &navigator)),
      search_(new QToolButton(&navigator)),
      who_(new ElidedLabel(&navigator)) {
  ledger_->setObjectName(QStringLiteral("ledger"));
  ledgerMenu->setParent(ledger_, ledgerMenu->windowFlags());
  windowMenu->setParent(windows_, windowMenu->windowFlags());
  nameWindowButton(*windows_);
  search_->setObjectName(QStringLiteral("search"));
  search_->setText(QStringLiteral("查找分录"));
  search_->setToolTip(QStringLiteral("在整个帐套里按摘要、金额或凭证查找分录（Ctrl+K）"));
  search_->setAutoRaise(true);
  connect(search_, &QToolButton::clicked, this, &DesktopBar::searchWanted);
  who_->setObjectName(QStringLiteral("who"));
  who_->setForegroundRole(QPalette::PlaceholderText);
  auto* menu = new QAction(&navigator);
  menu->setObjectName(QStringLiteral("ledgerMenu"));
  menu->setShortcut(Qt::Key_F10);
  connect(menu, &QAction::triggered, ledger_, &QToolButton::click);
  navigator.addAction(menu);
  navigator.installEventFilter(this);
}

void DesktopBar::SetLedger(const QString& name) {
  name_ = name;
  ledger_->setToolTip(QStringLiteral("帐套：%1（F10）").arg(name));
  ledger_->setAccessibleName(QStringLiteral("帐套 %1").arg(name));
  Place();
}

void DesktopBar::SetWho(const QString& text) {
  who_->SetShown(text);
  Place();
}

void DesktopBar::Place() {
  const auto* exit = navigator_.findChild<QWidget*>(QString::number(exitPictureCommand));
  const auto* area = navigator_.findChild<QWidget*>(QString::number(personAreaCommand));
  if (exit == nullptr || area == nullptr) return;
  const double scale = navigator_.Scale();
  const auto scaled = [scale](int pixels) { return qRound(pixels * scale); };
  const QFont font = uiFont(scaled(barPixels));
  for (QWidget* part : std::initializer_list<QWidget*>{ledger_, windows_, search_, who_}) part->setFont(font);
  const QRect leaving = exit->geometry();
  const int left = area->geometry().right() + scaled(cardInset);
  const int height = ledger_->sizeHint().height();
  PlaceLedger({left, leaving.top() - scaled(betweenRows) - height, leaving.right() - left, height});

  const QSize list = windows_->sizeHint();
  windows_->setGeometry({QPoint(left, leaving.center().y() - list.height() / 2), list});
  const QSize search = search_->sizeHint();
  search_->setGeometry({QPoint(left + list.width(), leaving.center().y() - search.height() / 2), search});
  const int beside = left + list.width() + search.width() + scaled(betweenRows);
  who_->setGeometry(beside, leaving.top(), leaving.left() - scaled(barGap) - beside, leaving.height());
}

void DesktopBar::PlaceLedger(const QRect& room) {
  const auto show = [this](const QString& name) {
    ledger_->setText(withoutMnemonics(name) + QStringLiteral(" ▾"));
    return ledger_->sizeHint().width();
  };
  // A long name is written no larger than it fits, down to its usual size, before it is cut.
  if (const int wanted = show(name_); wanted > room.width()) {
    const int pixels = QFontInfo(ledger_->font()).pixelSize() * room.width() / wanted;
    ledger_->setFont(uiFont(std::max(pixels, barPixels)));
  }
  if (const int wanted = show(name_); wanted > room.width()) {
    const QFontMetrics metrics = ledger_->fontMetrics();
    const int around = wanted - metrics.horizontalAdvance(name_);
    show(metrics.elidedText(name_, Qt::ElideRight, room.width() - around));
  }
  ledger_->setGeometry(room.x(), room.y(), std::min(ledger_->sizeHint().width(), room.width()), room.height());
}

bool DesktopBar::eventFilter(QObject* receiver, QEvent* event) {
  const bool sized = event->type() == QEvent::Resize || event->type() == QEvent::Show;
  // The pictures move first.
  if (sized) QMetaObject::invokeMethod(this, &DesktopBar::Place, Qt::QueuedConnection);
  return QObject::eventFilter(receiver, event);
}

}  // namespace tz
