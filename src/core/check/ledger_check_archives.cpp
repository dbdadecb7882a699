// The account set, currencies, departments, persons, units, plans, intervals and operators.
#include <array>
#include <fmt/format.h>

#include "core/check/ledger_check_facts.h"

namespace tz::check {

std::string accountText(const Facts& facts, Id account) {
  const auto found = facts.codes.find(account);
  return found == facts.codes.end() ? fmt::format("科目 lId={}", account) : "科目 " + found->second.sCode;
}

void checkDimensions(const Facts& facts, Report& report, std::string_view table, const std::string& record,
                     const Dimensions& dimensions) {
  const auto need = [&](const std::unordered_set<Id>& known, Id id, const char* name) {
    if (id != 0 && !known.contains(id)) report.add(table, record, fmt::format("{} = {} 不存在", name, id));
  };
  need(facts.departments, dimensions.dept, "部门 lDeptId");
  need(facts.persons, dimensions.person, "个人 lPersonId");
  need(facts.units, dimensions.unit, "单位 lEnterId");
  if ((dimensions.item != 0) != !dimensions.projectClass.empty()) {
    report.add(table, record, "项目须同时有 sItemId 和 lItemId");
  } else if (!dimensions.projectClass.empty()) {
    const auto found = facts.items.find(dimensions.projectClass);
    if (found == facts.items.end()) {
      report.add(table, record, fmt::format("项目大类 {} 不存在", dimensions.projectClass));
    } else if (!found->second.contains(dimensions.item)) {
      report.add(table, record,
                 fmt::format("项目大类 {} 中没有项目 lItemId = {}", dimensions.projectClass, dimensions.item));
    }
  }
}

std::string wrongDimensions(const CodeInfo& code, const Dimensions& dimensions) {
  struct Rule {
    const char* name;
    bool kept, given;
  };
  const bool persons = code.keeps('A');
  const std::array rules = {
      Rule{"个人", persons, dimensions.person != 0},
      Rule{"单位", code.keeps('B'), dimensions.unit != 0},
      Rule{"部门", persons || code.keeps('C'), dimensions.dept != 0},
      Rule{"项目", code.keeps('D'), dimensions.item != 0},
  };
  std::string missing, extra;
  const auto append = [](std::string& list, const char* name) {
    list += (list.empty() ? "" : "、") + std::string(name);
  };
  for (const auto& rule : rules) {
    if (rule.kept && !rule.given) append(missing, rule.name);
    if (!rule.kept && rule.given) append(extra, rule.name);
  }
  if (missing.empty() && extra.empty()) return "";
  auto text = fmt::format("科目 {} 的辅助核算是 “{}”", code.sCode, code.sAssBook);
  if (!missing.empty()) text += "，而没有" + missing;
  if (!extra.empty()) text += "，而有" + extra;
  return text;
}

bool checkLeaf(const Facts& facts, Report& report, std::string_view table, const std::string& record, Id account) {
  const auto found = facts.codes.find(account);
  if (found == facts.codes.end()) {
    report.add(table, record, fmt::format("科目 lCodeId = {} 不存在", account));
    return false;
  }
  if (found->second.bEnd == 0) report.add(table, record, fmt::format("科目 {} 不是末级科目", found->second.sCode));
  return true;
}

void checkAccountSet(Connection& connection, Report& report, Facts& facts) {
  int rows = 0;
  readTable<zAccountMInfo>(connection, report, [&](const zAccountMInfo& set) {
    ++rows;
    facts.scheme = set.sCodeScheme;
    facts.year = set.nYear;
    const bool digits = std::ranges::all_of(set.sCodeScheme, [](char c) { return c >= '1' && c <= '9'; });
    if (!digits || set.sCodeScheme.empty()) {
      report.add(set.table, byId(set.lId),
                 fmt::format("科目编码方案 “{}” 须为每级一位 1 至 9 的数字", set.sCodeScheme));
      facts.scheme.clear();
    }
    if (set.nYear < 1900 || set.nYear > 9999) {
      report.add(set.table, byId(set.lId), fmt::format("会计年度 {} 不合理", set.nYear));
      facts.year = 0;
    }
  });
  if (rows != 1) report.add(zAccountMInfo::table, "", fmt::format("须有一个帐套，现有 {} 个", rows));
}

void checkCurrencies(Connection& connection, Report& report, Facts& facts) {
  Seen ids, fixIds, fltIds, fixed, floating;
  readTable<CyrencyInfo>(connection, report, [&](const CyrencyInfo& currency) {
    const auto record = byId(currency.lId);
    if (ids.twice(currency.lId)) report.add(currency.table, record, "lId 重复");
    if (currency.byExchId == 0) report.add(currency.table, record, "byExchId 须大于 0");
    if (!facts.currencies.insert(currency.byExchId).second) report.add(currency.table, record, "byExchId 重复");
    if (currency.sName.empty()) report.add(currency.table, record, "币种没有名称");
  });
  const auto checkRate = [&](const char* table, Id id, int currency, double rate) {
    if (!facts.currencies.contains(currency))
      report.add(table, byId(id), fmt::format("币种 byExchId = {} 不存在", currency));
    if (rate <= 0) report.add(table, byId(id), fmt::format("汇率 {} 须大于 0", rate));
  };
  readTable<ExchgFixInfo>(connection, report, [&](const ExchgFixInfo& rate) {
    checkRate(rate.table, rate.lId, rate.byExchId, rate.dFrat);
    if (fixIds.twice(rate.lId)) report.add(rate.table, byId(rate.lId), "lId 重复");
    if (fixed.twice(rate.byExchId)) report.add(rate.table, byId(rate.lId), "同一币种有两个固定汇率");
  });
  readTable<ExchgFltInfo>(connection, report, [&](const ExchgFltInfo& rate) {
    checkRate(rate.table, rate.lId, rate.byExchId, rate.dFrat);
    if (fltIds.twice(rate.lId)) report.add(rate.table, byId(rate.lId), "lId 重复");
    if (floating.twice(fmt::format("{} {}", rate.byExchId, isoText(rate.dtDate)))) {
      report.add(rate.table, byId(rate.lId), "同一币种同一日期有两个汇率");
    }
  });
}

void checkArchives(Connection& connection, Report& report, Facts& facts) {
  Seen deptIds;
  Namesakes deptNames, personNames, unitNames;
  readTable<DeptInfo>(connection, report, [&](const DeptInfo& dept) {
    const auto record = byId(dept.lId);
    if (deptIds.twice(dept.lId)) report.add(dept.table, record, "lId 重复");
    if (dept.lDeptId == 0) report.add(dept.table, record, "lDeptId 须大于 0");
    if (!facts.departments.insert(dept.lDeptId).second) report.add(dept.table, record, "lDeptId 重复");
    deptNames.add(dept.sDeptName, dept.lId);
    if (dept.sDeptName.empty()) report.add(dept.table, record, "部门没有名称");
  });
  deptNames.report(report, DeptInfo::table);
  readTable<PersonInfo>(connection, report, [&](const PersonInfo& person) {
    const auto record = byId(person.lId);
    if (person.lId == 0) report.add(person.table, record, "lId 须大于 0");
    if (!facts.persons.insert(person.lId).second) report.add(person.table, record, "lId 重复");
    personNames.add(person.sName, person.lId);
    if (person.sName.empty()) report.add(person.table, record, "个人没有姓名");
    if (!facts.departments.contains(person.lDeptId)) {
      report.add(person.table, record, fmt::format("部门 lDeptId = {} 不存在", person.lDeptId));
    }
  });
  personNames.report(report, PersonInfo::table);
  readTable<EnterClassInfo>(connection, report, [&](const EnterClassInfo& unitClass) {
    if (unitClass.lId == 0) report.add(unitClass.table, byId(unitClass.lId), "lId 须大于 0");
    if (!facts.unitClasses.insert(unitClass.lId).second) report.add(unitClass.table, byId(unitClass.lId), "lId 重复");
  });
  readTable<EnterInfo>(connection, report, [&](const EnterInfo& unit) {
    const auto record = byId(unit.lId);
    if (unit.lId == 0) report.add(unit.table, record, "lId 须大于 0");
    if (!facts.units.insert(unit.lId).second) report.add(unit.table, record, "lId 重复");
    unitNames.add(unit.sEnterName, unit.lId);
    if (unit.sEnterName.empty()) report.add(unit.table, record, "单位没有名称");
    if (unit.mCredit < 0) report.add(unit.table, record, "信用额度不能为负数");
    if (unit.lClassId != 0 && !facts.unitClasses.contains(unit.lClassId)) {
      report.add(unit.table, record, fmt::format("单位分类 lClassId = {} 不存在", unit.lClassId));
    }
  });
  unitNames.report(report, EnterInfo::table);
}

}  // namespace tz::check
