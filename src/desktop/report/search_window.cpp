#include "desktop/report/search_window.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBar>
#include <QVBoxLayout>

#include "core/reports/explain_error.h"
#include "core/reports/window_command.h"
#include "desktop/frame/combo_name.h"
#include "desktop/frame/manual_page.h"
#include "desktop/frame/window_keys.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/manual/manual.h"
#include "desktop/report/grid_tools.h"
#include "desktop/report/log.h"
#include "desktop/report/long_work.h"
#include "desktop/report/notice_bar.h"
#include "desktop/report/report_status.h"
#include "desktop/report/work_display.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr QSize searchTemplate(395, 259);
constexpr QSize searchSize(980, 620);
constexpr std::size_t mostFound = 10'000;
constexpr int mostRemembered = 20;
constexpr int longestTyped = 200;  // signs, of up to four bytes each
constexpr int fieldSigns = 30;

constexpr auto idOf = [](WindowCommand command) { return static_cast<int>(command); };

constexpr CToolBarInfo searchTools[] = {
    {305, idOf(WindowCommand::exportFile), "Ctrl+E", "把找到的分录输出到文件"},
    {},
    {308, idOf(WindowCommand::query), "F5", "再查找一次"},
    {},
    {316, idOf(WindowCommand::detail), "Ctrl+D", "打开当前分录的凭证"},
    {},
    {300, idOf(WindowCommand::help), "F1", "查找分录的说明"},
    {301, idOf(WindowCommand::close), "Ctrl+W", "关闭窗口"},
};

}  // namespace

SearchWindow::SearchWindow(QWidget* parent) : ProcessWindow(searchWindow, searchTemplate, parent) {
  setWindowTitle(QStringLiteral("查找分录"));
  setManualPage(*this, QStringLiteral("search"));
}

bool SearchWindow::OnInitDialog() {
  ProcessInitDialog();
  LayOut();
  DrawAToolBar(toolBar_, searchTools);
  putWindowKeysFirst(*this);
  ShowNone(QStringLiteral("写下摘要或业务号的一部分、金额（1,234.50）或凭证（记-12），按 Enter 查找整个帐套。"));
  return true;
}

void SearchWindow::LayOut() {
  toolBar_ = new QToolBar(this);
  auto* row = MakeSearchRow();
  warnings_ = new NoticeBar(this);
  auto* frame = new QWidget(this);
  view_ = new GridView(frame);
  view_->setObjectName(QStringLiteral("found"));
  view_->setAccessibleName(QStringLiteral("找到的分录"));
  auto* body = new QVBoxLayout(frame);
  body->setContentsMargins(0, 0, 0, 0);
  body->addWidget(view_);
  tools_ = new GridTools(*view_, *body, true);
  status_ = new ReportStatus(this);
  files_.SetStatus(*status_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 6, 12, 8);
  layout->setSpacing(6);
  layout->addWidget(toolBar_);
  layout->addWidget(row);
  layout->addWidget(warnings_);
  layout->addWidget(frame, 1);
  layout->addWidget(status_);
  resize(searchSize);
  connect(view_, &GridView::rowActivated, this, &SearchWindow::OpenVoucher);
  connect(view_, &GridView::selectionSummaryChanged, status_, &ReportStatus::ShowSelection);
  connect(view_, &GridView::told, status_, &ReportStatus::ShowNews);
  connect(view_, &GridView::shownRowsChanged, this, [this] {
    if (shown_) status_->ShowShown(view_->Rows().Count(), view_->RowCount());
  });
}

QWidget* SearchWindow::MakeSearchRow() {
  auto* row = new QWidget(this);
  field_ = new QComboBox(row);
  field_->setObjectName(QStringLiteral("search"));
  field_->setEditable(true);
  field_->setInsertPolicy(QComboBox::NoInsert);
  field_->setCompleter(nullptr);
  field_->setDuplicatesEnabled(true);  // else Enter would choose the entry of that text as well
  field_->installEventFilter(this);
  field_->setMinimumContentsLength(fieldSigns);
  field_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  nameCombo(*field_, QStringLiteral("查找"));
  field_->setToolTip(QStringLiteral("按 ↓ 选以前查找过的"));
  field_->lineEdit()->setPlaceholderText(QStringLiteral("摘要、业务号、金额或凭证"));
  field_->lineEdit()->setMaxLength(longestTyped);
  auto* label = new QLabel(QStringLiteral("查找(&N)："), row);
  label->setBuddy(field_);
  auto* button = new QPushButton(QStringLiteral("查找"), row);
  button->setObjectName(QStringLiteral("begin"));
  button->setAutoDefault(false);
  auto* scope = new QLabel(QStringLiteral("整个帐套：已记帐、未记帐和期初的凭证"), row);
  scope->setForegroundRole(QPalette::PlaceholderText);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(label);
  layout->addWidget(field_);
  layout->addWidget(button);
  layout->addWidget(scope);
  layout->addStretch(1);
  connect(field_->lineEdit(), &QLineEdit::returnPressed, this, &SearchWindow::Search);
  connect(field_, &QComboBox::activated, this, &SearchWindow::Search);
  connect(button, &QPushButton::clicked, this, &SearchWindow::Search);
  return row;
}

void SearchWindow::RefreshDisplay() {
  ShowCenterWindow();
  field_->setFocus();
  field_->lineEdit()->selectAll();
}

QString SearchWindow::ListEntry() const {
  return shown_ ? windowTitle() + QStringLiteral(" — ") + toQt(shown_->subject).simplified() : windowTitle();
}

bool SearchWindow::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver == field_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    // A combo by itself would go through its entries, each of which would be searched for.
    if (key == Qt::Key_Down || key == Qt::Key_Up) {
      if (key == Qt::Key_Down && field_->count() > 0) field_->showPopup();
      return true;
    }
    if (key == Qt::Key_PageDown) {
      view_->setFocus();
      return true;
    }
  }
  return ProcessWindow::eventFilter(receiver, event);
}

void SearchWindow::OnCommand(int id) {
  const int command = id == helpCommand ? idOf(WindowCommand::help) : id;
  status_->EndFailure();
  if (command == idOf(WindowCommand::query)) Search();
  if (command == idOf(WindowCommand::detail)) OpenVoucher();
  if (command == idOf(WindowCommand::exportFile)) Export();
  if (command == idOf(WindowCommand::help)) showManual(this, manualPageOf(this));
  if (command == idOf(WindowCommand::close)) EndDialog(Accepted);
}

void SearchWindow::Search() {
  if (LongWork::Running()) return;
  const auto text = readSearchText(fromQt(field_->currentText()));
  if (text.text.empty()) {
    status_->ShowNews(QStringLiteral("请写下要查找的文字、金额或凭证"));
    field_->setFocus();
    return;
  }
  Remember(toQt(text.text));
  try {
    const auto outcome = [&] {
      LongWork work(*this);
      const WorkDisplay display(work, *status_, this, QStringLiteral("正在查找…"));
      auto session = windowSession(work, this);
      return searchLines(
          session, {.text = text, .most = mostFound, .onSome = [&](const FoundLines& some) { Show(text, some); }});
    }();
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) throw std::runtime_error(refusal->text);
    const auto& found = std::get<FoundLines>(outcome);
    Show(text, found);
    status_->ShowRows(view_->RowCount(), shown_->grid.notices);
    warnings_->ShowWarnings(shown_->grid.notices);
    if (found.lines.empty()) {
      const QString what = fontMetrics().elidedText(toQt(text.text), Qt::ElideRight, width() / 2);
      const QString none =
          found.stopped ? QStringLiteral("查找已停止，还没有找到“%1”。")
                        : QStringLiteral("没有找到“%1”。\n整个帐套都查过了；可以只写其中几个字，或去掉分隔和符号。");
      view_->SetEmptyText(none.arg(what));
      status_->ShowNews(none.arg(what).section(QLatin1Char('\n'), 0, 0));
      field_->lineEdit()->selectAll();
    } else {
      view_->setFocus();
    }
  } catch (const std::exception& error) {
    TellFailure(error);
  }
}

void SearchWindow::Show(const SearchText& text, const FoundLines& found) {
  const bool first = view_->RowCount() == 0;
  view_->SetGrid(nullptr);
  shown_ = std::make_unique<ComputedReport>(foundReport(text, found));
  view_->SetReport(shown_.get());
  if (first) OpenWide(width() - view_->width() + view_->AskedWidth());
  if (!found.lines.empty()) view_->SetCurrent(0, 0);
  status_->ShowSubject(toQt(shown_->subtitle));
}

void SearchWindow::ShowNone(const QString& why) {
  view_->SetGrid(nullptr);
  shown_.reset();
  view_->SetEmptyText(why);
  warnings_->ShowWarnings({});
}

void SearchWindow::TellFailure(const std::exception& error) {
  logFailure("查找分录", error.what());
  const auto* inLedger = dynamic_cast<const DbError*>(&error);
  // What was found before it failed is no answer.
  ShowNone(QStringLiteral("没有查找：原因见下面的状态栏。按 F5 再查找。"));
  status_->ShowFailure(toQt(inLedger == nullptr ? std::string(error.what()) : explainInWindow(*inLedger)),
                       inLedger == nullptr ? QString() : toQt(wordsOf(*inLedger)));
}

void SearchWindow::Remember(const QString& text) {
  const int before = field_->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (before >= 0) field_->removeItem(before);
  field_->insertItem(0, text);
  field_->setCurrentIndex(0);
  if (field_->count() > mostRemembered) field_->removeItem(mostRemembered);
}

void SearchWindow::OpenVoucher() {
  const auto line = shown_ && view_->Current().valid() ? shown_->subjects.line(view_->Current().row) : std::nullopt;
  if (line) {
    emit voucherWanted(*line);
  } else {
    status_->ShowNews(QStringLiteral("请先查找，并选择一条分录"));
  }
}

void SearchWindow::Export() {
  if (!shown_ || LongWork::Running()) return;
  if (const auto target = askExportTarget(this, *shown_, files_.Folder())) files_.WriteFile(*shown_, *target);
}

}  // namespace tz
