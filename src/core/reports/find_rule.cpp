#include "core/reports/find_rule.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/reports/offers.h"

namespace tz {
namespace {

// A member that was picked from a list may carry its code, so that it is told from others of its name.
std::string soughtText(const ControlSpec& control, const Request& asked, CGetData& data) {
  const auto key = control.key;
  const auto member = asked.member(key);
  if (member.id == 0) return valueOf(key, member.text);
  switch (key) {
    case ParameterKey::dept:
      return data.GetDeptName(member.id);
    case ParameterKey::person:
      return data.GetPersonName(member.id);
    case ParameterKey::unit:
      return data.GetUnitName(member.id);
    case ParameterKey::unitClass:
      return data.GetEnterClassName(member.id);
    case ParameterKey::project:
      return data.GetItemName(CGetData::GetCode_Separator(asked.text(ParameterKey::projectClass)), member.id);
    default:
      return valueOf(key, member.text);
  }
}

}  // namespace

std::int64_t findRow(const CTzGrid& grid, const FindRule& rule, const Request& asked, const CQnCwDB& db) {
  CGetData data(db);
  std::vector<std::pair<int, std::string>> sought;
  for (std::size_t place = 0; place < rule.columns.size(); ++place) {
    auto text = soughtText(rule.dialog.controls[place], asked, data);
    if (!text.empty() || rule.columns.size() == 1) sought.emplace_back(rule.columns[place], std::move(text));
  }
  if (sought.empty()) return -1;
  const auto tells = [&](std::int64_t row) {
    return std::ranges::all_of(sought, [&](const auto& one) { return grid.TextAt(row, one.first) == one.second; });
  };
  for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
    if (tells(row)) return row;
  }
  return -1;
}

}  // namespace tz
