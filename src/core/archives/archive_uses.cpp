#include "core/archives/archive_uses.h"

#include <array>
#include <fmt/format.h>

#include "core/grid/figures.h"

namespace tz {
namespace {

constexpr std::int64_t mostCounted = 10'000;

struct UsingTable {
  std::string_view table, counted;
};
constexpr std::array linesAndBalances = {UsingTable{"RegSub", "条分录"}, UsingTable{"UnregSub", "条未记帐分录"},
                                         UsingTable{"AssAcc", "条辅助余额"}};

// The same condition on lines and balances; `{0}` in it stands for the table.
void addLines(std::vector<ArchiveUse>& uses, std::string_view condition, auto... values) {
  for (const auto& [table, counted] : linesAndBalances) {
    const auto text = std::string(table) + " WHERE " + fmt::format(fmt::runtime(condition), table);
    uses.push_back({std::string(counted), [=](const ArchiveRecord& record) { return Sql(text, values(record)...); }});
  }
}

void addRows(std::vector<ArchiveUse>& uses, std::string_view counted, std::string_view rows, auto... values) {
  uses.push_back({std::string(counted),
                  [=, text = std::string(rows)](const ArchiveRecord& record) { return Sql(text, values(record)...); }});
}

constexpr auto idOfRecord = [](const ArchiveRecord& record) { return record.id; };

auto always(const std::string& text) {
  return [text](const ArchiveRecord&) { return text; };
}

std::string classOf(const ArchiveRecord& record) { return std::get<std::string>(record.values.front()); }

std::int64_t countUpTo(Connection& connection, const Sql& rows) {
  const auto count = connection.query(Sql("SELECT count(*) FROM (SELECT 1 FROM ") + rows +
                                      Sql(" LIMIT ?) AS counted", mostCounted + 1));
  return count->next() ? count->integer(0) : 0;
}

}  // namespace

// The indexes leave out the lines that have no such member; the conditions say so too.
std::vector<ArchiveUse> departmentUses() {
  std::vector<ArchiveUse> uses;
  addLines(uses, "lDeptId = ? AND lDeptId <> 0", idOfRecord);
  addRows(uses, "条计划", "Plan WHERE lDeptId = ?", idOfRecord);
  addRows(uses, "名个人", "Person WHERE lDeptId = ?", idOfRecord);
  addRows(uses, "个科目", "Code WHERE lDeptId = ?", idOfRecord);
  return uses;
}

// Lines of persons are ordered by department first, and a person may have changed his: each department that occurs is
// looked at.
std::vector<ArchiveUse> personUses() {
  std::vector<ArchiveUse> uses;
  addLines(uses,
           "lDeptId IN (WITH RECURSIVE depts (id) AS (SELECT (SELECT min(lDeptId) FROM {0}) UNION ALL "
           "SELECT (SELECT min(lDeptId) FROM {0} WHERE lDeptId > depts.id) FROM depts WHERE depts.id IS NOT NULL) "
           "SELECT id FROM depts WHERE id IS NOT NULL) AND lPersonId = ?",
           idOfRecord);
  return uses;
}

std::vector<ArchiveUse> unitUses() {
  std::vector<ArchiveUse> uses;
  addLines(uses, "lEnterId = ? AND lEnterId <> 0", idOfRecord);
  return uses;
}

std::vector<ArchiveUse> unitClassUses() {
  std::vector<ArchiveUse> uses;
  addRows(uses, "个单位", "Enter WHERE lClassId = ?", idOfRecord);
  return uses;
}

std::vector<ArchiveUse> projectClassUses() {
  std::vector<ArchiveUse> uses;
  addLines(uses, "sItemId = ? AND lItemId <> 0", classOf);
  addRows(uses, "条计划", "Plan WHERE sItemId = ?", classOf);
  addRows(uses, "个科目", "ProjCodes WHERE sItemId = ?", classOf);
  uses.push_back({"个项目", [](const ArchiveRecord& record) { return Sql(itemTable(classOf(record))); }});
  return uses;
}

std::vector<ArchiveUse> itemUses(const std::string& classId) {
  std::vector<ArchiveUse> uses;
  addLines(uses, "sItemId = ? AND lItemId = ? AND lItemId <> 0", always(classId), idOfRecord);
  addRows(uses, "条计划", "Plan WHERE sItemId = ? AND lItemId = ?", always(classId), idOfRecord);
  return uses;
}

std::vector<ArchiveUse> classAccountUses(const std::string& classId) {
  const auto account = [](const ArchiveRecord& record) { return std::get<std::int64_t>(record.values.front()); };
  std::vector<ArchiveUse> uses;
  addLines(uses, "sItemId = ? AND lItemId <> 0 AND lCodeId = ?", always(classId), account);
  addRows(uses, "条计划", "Plan WHERE sItemId = ? AND lCodeId = ?", always(classId), account);
  return uses;
}

std::string usesOf(Connection& connection, const Archive& archive, const ArchiveRecord& record) {
  std::string text;
  for (const auto& use : archive.uses) {
    const auto count = countUpTo(connection, use.rows(record));
    if (count == 0) continue;
    const auto shown = figureText(static_cast<double>(std::min(count, mostCounted)), ColumnKind::count);
    fmt::format_to(std::back_inserter(text), "{}{}{} {}", text.empty() ? "" : "、", count > mostCounted ? "超过 " : "",
                   shown, use.counted);
  }
  return text;
}

}  // namespace tz
