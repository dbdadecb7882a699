#include "desktop/host/failure_note.h"

#include <QEvent>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/reports/explain_error.h"
#include "desktop/frame/announce.h"
#include "desktop/frame/fit_window.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

QLabel* plainText(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

// A long path has no blanks to break it at.
QString breakable(QString text) {
  constexpr QChar mayBreak(0x200B);
  for (const QChar sign : {u'/', u'_', u'-', u'.'}) text.replace(sign, QString(sign) + mayBreak);
  return text;
}

}  // namespace

Failure failureOf(const DbError& error) { return {toQt(explainInWindow(error)), toQt(wordsOf(error)), error.kind()}; }

FailureNote::FailureNote(QWidget* parent)
    : QWidget(parent),
      text_(plainText(QStringLiteral("failure"), this)),
      more_(new QToolButton(this)),
      detail_(plainText(QStringLiteral("failureDetail"), this)) {
  more_->setObjectName(QStringLiteral("failureMore"));
  more_->setText(QStringLiteral("详细"));
  more_->setToolTip(QStringLiteral("数据库的原文，供管理员参考"));
  more_->setCheckable(true);
  more_->setAutoRaise(true);
  more_->setFocusPolicy(Qt::TabFocus);
  detail_->setForegroundRole(QPalette::PlaceholderText);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  layout->addWidget(text_);
  layout->addWidget(more_, 0, Qt::AlignLeft);
  layout->addWidget(detail_);
  layout->addStretch(1);  // room to spare is below, not between
  connect(more_, &QToolButton::toggled, this, [this](bool shown) {
    detail_->setVisible(shown);
    growToContents(*detail_);
  });
  Paint();
  hide();
}

void FailureNote::Tell(const Failure& failure) {
  text_->setText(breakable(failure.text));
  text_->setAccessibleName(failure.text);
  detail_->setText(breakable(failure.detail));
  more_->setVisible(!failure.detail.isEmpty());
  more_->setChecked(false);
  detail_->hide();
  show();
  growToContents(*text_);
  announce(text_);
}

void FailureNote::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) Paint();
  QWidget::changeEvent(event);
}

void FailureNote::Paint() {
  QPalette palette = text_->palette();
  palette.setColor(QPalette::WindowText, currentTheme().negative);
  if (palette != text_->palette()) text_->setPalette(palette);
}

}  // namespace tz
