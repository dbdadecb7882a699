#include "desktop/report/report_window.h"

#include <QAction>
#include <QPainter>
#include <QToolBar>
#include <QVBoxLayout>
#include <cassert>

#include "core/manual/report_page.h"
#include "core/reports/explain_error.h"
#include "core/reports/standing_row.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/manual_page.h"
#include "desktop/frame/message_box.h"
#include "desktop/frame/window_keys.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/query/query_dialog.h"
#include "desktop/query/quick_months.h"
#include "desktop/report/condition_combos.h"
#include "desktop/report/grid_tools.h"
#include "desktop/report/log.h"
#include "desktop/report/long_work.h"
#include "desktop/report/notice_bar.h"
#include "desktop/report/page_output.h"
#include "desktop/report/report_heading.h"
#include "desktop/report/report_status.h"
#include "desktop/report/work_display.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr QSize templateUnits(395, 259);
constexpr QSize firstSize(980, 640);
constexpr int gridFrameId = 8001;
constexpr int gridId = 8310;
constexpr QMargins insideGridFrame(3, 8, 4, 3);

}  // namespace

ReportWindow::ReportWindow(const ReportDefinition& definition, QWidget* parent)
    : ProcessWindow(definition.window, templateUnits, parent),
      definition_(definition),
      background_(std::make_unique<CNeedBitmap>()),
      feature_(definition.feature.empty() ? nullptr : makeFeature(definition.feature)),
      pages_(std::make_unique<PageOutput>(*this)) {
  assert(definition.feature.empty() || feature_ != nullptr);
  background_->LoadBkGroundBitmap(CNeedBitmap::reportGround);
  setWindowTitle(toQt(definition.windowTitle));
  setManualPage(*this, toQt(manual::reportPage(definition)));
}

ReportWindow::~ReportWindow() { delete queryDialog_; }

bool ReportWindow::OnInitDialog() {
  ProcessInitDialog();
  background_->PerpareBkGroundBitmap(this);
  LayOut();
  DrawToolBar();
  if (feature_ != nullptr) feature_->Attach(*this);
  putWindowKeysFirst(*this);
  Refusal refusal = refusalWith(definition_.noAccountInWindow);
  try {
    if (heading_->Conditions().HasAccounts(*g_pDB)) return true;
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
  auto* frame = new QWidget(this);
  frame->setObjectName(QString::number(gridFrameId));
  view_ = new GridView(frame);
  view_->setObjectName(QString::number(gridId));
  body_ = new QVBoxLayout(frame);
  body_->setContentsMargins(insideGridFrame);
  body_->addWidget(view_);
  const auto& commands = definition_.toolbar;
  const bool findIsFree = std::ranges::find(commands, WindowCommand::find) == commands.end();
  tools_ = new GridTools(*view_, *body_, findIsFree);
  heading_->AddButton(tools_->FilterAction());
  status_ = new ReportStatus(this);
  pages_->SetStatus(*status_);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 6, 12, 8);
  layout->setSpacing(6);
  layout->addWidget(toolBar_);
  layout->addWidget(heading_);
  layout->addWidget(warnings_);
  layout->addWidget(frame, 1);
  layout->addWidget(status_);
  resize(firstSize);
  ConnectParts();
}

void ReportWindow::ConnectParts() {
  connect(&heading_->Conditions(), &ConditionCombos::chosen, this, &ReportWindow::OnConditionChosen);
  connect(&heading_->Conditions(), &ConditionCombos::monthsChosen, this, &ReportWindow::OnMonthsChosen);
  connect(&heading_->Conditions(), &ConditionCombos::told, status_, &ReportStatus::ShowNews);
  connect(heading_, &ReportHeading::formatChosen, this, &ReportWindow::OnFormatChosen);
  connect(view_, &GridView::selectionSummaryChanged, status_, &ReportStatus::ShowSelection);
  connect(view_, &GridView::shownRowsChanged, this, [this] {
    if (shown_ && !awaitsPerson_) status_->ShowShown(view_->Rows().Count(), view_->RowCount());
  });
  connect(view_, &GridView::told, status_, &ReportStatus::ShowNews);
  connect(view_, &GridView::rowActivated, this, &ReportWindow::OnRowActivated);
  connect(view_, &GridView::cellClicked, this, [this](qint64 row, int column) {
    if (feature_ != nullptr) feature_->OnClicked(row, column);
  });
  view_->installEventFilter(this);
  view_->viewport()->installEventFilter(this);
  auto* copySums = new QAction(QStringLiteral("复制选中行的合计(&S)"), view_);
  connect(copySums, &QAction::triggered, status_, &ReportStatus::CopySelection);
  view_->addAction(copySums);
  OfferInMenu(WindowCommand::detail, "明细(&D)");
  OfferInMenu(WindowCommand::groupRows, "隐藏明细(&H)");
  OfferInMenu(WindowCommand::zeroRows, "隐藏零值(&Z)");
  OfferInMenu(WindowCommand::exportFile, "输出(&E)…");
}

void ReportWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  background_->PaintBackground(painter, *this);
}

void ReportWindow::resizeEvent(QResizeEvent* event) {
  ProcessWindow::resizeEvent(event);
  if (toolBar_ != nullptr) FitToolBar();
}

void ReportWindow::RefreshDisplay() {
  ShowCenterWindow();
  view_->setFocus();
  Recompute();
}

void ReportWindow::StandOnFirstRow() {
  if (definition_.detail == nullptr || !shown_ || view_->Current().valid()) return;
  constexpr std::int64_t mostTried = 1000;
  const auto& report = shown_->report;
  const auto leadsToReport = [&](std::int64_t row) {
    return std::holds_alternative<DetailTarget>(definition_.detail(*report.resolved, report, row));
  };
  for (std::int64_t row = 0; row < std::min(report.grid.GetRows(), mostTried); ++row) {
    // A ledger begins with its opening in sight, on its first line where it has none.
    const bool firstLine = row == 0 && report.grid.RowKindAt(row) == RowKind::line;
    if (!firstLine && !leadsToReport(row)) continue;
    view_->SetCurrent(row, 0);
    return;
  }
}

void ReportWindow::Recompute() {
  if (LongWork::Running()) return;
  Attempt([this] {
    ConditionCombos& combos = heading_->Conditions();
    ConditionCombos::Lists lists;
    auto outcome = [&, this] {
      LongWork work(*this);
      const WorkDisplay display(work, *status_, this, QStringLiteral("正在计算…"),
                                definition_.busyBox ? QStringLiteral("正在查询数据,请稍侯.....") : QString());
      auto session = windowSession(work, this);
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
    if (awaitsPerson_) status_->ShowMessage(PersonWanted());
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) {
      if (!shown_) view_->SetEmptyText(QStringLiteral("没有列示。按 F5 重新查询。"));
      AfxMessageBox(this, *refusal);
    } else {
      TellStopped();
    }
  });
}

QString ReportWindow::Subject() const {
  if (!shown_ || awaitsPerson_) return {};
  const QString subject = toQt(shown_->report.subject).simplified();
  return subject.isEmpty() ? toQt(shown_->report.subtitle).simplified() : subject;
}

QString ReportWindow::ListEntry() const {
  const QString subject = Subject();
  return subject.isEmpty() ? windowTitle() : windowTitle() + QStringLiteral(" — ") + subject;
}

void ReportWindow::TellSubject() {
  status_->ShowSubject(Subject());
  setAccessibleDescription(Subject());
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
  const bool otherColumns = !shown_ || shown_->report.format != computed.format ||
                            shown_->report.grid.Columns().size() != computed.grid.Columns().size();
  const auto resolved = computed.resolved;
  const Conditions& conditions = *resolved;
  shown_ = {conditions.request, std::move(computed)};
  request_ = shown_->request;
  awaitsPerson_ = false;
  if (std::exchange(changedByHand_, false)) KeepLast();
  EnableCommands();
  if (feature_ != nullptr) feature_->AfterComputed(*shown_);
  heading_->SetFormats(shown_->report.formats, shown_->report.format);
  heading_->SetPeriod(shown_->report.paintedPeriod);
  heading_->SetUnits(conditions.amounts, shown_->report.format);
  heading_->SetOthers(conditions, shown_->report.found);
  heading_->Conditions().ShowMonths(request_, g_tmLogonTime);
  ShowToggles();
  view_->SetEmptyText(QStringLiteral("没有记录"));
  if (stand_) tools_->EndAll();
  view_->SetReport(&shown_->report);
  ShowRows(shown_->report.grid.GetRows(), shown_->report.grid.notices);
  TellSubject();
  const int beside = width() - view_->width();
  if (otherColumns) OpenWide(beside + std::max(view_->AskedWidth(), toolBarWidth_));
  if (const auto stand = std::exchange(stand_, std::nullopt)) {
    StandOn(*stand);
  } else {
    StandOnFirstRow();
  }
  update();
}

void ReportWindow::StandOn(const DetailTarget& target) {
  const auto standing = standingRow(shown_->report, target);
  const bool ofMember = target.stand != tz::Subject{};
  // Where a member has no row, nobody else's is taken for its own.
  if (standing || !ofMember) view_->StandOn(standing ? standing->row : 0);
  view_->setFocus();
  const bool missed = !standing || !standing->isLine;
  if (missed && ofMember) status_->ShowNews(QStringLiteral("查询月份内没有这一行的分录"));
}

void ReportWindow::ShowRows(std::int64_t rows, const std::vector<Notice>& notices) {
  status_->ShowRows(rows, notices);
  status_->ShowShown(view_->Rows().Count(), rows);
  warnings_->ShowWarnings(notices);
}

}  // namespace tz
