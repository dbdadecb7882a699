#include "suite/general_dialog.h"

#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace tz {

CGeneralDialog::CGeneralDialog(QWidget* parent)
    : QDialog(parent), text_(new QLabel(this)), cancel_(new QPushButton(QStringLiteral("取消"), this)) {
  setWindowTitle(QStringLiteral("请稍候"));
  setWindowModality(Qt::WindowModal);
  cancel_->setObjectName(QStringLiteral("2"));
  auto* bar = new QProgressBar(this);
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  bar->setAccessibleName(QStringLiteral("进度"));
  auto* layout = new QVBoxLayout(this);
  constexpr int margin = 20;
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(12);
  layout->addWidget(text_);
  layout->addWidget(bar);
  layout->addWidget(cancel_, 0, Qt::AlignRight);
  setMinimumWidth(320);
  connect(cancel_, &QPushButton::clicked, this, &CGeneralDialog::cancelled);
}

void CGeneralDialog::Begin() {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  cancel_->setCursor(Qt::ArrowCursor);
  show();
}

void CGeneralDialog::SetTextGeneral(const QString& text) { text_->setText(text); }

void CGeneralDialog::End() {
  QGuiApplication::restoreOverrideCursor();
  hide();
}

}  // namespace tz
