#include "desktop/frame/result_dialog.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace tz {

QSize pixelsOf(QSize dialogUnits) {
  // A dialog unit is a quarter of the mean width and an eighth of the height of a character, here 7 by 15 pixels.
  return {dialogUnits.width() * 7 / 4, dialogUnits.height() * 15 / 8};
}

CTzResultDialog::CTzResultDialog(int templateId, QSize templateUnits, QWidget* parent) : QDialog(parent) {
  setObjectName(QString::number(templateId));
  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                 Qt::WindowCloseButtonHint);
  setMinimumSize(pixelsOf(templateUnits));
}

void CTzResultDialog::EndDialog(int result) {
  if (ended_) return;
  ended_ = true;
  QDialog::done(result);
  emit closed();
  PostNcDestroy();
}

void CTzResultDialog::closeEvent(QCloseEvent* event) {
  EndDialog(Accepted);
  event->accept();
}

void CTzResultDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    OnCommand(helpCommand);
    return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace tz
