#include "desktop/frame/general_dialog.h"

#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace tz {

CGeneralDialog::CGeneralDialog(QWidget* parent)
    : QDialog(parent),
      text_(new QLabel(this)),
      bar_(new QProgressBar(this)),
      cancel_(new QPushButton(QStringLiteral("取消"), this)) {
  setWindowTitle(QStringLiteral("请稍候"));
  setWindowModality(Qt::WindowModal);
  cancel_->setObjectName(QStringLiteral("2"));
  // Enter on what one is waiting for must not end the waiting.
  cancel_->setAutoDefault(false);
  bar_->setRange(0, 0);
  bar_->setTextVisible(false);
  bar_->setAccessibleName(QStringLiteral("进度"));
  auto* layout = new QVBoxLayout(this);
  constexpr int margin = 20;
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(12);
  layout->addWidget(text_);
  layout->addWidget(bar_);
  layout->addWidget(cancel_, 0, Qt::AlignRight);
  setMinimumWidth(320);
  constexpr int frame = 40;  // milliseconds
  startTimer(frame);
  connect(cancel_, &QPushButton::clicked, this, &CGeneralDialog::cancelled);
}

void CGeneralDialog::Begin() {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  cancel_->setCursor(Qt::ArrowCursor);
  show();
}

void CGeneralDialog::timerEvent(QTimerEvent* /*event*/) { bar_->update(); }

void CGeneralDialog::SetTextGeneral(const QString& text) { text_->setText(text); }

void CGeneralDialog::SetProgress(int done, int of) {
  bar_->setRange(0, of);
  bar_->setValue(done);
}

void CGeneralDialog::End() {
  QGuiApplication::restoreOverrideCursor();
  hide();
}

}  // namespace tz
