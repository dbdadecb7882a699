// Plan figures, aging intervals, operators and the log of marks.
#include <fmt/format.h>

#include "core/check/ledger_check_facts.h"

namespace tz::check {
namespace {

bool hasFourDecimals(double figure) {
  const double scaled = figure * 1e4;
  return std::abs(scaled - std::round(scaled)) <= 1e-9 * std::max(1.0, std::abs(scaled));
}

void checkPlan(const PlanInfo& plan, Report& report, const Facts& facts) {
  const auto record = byId(plan.lId);
  checkLeaf(facts, report, plan.table, record, plan.lCodeId);
  checkDimensions(facts, report, plan.table, record, {plan.lDeptId, 0, 0, plan.lItemId, plan.sItemId});
  if (plan.byPeroid < 1 || plan.byPeroid > 12) {
    report.add(plan.table, record, fmt::format("期间 {} 不在 1 至 12 之间", plan.byPeroid));
  }
  for (const double figure : {plan.mPPlan, plan.mPFact, plan.mPLast}) {
    if (!hasFourDecimals(figure)) report.add(plan.table, record, fmt::format("金额 {} 超过四位小数", figure));
  }
}

void checkAges(Connection& connection, Report& report) {
  Seen ids, numbers;
  std::map<std::pair<int, int>, Id> lengths;
  readTable<AgesInfo>(connection, report, [&](const AgesInfo& age) {
    const auto record = byId(age.lId);
    if (ids.twice(age.lId)) report.add(age.table, record, "lId 重复");
    if (age.byType > 1) report.add(age.table, record, fmt::format("byType = {} 须为 0 或 1", age.byType));
    if (age.nNumber < 1 || age.nNumber > 5) {
      report.add(age.table, record, fmt::format("区间序号 {} 不在 1 至 5 之间", age.nNumber));
    }
    if (!lengths.try_emplace({age.byType, age.nNumber}, age.lLength).second) {
      report.add(age.table, record, "同类区间序号重复");
    }
    if (age.lLength == 0) report.add(age.table, record, "区间天数须大于 0");
  });
  for (auto next = lengths.begin(); next != lengths.end(); ++next) {
    if (next == lengths.begin()) continue;
    const auto before = std::prev(next);
    if (before->first.first != next->first.first || before->second <= next->second) continue;
    report.add(AgesInfo::table, "",
               fmt::format("byType = {} 的第 {} 区间天数小于前一区间", next->first.first, next->first.second));
  }
}

}  // namespace

void checkPlans(Connection& connection, Report& report, const Facts& facts) {
  Seen ids, keys;
  readTable<PlanInfo>(connection, report, [&](const PlanInfo& plan) {
    if (ids.twice(plan.lId)) report.add(plan.table, byId(plan.lId), "lId 重复");
    if (keys.twice(
            fmt::format("{} {} {} {} {}", plan.lCodeId, plan.lDeptId, plan.lItemId, plan.byPeroid, plan.sItemId))) {
      report.add(plan.table, byId(plan.lId), "同一科目、部门、项目、期间的计划重复");
    }
    checkPlan(plan, report, facts);
  });
  checkAges(connection, report);
}

void checkOperators(Connection& connection, Report& report) {
  Seen ids, names, rights, marks;
  std::unordered_set<Id> operators;
  readTable<zOperatorInfo>(connection, report, [&](const zOperatorInfo& person) {
    operators.insert(person.lId);
    if (ids.twice(person.lId)) report.add(person.table, byId(person.lId), "lId 重复");
    if (person.sName.empty()) report.add(person.table, byId(person.lId), "操作员没有姓名");
    if (names.twice(person.sName))
      report.add(person.table, byId(person.lId), fmt::format("操作员 {} 重名", person.sName));
  });
  readTable<zRightInfo>(connection, report, [&](const zRightInfo& right) {
    const auto record = fmt::format("lOperatorId={}", right.lOperatorId);
    if (!operators.contains(right.lOperatorId)) report.add(right.table, record, "操作员不存在");
    if (rights.twice(fmt::format("{} {}", right.lOperatorId, right.nRight))) {
      report.add(right.table, record, fmt::format("权限 {} 重复", right.nRight));
    }
  });
  // A ledger made elsewhere may lack the log.
  if (!report.tables().has(MarkLogInfo::table)) return;
  readTable<MarkLogInfo>(connection, report, [&](const MarkLogInfo& mark) {
    if (marks.twice(mark.lId)) report.add(mark.table, byId(mark.lId), "lId 重复");
    // What was planned stands without a voucher: 1 where the plan was there, or is.
    const int largest = mark.lTieId == 0 ? 1 : 2;
    if (std::min(mark.byOld, mark.byNew) < 0 || std::max(mark.byOld, mark.byNew) > largest) {
      report.add(mark.table, byId(mark.lId), fmt::format("标记 {}、{} 应为 0 至 {}", mark.byOld, mark.byNew, largest));
    }
  });
}

}  // namespace tz::check
