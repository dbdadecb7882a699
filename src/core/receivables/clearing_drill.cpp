#include "core/receivables/clearing_drill.h"

#include "core/receivables/clearing_report.h"

namespace tz::clearing_drill {

bool anyLine(const DrillPlace& place) { return place.shown.subjects.hasLines(); }

bool lineRow(const DrillPlace& place) { return place.row >= 0 && place.shown.subjects.line(place.row).has_value(); }

bool noOpeningLine(const DrillPlace& place) { return !place.shown.subjects.line(place.row)->opening; }

DrillAnswer voucherTarget(const DrillRule& /*rule*/, const DrillPlace& place) {
  return VoucherTarget{*place.shown.subjects.line(place.row)};
}

DrillAnswer personLedgerTarget(const DrillRule& rule, const DrillPlace& place) {
  DetailTarget target{.command = rule.reports[0], .conditions = {}};
  const auto& own = place.conditions.request;
  for (const auto key :
       {ParameterKey::account, ParameterKey::dept, ParameterKey::person, ParameterKey::unit, ParameterKey::format}) {
    if (own.flag(key)) target.conditions.choose(key, own.member(key));
  }
  return target;
}

DrillAnswer unitLedgerTarget(const DrillRule& rule, const DrillPlace& place) {
  auto answer = personLedgerTarget(rule, place);
  auto& target = std::get<DetailTarget>(answer);
  target.conditions.set(ParameterKey::from, "1");
  target.conditions.set(ParameterKey::to, std::to_string(place.conditions.to));
  return answer;
}

}  // namespace tz::clearing_drill
