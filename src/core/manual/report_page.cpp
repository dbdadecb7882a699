#include "core/manual/report_page.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>

#include "core/catalogue/catalogue.h"
#include "core/manual/control_texts.h"
#include "core/manual/markdown.h"
#include "core/manual/sample_conditions.h"

namespace tz::manual {
namespace {

constexpr std::int64_t rowsOfExample = 8;
constexpr std::size_t columnsOfExample = 12;

std::string linkTo(const ReportDefinition& report) {
  return link(reportTitle(report), fmt::format("{}.md", report.command));
}

std::string captionOf(const GridColumn& column) {
  return column.group.empty() ? column.caption : column.group + " " + column.caption;
}

std::string cellOf(const CTzGrid& grid, std::int64_t row, int column) { return plain(grid.ShownAt(row, column)); }

std::string exampleTable(const CTzGrid& grid) {
  const auto columns = std::min(grid.Columns().size(), columnsOfExample);
  std::vector<std::string> cells;
  for (std::size_t column = 0; column < columns; ++column) {
    const auto& one = grid.Columns()[column];
    cells.push_back((traitsOf(one.kind).alignsRight() ? ">" : "") + plain(captionOf(one)));
  }
  std::string text = tableHead(cells);
  const auto rows = std::min(grid.GetRows(), rowsOfExample);
  for (std::int64_t row = 0; row < rows; ++row) {
    cells.clear();
    for (std::size_t column = 0; column < columns; ++column) {
      cells.push_back(cellOf(grid, row, static_cast<int>(column)));
    }
    text += tableRow(cells);
  }
  std::string rest;
  if (grid.GetRows() > rows) rest += fmt::format("共 {} 行，这里是前 {} 行。", grid.GetRows(), rows);
  if (grid.Columns().size() > columns) rest += fmt::format("右边还有 {} 栏。", grid.Columns().size() - columns);
  return rest.empty() ? text : fmt::format("{}\n{}\n", text, rest);
}

std::string exampleOf(const ReportDefinition& report, const ComputedReport& example) {
  std::string head;
  for (const auto& line : headLines(example)) {
    if (line.kind != HeadLine::Kind::title) head.append(head.empty() ? "" : "　").append(plain(line.text));
  }
  return fmt::format("## 一个例子\n\n示例单位的帐套里：\n\n{}\n\n{}\n命令行上得到同样的结果：\n\n`tzassistant {}`\n\n",
                     head, exampleTable(example.grid), sampleCommand(report));
}

std::vector<std::string> tabsRow(ParameterKey key) {
  std::vector<std::string_view> names;
  std::ranges::transform(parameter(key).choices, std::back_inserter(names), &ParameterChoice::caption);
  return {plain(parameter(key).label), fmt::format("用工具栏上的按钮选：{}。", fmt::join(names, "、")),
          "不能；打开时是第一个"};
}

std::string conditionsOf(const ReportDefinition& report) {
  std::string text = "## 条件\n\n" + tableHead({"条件", "说明", "可以空着吗"});
  for (const auto& control : report.dialog.controls) {
    const auto told = controlText(control, report.dialog);
    text += tableRow({plain(told.caption), plain(told.meaning), plain(told.empty)});
  }
  for (const auto& toggle : rowToggles) {
    if (std::ranges::find(report.toolbar, toggle.command) == report.toolbar.end()) continue;
    const auto& asked = parameter(toggle.key);
    text += tableRow({plain(asked.label), plain(asked.help) + "。在帐表窗口的工具栏上开关，开始时全部显示。", "—"});
  }
  std::optional<ParameterKey> tabs;
  for (const auto& tab : toolbarTabs) {
    const bool there = std::ranges::find(report.toolbar, tab.command) != report.toolbar.end();
    if (there && tabs != tab.key) text += tableRow(tabsRow(tab.key));
    if (there) tabs = tab.key;
  }
  if (report.formats != nullptr) {
    std::vector<std::string_view> names;
    std::ranges::transform(possibleFormats(report), std::back_inserter(names), formatName);
    text += tableRow({"金额格式",
                      fmt::format("在帐表窗口的上方选择：{}，科目有什么就有什么。见{}。", fmt::join(names, "、"),
                                  link("金额格式", "../formats.md")),
                      "—"});
  }
  return text + fmt::format("\n条件怎样填、怎样保存，见{}。\n\n", link("查询条件", "../conditions.md"));
}

std::string listOf(const std::vector<ExplainedRefusal>& refusals) {
  std::string text;
  for (int number = 0; const auto& refusal : refusals) {
    fmt::format_to(std::back_inserter(text), "{}. **{}** {}\n", ++number, plain(refusal.text), plain(refusal.advice));
  }
  return text + "\n";
}

std::string refusalSection(const ReportDefinition& report) {
  auto text = "## 提示与拒绝\n\n都按下面的次序检查，只提示第一个不对的。打开条件窗口时：\n\n" +
              listOf(openingRefusals(report)) + "按确定时；光标停在要改的一项上，已填的都留着：\n\n" +
              listOf(confirmingRefusals(report));
  if (report.detail != nullptr) text += "查看明细时：\n\n" + listOf(drillRefusals(report.detail));
  if (report.generalLedger != nullptr) text += "联查总帐时：\n\n" + listOf(drillRefusals(report.generalLedger));
  if (report.find != nullptr) text += "查找时：\n\n" + listOf(findRefusals(report));
  return text + fmt::format("其他提示见{}。\n\n", link("提示信息一览", "../messages.md"));
}

std::string rulesOf(const ReportDefinition& report) {
  std::string text = "## 规则\n\n";
  for (const auto rule : report.rules) text.append("- ").append(plain(rule)).append("\n");
  if (!report.colours.help.empty()) {
    fmt::format_to(std::back_inserter(text), "- {}；CSV 的“标记”栏写明{}。\n", plain(report.colours.help),
                   plain(report.colours.meaning));
  }
  return text + "\n";
}

std::string leadsTo(const ReportDefinition& report) {
  std::string text = "## 穿透\n\n";
  if (report.generalLedger != nullptr) {
    const auto& ledger = *findReport(report.generalLedger.reports[0]);
    text += fmt::format("工具栏上的“总帐”打开{}，科目和对方照这张表。", linkTo(ledger));
  }
  if (report.detail.reports.empty()) {
    return text + fmt::format("在分录上按 Enter 或双击，打开它的{}。\n\n", link("凭证", "../vouchers.md"));
  }
  std::vector<std::string> targets;
  for (const int target : report.detail.reports) targets.push_back(linkTo(*findReport(target)));
  text += fmt::format("在一行上按 Enter 或双击，到{}，条件照这张表；再按 Enter，到凭证。", fmt::join(targets, "或"));
  if (targets.size() > 1) text += "查一个部门的，到后一张。";
  return text + "\n\n";
}

std::string relatedOf(const ReportDefinition& report) {
  std::string from;
  std::string beside;
  for (const auto* other : catalogue()) {
    const auto& reports = other->detail.reports;
    const bool leadsHere = std::ranges::find(reports, report.command) != reports.end();
    if (leadsHere) from.append("- ").append(linkTo(*other)).append("：从它的一行到这里\n");
    if (!leadsHere && other->area == report.area && other != &report) {
      beside.append("- ").append(linkTo(*other)).append("\n");
    }
  }
  return "## 有关的帐表\n\n" + from + beside;
}

}  // namespace

std::string reportTitle(const ReportDefinition& report) {
  return fmt::format("{}：{}", areaName(report.area), report.rightName);
}

std::string reportPage(const ReportDefinition& report) { return fmt::format("reports/{}", report.command); }

std::string composeReportPage(const ReportDefinition& report, const ComputedReport& example) {
  std::string text = fmt::format("# {}\n\n", reportTitle(report));
  text += fmt::format("{}\n\n{}\n\n", plain(report.purpose), plain(report.about));
  text += exampleOf(report, example) + conditionsOf(report) + composeColumns(report) + rulesOf(report);
  if (report.detail != nullptr) text += leadsTo(report);
  text += refusalSection(report) + relatedOf(report);
  text += fmt::format("\n窗口“{}”，编号 {}；权限 {} 号“{}”。\n", plain(report.windowTitle), report.command,
                      report.right, report.rightName);
  return text;
}

}  // namespace tz::manual
