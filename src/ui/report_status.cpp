#include "ui/report_status.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "grid/column_adder.h"
#include "suite/qt_text.h"
#include "suite/theme.h"

namespace tz {
namespace {

constexpr int progressWidth = 140;
constexpr int progressHeight = 6;

QString grouped(qint64 number) { return QLocale(QLocale::Chinese).toString(number); }

}  // namespace

ReportStatus::ReportStatus(QWidget* parent)
    : QWidget(parent),
      notices_(new QLabel(this)),
      message_(new QLabel(this)),
      selection_(new QLabel(this)),
      progress_(new QProgressBar(this)),
      stop_(new QToolButton(this)) {
  notices_->setObjectName(QStringLiteral("notices"));
  notices_->setWordWrap(true);
  notices_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  notices_->hide();
  message_->setObjectName(QStringLiteral("status"));
  message_->setTextFormat(Qt::PlainText);
  // A long failure is cut by the window's width, not the other way round; the tip holds it whole.
  message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  selection_->setObjectName(QStringLiteral("selection"));
  progress_->setFixedSize(progressWidth, progressHeight);
  progress_->setTextVisible(false);
  progress_->setAccessibleName(QStringLiteral("进度"));
  stop_->setText(QStringLiteral("停止 (Esc)"));
  stop_->setObjectName(QStringLiteral("stop"));
  stop_->setAutoRaise(true);
  connect(stop_, &QToolButton::clicked, this, &ReportStatus::stopClicked);

  auto* line = new QHBoxLayout;
  line->setSpacing(12);
  line->addWidget(message_, 1);
  line->addWidget(progress_);
  line->addWidget(stop_);
  line->addWidget(selection_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 0, 4, 0);
  layout->setSpacing(4);
  layout->addWidget(notices_);
  layout->addLayout(line);
  EndWork();
}

QWidget* ReportStatus::StopButton() const { return stop_; }

void ReportStatus::SetMessage(const QString& text, bool failure) {
  message_->setText(text);
  message_->setToolTip(text);
  failure_ = failure;
  PaintMessage();
}

void ReportStatus::PaintMessage() {
  QPalette palette;
  palette.setColor(QPalette::WindowText, failure_ ? currentTheme().negative : currentTheme().mutedText);
  message_->setPalette(palette);
}

void ReportStatus::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) PaintMessage();
  QWidget::changeEvent(event);
}

void ReportStatus::ShowRows(std::int64_t rows, const std::vector<Notice>& notices) {
  SetMessage(rows == 0 ? QStringLiteral("没有记录") : QStringLiteral("共 %1 行").arg(grouped(rows)), false);
  QStringList lines;
  for (const auto& notice : notices) lines.append(QStringLiteral("※ ") + toQt(notice.text));
  notices_->setText(lines.join(QLatin1Char('\n')));
  notices_->setVisible(!lines.isEmpty());
}

void ReportStatus::ShowSelection(double sum, qint64 count) const {
  selection_->setText(
      count == 0 ? QString()
                 : QStringLiteral("计数 %1　合计 %2").arg(grouped(count), toQt(figureText(sum, Figure::amount))));
}

void ReportStatus::BeginWork(const QString& text) {
  messageBefore_ = message_->text();
  failureBefore_ = failure_;
  workText_ = text;
}

void ReportStatus::ShowProgress(qint64 done, qint64 of) {
  progress_->setRange(0, of == 0 ? 0 : 100);
  progress_->update();
  if (of != 0) progress_->setValue(static_cast<int>(done * 100 / of));
  progress_->show();
  stop_->show();
  SetMessage(done == 0 ? workText_ : QStringLiteral("%1 已处理 %2 行").arg(workText_, grouped(done)), false);
}

void ReportStatus::EndWork() {
  if (!progress_->isHidden()) SetMessage(messageBefore_, failureBefore_);
  progress_->hide();
  stop_->hide();
}

}  // namespace tz
