#include "cli/ledger_names.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>

#include "core/catalogue/catalogue.h"
#include "core/data/init_combo_fun.h"
#include "core/reports/operator.h"

namespace tz::cli {
namespace {

// Where the names of a condition stand: name and what is shown beside it.
struct NameSource {
  std::string_view option;
  std::string_view select;
};

constexpr std::array sources = {
    NameSource{"--dept", "SELECT sDeptName, sDeptId FROM Dept WHERE lId > 0 ORDER BY sDeptId"},
    NameSource{"--unit", "SELECT sEnterName, sEnterId FROM Enter WHERE lId > 0 ORDER BY sEnterId"},
    NameSource{"--unit-class", "SELECT sName, '' FROM EnterClass WHERE lId > 0 ORDER BY lId"},
    NameSource{"--project-class", "SELECT sItemId, sName FROM ProjClass WHERE lId > 0 ORDER BY lId"},
    NameSource{"--currency", "SELECT sName, '' FROM Cyrency WHERE lId > 0 ORDER BY lId"},
};

std::string valueOf(const GivenValues& given, const char* name) {
  const auto found = given.find(name);
  return found == given.end() ? "" : found->second;
}

// The ledger's path; empty when none is named or it is no file. A shell hands over "~/" as it was typed.
std::string ledgerFile(const GivenValues& given) {
  auto path = valueOf(given, "--ledger");
  const char* home = std::getenv("HOME");
  if (path.starts_with("~/") && home != nullptr) path.replace(0, 1, home);
  std::error_code ignored;
  return std::filesystem::is_regular_file(path, ignored) ? path : "";
}

// The accounts that the report's dialog offers.
Sql accountSelect(const GivenValues& given) {
  const auto* report = findReport(std::atoi(valueOf(given, "ID").c_str()));
  if (report == nullptr || report->dialog.accountWhere.empty()) return {};
  return Sql("SELECT sCode, sName FROM Code WHERE ") + Sql(report->dialog.accountWhere);
}

// The persons, of one department when it is on the line.
Sql personSelect(const GivenValues& given) {
  const auto dept = valueOf(given, "--dept");
  auto select = Sql("SELECT sName, sPersonId FROM Person WHERE lId > 0");
  if (!dept.empty())
    select += Sql(" AND lDeptId IN (SELECT lDeptId FROM Dept WHERE sDeptName = ? OR sDeptId || ' ' || sDeptName = ?)",
                  dept, dept);
  return select + " ORDER BY sPersonId";
}

// Names that may stand behind a code, where several bear one.
bool isCoded(const std::string& option) { return option == "--dept" || option == "--unit" || option == "--person"; }

Sql selectOf(const std::string& option, const GivenValues& given) {
  if (option.starts_with("--account")) return accountSelect(given);
  if (option == "--person" || option == "--clerk") return personSelect(given);
  const auto* const found = std::ranges::find(sources, option, &NameSource::option);
  return found == sources.end() ? Sql() : Sql(found->select);
}

}  // namespace

std::vector<std::pair<std::string, std::string>> ledgerNames(const std::string& option, const GivenValues& given) {
  std::vector<std::pair<std::string, std::string>> names;
  const auto path = ledgerFile(given);
  const auto select = selectOf(option, given);
  if (path.empty() || select.empty()) return names;
  try {
    CQnCwDB db(Access::read);
    db.Open(path);
    if (needsLogon(db)) return names;
    const auto table = db.QRYGetData(select);
    std::vector<NamedMember> members;
    for (int row = 0; row < table.rows; ++row) members.push_back({table.at(row, 1), table.at(row, 0), row});
    if (!isCoded(option)) {
      for (const auto& [code, name, id] : members) names.emplace_back(name, code);
      return names;
    }
    for (const auto& entry : toldApart(members)) {
      names.emplace_back(entry.text, members[static_cast<std::size_t>(entry.datum)].code);
    }
  } catch (const DbError&) {
    names.clear();
  }
  return names;
}

}  // namespace tz::cli
