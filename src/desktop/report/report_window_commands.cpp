// The commands of a report's window: who answers them, which of them wait, and what the window does by itself.
#include <QAction>
#include <QKeyEvent>
#include <QLayout>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "core/platform/sink.h"
#include "core/reports/offers.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/manual_page.h"
#include "desktop/frame/message_box.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/manual/manual.h"
#include "desktop/query/find_dialog.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_status.h"
#include "desktop/report/report_window.h"
#include "desktop/report/window_commands.h"
#include "desktop/report/work_display.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// The row about a member; where that is left out, the row of its group.
std::optional<std::int64_t> rowAbout(const RowSubjects& subjects, const Subject& member) {
  auto ofGroup = member;
  ofGroup.account = 0;
  auto ofDept = member;
  ofDept.item = 0;
  auto ofItem = member;
  ofItem.dept = 0;
  for (const Subject& wanted : {member, ofGroup, ofDept, ofItem}) {
    for (std::int64_t row = 0; row < subjects.size(); ++row) {
      if (subjects.of(row) == wanted) return row;
    }
  }
  return std::nullopt;
}

// What stands already in a find dialog: the department whose persons it offers, the class of its items.
Request findRequest(const FindRule& rule, const Conditions& conditions) {
  Request request;
  for (const auto key : {ParameterKey::dept, ParameterKey::projectClass}) {
    const auto given = conditions.request.member(key);
    if (!given.text.empty() && controlOf(rule.dialog, key) == nullptr) request.choose(key, given);
  }
  if (request.text(ParameterKey::projectClass).empty() && !conditions.projectClass.sItemId.empty() &&
      controlOf(rule.dialog, ParameterKey::projectClass) == nullptr) {
    request.set(ParameterKey::projectClass, conditions.projectClass.sItemId);
  }
  return request;
}

}  // namespace

void ReportWindow::DrawToolBar() {
  std::vector<CToolBarInfo> table;
  for (const WindowCommand id : definition_.toolbar) {
    const ReportCommand* command = findReportCommand(static_cast<int>(id));
    table.push_back(command == nullptr ? CToolBarInfo{}
                                       : CToolBarInfo{command->bitmap, static_cast<int>(id), command->shortcut,
                                                      command->tip, command->toggles});
  }
  DrawAToolBar(toolBar_, table);
  for (QAction* action : toolBar_->actions()) action->setProperty(commandTip, action->toolTip());
  EnableCommands();
}

void ReportWindow::FitToolBar() {
  enum class Texts { all, few, none };
  for (const auto texts : {Texts::all, Texts::few, Texts::none}) {
    for (QAction* action : toolBar_->actions()) {
      auto* button = qobject_cast<QToolButton*>(toolBar_->widgetForAction(action));
      const ReportCommand* command = findReportCommand(action->objectName().toInt());
      if (button == nullptr || command == nullptr) continue;
      const bool tab = std::ranges::find(toolbarTabs, command->command, &ToolbarTab::command) != toolbarTabs.end();
      const bool text = texts == Texts::all || (texts == Texts::few && !command->known);
      button->setToolButtonStyle(tab    ? Qt::ToolButtonTextOnly
                                 : text ? Qt::ToolButtonTextBesideIcon
                                        : Qt::ToolButtonIconOnly);
    }
    const int needed = toolBar_->sizeHint().width();
    if (texts == Texts::all) toolBarWidth_ = needed;
    if (needed <= width() - layout()->contentsMargins().left() - layout()->contentsMargins().right()) return;
  }
}

void ReportWindow::OfferInMenu(WindowCommand command, const char* text) {
  const int id = static_cast<int>(command);
  if (!Answered(id)) return;
  const ReportCommand& known = *findReportCommand(id);
  const QString key = QLatin1String(known.shortcut);
  QAction* entry = view_->addAction(QString::fromUtf8(text) + u'\t' + key, this, [this, id] { OnCommand(id); });
  entry->setCheckable(known.toggles);
  entry->setData(id);
}

QAction* ReportWindow::ActionOf(int command) const {
  return toolBar_->findChild<QAction*>(QString::number(command), Qt::FindDirectChildrenOnly);
}

bool ReportWindow::Answered(int command) const {
  if (feature_ != nullptr && feature_->Answers(command)) return true;
  const ReportCommand* known = findReportCommand(command);
  return known != nullptr && known->HasAction(definition_);
}

bool ReportWindow::Waits(int command) const {
  const ReportCommand* known = findReportCommand(command);
  return awaitsPerson_ && known != nullptr && known->takesRows;
}

void ReportWindow::EnableCommands() {
  for (QAction* action : view_->actions()) action->setEnabled(!awaitsPerson_);
  for (QAction* action : toolBar_->actions()) {
    if (action->isSeparator() || !action->property(commandTip).isValid()) continue;
    const int command = action->objectName().toInt();
    const bool answered = Answered(command);
    const bool waits = Waits(command);
    action->setEnabled(answered && !waits);
    action->setToolTip(action->property(commandTip).toString() + (!answered ? QStringLiteral("：尚未提供")
                                                                  : waits   ? QStringLiteral("：请先选择个人")
                                                                            : QString()));
  }
}

void ReportWindow::OnCommand(int id) {
  const int command = id == helpCommand ? static_cast<int>(WindowCommand::help) : id;
  if (Waits(command)) return;
  status_->EndFailure();
  if (feature_ != nullptr && feature_->OnCommand(command)) return;
  const ReportCommand* known = findReportCommand(command);
  if (known != nullptr && known->HasAction(definition_)) (this->*known->action)();
}

void ReportWindow::OnRowActivated(qint64 row) {
  if (feature_ != nullptr && feature_->OnActivated(row)) return;
  OnCommand(static_cast<int>(WindowCommand::detail));
}

bool ReportWindow::eventFilter(QObject* receiver, QEvent* event) {
  const bool key = receiver == view_ && event->type() == QEvent::KeyPress;
  const bool click = event->type() == QEvent::MouseButtonPress && receiver == view_->viewport();
  if (key || click) status_->EndNews();
  if (key && feature_ != nullptr && feature_->OnKey(static_cast<QKeyEvent&>(*event))) return true;
  return ProcessWindow::eventFilter(receiver, event);
}

void ReportWindow::Toggle(ParameterKey key) {
  if (shown_ && !LongWork::Running()) {
    if (request_.flag(key)) {
      request_.clear(key);
    } else {
      request_.set(key, "1");
    }
    const GridCell current = view_->Current();
    const tz::Subject member = shown_->report.subjects.of(current.row);
    Recompute();
    const auto row = rowAbout(shown_->report.subjects, member);
    if (current.valid() && row) view_->SetCurrent(*row, current.column);
  }
  ShowToggles();
}

void ReportWindow::ShowToggles() {
  for (const auto& toggle : rowToggles) {
    const int command = static_cast<int>(toggle.command);
    const bool on = request_.flag(toggle.key);
    if (QAction* button = ActionOf(command)) button->setChecked(on);
    for (QAction* entry : view_->actions()) {
      if (entry->data().toInt() == command) entry->setChecked(on);
    }
  }
  for (const auto& tab : toolbarTabs) {
    QAction* button = ActionOf(static_cast<int>(tab.command));
    const auto& choice = parameter(tab.key).choices[request_.choice(tab.key)];
    if (button != nullptr) button->setChecked(choice.value == tab.value);
  }
}

void ReportWindow::OpenTab(WindowCommand command) {
  const auto* const tab = std::ranges::find(toolbarTabs, command, &ToolbarTab::command);
  if (shown_ && !LongWork::Running() && tab != toolbarTabs.end()) {
    request_.set(tab->key, tab->value);
    RecomputeInPlace();
  }
  ShowToggles();
}

void ReportWindow::OnQuery() {
  if (OnCommandQuery()) RecomputeInPlace();
}

void ReportWindow::OnDetail() { Follow(definition_.detail); }

void ReportWindow::OnGeneralLedger() { Follow(definition_.generalLedger); }

void ReportWindow::Follow(const DrillRule& detail) {
  if (LongWork::Running()) return;
  // A first computation that came to nothing leaves a table without rows.
  static const ComputedReport nothing;
  static const Conditions none;
  const bool something = shown_ && shown_->report.resolved != nullptr;
  const GridCell cell = view_->Current();
  const auto leadsTo = something ? detail(*shown_->report.resolved, shown_->report, cell.valid() ? cell.row : -1)
                                 : detail(none, nothing, -1);
  if (const auto* refusal = std::get_if<Refusal>(&leadsTo)) {
    AfxMessageBox(this, *refusal);
  } else if (const auto* voucher = std::get_if<VoucherTarget>(&leadsTo)) {
    emit voucherWanted(voucher->line);
  } else {
    emit detailWanted(std::get<DetailTarget>(leadsTo));
  }
}

void ReportWindow::OnFind() {
  if (LongWork::Running()) return;
  const auto tell = [this](const Message& message) { AfxMessageBox(this, refusalWith(message)); };
  if (!shown_ || shown_->report.resolved == nullptr || shown_->report.grid.GetRows() == 0) {
    tell(messages::nothingToFind);
    return;
  }
  const Conditions& conditions = *shown_->report.resolved;
  const FindRule& rule = definition_.find(conditions);
  Session session{.db = *g_pDB, .ledger = g_lpszQnZwDBName, .logon = g_tmLogonTime, .who = g_operator};
  FindDialog dialog(rule.dialog, session, this);
  setManualPage(dialog, QStringLiteral("tables#定位和查找"));
  dialog.SetRequest(findRequest(rule, conditions));
  if (!dialog.DoModal()) return;
  try {
    const auto row = findRow(shown_->report.grid, rule, dialog.GetRequest(), *g_pDB);
    row < 0 ? tell(rule.notFound) : GoTo(row, 0);
  } catch (const DbError& error) {
    TellFailure(error);
  }
}

void ReportWindow::OnHelp() { showManual(this, manualPageOf(this)); }

}  // namespace tz
