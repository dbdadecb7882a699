#include "desktop/frame/process.h"

#include <QAction>
#include <QLayout>
#include <QToolBar>

#include "desktop/frame/result_dialog.h"
#include "desktop/res/pictures.h"
#include "desktop/theme/picture_icon.h"

namespace tz {
namespace {

QString tipOf(const CToolBarInfo& entry) {
  QString tip = QString::fromUtf8(entry.tip);
  if (*entry.shortcut == '\0') return tip;
  return QStringLiteral("%1（%2）").arg(tip, QKeySequence(QLatin1String(entry.shortcut)).toString());
}

}  // namespace

bool CProcess::CreateTheDialog(QWidget* parent) {
  window_->setParent(parent, window_->windowFlags());
  created_ = true;
  return window_->OnInitDialog();
}

void CProcess::ShowCenterWindow() { window_->ShowPlaced(); }

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
    action->setToolTip(tipOf(entry));
    action->setCheckable(entry.checkable);
    if (*entry.shortcut != '\0') action->setShortcut(QKeySequence(QLatin1String(entry.shortcut)));
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
