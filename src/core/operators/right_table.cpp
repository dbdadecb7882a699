#include "core/operators/right_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <optional>

#include "core/catalogue/catalogue.h"

namespace tz {
namespace {

constexpr std::array rights = {
    Right{1, "档案", "个人档案"},
    Right{13, "档案", "项目档案"},
    Right{75, "档案", "单位档案"},
    Right{8, "档案", "部门档案"},
    Right{3, "个人往来", "个人往来余额表"},
    Right{4, "个人往来", "个人往来明细帐"},
    Right{5, "个人往来", "个人往来两清"},
    Right{6, "个人往来", "个人往来催款单"},
    Right{7, "个人往来", "个人往来帐龄分析"},
    Right{10, "部门核算", "部门总帐"},
    Right{11, "部门核算", "部门明细帐"},
    Right{12, "部门核算", "部门收支分析"},
    Right{19, "计划", "计划编制"},
    Right{20, "计划", "科目计划执行报告"},
    Right{21, "计划", "部门计划执行报告"},
    Right{22, "计划", "项目计划执行报告"},
    Right{16, "项目核算", "项目总帐"},
    Right{17, "项目核算", "项目明细帐"},
    Right{18, "项目核算", "项目统计表"},
    Right{77, "单位往来", "单位往来余额表"},
    Right{78, "单位往来", "单位往来明细帐"},
    Right{79, "单位往来", "单位往来两清"},
    Right{80, "单位往来", "单位往来对帐单"},
    Right{81, "单位往来", "单位往来帐龄分析"},
};

std::optional<int> numberIn(std::string_view word) {
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc{} || end != word.data() + word.size()) return std::nullopt;
  return number;
}

// The more exact meanings come first: the first that fits anything is what is meant.
std::set<int> rightsCalled(std::string_view word) {
  std::set<int> found;
  const auto add = [&](const Right& right, bool meant) {
    if (meant) found.insert(right.number);
  };
  for (const auto& right : rights) add(right, right.name == word);
  if (found.empty()) {
    for (const auto& right : rights) add(right, right.area == word);
  }
  return found;
}

std::set<int> rightsOfReport(std::string_view title) {
  std::set<int> windows;
  std::set<int> reports;
  for (const auto* report : catalogue()) {
    if (report->windowTitle == title) windows.insert(report->right);
    if (report->rightName == title || report->printTitle == title) reports.insert(report->right);
  }
  return windows.empty() ? reports : windows;
}

Refusal unknownRight(std::string_view word) {
  Refusal refusal{.text = fmt::format("没有权限“{}”：请写权限的编号或名称、报表的名称，或一类的名称", word)};
  for (const auto& right : rights) refusal.offered.push_back(rightText(right.number));
  return refusal;
}

}  // namespace

std::span<const Right> rightTable() { return rights; }

const Right* findRight(int number) {
  const auto* const found = std::ranges::find(rights, number, &Right::number);
  return found == rights.end() ? nullptr : found;
}

std::string rightText(int number) {
  const auto* right = findRight(number);
  return right == nullptr ? fmt::format("{} 号", number) : fmt::format("{}（{} 号）", right->name, number);
}

std::string reportsOfRight(int number) {
  std::vector<std::string_view> names;
  for (const auto* report : catalogue()) {
    if (report->right == number) names.push_back(report->rightName);
  }
  return fmt::to_string(fmt::join(names, "、"));
}

std::variant<std::set<int>, Refusal> namedRights(std::string_view word) {
  if (const auto number = numberIn(word)) {
    if (findRight(*number) != nullptr) return std::set{*number};
    return unknownRight(word);
  }
  auto found = rightsCalled(word);
  if (!found.empty()) return found;
  found = rightsOfReport(word);
  if (found.empty()) return unknownRight(word);
  if (found.size() == 1) return found;
  Refusal refusal{.text = fmt::format("几种权限都有“{}”，请写权限的编号或名称", word)};
  for (const int number : found) refusal.offered.push_back(rightText(number));
  return refusal;
}

}  // namespace tz
