#include "desktop/report/report_window.h"

#include <QAction>
#include <QGroupBox>
#include <QPainter>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "core/platform/sink.h"
#include "core/reports/explain_error.h"
#include "desktop/frame/general_dialog.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/message_box.h"
#include "desktop/frame/window_keys.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/query/query_dialog.h"
#include "desktop/report/condition_combos.h"
#include "desktop/report/help_window.h"
#include "desktop/report/log.h"
#include "desktop/report/long_work.h"
#include "desktop/report/notice_bar.h"
#include "desktop/report/report_heading.h"
#include "desktop/report/report_status.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr QSize templateUnits(395, 259);
constexpr QSize firstSize(980, 640);
constexpr int gridFrameId = 8001;
constexpr int gridId = 8310;
constexpr QMargins insideGridFrame(3, 8, 4, 3);

constexpr std::array available = {WindowCommand::query, WindowCommand::exportFile, WindowCommand::help,
                                  WindowCommand::close};

// These take what the table shows.
constexpr std::array ofShownRows = {WindowCommand::print, WindowCommand::preview, WindowCommand::exportFile,
                                    WindowCommand::detail};
constexpr const char* tipProperty = "tip";
QString personWanted() { return QStringLiteral("请选择个人"); }

// Plan execution reports read every account of a year.
bool showsBusyBox(const ReportDefinition& report) { return report.area == Area::plan; }

Session sessionOf(LongWork& work, QWidget* window) {
  return {
      .db = *g_pDB,
      .ledger = g_lpszQnZwDBName,
      .logon = g_tmLogonTime,
      .who = g_operator,
      .ask = [window](const Question& question) { return AfxMessageBox(window, question); },
      .progress = [&work](std::int64_t done, std::int64_t of) { work.Pump(done, of); },
      .cancelled =
          [&work] {
            work.Pump();
            return work.Cancelled();
          },
  };
}

// Shows how far a work is: in the status line, or in the busy box where the report has one.
class WorkDisplay {
 public:
  WorkDisplay(LongWork& work, ReportStatus& status, QWidget* window, const QString& what, bool busyBox)
      : status_(status) {
    status_.BeginWork(what);
    QObject::connect(&work, &LongWork::progressed, &status_, &ReportStatus::ShowProgress);
    QObject::connect(&status_, &ReportStatus::stopClicked, &work, &LongWork::Cancel);
    work.Allow(status_.StopButton());
    if (!busyBox) return;
    box_ = std::make_unique<CGeneralDialog>(window);
    QObject::connect(box_.get(), &CGeneralDialog::cancelled, &work, &LongWork::Cancel);
    box_->SetTextGeneral(QStringLiteral("正在查询数据,请稍侯....."));
    box_->Begin();
  }
  WorkDisplay(const WorkDisplay&) = delete;
  WorkDisplay& operator=(const WorkDisplay&) = delete;
  ~WorkDisplay() {
    if (box_ != nullptr) box_->End();
    status_.EndWork();
  }

 private:
  ReportStatus& status_;
  std::unique_ptr<CGeneralDialog> box_;
};

}  // namespace

ReportWindow::ReportWindow(const ReportDefinition& definition, QWidget* parent)
    : CTzResultDialog(definition.window, templateUnits, parent),
      CProcess(this),
      definition_(definition),
      background_(std::make_unique<CNeedBitmap>()) {
  background_->LoadBkGroundBitmap(CNeedBitmap::reportGround);
  setWindowTitle(toQt(definition.windowTitle));
}

ReportWindow::~ReportWindow() { delete queryDialog_; }

bool ReportWindow::OnInitDialog() {
  ProcessInitDialog();
  background_->PerpareBkGroundBitmap(this);
  LayOut();
  DrawToolBar();
  putWindowKeysFirst(*this);
  Refusal refusal = refusalWith(definition_.noAccountInWindow);
  try {
    if (heading_->Conditions().Fill(*g_pDB)) return true;
  } catch (const DbError& error) {
    TellFailure(error);
    // Without accounts to ask for, there is nothing that would be refused for want of them.
    if (!asksForAccount(definition_.dialog)) return true;
    refusal.failure = error;
  }
  AfxMessageBox(this, refusal);
  EndDialog(Rejected);
  return false;
}

void ReportWindow::LayOut() {
  toolBar_ = new QToolBar(this);
  heading_ = new ReportHeading(definition_, this);
  warnings_ = new NoticeBar(this);
  auto* frame = new QGroupBox(this);
  frame->setObjectName(QString::number(gridFrameId));
  frame->setStyleSheet(QStringLiteral("QGroupBox { border: none; margin: 0; padding: 0; }"));
  view_ = new GridView(frame);
  view_->setObjectName(QString::number(gridId));
  auto* inside = new QVBoxLayout(frame);
  inside->setContentsMargins(insideGridFrame);
  inside->addWidget(view_);
  status_ = new ReportStatus(this);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 6, 12, 8);
  layout->setSpacing(6);
  layout->addWidget(toolBar_);
  layout->addWidget(heading_);
  layout->addWidget(warnings_);
  layout->addWidget(frame, 1);
  layout->addWidget(status_);
  resize(firstSize);

  connect(&heading_->Conditions(), &ConditionCombos::chosen, this, &ReportWindow::OnConditionChosen);
  connect(&heading_->Conditions(), &ConditionCombos::told, status_, &ReportStatus::ShowMessage);
  connect(heading_, &ReportHeading::formatChosen, this, &ReportWindow::OnFormatChosen);
  connect(view_, &GridView::selectionSummaryChanged, status_, &ReportStatus::ShowSelection);
  auto* exportAction = new QAction(QStringLiteral("输出(&E)…\tCtrl+E"), view_);
  connect(exportAction, &QAction::triggered, this, [this] { OnCommand(static_cast<int>(WindowCommand::exportFile)); });
  view_->addAction(exportAction);
}

void ReportWindow::DrawToolBar() {
  std::vector<CToolBarInfo> table;
  for (const WindowCommand command : definition_.toolbar) {
    const CommandHint* hint = findCommandHint(static_cast<int>(command));
    table.push_back(hint == nullptr ? CToolBarInfo{} : CToolBarInfo{hint->bitmap, hint->command});
  }
  DrawAToolBar(toolBar_, table);
  for (QAction* action : toolBar_->actions()) action->setProperty(tipProperty, action->toolTip());
  EnableCommands();
}

void ReportWindow::EnableCommands() {
  for (QAction* action : view_->actions()) action->setEnabled(!awaitsPerson_);
  for (QAction* action : toolBar_->actions()) {
    if (action->isSeparator()) continue;
    const auto command = static_cast<WindowCommand>(action->objectName().toInt());
    const bool there = std::ranges::find(available, command) != available.end();
    const bool waits = awaitsPerson_ && std::ranges::find(ofShownRows, command) != ofShownRows.end();
    action->setEnabled(there && !waits);
    action->setToolTip(action->property(tipProperty).toString() + (!there  ? QStringLiteral("：尚未提供")
                                                                   : waits ? QStringLiteral("：请先选择个人")
                                                                           : QString()));
  }
}

void ReportWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  background_->PaintBackground(painter, *this);
}

bool ReportWindow::OnCommandQuery() {
  if (LongWork::Running()) return false;
  if (queryDialog_ == nullptr) {
    querySession_ =
        std::make_unique<Session>(Session{.db = *g_pDB, .ledger = g_lpszQnZwDBName, .logon = g_tmLogonTime});
    queryDialog_ = new CTzQueryDialog(definition_.dialog, *querySession_, g_pDlgWnd);
    if (store_ != nullptr) queryDialog_->OfferSaved(*store_, definition_.command);
  }
  if (IsCreated()) queryDialog_->setParent(this, queryDialog_->windowFlags());
  querySession_->logon = g_tmLogonTime;
  queryDialog_->SetRequest(request_);
  if (!queryDialog_->DoModal()) return false;
  SetConditions(queryDialog_->GetRequest());
  return true;
}

void ReportWindow::SetConditions(const Request& request) {
  request_ = request;
  conditionsSet_ = true;
  firstShow_ = true;
}

void ReportWindow::RefreshDisplay() {
  ShowCenterWindow();
  view_->setFocus();
  Refresh();
}

void ReportWindow::Refresh() {
  if (LongWork::Running()) return;
  Attempt([this] {
    ConditionCombos& combos = heading_->Conditions();
    ConditionCombos::Lists lists;
    auto outcome = [&, this] {
      LongWork work(*this);
      const WorkDisplay display(work, *status_, this, QStringLiteral("正在计算…"), showsBusyBox(definition_));
      auto session = sessionOf(work, this);
      RunOptions options{.formatYields = true};
      // The lists of the combos are of the same moment as the rows.
      if (firstShow_) options.alongside = [&](const Conditions& c) { lists = combos.Read(c.request, *g_pDB); };
      return runReport(definition_, request_, session, options);
    }();
    if (auto* computed = std::get_if<ComputedReport>(&outcome)) {
      if (firstShow_) combos.Show(lists);
      firstShow_ = false;
      Show(std::move(*computed));
      return;
    }
    KeepShown();
    if (awaitsPerson_) status_->ShowMessage(personWanted());
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) {
      if (!shown_) view_->SetEmptyText(QStringLiteral("没有列示。按 F5 重新查询。"));
      AfxMessageBox(this, *refusal);
    } else {
      TellStopped();
    }
  });
}

void ReportWindow::TellStopped() {
  if (shown_) {
    status_->ShowMessage(QStringLiteral("已停止，仍列示原来的内容"));
    return;
  }
  status_->ShowMessage(QStringLiteral("已停止"));
  view_->SetEmptyText(QStringLiteral("查询已停止，没有列示内容。按 F5 重新查询。"));
}

void ReportWindow::Attempt(const std::function<void()>& work) {
  try {
    work();
    return;
  } catch (const DbError& error) {
    TellFailure(error);
  } catch (const std::exception& error) {
    TellFailure(error);
  }
  KeepShown();
}

void ReportWindow::TellFailure(const std::exception& error) {
  logFailure(definition_.windowTitle, error.what());
  const auto* inLedger = dynamic_cast<const DbError*>(&error);
  const auto* wrongUse = dynamic_cast<const WrongUse*>(&error);
  const std::string words = wrongUse != nullptr ? wrongUse->withLabel() : error.what();
  status_->ShowFailure(toQt(inLedger == nullptr ? words : explainInWindow(*inLedger)),
                       inLedger == nullptr ? QString() : toQt(wordsOf(*inLedger)));
  if (!shown_) view_->SetEmptyText(QStringLiteral("没有列示：原因见下面的状态栏。按 F5 重新查询。"));
}

void ReportWindow::Show(ComputedReport computed) {
  view_->SetGrid(nullptr);
  const auto resolved = computed.resolved;
  const Conditions& conditions = *resolved;
  shown_ = {conditions.request, std::move(computed)};
  request_ = shown_->request;
  awaitsPerson_ = false;
  EnableCommands();
  heading_->SetFormats(shown_->report.formats, shown_->report.format);
  heading_->SetPeriod(shown_->report.period.empty()
                          ? std::string()
                          : paintedPeriodText(g_tmLogonTime.year, conditions.from, conditions.to));
  heading_->SetUnits(conditions.amounts, shown_->report.format);
  heading_->SetOthers(conditions);
  view_->SetEmptyText(QStringLiteral("没有记录"));
  view_->SetReport(&shown_->report);
  ShowRows(shown_->report.grid.GetRows(), shown_->report.grid.notices);
  update();
}

void ReportWindow::ShowRows(std::int64_t rows, const std::vector<Notice>& notices) {
  status_->ShowRows(rows, notices);
  warnings_->ShowWarnings(notices);
}

void ReportWindow::KeepShown() {
  if (!shown_) return;
  request_ = shown_->request;
  heading_->SetFormats(shown_->report.formats, shown_->report.format);
  try {
    heading_->Conditions().Show(heading_->Conditions().Read(request_, *g_pDB));
  } catch (const DbError& error) {
    // The lists cannot be read either: they stay as they are.
    logFailure(definition_.windowTitle, error.what());
  }
}

void ReportWindow::OnConditionChosen(ParameterKey key, const MemberChoice& member) {
  request_.choose(key, member);
  const bool personsChange = key == ParameterKey::dept && heading_->Conditions().AskForPerson();
  if (personsChange || (awaitsPerson_ && key != ParameterKey::person)) {
    Attempt([this, key, personsChange] {
      if (key == ParameterKey::account) heading_->Conditions().FollowAccount(request_, *g_pDB);
      AwaitPerson(personsChange);
    });
    return;
  }
  if (key == ParameterKey::account) Attempt([this] { heading_->Conditions().FollowAccount(request_, *g_pDB); });
  Refresh();
}

// What is chosen meanwhile is kept as if it were shown: a person who is refused leads back to it.
void ReportWindow::AwaitPerson(bool personsChange) {
  request_.clear(ParameterKey::person);
  auto offered = offeredFormats(definition_, request_, *g_pDB);
  if (personsChange) heading_->Conditions().RefillPersons(request_, *g_pDB);
  if (!shown_) shown_.emplace();
  awaitsPerson_ = true;
  shown_->request = request_;
  shown_->report.formats = std::move(offered.formats);
  shown_->report.format = offered.chosen;
  shown_->report.grid.SetRows(0);
  shown_->report.grid.notices.clear();
  heading_->SetFormats(shown_->report.formats, shown_->report.format);
  view_->SetEmptyText(personWanted());
  view_->Refresh();
  ShowRows(0, {});
  status_->ShowMessage(personWanted());
  EnableCommands();
}

void ReportWindow::OnFormatChosen(AmountFormat format) {
  request_.set(ParameterKey::format, formatName(format));
  if (awaitsPerson_) {
    Attempt([this] { AwaitPerson(false); });
  } else {
    Refresh();
  }
}

void ReportWindow::OnCommand(int id) {
  switch (id) {
    case static_cast<int>(WindowCommand::query):
      if (OnCommandQuery()) Refresh();
      break;
    case static_cast<int>(WindowCommand::exportFile):
      ExportToFile();
      break;
    case static_cast<int>(WindowCommand::help):
      OnCommand(helpCommand);
      break;
    case helpCommand:
      OpenHelp();
      break;
    case static_cast<int>(WindowCommand::close):
      EndDialog(Accepted);
      break;
    default:
      break;
  }
}

void ReportWindow::ExportToFile() {
  if (!shown_ || awaitsPerson_ || LongWork::Running()) return;
  const auto target = askExportTarget(this, shown_->report, exportFolder_);
  if (target) ExportTo(*target);
}

void ReportWindow::ExportTo(const ExportTarget& target) {
  try {
    bool whole = false;
    {
      LongWork work(*this);
      const WorkDisplay display(work, *status_, this, QStringLiteral("正在输出…"), false);
      whole = writeExport(shown_->report, target, work);
    }
    if (whole) {
      status_->ShowExported(target.path);
    } else {
      status_->ShowMessage(QStringLiteral("输出已停止，没有写入文件"));
    }
  } catch (const OutputError& error) {
    TellFailure(error);
  }
}

void ReportWindow::OpenHelp() { showHelp(this, definition_); }

void ReportWindow::PostNcDestroy() { DoPostNcDestroy(); }

}  // namespace tz
