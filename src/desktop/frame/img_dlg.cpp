#include "desktop/frame/img_dlg.h"

#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <limits>

namespace tz {
namespace {

constexpr int idMask = 0xFFFF;

// How far `to` lies from `from` in the direction of an arrow key; infinite when it lies elsewhere. A sideways step
// counts double, so that a key keeps to its row or column as long as there is something in it.
double distanceAlong(int key, QPoint from, QPoint to) {
  QPoint step = to - from;
  if (key == Qt::Key_Up || key == Qt::Key_Down) step = step.transposed();
  const int ahead = key == Qt::Key_Left || key == Qt::Key_Up ? -step.x() : step.x();
  if (ahead <= 0) return std::numeric_limits<double>::infinity();
  return std::hypot(ahead, 2.0 * step.y());
}

}  // namespace

CImgDlg::CImgDlg(int templateId, QWidget* parent) : QDialog(parent) {
  setObjectName(QString::number(templateId));
  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                 Qt::WindowCloseButtonHint);
}

PictureButton* CImgDlg::Insert(const RCII& image, PictureLook look) {
  const int id = image.command & idMask;
  auto* button = new PictureButton(image.bitmap, {image.left, image.top, image.width, image.height}, look, this);
  button->setObjectName(QString::number(id));
  const QString tip = QString::fromUtf8(image.text);
  button->setToolTip(tip);
  button->setAccessibleDescription(tip);
  button->SetAvailable(image.enabled != 0);
  button->MoveTo(Origin(), Scale());
  connect(button, &PictureButton::commanded, this, [this, id] { OnCommand(id); });
  connect(button, &PictureButton::arrowPressed, this, [this, button](int key) { MoveFocus(*button, key); });
  button->setVisible(image.visible != 0);
  return button;
}

void CImgDlg::InsertCmdImage(const RCII& image, PictureLook look) { mainButtons_.push_back(Insert(image, look)); }

void CImgDlg::InsertSubImage(const RCII& image, PictureLook look) {
  if (image == RCII{}) {
    for (PictureButton* button : areaButtons_) delete button;
    areaButtons_.clear();
    return;
  }
  areaButtons_.push_back(Insert(image, look));
  // Tab goes through the rail, then the area, then what leaves the window.
  QWidget* last = areaButtons_.back();
  for (PictureButton* button : mainButtons_) {
    if (button->Look() == PictureLook::rail) continue;
    setTabOrder(last, button);
    last = button;
  }
}

void CImgDlg::setVisible(bool visible) {
  if (visible && !initialised_) {
    initialised_ = true;
    if (!OnInitDialog()) return;
  }
  QDialog::setVisible(visible);
}

void CImgDlg::SetLayoutSize(QSize size) {
  layoutSize_ = size;
  setMinimumSize(size);
  resize(size);
}

void CImgDlg::SetCurrentCommand(int id) {
  for (PictureButton* button : mainButtons_) button->setChecked(button->objectName() == QString::number(id));
}

PictureButton* CImgDlg::ButtonOf(int id) const { return findChild<PictureButton*>(QString::number(id)); }

double CImgDlg::Scale() const {
  if (layoutSize_.isEmpty()) return 1;
  return std::min(static_cast<double>(width()) / layoutSize_.width(),
                  static_cast<double>(height()) / layoutSize_.height());
}

QPointF CImgDlg::Origin() const {
  const QSizeF free = QSizeF(size()) - QSizeF(layoutSize_) * Scale();
  return layoutSize_.isEmpty() ? QPointF() : QPointF(free.width() / 2, free.height() / 2);
}

void CImgDlg::resizeEvent(QResizeEvent* event) {
  for (PictureButton* button : Buttons()) button->MoveTo(Origin(), Scale());
  QDialog::resizeEvent(event);
}

void CImgDlg::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    OnHelpInfo();
    return;
  }
  QDialog::keyPressEvent(event);
}

std::vector<PictureButton*> CImgDlg::Buttons() const {
  std::vector<PictureButton*> buttons = mainButtons_;
  buttons.insert(buttons.end(), areaButtons_.begin(), areaButtons_.end());
  return buttons;
}

void CImgDlg::MoveFocus(const PictureButton& from, int key) {
  PictureButton* nearest = nullptr;
  double least = std::numeric_limits<double>::infinity();
  for (PictureButton* button : Buttons()) {
    if (!button->isEnabled() || button->isHidden()) continue;
    const double distance = distanceAlong(key, from.Place().center(), button->Place().center());
    if (distance < least) {
      least = distance;
      nearest = button;
    }
  }
  if (nearest != nullptr) nearest->setFocus(Qt::TabFocusReason);
}

}  // namespace tz
