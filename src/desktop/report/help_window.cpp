#include "desktop/report/help_window.h"

#include <QAction>
#include <QDialog>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <algorithm>

#include "core/reports/report_definition.h"
#include "desktop/frame/fit_window.h"
#include "desktop/report/key_table.h"
#include "desktop/report/window_commands.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

QString text(std::string_view utf8) { return toQt(utf8).toHtmlEscaped(); }

QString row(const QString& left, const QString& right) {
  return QStringLiteral("<tr><td style='padding-right:16px'>%1</td><td>%2</td></tr>").arg(left, right);
}

QString conditions(const ReportDefinition& report) {
  QString rows;
  for (const ControlSpec& control : report.dialog.controls) {
    QString help = text(parameter(control.key).helpInWindow());
    if (control.kind == ControlSpec::Kind::accountLists) {
      help += QStringLiteral("；列入右边的科目，右边没有科目即为全部");
    }
    rows += row(text(control.caption), help);
  }
  return rows;
}

// How conditions are given, alike in every dialog.
QString typing(const ReportDefinition& report) {
  const auto asksFor = [&](ControlSpec::Kind kind) {
    return std::ranges::find(report.dialog.controls, kind, &ControlSpec::kind) != report.dialog.controls.end();
  };
  QString items = QStringLiteral(
      "<li>科目、部门、个人、单位、项目都可以输入编码、名称的一部分或拼音首字母查找；选中后光标到下一项。</li>"
      "<li>“上次”填入这张帐表在本帐套上次的条件；常用的条件可以起名保存，以后从“保存的条件”里选。</li>"
      "<li>列表里没有的文字不会被换成别的：确定时提示，文字留在原处等待更正。必须选择的条件清空了，也会提示；可以不填的"
      "（部门“全部”、项目范围的一端、科目列表），清空就是不限。</li>"
      "<li>"
      "从列表或参照窗口（F2）选中的就是那一个；同名的在列表里带有编码。直接输入的名称取同名中最早建立的一个，前面加上"
      "编码和空格（“0301 李明”）就是指定的那一个。</li>");
  if (asksFor(ControlSpec::Kind::personReference)) {
    items += QStringLiteral("<li>在表格上方改换部门后，表格等到选定个人才列出，输出和打印也要等到那时。</li>");
  }
  if (asksFor(ControlSpec::Kind::classCombo)) {
    items += QStringLiteral(
        "<li>在表格上方改换的科目如果不核算原来的项目大类，就取它的第一个大类，项目范围恢复为全部。</li>");
  }
  return items;
}

QString commands(const ReportDefinition& report) {
  QString rows;
  for (const WindowCommand id : report.toolbar) {
    const ReportCommand* command = findReportCommand(static_cast<int>(id));
    if (command == nullptr) continue;
    QString tip = QString::fromUtf8(command->tip);
    if (*command->shortcut != '\0') tip += QStringLiteral("　") + QLatin1String(command->shortcut);
    rows += row(command->Caption(), tip);
  }
  return rows;
}

QString rules(const ReportDefinition& report) {
  QString items;
  for (const auto rule : report.rules) items += QStringLiteral("<li>%1</li>").arg(text(rule));
  return items;
}

// What the table and the line below it tell, and how they are worked with.
QString table(const ReportDefinition& report) {
  const QString colours = report.colours.help.empty() ? QString() : text(report.colours.help) + QStringLiteral("，");
  const QString marks = report.colours.meaning.empty()
                            ? QString()
                            : QStringLiteral("CSV 的“标记”栏写明%1。").arg(text(report.colours.meaning));
  const QString find =
      report.find == nullptr
          ? QString()
          : QStringLiteral(
                "<li>“查找”（Ctrl+F）问一个成员，到他的第一行，名称要完全相同；直接输入文字是“定位”，到"
                "含有这些文字的各行；“查找分录”（Ctrl+K）找的是整个帐套。</li>");
  const QString formats = report.formats == nullptr ? QString() : QStringLiteral("与金额格式");
  return QStringLiteral(
             "<li>%1红色数字为红字。</li>"
             "<li>Ctrl+C 复制选中的单元格，Ctrl+Shift+C 连同标题、条件和栏目名复制，Ctrl+A 全选；右键、菜单键或 "
             "Shift+F10 打开菜单。</li>"
             "<li>"
             "横向滚动时，金额前面的日期、凭证、摘要等列不动。拖动表头的栏目名移动列，拖动列边改变列宽，双击列边使列宽"
             "适合"
             "内容；右键单击表头，可以隐藏和显示列、恢复默认列。每种帐表的列各自记住。</li>"
             "<li>复制和合计的是看到的列，次序也照看到的；输出和打印总是整张帐表。</li>"
             "<li>分段和月份可以折叠：点行首的三角。一段的标题在滚动时留在表格顶端，点它就回到那一段。</li>"
             "<li>"
             "表格上方的“筛选”按文字、发生额和未记帐找分录，余额表、总帐找行，并选择只看到哪一级合计。红字按绝对值比较"
             "。</li>"
             "<li>折叠和筛选只改变看到的行：合计总是全部分录的，输出和打印总是整张帐表。</li>"
             "<li>"
             "状态栏显示选中的分录，借方和贷方分别计数、合计、平均；期初、合计行和余额、单价、汇率不计入。余额表、总帐"
             "的行只合计。</li>"
             "<li>表格上方的警示说明哪些分录未列示、哪些数字另有所指，输出和复制时写在表的上面。</li>"
             "<li>输出以后可以打开文件（Alt+O）或它所在的文件夹（Alt+D）。%2</li>"
             "<li>打印、预览和 PDF 是同样的 A4 "
             "帐页：按栏目的宽度选纵向或横向，栏目太多时分到几张上，每张重复关键栏目；每页都有标题、条件和"
             "表头。明细帐跨页时，页末写“过次页”，下页写“承前页”，是本月至此的发生额和余额，可以在预览里关掉。</li>"
             "<li>表格上方可直接改换条件%3。</li>"
             "<li>状态栏左端和窗口列表写明本窗口的内容。</li>"
             "<li>计算时间较长时按 Esc 停止，原有内容不变。</li>%4")
      .arg(colours, marks, formats, find);
}

QString page(const ReportDefinition& report) {
  return QStringLiteral(
             "<h2>%1</h2><p>%2</p><p>%3</p>"
             "<h3>条件</h3><table>%4</table><ul>%5</ul>"
             "<h3>说明</h3><ul>%6</ul>"
             "<h3>工具栏</h3><table>%7</table>"
             "<h3>表格</h3><ul>%8</ul>"
             "<h3>按键</h3>")
             .arg(text(report.printTitle), text(report.windowTitle), text(report.about), conditions(report),
                  typing(report), rules(report), commands(report), table(report)) +
         keysAsHtml({KeyPlace::grid, KeyPlace::filter, KeyPlace::locate, KeyPlace::preview, KeyPlace::report,
                     KeyPlace::conditions, KeyPlace::field, KeyPlace::everywhere});
}

}  // namespace

void showHelp(QWidget* window, const ReportDefinition& report) { showHelpPage(window, page(report)); }

void showHelpPage(QWidget* window, const QString& html) {
  const QString name = QStringLiteral("help");
  // Not that of a window below it: the navigator is the parent of its reports.
  auto* help = window->findChild<QDialog*>(name, Qt::FindDirectChildrenOnly);
  if (help == nullptr) {
    help = new QDialog(window);
    help->setObjectName(name);
    help->setWindowTitle(QStringLiteral("帮助"));
    auto* browser = new QTextBrowser(help);
    browser->setAccessibleName(help->windowTitle());
    browser->setFrameShape(QFrame::NoFrame);
    browser->setHtml(html);
    constexpr int margin = 20;
    browser->document()->setDocumentMargin(margin);
    auto* layout = new QVBoxLayout(help);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(browser);
    help->resize(QSize(460, 480).boundedTo(roomFor(*window)));
  }
  help->show();
  help->raise();
  help->activateWindow();
}

}  // namespace tz
