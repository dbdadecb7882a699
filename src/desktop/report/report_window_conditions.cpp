// Conditions that are asked for again or changed on the live window.
#include "core/reports/explain_error.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/manual_page.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/query/condition_store.h"
#include "desktop/query/query_dialog.h"
#include "desktop/query/quick_months.h"
#include "desktop/report/condition_combos.h"
#include "desktop/report/log.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_heading.h"
#include "desktop/report/report_status.h"
#include "desktop/report/report_window.h"
#include "desktop/theme/qt_text.h"

namespace tz {

bool ReportWindow::OnCommandQuery() {
  if (LongWork::Running()) return false;
  if (queryDialog_ == nullptr) {
    querySession_ =
        std::make_unique<Session>(Session{.db = *g_pDB, .ledger = g_lpszQnZwDBName, .logon = g_tmLogonTime});
    queryDialog_ = new CTzQueryDialog(definition_.dialog, *querySession_, g_pDlgWnd);
    setManualPage(*queryDialog_, manualPageOf(this) + QStringLiteral("#条件"));
    if (store_ != nullptr) queryDialog_->OfferSaved(*store_, definition_.command);
  }
  if (IsCreated()) queryDialog_->setParent(this, queryDialog_->windowFlags());
  querySession_->logon = g_tmLogonTime;
  queryDialog_->SetRequest(request_);
  if (!queryDialog_->DoModal()) return false;
  SetConditions(queryDialog_->GetRequest());
  KeepLast();
  return true;
}

void ReportWindow::KeepLast() {
  if (store_ == nullptr) return;
  try {
    store_->KeepLast(definition_.command, request_);
  } catch (const StoreError& error) {
    // The report is there all the same.
    logFailure(definition_.windowTitle, error.what());
  }
}

void ReportWindow::SetConditions(const Request& request) {
  request_ = request;
  conditionsSet_ = true;
  firstShow_ = true;
  stand_.reset();
}

void ReportWindow::SetConditions(const DetailTarget& target) {
  SetConditions(target.conditions);
  stand_ = target;
}

void ReportWindow::KeepShown() {
  changedByHand_ = false;
  stand_.reset();
  ConditionCombos& combos = heading_->Conditions();
  if (shown_) {
    request_ = shown_->request;
    heading_->SetFormats(shown_->report.formats, shown_->report.format);
  }
  combos.ShowMonths(request_, g_tmLogonTime);
  try {
    if (shown_) {
      combos.Show(combos.Read(request_, *g_pDB));
    } else if (firstShow_) {
      // With other conditions there may be something to show.
      combos.Fill(*g_pDB);
    }
  } catch (const DbError& error) {
    // The lists cannot be read either: they stay as they are.
    logFailure(definition_.windowTitle, error.what());
  }
}

void ReportWindow::OnConditionChosen(ParameterKey key, const MemberChoice& member) {
  request_.choose(key, member);
  changedByHand_ = true;
  const bool personsChange = key == ParameterKey::dept && heading_->Conditions().AskForPerson();
  if (personsChange || (awaitsPerson_ && key != ParameterKey::person)) {
    Attempt([this, key, personsChange] {
      if (key == ParameterKey::account) heading_->Conditions().FollowAccount(request_, *g_pDB);
      AwaitPerson(personsChange);
    });
    return;
  }
  if (key == ParameterKey::account) Attempt([this] { heading_->Conditions().FollowAccount(request_, *g_pDB); });
  RecomputeInPlace();
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
  view_->SetEmptyText(PersonWanted());
  view_->Refresh();
  ShowRows(0, {});
  status_->ShowMessage(PersonWanted());
  TellSubject();
  EnableCommands();
}

QString ReportWindow::PersonWanted() { return QStringLiteral("请选择个人"); }

void ReportWindow::OnFormatChosen(AmountFormat format) {
  request_.set(ParameterKey::format, formatName(format));
  RecomputeOrAwait();
}

void ReportWindow::OnMonthsChosen(MonthSpan months) {
  request_.set(ParameterKey::from, std::to_string(months.from));
  request_.set(ParameterKey::to, std::to_string(months.to));
  RecomputeOrAwait();
}

void ReportWindow::RecomputeOrAwait() {
  changedByHand_ = true;
  if (awaitsPerson_) {
    Attempt([this] { AwaitPerson(false); });
  } else {
    RecomputeInPlace();
  }
}

}  // namespace tz
