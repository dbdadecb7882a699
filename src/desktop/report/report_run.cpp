#include "desktop/report/report_run.h"

#include <algorithm>
#include <optional>

#include "core/reports/cancel_watch.h"

namespace tz {

OfferedFormats offeredFormats(const ReportDefinition& report, const Request& request, const CQnCwDB& db) {
  if (report.formats == nullptr) return {};
  CGetData data(db);
  Conditions conditions;
  const auto account = request.text(ParameterKey::account);
  if (!account.empty()) conditions.amounts = CInitComboFun::InitAmountCombox(data, account);
  auto formats = report.formats(conditions);
  const auto asked = std::ranges::find(formats, request.text(ParameterKey::format), formatName);
  const auto chosen = asked == formats.end() ? conditions.amounts.preselectedFormat : *asked;
  return {std::move(formats), chosen};
}

std::variant<ShownReport, Refusal, Cancelled> computeForWindow(const ReportDefinition& report, Request request,
                                                               Session& session) {
  std::optional<CancelWatch> watch;
  if (session.db.HasCurrent()) watch.emplace(session);
  if (session.db.DBSelect(session.ledger) != 0) return notOpen(report.dialog);
  auto validated = validate(report.dialog, request, session);
  if (auto* refusal = std::get_if<Refusal>(&validated)) return std::move(*refusal);
  ShownReport shown;
  shown.conditions = std::get<Conditions>(std::move(validated));
  if (report.formats != nullptr) {
    shown.formats = report.formats(shown.conditions);
    if (std::ranges::find(shown.formats, request.text(ParameterKey::format), formatName) == shown.formats.end()) {
      request.clear(ParameterKey::format);
    }
  }
  auto outcome = runReport(report, request, session);
  if (auto* refusal = std::get_if<Refusal>(&outcome)) return std::move(*refusal);
  if (std::holds_alternative<Cancelled>(outcome)) return Cancelled{};
  shown.report = std::get<ComputedReport>(std::move(outcome));
  shown.request = std::move(request);
  return shown;
}

}  // namespace tz
