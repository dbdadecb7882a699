#include "core/reports/plan_log.h"

#include <fmt/format.h>
#include <vector>

#include "core/data/record_io.h"
#include "core/reports/marking.h"

namespace tz {
namespace {

constexpr std::string_view setPlans = "plan:set:";
constexpr std::string_view autoPlans = "plan:auto:";

}  // namespace

std::string logPlans(Session& session, std::span<const PlanChange> changes, PlanWork work) {
  if (changes.empty()) return {};
  auto& connection = session.db.Current();
  auto id = connection.newIds(MarkLogInfo::table, static_cast<std::int64_t>(changes.size()));
  auto batch = fmt::format("{}{}", work == PlanWork::byHand ? setPlans : autoPlans, id);
  const auto when = utcText(session.now());
  std::vector<MarkLogInfo> rows;
  rows.reserve(changes.size());
  for (const auto& change : changes) {
    rows.push_back({.lId = id++,
                    .lTieId = 0,
                    .lLineId = change.plan,
                    .byOld = change.before ? 1 : 0,
                    .byNew = change.after ? 1 : 0,
                    .sOperator = session.who.name,
                    .sWhen = when,
                    .sBatch = batch});
  }
  insertRecords(connection, rows);
  return batch;
}

std::string planWorkText(std::string_view batch, int before, int after) {
  const std::string_view work = before == 0 ? "增加计划" : after == 0 ? "删除计划" : "修改计划";
  return fmt::format("{}{}", batch.starts_with(autoPlans) ? "自动编制：" : "", work);
}

}  // namespace tz
