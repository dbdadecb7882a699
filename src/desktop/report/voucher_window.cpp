#include "desktop/report/voucher_window.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QToolBar>
#include <QVBoxLayout>

#include "core/catalogue/catalogue.h"
#include "core/voucher/voucher_ledgers.h"
#include "desktop/frame/announce.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/manual_page.h"
#include "desktop/frame/message_box.h"
#include "desktop/manual/manual.h"
#include "desktop/report/log.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_status.h"
#include "desktop/report/voucher_paper.h"
#include "desktop/report/voucher_sheet.h"
#include "desktop/report/work_display.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr QSize voucherUnits(395, 230);
constexpr QSize voucherSize(1040, 600);

constexpr CToolBarInfo toolBarTable[] = {
    {.bitmap = 307, .command = static_cast<int>(WindowCommand::print), .shortcut = "Ctrl+P", .tip = "打印凭证"},
    {.bitmap = 306,
     .command = static_cast<int>(WindowCommand::preview),
     .shortcut = "Ctrl+Shift+P",
     .tip = "预览打印的页面，也可以存为 PDF"},
    {},
    {.bitmap = 310, .command = VoucherWindow::previousVoucher, .shortcut = "Alt+Left", .tip = "上一张凭证"},
    {.bitmap = 311, .command = VoucherWindow::nextVoucher, .shortcut = "Alt+Right", .tip = "下一张凭证"},
    {},
    {.bitmap = 316,
     .command = static_cast<int>(WindowCommand::detail),
     .shortcut = "Ctrl+D",
     .tip = "查看当前分录的明细帐"},
    {},
    {.bitmap = 300, .command = static_cast<int>(WindowCommand::help), .shortcut = "F1", .tip = "凭证窗口的说明"},
    {.bitmap = 301, .command = static_cast<int>(WindowCommand::close), .shortcut = "Ctrl+W", .tip = "关闭窗口"},
};

QString escaped(QString text) { return text.replace(u'&', QStringLiteral("&&")); }

}  // namespace

VoucherWindow::VoucherWindow(QWidget* parent)
    : ProcessWindow(templateId, voucherUnits, parent), pages_(std::make_unique<PageOutput>(*this)) {
  background_.LoadBkGroundBitmap(CNeedBitmap::reportGround);
  setWindowTitle(QStringLiteral("记帐凭证"));
  setManualPage(*this, QStringLiteral("vouchers"));
}

VoucherWindow::~VoucherWindow() = default;

bool VoucherWindow::Read(const LineId& line, QWidget* asker) {
  try {
    auto outcome = [&] {
      LongWork work(*asker);
      auto session = windowSession(work, asker);
      return readVoucher(session, line.book, line.voucher);
    }();
    if (auto* voucher = std::get_if<Voucher>(&outcome)) {
      auto before = std::exchange(voucher_, std::make_unique<const Voucher>(std::move(*voucher)));
      line_ = line.line;
      if (paper_ != nullptr) ShowVoucher();
      return true;
    }
    AfxMessageBox(asker, std::get<Refusal>(outcome));
  } catch (const DbError& error) {
    logFailure(fromQt(windowTitle()), error.what());
    AfxMessageBox(asker, error);
  }
  return false;
}

bool VoucherWindow::OnInitDialog() {
  ProcessInitDialog();
  background_.PerpareBkGroundBitmap(this);
  LayOut();
  return true;
}

void VoucherWindow::LayOut() {
  toolBar_ = new QToolBar(this);
  DrawAToolBar(toolBar_, toolBarTable);
  // The keys with which grids go from block to block.
  ActionOf(previousVoucher)->setShortcuts({Qt::ALT | Qt::Key_Left, Qt::CTRL | Qt::Key_PageUp});
  ActionOf(nextVoucher)->setShortcuts({Qt::ALT | Qt::Key_Right, Qt::CTRL | Qt::Key_PageDown});
  paper_ = new VoucherPaper(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 6, 12, 12);
  layout->addWidget(toolBar_);
  layout->addWidget(paper_, 1);
  status_ = new ReportStatus(this);
  layout->addWidget(status_);
  pages_->SetStatus(*status_);
  resize(voucherSize);

  VoucherSheet& sheet = paper_->Sheet();
  connect(&sheet, &QTableView::activated, this, [this] { OnCommand(static_cast<int>(WindowCommand::detail)); });
  auto* copy = new QAction(QStringLiteral("复制分录(&C)"), this);
  copy->setShortcut(QKeySequence::Copy);
  connect(copy, &QAction::triggered, this, [this] { OnCommand(copyLine); });
  sheet.addAction(copy);
  sheet.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&sheet, &QWidget::customContextMenuRequested, this,
          [this, &sheet](QPoint at) { OpenMenu(sheet.viewport()->mapToGlobal(at)); });
}

void VoucherWindow::KeepFolder(ExportFolder folder) { pages_->KeepFolder(std::move(folder)); }

void VoucherWindow::KeepPages(KeptPages kept) { pages_->KeepOptions(std::move(kept)); }

void VoucherWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  background_.PaintBackground(painter, *this);
}

void VoucherWindow::RefreshDisplay() {
  ShowVoucher();
  ShowCenterWindow();
  paper_->Sheet().setFocus();
  paper_->Sheet().scrollTo(paper_->Sheet().currentIndex());
}

void VoucherWindow::ShowVoucher() {
  paper_->Show(*voucher_, line_);
  ActionOf(previousVoucher)->setEnabled(voucher_->previous != 0);
  ActionOf(nextVoucher)->setEnabled(voucher_->next != 0);
  setAccessibleDescription(ListEntry());
  paper_->setAccessibleName(ListEntry());
  announce(paper_);
}

QString VoucherWindow::ListEntry() const {
  if (voucher_ == nullptr) return windowTitle();
  return QStringLiteral("%1 — %2 %3 %4")
      .arg(windowTitle(), toQt(voucher_->number()).simplified(), toQt(isoText(voucher_->head.dtBill)),
           toQt(bookName(voucher_->book)));
}

QAction* VoucherWindow::ActionOf(int command) const {
  return toolBar_->findChild<QAction*>(QString::number(command), Qt::FindDirectChildrenOnly);
}

const VoucherLine* VoucherWindow::CurrentLine() const {
  const int row = paper_->Sheet().CurrentRow();
  return voucher_ == nullptr || row < 0 ? nullptr : &voucher_->lines[static_cast<std::size_t>(row)];
}

void VoucherWindow::OnCommand(int id) {
  if (LongWork::Running()) return;
  switch (id) {
    case previousVoucher:
      return GoTo(voucher_->previous);
    case nextVoucher:
      return GoTo(voucher_->next);
    case copyLine:
      return CopyLine();
    case static_cast<int>(WindowCommand::print):
      return pages_->Print(voucherReport(*voucher_), *this);
    case static_cast<int>(WindowCommand::preview):
      return pages_->Preview(voucherReport(*voucher_), *this);
    case static_cast<int>(WindowCommand::detail):
      return OnDetail();
    case static_cast<int>(WindowCommand::help):
    case helpCommand:
      return showManual(this, manualPageOf(this));
    case static_cast<int>(WindowCommand::close):
      return EndDialog(Accepted);
    default:
      return;
  }
}

void VoucherWindow::GoTo(Id voucher) {
  if (voucher != 0) Read({.book = voucher_->book, .line = 0, .voucher = voucher}, this);
}

void VoucherWindow::CopyLine() {
  if (CurrentLine() == nullptr) return;
  QGuiApplication::clipboard()->setText(paper_->Sheet().Lines().LineText(paper_->Sheet().CurrentRow()));
}

void VoucherWindow::OnDetail() {
  const VoucherLine* line = CurrentLine();
  if (line == nullptr) return AfxMessageBox(this, refusalWith(messages::noLineChosen));
  const auto ledgers = ledgersOf(*voucher_, *line);
  if (ledgers.empty()) return AfxMessageBox(this, refusalWith(messages::lineWithoutLedger));
  if (ledgers.size() == 1) {
    emit ledgerWanted(ledgers.front().target);
    return;
  }
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  AddLedgers(*menu);
  menu->setActiveAction(menu->actions().front());
  const VoucherSheet& sheet = paper_->Sheet();
  const QRect cell = sheet.visualRect(sheet.model()->index(sheet.CurrentRow(), VoucherModel::account));
  menu->popup(sheet.viewport()->mapToGlobal(cell.bottomLeft()));
}

void VoucherWindow::AddLedgers(QMenu& menu) {
  int number = 0;
  for (const auto& [target, member] : ledgersOf(*voucher_, *CurrentLine())) {
    const QString title = toQt(findReport(target.command)->windowTitle);
    const QString text = QStringLiteral("&%1　%2　%3").arg(++number).arg(title, escaped(toQt(member).simplified()));
    menu.addAction(text, this, [this, target = target] { emit ledgerWanted(target); });
  }
}

void VoucherWindow::OpenMenu(QPoint where) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (CurrentLine() != nullptr) {
    AddLedgers(*menu);
    if (menu->isEmpty()) menu->addAction(QStringLiteral("没有辅助核算的明细帐"))->setEnabled(false);
    menu->addSeparator();
    menu->addActions(paper_->Sheet().actions());
    menu->addSeparator();
  }
  menu->addActions({ActionOf(previousVoucher), ActionOf(nextVoucher)});
  menu->popup(where);
}

}  // namespace tz
