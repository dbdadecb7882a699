#include "desktop/page/preview_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <algorithm>
#include <array>

#include "desktop/frame/combo_name.h"
#include "desktop/frame/fit_window.h"
#include "desktop/frame/manual_page.h"
#include "desktop/frame/narrow_button.h"
#include "desktop/page/page_painter.h"
#include "desktop/page/page_view.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr std::array percents = {50, 75, 100, 125, 150, 200, 300};
constexpr std::array orientations = {"按宽度选纸向", "纵向", "横向"};

}  // namespace

PreviewDialog::PreviewDialog(const ComputedReport& report, PageOptions& options, PageStamp stamp, QWidget* parent)
    : QDialog(parent), report_(report), options_(options), stamp_(std::move(stamp)), view_(new PageView(this)) {
  setObjectName(QStringLiteral("preview"));
  setWindowTitle(QStringLiteral("打印预览"));
  setManualPage(*this, QStringLiteral("printing"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  auto* bar = new QHBoxLayout;
  constexpr int margin = 8;
  bar->setContentsMargins(margin, margin, margin, margin);
  bar->setSpacing(margin);
  QPushButton* print = AddButton(*bar, "print", QStringLiteral("打印(&P)"), QStringLiteral("打印　Ctrl+P"));
  QPushButton* pdf = AddButton(*bar, "pdf", QStringLiteral("存为 PDF(&S)"), QStringLiteral("存为 PDF 文件　Ctrl+S"));
  connect(print, &QPushButton::clicked, this, &PreviewDialog::printAsked);
  connect(pdf, &QPushButton::clicked, this, &PreviewDialog::pdfAsked);
  AddSheetButtons(*bar);
  AddZoom(*bar);
  AddOptions(*bar);
  bar->addStretch();
  QPushButton* close = AddButton(*bar, "close", QStringLiteral("关闭(&C)"), QStringLiteral("关闭预览　Esc"));
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  layout->addLayout(bar);
  layout->addWidget(view_, 1);
  connect(view_, &PageView::currentChanged, this, &PreviewDialog::ShowPlace);
  connect(view_, &PageView::zoomAsked, this, &PreviewDialog::ZoomBy);
  resize(QSize(960, 720).boundedTo(roomFor(*this)));
  Divide();
  view_->setFocus();
}

PreviewDialog::~PreviewDialog() = default;

void PreviewDialog::SetFoot(QWidget* foot) { layout()->addWidget(foot); }

QString PreviewDialog::PaperText() const {
  const auto& columns = pages_->Columns();
  QString text = QStringLiteral("共 %1 页，A4 %2")
                     .arg(grouped(view_->Sheets()),
                          columns.paper.width > columns.paper.height ? QStringLiteral("横向") : QStringLiteral("纵向"));
  const auto strips = columns.strips.size();
  if (strips > 1) text += QStringLiteral("；栏目多，每 %1 页并排成一张表").arg(strips);
  return text;
}

QPushButton* PreviewDialog::AddButton(QHBoxLayout& bar, const char* name, const QString& text, const QString& tip) {
  auto* button = new NarrowButton(text, this);
  button->setObjectName(QLatin1String(name));
  button->setToolTip(tip);
  button->setAutoDefault(false);
  bar.addWidget(button);
  return button;
}

void PreviewDialog::AddSheetButtons(QHBoxLayout& bar) {
  first_ = AddButton(bar, "first", QStringLiteral("|<"), QStringLiteral("第一页　Home"));
  previous_ = AddButton(bar, "previous", QStringLiteral("<"), QStringLiteral("上一页　PageUp"));
  sheet_ = new QSpinBox(this);
  sheet_->setObjectName(QStringLiteral("sheet"));
  sheet_->setAccessibleName(QStringLiteral("页号"));
  sheet_->setKeyboardTracking(false);
  sheet_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  sheet_->setAlignment(Qt::AlignRight);
  constexpr int room = 56;  // for five figures
  sheet_->setMinimumWidth(room);
  bar.addWidget(sheet_);
  of_ = new QLabel(this);
  bar.addWidget(of_);
  next_ = AddButton(bar, "next", QStringLiteral(">"), QStringLiteral("下一页　PageDown"));
  last_ = AddButton(bar, "last", QStringLiteral(">|"), QStringLiteral("最后一页　End"));
  for (auto* button : {first_, previous_, next_, last_})
    button->setAccessibleName(button->toolTip().section(QChar(0x3000), 0, 0));
  connect(first_, &QPushButton::clicked, this, [this] { view_->GoTo(0); });
  connect(previous_, &QPushButton::clicked, this, [this] { view_->Turn(-1); });
  connect(next_, &QPushButton::clicked, this, [this] { view_->Turn(1); });
  connect(last_, &QPushButton::clicked, this, [this] { view_->GoTo(view_->Sheets() - 1); });
  connect(sheet_, &QSpinBox::valueChanged, this, [this](int number) { view_->GoTo(number - 1); });
}

void PreviewDialog::AddZoom(QHBoxLayout& bar) {
  zoom_ = new QComboBox(this);
  zoom_->setObjectName(QStringLiteral("zoom"));
  nameCombo(*zoom_, QStringLiteral("显示比例"));
  zoom_->setToolTip(QStringLiteral("显示比例　Ctrl++、Ctrl+-、Ctrl+滚轮；整页 Ctrl+0，页宽 Ctrl+1，双页 Ctrl+2"));
  zoom_->addItem(QStringLiteral("整页"), PageView::wholeSheet);
  zoom_->addItem(QStringLiteral("页宽"), PageView::sheetWidth);
  zoom_->addItem(QStringLiteral("双页"), PageView::twoSheets);
  for (const int percent : percents) zoom_->addItem(QStringLiteral("%1 %").arg(percent), percent);
  bar.addWidget(zoom_);
  connect(zoom_, &QComboBox::activated, this, [this] { view_->SetZoom(zoom_->currentData().toInt()); });
}

void PreviewDialog::AddOptions(QHBoxLayout& bar) {
  auto* orientation = new QComboBox(this);
  orientation->setObjectName(QStringLiteral("orientation"));
  nameCombo(*orientation, QStringLiteral("纸张方向"));
  for (const char* text : orientations) orientation->addItem(QString::fromUtf8(text));
  orientation->setCurrentIndex(static_cast<int>(options_.orientation));
  bar.addWidget(orientation);
  connect(orientation, &QComboBox::activated, this, [this](int index) {
    options_.orientation = static_cast<Orientation>(index);
    Divide();
  });
  if (!report_.carried) return;
  auto* carried = new QCheckBox(QStringLiteral("承前页、过次页(&F)"), this);
  carried->setObjectName(QStringLiteral("carried"));
  carried->setToolTip(QStringLiteral("跨页时，页末写过次页，下页写承前页：本月至此的发生额和余额"));
  carried->setChecked(options_.carriedLines);
  bar.addWidget(carried);
  connect(carried, &QCheckBox::toggled, this, [this](bool on) {
    options_.carriedLines = on;
    Divide();
  });
}

void PreviewDialog::Divide() {
  options_.columnEm = pageColumnEm();
  auto pages = std::make_unique<ReportPages>(report_, options_, stamp_);
  view_->Show(*pages);
  pages_ = std::move(pages);
  const QSignalBlocker quiet(sheet_);
  sheet_->setRange(1, view_->Sheets());
  of_->setText(QStringLiteral("/ %1 页").arg(grouped(view_->Sheets())));
  ShowPlace();
  emit divided();
}

void PreviewDialog::ShowPlace() {
  const QSignalBlocker quiet(sheet_);
  const int current = view_->Current();
  sheet_->setValue(current + 1);
  for (auto* button : {first_, previous_}) button->setEnabled(current > 0);
  for (auto* button : {next_, last_}) button->setEnabled(!view_->AtEnd());
}

void PreviewDialog::ZoomBy(int steps) {
  const int now = view_->Percent();
  const auto larger = std::ranges::find_if(percents, [now](int percent) { return percent > now; });
  const auto smaller = std::find_if(percents.rbegin(), percents.rend(), [now](int percent) { return percent < now; });
  if (steps > 0 && larger != percents.end()) SetZoom(*larger);
  if (steps < 0 && smaller != percents.rend()) SetZoom(*smaller);
}

void PreviewDialog::SetZoom(int zoom) {
  zoom_->setCurrentIndex(zoom_->findData(zoom));
  view_->SetZoom(zoom);
}

bool PreviewDialog::TakesKey(int key) {
  switch (key) {
    case Qt::Key_P:
      emit printAsked();
      return true;
    case Qt::Key_S:
      emit pdfAsked();
      return true;
    case Qt::Key_G:
      sheet_->setFocus(Qt::ShortcutFocusReason);
      sheet_->selectAll();
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      ZoomBy(1);
      return true;
    case Qt::Key_Minus:
      ZoomBy(-1);
      return true;
    case Qt::Key_0:
      SetZoom(PageView::wholeSheet);
      return true;
    case Qt::Key_1:
      SetZoom(PageView::sheetWidth);
      return true;
    case Qt::Key_2:
      SetZoom(PageView::twoSheets);
      return true;
    default:
      return false;
  }
}

void PreviewDialog::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers().testFlag(Qt::ControlModifier) && TakesKey(event->key())) return;
  QDialog::keyPressEvent(event);
}

}  // namespace tz
