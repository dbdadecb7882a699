#include "desktop/report/window_commands.h"

#include <algorithm>
#include <iterator>

#include "desktop/report/report_window.h"
#include "desktop/res/pictures.h"

namespace tz {
namespace {

template <WindowCommand command>
bool onToolbar(const ReportDefinition& report) {
  return std::ranges::find(report.toolbar, command) != report.toolbar.end();
}

bool leadsToGeneralLedger(const ReportDefinition& report) { return report.generalLedger != nullptr; }

bool leadsOn(const ReportDefinition& report) { return report.detail != nullptr; }

bool findsRows(const ReportDefinition& report) { return report.find != nullptr; }

constexpr ReportCommand commandsOfReports[] = {
    {.command = WindowCommand::print,
     .bitmap = 307,
     .shortcut = "Ctrl+P",
     .tip = "打印报表",
     .takesRows = true,
     .known = true,
     .action = &ReportWindow::OnPrint},
    {.command = WindowCommand::preview,
     .bitmap = 306,
     .shortcut = "Ctrl+Shift+P",
     .tip = "预览打印的页面",
     .takesRows = true,
     .known = true,
     .action = &ReportWindow::OnPreview},
    {.command = WindowCommand::find,
     .bitmap = 303,
     .shortcut = "Ctrl+F",
     .tip = "按名称查找一行",
     .takesRows = true,
     .known = true,
     .action = &ReportWindow::OnFind,
     .had = findsRows},
    {.command = WindowCommand::help,
     .bitmap = 300,
     .shortcut = "F1",
     .tip = "本报表的说明",
     .known = true,
     .action = &ReportWindow::OnHelp},
    {.command = WindowCommand::close,
     .bitmap = 301,
     .shortcut = "Ctrl+W",
     .tip = "关闭窗口",
     .known = true,
     .action = &ReportWindow::OnClose},
    {.command = WindowCommand::exportFile,
     .bitmap = 305,
     .shortcut = "Ctrl+E",
     .tip = "输出到文件",
     .takesRows = true,
     .known = true,
     .action = &ReportWindow::OnExport},
    {.command = WindowCommand::matchLines,
     .bitmap = 282,
     .shortcut = "Ctrl+Shift+M",
     .tip = "勾对互相结清的分录：所选部门的全部个人，或所选单位，在每个科目上",
     .takesRows = true},
    {.command = WindowCommand::reverseClearing,
     .bitmap = 281,
     .shortcut = "Ctrl+Shift+R",
     .tip = "取消所有个人（或所有单位）在所有科目上的两清标记，不只是列出的这些",
     .takesRows = true},
    {.command = WindowCommand::undoMarks,
     .bitmap = 284,
     .shortcut = "Ctrl+Z",
     .tip = "撤销最近一批标记：一次手工勾对、自动勾对或反两清，先说明是哪一批",
     .takesRows = true},
    {.command = WindowCommand::checkClearing,
     .bitmap = 283,
     .shortcut = "Ctrl+B",
     .tip = "检查列出的两清分录借贷是否相等",
     .takesRows = true},
    {.command = WindowCommand::tabDate,
     .bitmap = 286,
     .shortcut = "Ctrl+Alt+1",
     .tip = "按日期列出",
     .takesRows = true,
     .toggles = true,
     .action = &ReportWindow::OnTab<WindowCommand::tabDate>,
     .had = onToolbar<WindowCommand::tabDate>},
    {.command = WindowCommand::tabDept,
     .bitmap = 287,
     .shortcut = "Ctrl+Alt+2",
     .tip = "按部门分组",
     .takesRows = true,
     .toggles = true,
     .action = &ReportWindow::OnTab<WindowCommand::tabDept>,
     .had = onToolbar<WindowCommand::tabDept>},
    {.command = WindowCommand::tabProject,
     .bitmap = 288,
     .shortcut = "Ctrl+Alt+3",
     .tip = "按项目分组",
     .takesRows = true,
     .toggles = true,
     .action = &ReportWindow::OnTab<WindowCommand::tabProject>,
     .had = onToolbar<WindowCommand::tabProject>},
    {.command = WindowCommand::tabClerk,
     .bitmap = 289,
     .shortcut = "Ctrl+Alt+4",
     .tip = "按业务员分组",
     .takesRows = true,
     .toggles = true,
     .action = &ReportWindow::OnTab<WindowCommand::tabClerk>,
     .had = onToolbar<WindowCommand::tabClerk>},
    {.command = WindowCommand::generalLedger,
     .bitmap = 285,
     .shortcut = "Ctrl+Shift+D",
     .tip = "查看这个科目和往来方的总帐",
     .takesRows = true,
     .action = &ReportWindow::OnGeneralLedger,
     .had = leadsToGeneralLedger},
    {.command = WindowCommand::query,
     .bitmap = 308,
     .shortcut = "F5",
     .tip = "重新输入条件并查询",
     .known = true,
     .action = &ReportWindow::OnQuery},
    {.command = WindowCommand::detail,
     .bitmap = 316,
     .shortcut = "Ctrl+D",
     .tip = "查看当前行的明细",
     .takesRows = true,
     .known = true,
     .action = &ReportWindow::OnDetail,
     .had = leadsOn},
    {.command = WindowCommand::planReport, .bitmap = 322, .tip = "计划报告"},
    {.command = WindowCommand::planView, .bitmap = 320, .tip = "查看计划"},
    {.command = WindowCommand::groupRows,
     .bitmap = 280,
     .shortcut = "Ctrl+G",
     .tip = "不显示各组的明细行，小计和合计不变",
     .takesRows = true,
     .toggles = true,
     .action = &ReportWindow::OnToggle<ParameterKey::hideDetails>,
     .had = onToolbar<WindowCommand::groupRows>},
    {.command = WindowCommand::zeroRows,
     .bitmap = 404,
     .shortcut = "Ctrl+L",
     .tip = "不显示期初、发生额和期末全为零的行",
     .takesRows = true,
     .toggles = true,
     .action = &ReportWindow::OnToggle<ParameterKey::hideZero>,
     .had = onToolbar<WindowCommand::zeroRows>},
};

}  // namespace

QString ReportCommand::Caption() const {
  const Picture* picture = findPicture(bitmap);
  return picture == nullptr ? QString() : QString::fromUtf8(picture->caption);
}

std::span<const ReportCommand> reportCommands() { return commandsOfReports; }

const ReportCommand* findReportCommand(int id) {
  const auto* const found =
      std::ranges::find(commandsOfReports, static_cast<WindowCommand>(id), &ReportCommand::command);
  return found == std::end(commandsOfReports) ? nullptr : found;
}

}  // namespace tz
