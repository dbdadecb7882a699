#include "desktop/report/report_status.h"

#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPointer>
#include <QProgressBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/grid/figures.h"
#include "desktop/frame/announce.h"
#include "desktop/frame/elided_label.h"
#include "desktop/frame/open_path.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int progressWidth = 140;
constexpr int progressHeight = 6;
constexpr int narrowestMessage = 110;
constexpr int newsTime = 6000;  // milliseconds

QString rowsText(qint64 shown, qint64 rows) {
  if (rows == 0) return QStringLiteral("没有记录");
  const QString all = QStringLiteral("共 %1 行").arg(grouped(rows));
  return shown == rows ? all : all + QStringLiteral("，显示 %1 行").arg(grouped(shown));
}

}  // namespace

QString selectionText(const LineSums& sums) {
  // Of a table's totals alone there is nothing to say.
  if (sums.rows == 0 || (sums.lines == 0 && !sums.ofVouchers)) return {};
  QStringList parts;
  for (const auto& traits : columnKinds) {
    const auto& [sum, count] = sums.of(traits.kind);
    if (count == 0) continue;
    if (!sums.ofVouchers) {
      parts.append(QStringLiteral("%1合计 %2").arg(toQt(traits.sumName), toQt(figureText(sum, traits.kind))));
      continue;
    }
    parts.append(QStringLiteral("%1 %2 笔，合计 %3，平均 %4")
                     .arg(toQt(traits.sumName), grouped(count), toQt(figureText(sum, traits.kind)),
                          toQt(figureText(sum / static_cast<double>(count), traits.kind))));
  }
  const QString lines =
      (sums.ofVouchers ? QStringLiteral("已选 %1 条分录") : QStringLiteral("已选 %1 行")).arg(grouped(sums.lines));
  return parts.isEmpty() ? lines : lines + QStringLiteral("：") + parts.join(QStringLiteral("；"));
}

ReportStatus::ReportStatus(QWidget* parent)
    : QWidget(parent),
      remarks_(new QLabel(this)),
      subject_(new ElidedLabel(this)),
      message_(new ElidedLabel(this)),
      openFile_(new QToolButton(this)),
      openFolder_(new QToolButton(this)),
      selection_(new ElidedLabel(this)),
      progress_(new QProgressBar(this)),
      stop_(new QToolButton(this)),
      news_(new QTimer(this)) {
  news_->setObjectName(QStringLiteral("news"));
  news_->setSingleShot(true);
  news_->setInterval(newsTime);
  connect(news_, &QTimer::timeout, this, &ReportStatus::Rest);
  remarks_->setObjectName(QStringLiteral("remarks"));
  remarks_->setTextFormat(Qt::PlainText);
  remarks_->setWordWrap(true);
  remarks_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  remarks_->hide();
  subject_->setObjectName(QStringLiteral("subject"));
  subject_->hide();
  message_->setObjectName(QStringLiteral("status"));
  message_->setMinimumWidth(narrowestMessage);
  message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  selection_->setObjectName(QStringLiteral("selection"));
  auto* copy = new QAction(QStringLiteral("复制(&C)"), selection_);
  connect(copy, &QAction::triggered, this, &ReportStatus::CopySelection);
  selection_->addAction(copy);
  selection_->setContextMenuPolicy(Qt::ActionsContextMenu);
  progress_->setFixedSize(progressWidth, progressHeight);
  progress_->setTextVisible(false);
  progress_->setAccessibleName(QStringLiteral("进度"));
  const auto name = [](QToolButton* button, const char* id, const QString& text) {
    button->setObjectName(QString::fromLatin1(id));
    button->setText(text);
    // Without the letter of its key, which would be read aloud.
    button->setAccessibleName(text.left(text.indexOf(QLatin1Char('('))).trimmed());
    button->setAutoRaise(true);
  };
  name(stop_, "stop", QStringLiteral("停止 (Esc)"));
  name(openFile_, "openFile", QStringLiteral("打开文件(&O)"));
  name(openFolder_, "openFolder", QStringLiteral("打开文件夹(&D)"));
  connect(stop_, &QToolButton::clicked, this, &ReportStatus::stopClicked);
  connect(openFile_, &QToolButton::clicked, this, [this] { Open(exported_); });
  connect(openFolder_, &QToolButton::clicked, this, [this] { Open(QFileInfo(exported_).absolutePath()); });

  auto* line = new QHBoxLayout;
  line->setSpacing(12);
  line->addWidget(subject_);
  line->addWidget(message_, 1);
  for (QWidget* part : std::initializer_list<QWidget*>{openFile_, openFolder_, progress_, stop_, selection_}) {
    line->addWidget(part);
  }
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 0, 4, 0);
  layout->setSpacing(4);
  layout->addWidget(remarks_);
  layout->addLayout(line);
  SetMessage({}, false);
  EndWork();
  KeepHeight();
}

// Buttons that come and go leave what stands above the line where it is.
void ReportStatus::KeepHeight() {
  int height = 0;
  for (const QWidget* button : {openFile_, openFolder_, stop_}) height = std::max(height, button->sizeHint().height());
  message_->setMinimumHeight(height);
}

// The subject stands above the grid too, so that it gives way to what is selected.
void ReportStatus::ShareRoom() const {
  constexpr int gaps = 40;
  const int left = width() - narrowestMessage - selection_->sizeHint().width() - gaps;
  subject_->setMaximumWidth(std::max(left, 0));
}

void ReportStatus::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  ShareRoom();
}

QWidget* ReportStatus::StopButton() const { return stop_; }

void ReportStatus::SetMessage(const QString& text, bool failure) {
  news_->stop();
  rests_ = false;
  message_->SetShown(text);
  failure_ = failure;
  openFile_->hide();
  openFolder_->hide();
  PaintMessage();
  if (failure) announce(message_);
}

void ReportStatus::Rest() {
  SetMessage(lasting_, false);
  rests_ = true;
}

void ReportStatus::ShowMessage(const QString& text) {
  lasting_ = text;
  Rest();
}

void ReportStatus::ShowNews(const QString& text) {
  SetMessage(text, false);
  announce(message_);
  news_->start();
}

void ReportStatus::EndNews() {
  if (news_->isActive()) Rest();
}

// A window without rows keeps the reason.
void ReportStatus::EndFailure() {
  if (failure_ && !lasting_.isEmpty()) Rest();
}

void ReportStatus::ShowExported(const QString& path) {
  exported_ = QFileInfo(path).absoluteFilePath();
  SetMessage(QStringLiteral("已输出到 ") + path, false);
  openFile_->setToolTip(exported_);
  openFolder_->setToolTip(QFileInfo(exported_).absolutePath());
  openFile_->show();
  openFolder_->show();
  announce(message_);
}

void ReportStatus::Open(const QString& path) {
  if (!QFileInfo::exists(path)) {
    ShowFailure(QStringLiteral("打不开“%1”：它已经不在那里").arg(path));
    return;
  }
  openPath(path, [status = QPointer(this), path] {
    if (status != nullptr) status->TellNoProgram(path);
  });
}

void ReportStatus::TellNoProgram(const QString& path) {
  QGuiApplication::clipboard()->setText(path);
  const QString kind = QFileInfo(path).isDir() ? QStringLiteral("文件夹") : QStringLiteral("这种文件");
  ShowFailure(QStringLiteral("打不开“%1”：没有登记打开%2的程序。它的完整路径已复制，可以粘贴到别处。").arg(path, kind));
  openFile_->show();
  openFolder_->show();
}

void ReportStatus::ShowFailure(const QString& text, const QString& detail) {
  SetMessage(text, true);
  if (!detail.isEmpty()) message_->setToolTip(QStringLiteral("%1\n详细：%2").arg(text, detail));
}

void ReportStatus::PaintMessage() {
  QPalette palette;
  palette.setColor(QPalette::WindowText, failure_ ? currentTheme().negative : currentTheme().mutedText);
  message_->setPalette(palette);
  QPalette link;
  link.setColor(QPalette::ButtonText, currentTheme().accent);
  openFile_->setPalette(link);
  openFolder_->setPalette(link);
}

void ReportStatus::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) PaintMessage();
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) KeepHeight();
}

void ReportStatus::ShowRows(std::int64_t rows, const std::vector<Notice>& notices) {
  ShowMessage(rowsText(rows, rows));
  QStringList lines;
  for (const Notice& notice : notices) {
    if (!notice.warns()) lines.append(QStringLiteral("※ ") + toQt(notice.text));
  }
  remarks_->setText(lines.join(QLatin1Char('\n')));
  remarks_->setVisible(!lines.isEmpty());
}

void ReportStatus::ShowShown(std::int64_t shown, std::int64_t rows) {
  lasting_ = rowsText(shown, rows);
  if (rests_ || news_->isActive()) Rest();
}

void ReportStatus::ShowSubject(const QString& text) const {
  subject_->SetShown(text);
  subject_->setVisible(!text.isEmpty());
}

void ReportStatus::ShowSelection(const LineSums& sums) const {
  selection_->SetShown(selectionText(sums));
  selection_->setToolTip(selection_->text() +
                         (sums.ofVouchers ? QStringLiteral("\n只加分录：期初、合计行和余额、单价、汇率不计入。")
                                          : QStringLiteral("\n只加发生额：小计、合计行和余额不计入。")));
  ShareRoom();
  announce(selection_, QAccessible::NameChanged);
}

void ReportStatus::CopySelection() {
  if (selection_->text().isEmpty()) return;
  QGuiApplication::clipboard()->setText(selection_->text());
  ShowNews(QStringLiteral("已复制：") + selection_->text());
}

void ReportStatus::BeginWork(const QString& text, const QString& unit) {
  EndNews();
  messageBefore_ = message_->text();
  restedBefore_ = rests_;
  failureBefore_ = failure_;
  workText_ = text;
  workUnit_ = unit;
}

void ReportStatus::ShowProgress(qint64 done, qint64 of) {
  progress_->setRange(0, of == 0 ? 0 : 100);
  progress_->update();
  if (of != 0) progress_->setValue(static_cast<int>(done * 100 / of));
  progress_->show();
  stop_->show();
  SetMessage(done == 0 ? workText_ : QStringLiteral("%1 已处理 %2 %3").arg(workText_, grouped(done), workUnit_), false);
}

void ReportStatus::EndWork() {
  if (!progress_->isHidden()) {
    SetMessage(messageBefore_, failureBefore_);
    rests_ = restedBefore_;
  }
  progress_->hide();
  stop_->hide();
}

}  // namespace tz
