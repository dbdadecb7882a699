#include "desktop/frame/process.h"

#include <QAction>
#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <QToolBar>
#include <algorithm>
#include <iterator>

#include "desktop/frame/fit_window.h"
#include "desktop/frame/result_dialog.h"
#include "desktop/res/pictures.h"
#include "desktop/theme/picture_icon.h"

namespace tz {
namespace {

constexpr CommandHint hints[] = {
    {50000, 307, "Ctrl+P", "打印报表"},
    {50001, 306, "Ctrl+Shift+P", "预览打印的页面"},
    {50007, 303, "Ctrl+F", "查找一行"},
    {50009, 300, "F1", "本报表的说明"},
    {50010, 301, "Ctrl+W", "关闭窗口"},
    {50020, 305, "Ctrl+E", "输出到文件"},
    {50031, 308, "F5", "重新输入条件并查询"},
    {50052, 316, "Ctrl+D", "查看当前行的明细"},
    {50058, 322, "", "计划报告"},
    {50066, 320, "", "查看计划"},
    {50077, 280, "", "显示或隐藏各组的明细行"},
    {50078, 404, "", "显示或隐藏全为零的行"},
};

QString tipOf(const CommandHint& hint) {
  QString tip = QString::fromUtf8(hint.tip);
  if (*hint.shortcut == '\0') return tip;
  return QStringLiteral("%1（%2）").arg(tip, QKeySequence(QLatin1String(hint.shortcut)).toString());
}

}  // namespace

const CommandHint* findCommandHint(int command) {
  const auto* const found = std::ranges::find(hints, command, &CommandHint::command);
  return found == std::end(hints) ? nullptr : found;
}

bool CProcess::CreateTheDialog(QWidget* parent) {
  window_->setParent(parent, window_->windowFlags());
  created_ = true;
  return window_->OnInitDialog();
}

void CProcess::ShowCenterWindow() {
  if (!shown_) {
    const QScreen* screen = window_->screen() != nullptr ? window_->screen() : QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    window_->resize(window_->size().boundedTo(roomFor(*window_)).expandedTo(window_->minimumSize()));
    QRect place = window_->rect();
    place.moveCenter(available.center());
    window_->move(place.topLeft());
    shown_ = true;
  }
  if (window_->isMinimized()) window_->showNormal();
  window_->show();
  window_->raise();
  window_->activateWindow();
}

void CProcess::ProcessInitDialog() { window_->setAttribute(Qt::WA_QuitOnClose, false); }

void CProcess::DrawAToolBar(QToolBar* bar, std::span<const CToolBarInfo> table) {
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  bar->setMovable(false);
  bar->layout()->setContentsMargins(0, 0, 0, 0);
  for (const CToolBarInfo& entry : table) {
    if (entry.command == 0) {
      bar->addSeparator();
      continue;
    }
    const Picture* picture = findPicture(entry.bitmap);
    auto* action =
        bar->addAction(pictureIcon(entry.bitmap), picture == nullptr ? QString() : QString::fromUtf8(picture->caption));
    action->setObjectName(QString::number(entry.command));
    if (const CommandHint* hint = findCommandHint(entry.command)) {
      action->setToolTip(tipOf(*hint));
      if (*hint->shortcut != '\0') action->setShortcut(QKeySequence(QLatin1String(hint->shortcut)));
    }
    QObject::connect(action, &QAction::triggered, window_,
                     [window = window_, command = entry.command] { window->OnCommand(command); });
  }
}

bool CProcess::DoPostNcDestroy() {
  if (window_ == nullptr) return false;
  window_->deleteLater();
  return true;
}

}  // namespace tz
