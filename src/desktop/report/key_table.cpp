#include "desktop/report/key_table.h"

namespace tz {
namespace {

constexpr KeyEntry everywhereKeys[] = {
    {"F1", "打开使用手册里讲这个窗口的一页；在提示框里，讲这条提示的一页"},
    {"Ctrl+Tab、Ctrl+Shift+Tab", "到下一个、上一个打开的窗口"},
    {"Alt+W", "打开窗口列表：按数字到那个窗口，T 并排，S 层叠，A 全部关闭"},
    {"Ctrl+K", "在整个帐套里查找分录"},
    {"Ctrl++、Ctrl+-", "放大、缩小所有窗口的文字"},
    {"Ctrl+0", "文字恢复通常的大小"},
};

constexpr KeyEntry navigatorKeys[] = {
    {"方向键、Tab", "在各个方面和功能之间移动"},
    {"Enter、空格", "打开"},
    {"F10", "打开帐套菜单：操作员、更改口令、操作日志、重新登录也在其中"},
};

constexpr KeyEntry startKeys[] = {
    {"Enter", "打开选中的帐套"},
    {"Del", "把选中的帐套从最近的帐套中移除"},
    {"Alt+L、Alt+O、Alt+R", "到最近的帐套、打开、从列表中移除"},
    {"Alt+S、Alt+N、Alt+F、Alt+V", "示例单位、新建帐套、打开文件、服务器上的帐套"},
    {"Alt+H", "打开这个窗口的说明"},
};

constexpr KeyEntry conditionsKeys[] = {
    {"Enter", "到下一项；在最后一项上确定"},
    {"Ctrl+Enter、Alt+O", "在任何一项上确定"},
    {"Esc、Alt+C", "放弃"},
    {"Alt+L", "填入这张帐表上次的条件"},
    {"Alt+S、Alt+D", "以写下的名称保存条件、删除保存的条件"},
    {"Alt+1、Alt+2、Alt+3、Alt+4", "本月、上月、本季、本年，以登录日期为准；帐表窗口里也可以用"},
};

constexpr KeyEntry fieldKeys[] = {
    {"输入文字", "按编码、名称的一部分或拼音首字母查找"},
    {"Enter、Tab", "选中找到的一项，到下一项"},
    {"↓", "在名称栏里打开列表"},
    {"Esc", "关闭列表，恢复原来的选择"},
    {"F2", "打开参照窗口，科目也可以"},
    {"Alt+↑、Alt+↓", "在参照窗口里换一个部门或分类"},
};

constexpr KeyEntry gridKeys[] = {
    {"方向键、PageUp、PageDown", "移动当前单元格；同时按 Shift 扩大选择"},
    {"Home、End", "到本行的第一栏、最后一栏"},
    {"Ctrl+方向键、Ctrl+Home、Ctrl+End", "到表格的边上"},
    {"Enter、双击", "查看当前行的明细；在明细帐里是它的凭证"},
    {"Ctrl+Shift+←、Ctrl+Shift+→", "把当前列左移、右移一列"},
    {"菜单键，再按 G", "各列的菜单：显示和隐藏（空格勾选，菜单不关）、移动、列宽适合内容、恢复默认列"},
    {"菜单键，再按 W", "当前列的列宽适合内容"},
    {"Esc", "放弃正在拖动的列"},
    {"Ctrl+A", "全选"},
    {"Ctrl+C", "复制选中的单元格"},
    {"Ctrl+Shift+C", "连同标题、条件和栏目名复制"},
    {"菜单键、Shift+F10、右键", "打开菜单"},
    {"Ctrl+PageDown、Ctrl+PageUp", "到下一块、上一块；没有分段的帐表按月份"},
    {"-、+", "折叠、展开当前的块或月份；也可以点它左边的三角"},
    {"Ctrl+1、Ctrl+2、Ctrl+3、Ctrl+4", "全部展开，折叠到月合计，折叠到各级小计"},
    {"Ctrl+M", "显示或不显示本月合计、本年累计；折叠的月份总留本月合计"},
    {"菜单键，再按 S", "复制状态栏里选中行的合计"},
    {"Ctrl+Shift+F", "打开或关闭筛选行"},
    {"输入文字、/、Ctrl+F", "定位到含有它的行，折叠的块随之展开；有“查找”的帐表里 Ctrl+F 问一个成员，到他的第一行"},
    {"F3、Shift+F3", "到下一处、上一处"},
    {"Esc", "关闭定位，清除筛选"},
};

constexpr KeyEntry filterKeys[] = {
    {"Enter", "马上筛选，不等输入停顿"},
    {"↓", "到表格"},
    {"Esc", "清除筛选；已经清除时关闭筛选行"},
};

constexpr KeyEntry locateKeys[] = {
    {"Enter、↓、F3", "到下一处"},
    {"Shift+Enter、↑、Shift+F3", "到上一处"},
    {"Esc", "关闭定位，回到表格"},
};

constexpr KeyEntry searchKeys[] = {
    {"Enter", "在查找栏里开始查找；在找到的分录上打开它的凭证"},
    {"↓", "在查找栏里打开以前查找过的列表，选中就再查找"},
    {"PageDown、Tab", "从查找栏到找到的分录"},
    {"Ctrl+K", "回到查找栏"},
    {"F5、Ctrl+D、Ctrl+E", "再查找一次、打开凭证、输出到文件"},
    {"Esc", "停止查找，已经找到的留着"},
};

constexpr KeyEntry reportKeys[] = {
    {"Esc", "停止正在进行的计算或输出"},
    {"Alt+O、Alt+D", "输出以后打开文件、打开它所在的文件夹"},
    {"Ctrl+G、Ctrl+L", "隐藏明细、隐藏零值，再按一次恢复；工具栏上有这两个按钮的帐表"},
    {"空格、在“两清”栏单击", "往来两清：改当前行的标记"},
    {"Insert", "往来两清：改当前行的标记，到下一条分录"},
};

constexpr KeyEntry voucherKeys[] = {
    {"↑、↓、PageUp、PageDown", "在分录之间移动"},
    {"Enter、双击、Ctrl+D", "查看当前分录的明细帐；有几本时打开菜单，按数字选"},
    {"Alt+←、Alt+→", "到上一张、下一张凭证；也可以按 Ctrl+PageUp、Ctrl+PageDown"},
    {"Ctrl+P、Ctrl+Shift+P", "打印凭证、预览打印的页面"},
    {"Ctrl+C", "复制当前分录的文字"},
    {"菜单键、Shift+F10、右键", "打开菜单：明细帐、复制、上一张、下一张"},
    {"Ctrl+W", "关闭窗口"},
};

constexpr KeyEntry previewKeys[] = {
    {"PageDown、PageUp", "到下一页、上一页；页面比窗口高时翻过看到的一段"},
    {"Ctrl+PageDown、Ctrl+PageUp", "总是到下一页、上一页"},
    {"Home、End", "到第一页、最后一页"},
    {"Ctrl+G", "输入页号，Enter 到那一页"},
    {"Ctrl++、Ctrl+-、Ctrl+滚轮", "放大、缩小页面"},
    {"Ctrl+0、Ctrl+1、Ctrl+2", "显示整页、页宽、并排两页"},
    {"Ctrl+P、Alt+P", "打印"},
    {"Ctrl+S、Alt+S", "存为 PDF；预览不关，写好以后 Alt+O、Alt+D 打开文件、打开它所在的文件夹"},
    {"Alt+F", "承前页、过次页的开关"},
    {"Esc、Alt+C", "关闭预览"},
};

constexpr KeyEntry manualKeys[] = {
    {"Alt+←、Alt+→", "后退、前进"},
    {"Alt+Home", "到目录"},
    {"Ctrl+F", "在手册里查找；Enter 打开找到的第一段，↓ 选其他的"},
    {"Ctrl++、Ctrl+-、Ctrl+0", "放大、缩小手册的文字，恢复通常的大小"},
    {"Ctrl+P", "打印这一页"},
    {"Esc、Ctrl+W", "关闭手册；查找栏里有文字时，Esc 先清除它"},
};

constexpr KeyEntry archivesKeys[] = {
    {"输入文字、Ctrl+F", "按编码、名称或拼音首字母查找"},
    {"Enter、↓", "从查找栏到列表"},
    {"Insert、Ctrl+N", "新增一条；在左边的分类或大类里是新增一个分类或大类"},
    {"Enter、F2、双击", "修改当前的一条"},
    {"Del", "删除当前的一条"},
    {"Ctrl+Shift+S", "按当前列排序，再按一次倒过来；也可以点栏目名"},
    {"Alt+D、Alt+A", "项目目录里大类的字段、科目"},
    {"F5", "重新读取"},
    {"Ctrl+Enter、Alt+O", "在修改的窗口里保存；Enter 到下一项，在最后一项上保存"},
    {"Alt+N", "保存，再新增一条"},
    {"F2", "在修改的窗口里打开部门、分类或科目的参照"},
    {"Esc", "清除查找；再按一次关闭目录"},
};

constexpr KeyEntry operatorsKeys[] = {
    {"Ctrl+F、Alt+F", "按姓名的一部分或拼音首字母查找操作员；Enter 或 ↓ 到列表"},
    {"Ins、Alt+A", "增加操作员"},
    {"F2、Alt+N", "更改当前操作员的姓名"},
    {"Alt+P", "更改当前操作员的口令"},
    {"Del、Alt+D", "删除当前操作员"},
    {"空格", "在权限的树上给予、收回一种权限或一类权限"},
    {"Alt+T", "给予、收回全部权限"},
    {"Esc", "关闭"},
};

constexpr KeyEntry workLogKeys[] = {
    {"Alt+N、Alt+S、Alt+T", "到操作员、从哪一天、到哪一天"}, {"Ctrl+Del", "在日期上：不限"}, {"F5", "重新读取"},
    {"Enter、Ctrl+D、双击", "打开当前一条的凭证"},           {"Ctrl+E", "输出到文件"},
};

constexpr KeyGroup keyGroups[] = {
    {KeyPlace::everywhere, "每个窗口", everywhereKeys},
    {KeyPlace::navigator, "辅助核算窗口", navigatorKeys},
    {KeyPlace::start, "打开帐套的窗口", startKeys},
    {KeyPlace::conditions, "条件窗口", conditionsKeys},
    {KeyPlace::field, "列表和参照", fieldKeys},
    {KeyPlace::report, "帐表窗口", reportKeys},
    {KeyPlace::grid, "表格", gridKeys},
    {KeyPlace::filter, "筛选行", filterKeys},
    {KeyPlace::locate, "定位栏", locateKeys},
    {KeyPlace::voucher, "凭证窗口", voucherKeys},
    {KeyPlace::search, "查找分录的窗口", searchKeys},
    {KeyPlace::preview, "打印预览", previewKeys},
    {KeyPlace::manual, "使用手册", manualKeys},
    {KeyPlace::archives, "档案的目录", archivesKeys},
    {KeyPlace::operators, "操作员窗口", operatorsKeys},
    {KeyPlace::workLog, "操作日志窗口", workLogKeys},
};

}  // namespace

std::span<const KeyGroup> keyTable() { return keyGroups; }

}  // namespace tz
