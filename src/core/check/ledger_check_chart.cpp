// The chart of accounts, and which accounts carry which project classes.
#include <fmt/format.h>

#include "core/check/ledger_check_facts.h"

namespace tz::check {
namespace {

// The level that a code's length stands for, 0 when the scheme has none of that length; `parentLength` is how much of
// it names the parent.
int levelOf(std::string_view code, std::string_view scheme, std::size_t& parentLength) {
  std::size_t length = 0;
  for (std::size_t level = 0; level < scheme.size(); ++level) {
    parentLength = length;
    length += static_cast<std::size_t>(scheme[level] - '0');
    if (length == code.size()) return static_cast<int>(level) + 1;
  }
  return 0;
}

std::string wrongFlags(std::string_view flags) {
  for (std::size_t i = 0; i < flags.size(); ++i) {
    if (flags[i] < 'A' || flags[i] > 'D') return "只能含 A、B、C、D";
    if (flags.substr(0, i).find(flags[i]) != std::string_view::npos) return "字母重复";
  }
  return "";
}

void checkCode(const CodeInfo& code, Report& report, const Facts& facts) {
  const auto record = byId(code.lId);
  if (code.lId == 0) report.add(code.table, record, "lId 须大于 0");
  if (code.sName.empty()) report.add(code.table, record, fmt::format("科目 {} 没有名称", code.sCode));
  if (const auto wrong = wrongFlags(code.sAssBook); !wrong.empty()) {
    report.add(code.table, record, fmt::format("科目 {} 的辅助核算 “{}” {}", code.sCode, code.sAssBook, wrong));
  }
  if (code.byKind < 1 || code.byKind > 5) {
    report.add(code.table, record, fmt::format("科目 {} 的类别 {} 不在 1 至 5 之间", code.sCode, code.byKind));
  }
  if (code.byExchId != 0 && !facts.currencies.contains(code.byExchId)) {
    report.add(code.table, record, fmt::format("科目 {} 的币种 byExchId = {} 不存在", code.sCode, code.byExchId));
  }
  if (code.lDeptId != 0 && !facts.departments.contains(code.lDeptId)) {
    report.add(code.table, record, fmt::format("科目 {} 的部门 lDeptId = {} 不存在", code.sCode, code.lDeptId));
  }
}

// What a sub-account leaves out of its parent's reports: lines that fall in no group of a flag that it lacks, figures
// on the other side. Charts are made so on purpose (input tax stands under a liability), so this is a hint.
void compareWithParent(const CodeInfo& code, const CodeInfo& parent, Report& report) {
  if ((code.bDirect != 0) != (parent.bDirect != 0)) {
    report.hint(code.table, byId(code.lId),
                fmt::format("科目 {} 的余额方向与上级科目 {} 不同", code.sCode, parent.sCode));
  }
  std::string lacking;
  for (const char flag : parent.sAssBook) {
    if (!code.keeps(flag)) lacking += flag;
  }
  if (lacking.empty()) return;
  report.hint(code.table, byId(code.lId),
              fmt::format("科目 {} 没有上级科目 {} 的辅助核算 “{}”，上级科目的该项报表不含它", code.sCode, parent.sCode,
                          lacking));
}

// Codes, levels and leaves: byCode holds every account.
void checkTree(const std::map<std::string, const CodeInfo*>& byCode, Report& report, const Facts& facts) {
  std::set<std::string> parents;
  for (const auto& [text, code] : byCode) {
    const auto record = byId(code->lId);
    std::size_t parentLength = 0;
    const int level = levelOf(text, facts.scheme, parentLength);
    if (level == 0) {
      report.add(code->table, record, fmt::format("科目编码 {} 的长度不符合编码方案 {}", text, facts.scheme));
      continue;
    }
    if (level != code->byGrade) {
      report.add(code->table, record, fmt::format("科目 {} 的级次是 {}，应为 {}", text, code->byGrade, level));
    }
    if (level == 1) continue;
    const auto parent = text.substr(0, parentLength);
    parents.insert(parent);
    const auto above = byCode.find(parent);
    if (above == byCode.end()) {
      report.add(code->table, record, fmt::format("科目 {} 没有上级科目 {}", text, parent));
    } else {
      compareWithParent(*code, *above->second, report);
    }
  }
  for (const auto& [text, code] : byCode) {
    const bool leaf = !parents.contains(text);
    if (leaf == (code->bEnd != 0)) continue;
    report.add(code->table, byId(code->lId), "科目 " + text + (leaf ? " 没有下级，应为末级" : " 有下级，不应为末级"));
  }
}

}  // namespace

void checkChart(Connection& connection, Report& report, Facts& facts) {
  std::map<std::string, const CodeInfo*> byCode;
  readTable<CodeInfo>(connection, report, [&](const CodeInfo& code) {
    checkCode(code, report, facts);
    const auto [place, added] = facts.codes.try_emplace(code.lId, code);
    if (!added) {
      report.add(code.table, byId(code.lId), "lId 重复");
    } else if (!byCode.try_emplace(code.sCode, &place->second).second) {
      report.add(code.table, byId(code.lId), fmt::format("科目编码 {} 重复", code.sCode));
    }
  });
  if (!facts.scheme.empty()) checkTree(byCode, report, facts);
}

void checkProjectCodes(Connection& connection, Report& report, const Facts& facts) {
  Seen ids, links;
  readTable<ProjCodesInfo>(connection, report, [&](const ProjCodesInfo& link) {
    const auto record = byId(link.lId);
    if (ids.twice(link.lId)) report.add(link.table, record, "lId 重复");
    if (!facts.codes.contains(link.lCodeId))
      report.add(link.table, record, fmt::format("科目 lCodeId = {} 不存在", link.lCodeId));
    if (!facts.items.contains(link.sItemId))
      report.add(link.table, record, fmt::format("项目大类 {} 不存在", link.sItemId));
    if (links.twice(fmt::format("{} {}", link.lCodeId, link.sItemId)))
      report.add(link.table, record, "科目与项目大类的对应重复");
  });
}

}  // namespace tz::check
