#include "desktop/report/locate_bar.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "desktop/frame/announce.h"
#include "desktop/frame/elided_label.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int fieldWidth = 220;

}  // namespace

LocateBar::LocateBar(QWidget* parent) : QWidget(parent), field_(new QLineEdit(this)), result_(new ElidedLabel(this)) {
  auto* label = new QLabel(QStringLiteral("定位"), this);
  label->setBuddy(field_);
  field_->setObjectName(QStringLiteral("locate"));
  field_->setAccessibleName(QStringLiteral("定位"));
  field_->setPlaceholderText(QStringLiteral("文字、金额或日期的一部分"));
  field_->setMaximumWidth(fieldWidth);
  result_->setObjectName(QStringLiteral("located"));
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 6, 0, 0);
  layout->setSpacing(8);
  layout->addWidget(label);
  layout->addWidget(field_);
  QToolButton* previous =
      AddButton("locatePrevious", QStringLiteral("▲"), QStringLiteral("上一处"), QStringLiteral("Shift+F3"));
  QToolButton* next = AddButton("locateNext", QStringLiteral("▼"), QStringLiteral("下一处"), QStringLiteral("F3"));
  layout->addWidget(previous);
  layout->addWidget(next);
  layout->addWidget(result_, 1);
  QToolButton* close = AddButton("locateClose", QStringLiteral("×"), QStringLiteral("关闭定位"), QStringLiteral("Esc"));
  layout->addWidget(close);
  connect(field_, &QLineEdit::textChanged, this, &LocateBar::textChanged);
  connect(previous, &QToolButton::clicked, this, &LocateBar::previousWanted);
  connect(next, &QToolButton::clicked, this, &LocateBar::nextWanted);
  connect(close, &QToolButton::clicked, this, &LocateBar::closed);
  hide();
}

QToolButton* LocateBar::AddButton(const char* id, const QString& text, const QString& name, const QString& keys) {
  auto* button = new QToolButton(this);
  button->setObjectName(QString::fromLatin1(id));
  button->setText(text);
  button->setAccessibleName(name);
  button->setToolTip(QStringLiteral("%1 (%2)").arg(name, keys));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

void LocateBar::Open(const QString& text) {
  show();
  field_->setFocus();
  if (text.isEmpty()) {
    field_->selectAll();
  } else {
    field_->setText(text);
  }
}

void LocateBar::Compose(QInputMethodEvent& event) {
  if (isHidden()) field_->clear();
  show();
  QCoreApplication::sendEvent(field_, &event);
  if (!event.commitString().isEmpty()) field_->setFocus();
  if (event.commitString().isEmpty() && event.preeditString().isEmpty() && field_->text().isEmpty()) hide();
}

QString LocateBar::Text() const { return field_->text(); }

void LocateBar::ShowResult(const Located& located) {
  const auto& [number, found, filtered, inHiddenTotals, finished] = located;
  QStringList parts;
  if (number > 0 && !finished) parts.append(QStringLiteral("第 %1 处").arg(grouped(number)));
  if (number > 0 && finished) parts.append(QStringLiteral("第 %1 处，共 %2 处").arg(grouped(number), grouped(found)));
  if (finished && found == 0 && !Text().trimmed().isEmpty()) parts.append(QStringLiteral("没有找到"));
  if (finished && filtered > 0) parts.append(QStringLiteral("另有 %1 处被筛选隐藏").arg(grouped(filtered)));
  if (finished && inHiddenTotals > 0) {
    parts.append(QStringLiteral("另有 %1 处在不显示的月合计、年累计里").arg(grouped(inHiddenTotals)));
  }
  const QString text = parts.join(QStringLiteral("；"));
  const bool news = finished && text != result_->text();
  result_->SetShown(text);
  if (news) announce(result_);
}

void LocateBar::keyPressEvent(QKeyEvent* event) {
  event->accept();
  const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
  if (event->key() == Qt::Key_Escape) {
    emit closed();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    shift ? emit previousWanted() : emit nextWanted();
  } else if (event->key() == Qt::Key_Down) {
    emit nextWanted();
  } else if (event->key() == Qt::Key_Up) {
    emit previousWanted();
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace tz
