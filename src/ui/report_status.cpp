#include "ui/report_status.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <array>

#include "grid/column_adder.h"
#include "suite/qt_text.h"
#include "suite/theme.h"

namespace tz {
namespace {

constexpr int progressWidth = 140;
constexpr int progressHeight = 6;

QString grouped(qint64 number) { return QLocale(QLocale::Chinese).toString(number); }

}  // namespace

QString selectionText(const LineSums& sums) {
  struct Kind {
    Movement movement;
    const char* caption;
    Figure figure;
  };
  static constexpr std::array kinds = {
      Kind{Movement::debitAmount, "借方", Figure::amount},
      Kind{Movement::creditAmount, "贷方", Figure::amount},
      Kind{Movement::debitQuantity, "借方数量", Figure::quantity},
      Kind{Movement::creditQuantity, "贷方数量", Figure::quantity},
      Kind{Movement::debitForeign, "借方外币", Figure::amount},
      Kind{Movement::creditForeign, "贷方外币", Figure::amount},
  };
  if (sums.rows == 0) return {};
  QStringList parts;
  for (const auto& [movement, caption, figure] : kinds) {
    const auto& [sum, count] = sums.of(movement);
    if (count == 0) continue;
    parts.append(QStringLiteral("%1 %2 笔，合计 %3，平均 %4")
                     .arg(QString::fromUtf8(caption), grouped(count), toQt(figureText(sum, figure)),
                          toQt(figureText(sum / static_cast<double>(count), figure))));
  }
  const QString lines = QStringLiteral("已选 %1 条分录").arg(grouped(sums.lines));
  return parts.isEmpty() ? lines : lines + QStringLiteral("：") + parts.join(QStringLiteral("；"));
}

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

void ReportStatus::ShowSelection(const LineSums& sums) const {
  selection_->setText(selectionText(sums));
  selection_->setToolTip(QStringLiteral("只加分录：期初、合计行和余额、单价、汇率不计入。"));
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
