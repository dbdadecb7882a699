#include "core/receivables/clearing_drill.h"

#include <array>

#include "core/receivables/clearing_report.h"

namespace tz {
namespace {

constexpr Message chooseVoucherLine{"请选择凭证记录!"};
constexpr Message openingHasNoVoucher{"期初数无法联查凭证"};
constexpr Message noVoucherOfPerson{"无法联查凭证"};
constexpr Message noVoucherOfUnit{"没有记录,无法联查凭证"};
constexpr Message nothingMoved{"无发生额，无法联查总帐"};

constexpr int personGeneralLedger = 10189;
constexpr int unitGeneralLedger = 10201;

}  // namespace

DrillAnswer drillToClearedVoucher(ClearingKind kind, const ComputedReport& shown, std::int64_t row) {
  if (!shown.subjects.hasLines()) {
    return refusalWith(kind == ClearingKind::person ? noVoucherOfPerson : noVoucherOfUnit);
  }
  const auto line = row < 0 ? std::nullopt : shown.subjects.line(row);
  if (!line) return refusalWith(chooseVoucherLine);
  if (shown.grid.RowDataAt(row) == openingLineData) return refusalWith(openingHasNoVoucher);
  return VoucherTarget{*line};
}

DrillAnswer drillToGeneralLedger(ClearingKind kind, const Conditions& conditions, const ComputedReport& shown) {
  if (!shown.subjects.hasLines()) return refusalWith(nothingMoved);
  const bool person = kind == ClearingKind::person;
  DetailTarget target{.command = person ? personGeneralLedger : unitGeneralLedger, .conditions = {}};
  const auto& own = conditions.request;
  for (const auto key :
       {ParameterKey::account, ParameterKey::dept, ParameterKey::person, ParameterKey::unit, ParameterKey::format}) {
    if (own.flag(key)) target.conditions.choose(key, own.member(key));
  }
  if (person) return target;
  target.conditions.set(ParameterKey::from, "1");
  target.conditions.set(ParameterKey::to, std::to_string(conditions.to));
  return target;
}

}  // namespace tz
