#include "desktop/host/work_log_window.h"

#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolBar>
#include <QVBoxLayout>
#include <utility>

#include "core/operators/operator_book.h"
#include "core/reports/explain_error.h"
#include "core/reports/window_command.h"
#include "desktop/frame/combo_name.h"
#include "desktop/frame/globals.h"
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

constexpr QSize logTemplate(395, 259);
constexpr QSize logSize(1100, 620);
constexpr int operatorSigns = 12;
const QDate firstDay(1900, 1, 1);  // stands for no day

constexpr auto logCommand = [](WindowCommand command) { return static_cast<int>(command); };

constexpr CToolBarInfo logTools[] = {
    {305, logCommand(WindowCommand::exportFile), "Ctrl+E", "把日志输出到文件"},
    {},
    {308, logCommand(WindowCommand::query), "F5", "重新读取"},
    {},
    {316, logCommand(WindowCommand::detail), "Ctrl+D", "打开当前一条的凭证"},
    {},
    {300, logCommand(WindowCommand::help), "F1", "操作日志的说明"},
    {301, logCommand(WindowCommand::close), "Ctrl+W", "关闭窗口"},
};

const QString logPage = QStringLiteral("operators#操作日志");

QDateEdit* dayEdit(const char* name, const QString& none, const QString& caption, QWidget* parent) {
  auto* edit = new QDateEdit(firstDay, parent);
  edit->setObjectName(QLatin1String(name));
  edit->setAccessibleName(caption);
  edit->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
  edit->setMinimumDate(firstDay);
  edit->setSpecialValueText(none);
  edit->setCalendarPopup(true);
  edit->setToolTip(QStringLiteral("Ctrl+Del：不限"));
  auto* unlimited = new QAction(edit);
  unlimited->setShortcut(Qt::CTRL | Qt::Key_Delete);
  unlimited->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(unlimited, &QAction::triggered, edit, [edit] { edit->setDate(firstDay); });
  edit->addAction(unlimited);
  return edit;
}

std::optional<Date> dayOf(const QDateEdit& edit) {
  const QDate day = edit.date();
  if (day == firstDay) return std::nullopt;
  return Date{static_cast<std::int16_t>(day.year()), static_cast<std::uint8_t>(day.month()),
              static_cast<std::uint8_t>(day.day())};
}

}  // namespace

WorkLogWindow::WorkLogWindow(Operator who, QWidget* parent)
    : ProcessWindow(workLogWindow, logTemplate, parent), who_(std::move(who)) {
  setWindowTitle(QStringLiteral("操作日志"));
  setManualPage(*this, logPage);
}

bool WorkLogWindow::OnInitDialog() {
  ProcessInitDialog();
  LayOut();
  DrawAToolBar(toolBar_, logTools);
  putWindowKeysFirst(*this);
  FillOperators();
  connect(by_, &QComboBox::activated, this, &WorkLogWindow::Read);
  connect(from_, &QDateEdit::dateChanged, this, &WorkLogWindow::Read);
  connect(to_, &QDateEdit::dateChanged, this, &WorkLogWindow::Read);
  return true;
}

void WorkLogWindow::LayOut() {
  toolBar_ = new QToolBar(this);
  auto* conditions = MakeConditions();
  warnings_ = new NoticeBar(this);
  auto* frame = new QWidget(this);
  view_ = new GridView(frame);
  view_->setObjectName(QStringLiteral("log"));
  view_->setAccessibleName(QStringLiteral("操作日志"));
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
  layout->addWidget(conditions);
  layout->addWidget(warnings_);
  layout->addWidget(frame, 1);
  layout->addWidget(status_);
  resize(logSize);
  connect(view_, &GridView::rowActivated, this, &WorkLogWindow::OpenVoucher);
  connect(view_, &GridView::selectionSummaryChanged, status_, &ReportStatus::ShowSelection);
  connect(view_, &GridView::told, status_, &ReportStatus::ShowNews);
  connect(view_, &GridView::shownRowsChanged, this, [this] {
    if (shown_) status_->ShowShown(view_->Rows().Count(), view_->RowCount());
  });
}

QWidget* WorkLogWindow::MakeConditions() {
  auto* row = new QWidget(this);
  by_ = new QComboBox(row);
  by_->setObjectName(QStringLiteral("by"));
  by_->setMinimumContentsLength(operatorSigns);
  nameCombo(*by_, QStringLiteral("操作员"));
  from_ = dayEdit("from", QStringLiteral("最早"), QStringLiteral("从哪一天"), row);
  to_ = dayEdit("to", QStringLiteral("最近"), QStringLiteral("到哪一天"), row);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](const QString& caption, QWidget* field) {
    auto* label = new QLabel(caption, row);
    label->setBuddy(field);
    layout->addWidget(label);
    layout->addWidget(field);
  };
  add(QStringLiteral("操作员(&N)："), by_);
  add(QStringLiteral("从(&S)："), from_);
  add(QStringLiteral("到(&T)："), to_);
  layout->addStretch(1);
  return row;
}

// Whoever has worked here may be gone: what the log names can be chosen as well as who there is.
void WorkLogWindow::FillOperators() {
  if (!who_.everyRight) {
    by_->addItem(toQt(who_.name));
    by_->setEnabled(false);
    by_->setToolTip(QStringLiteral("没有全部权限的操作员只能查看自己的操作日志"));
    return;
  }
  by_->addItem(QStringLiteral("全部"));
  try {
    for (const auto& one : readOperators(g_pDB->Current())) by_->addItem(toQt(one.who.name));
    const auto rows = g_pDB->Current().query("SELECT DISTINCT sOperator FROM MarkLog ORDER BY sOperator");
    while (rows->next()) {
      const QString name = toQt(std::string(rows->text(0)));
      if (!name.isEmpty() && by_->findText(name, Qt::MatchExactly) < 0) by_->addItem(name);
    }
  } catch (const DbError& error) {
    logFailure("操作日志", error.what());  // reading the log says what is wrong
  }
}

LogAsk WorkLogWindow::Asked() const {
  LogAsk asked;
  if (!who_.everyRight || by_->currentIndex() > 0) asked.by = fromQt(by_->currentText());
  asked.from = dayOf(*from_);
  asked.to = dayOf(*to_);
  return asked;
}

void WorkLogWindow::RefreshDisplay() {
  ShowCenterWindow();
  Read();
  view_->setFocus();
}

void WorkLogWindow::OnCommand(int id) {
  const int command = id == helpCommand ? logCommand(WindowCommand::help) : id;
  status_->EndFailure();
  if (command == logCommand(WindowCommand::query)) Read();
  if (command == logCommand(WindowCommand::detail)) OpenVoucher();
  if (command == logCommand(WindowCommand::exportFile)) Export();
  if (command == logCommand(WindowCommand::help)) showManual(this, logPage);
  if (command == logCommand(WindowCommand::close)) EndDialog(Accepted);
}

void WorkLogWindow::Read() {
  if (LongWork::Running()) return;
  try {
    const auto asked = Asked();
    const auto log = [&] {
      LongWork work(*this);
      const WorkDisplay display(work, *status_, this, QStringLiteral("正在读取…"));
      auto session = windowSession(work, this);
      return readWorkLog(session, asked);
    }();
    view_->SetGrid(nullptr);
    shown_ = std::make_unique<ComputedReport>(logReport(asked, log));
    view_->SetEmptyText(QStringLiteral("没有记下的操作"));
    view_->SetReport(shown_.get());
    if (!log.entries.empty()) view_->SetCurrent(0, 0);
    status_->ShowSubject(toQt(shown_->subtitle));
    status_->ShowRows(view_->RowCount(), shown_->grid.notices);
    warnings_->ShowWarnings(shown_->grid.notices);
  } catch (const std::exception& error) {
    logFailure("操作日志", error.what());
    const auto* inLedger = dynamic_cast<const DbError*>(&error);
    view_->SetGrid(nullptr);
    shown_.reset();
    view_->SetEmptyText(QStringLiteral("没有读取：原因见下面的状态栏。按 F5 再读取。"));
    status_->ShowFailure(toQt(inLedger == nullptr ? std::string(error.what()) : explainInWindow(*inLedger)),
                         inLedger == nullptr ? QString() : toQt(wordsOf(*inLedger)));
  }
}

void WorkLogWindow::OpenVoucher() {
  const auto line = shown_ && view_->Current().valid() ? shown_->subjects.line(view_->Current().row) : std::nullopt;
  if (line) {
    emit voucherWanted(*line);
  } else {
    status_->ShowNews(QStringLiteral("请选择一条分录：标题行、计划和已不在帐套中的分录没有凭证"));
  }
}

void WorkLogWindow::Export() {
  if (!shown_ || LongWork::Running()) return;
  if (const auto target = askExportTarget(this, *shown_, files_.Folder())) files_.WriteFile(*shown_, *target);
}

}  // namespace tz
