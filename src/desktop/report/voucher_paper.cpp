#include "desktop/report/voucher_paper.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>

#include "desktop/report/voucher_sheet.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/pixel_lines.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"
#include "desktop/theme/theme_drawing.h"

namespace tz {
namespace {

constexpr int voucherTitlePixels = 28;
constexpr int ruleGap = 3;

QFont titleFont() {
  QFont font = kaiFont(voucherTitlePixels);
  font.setWeight(QFont::Bold);
  return font;
}

// Names of an archive are written as they stand, on one line.
QString named(const char* caption, const std::string& name) {
  return QString::fromUtf8(caption) + toQt(name).simplified();
}

}  // namespace

BookStamp::BookStamp(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("voucherBook"));
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignCenter);
  setContentsMargins(8, 2, 8, 2);
}

void BookStamp::Show(Book book) {
  shown_ = book;
  setText(toQt(bookName(book)));
}

void BookStamp::paintEvent(QPaintEvent* /*event*/) {
  const Theme& theme = currentTheme();
  const bool posted = shown_ == Book::posted;
  QPainter painter(this);
  drawBox(painter, rect(), posted ? theme.surface : theme.warningGround, posted ? theme.accent : theme.warning);
  painter.setPen(posted ? theme.accent : theme.warning);
  painter.drawText(rect(), Qt::AlignCenter, text());
}

VoucherPaper::VoucherPaper(QWidget* parent)
    : QFrame(parent),
      title_(Label("voucherTitle", Qt::AlignHCenter)),
      book_(new BookStamp(this)),
      period_(Label("voucherPeriod", Qt::AlignLeft)),
      date_(Label("voucherDate", Qt::AlignHCenter)),
      number_(Label("voucherNumber", Qt::AlignRight)),
      sheet_(new VoucherSheet(this)),
      total_(new VoucherTotal(*sheet_)),
      maker_(Label("voucherMaker", Qt::AlignLeft)),
      checker_(Label("voucherChecker", Qt::AlignHCenter)),
      poster_(Label("voucherPoster", Qt::AlignRight)) {
  setObjectName(QStringLiteral("voucherPaper"));
  title_->setText(QStringLiteral("记 帐 凭 证"));
  title_->setFont(titleFont());
  LayOut();
  window()->installEventFilter(this);
}

QLabel* VoucherPaper::Label(const char* name, Qt::Alignment alignment) {
  auto* label = new QLabel(this);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(alignment | Qt::AlignVCenter);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

void VoucherPaper::LayOut() {
  constexpr int thirds = 3;
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(28, 18, 28, 18);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(0);
  for (int column = 0; column < thirds; ++column) grid->setColumnStretch(column, 1);
  int row = 0;
  grid->addWidget(title_, row++, 0, 1, thirds);
  grid->setRowMinimumHeight(row++, 4 * ruleGap);  // the double rule
  auto* left = new QHBoxLayout;
  left->setSpacing(12);
  left->addWidget(book_);
  left->addWidget(period_, 1);
  grid->addLayout(left, row, 0);
  grid->addWidget(date_, row, 1);
  grid->addWidget(number_, row++, 2);
  grid->setRowMinimumHeight(row++, 8);
  grid->addWidget(sheet_, row, 0, 1, thirds);
  grid->setRowStretch(row++, 1);
  grid->addWidget(total_, row++, 0, 1, thirds);
  grid->setRowMinimumHeight(row++, 12);
  grid->addWidget(maker_, row, 0);
  grid->addWidget(checker_, row, 1);
  grid->addWidget(poster_, row, 2);
}

void VoucherPaper::Show(const Voucher& voucher, Id line) {
  const auto& head = voucher.head;
  const Date date = head.dtBill;
  book_->Show(voucher.book);
  period_->setText(QStringLiteral("会计期间：%1 月").arg(head.byPeroid));
  date_->setText(QStringLiteral("%1 年 %2 月 %3 日").arg(date.year).arg(date.month).arg(date.day));
  number_->setText(
      QStringLiteral("凭证号：%1　附单据 %2 张").arg(toQt(voucher.number()).simplified()).arg(head.nAttach));
  maker_->setText(named("制单：", head.sMaker));
  checker_->setText(named("审核：", head.sChecker));
  poster_->setText(named("记帐：", head.sPoster));
  total_->Show(voucher);
  sheet_->Show(voucher, line);
}

bool VoucherPaper::eventFilter(QObject* window, QEvent* event) {
  if (event->type() == QEvent::ApplicationFontChange) title_->setFont(titleFont());
  return QFrame::eventFilter(window, event);
}

void VoucherPaper::paintEvent(QPaintEvent* /*event*/) {
  const Theme& theme = currentTheme();
  QPainter painter(this);
  const PixelLines lines(painter);
  painter.fillRect(rect(), theme.surface);
  lines.Frame(rect(), theme.edge);
  // Two rules below the title, a little wider than it.
  const int half = title_->fontMetrics().horizontalAdvance(title_->text()) / 2 + voucherTitlePixels;
  const QRect first(title_->geometry().center().x() - half, title_->geometry().bottom() + ruleGap, 2 * half, 1);
  lines.Top(first, theme.text);
  lines.Top(first.translated(0, ruleGap), theme.text);
  // The table has a frame of its own, whose right side is those of the columns.
  const QRect table = sheet_->geometry().united(total_->geometry());
  lines.Frame(table.adjusted(-1, -1, 1, 1), theme.strongRule);
}

}  // namespace tz
