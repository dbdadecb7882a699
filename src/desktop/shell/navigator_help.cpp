#include "desktop/shell/navigator_help.h"

#include <QString>

#include "desktop/report/help_window.h"
#include "desktop/report/key_table.h"
#include "desktop/res/pictures.h"
#include "desktop/shell/area_layout.h"

namespace tz {

void showNavigatorHelp(QWidget* navigator) {
  QString areas;
  for (const AreaPicture& area : areaPictures()) {
    const Picture* picture = findPicture(area.bitmap);
    areas += QStringLiteral("<tr><td style='padding-right:16px'>%1</td><td>%2</td></tr>")
                 .arg(QString::fromUtf8(picture->caption), QString::fromUtf8(area.hint));
  }
  showHelpPage(navigator,
               QStringLiteral("<h2>辅助核算</h2>"
                              "<p>左边选择核算的方面，右边打开它的帐表；每张帐表先询问条件，再列示。</p>"
                              "<h3>核算的方面</h3><table>%1</table>"
                              "<h3>操作</h3><ul>"
                              "<li>可以同时打开多张帐表；窗口列表写明每个窗口的内容，可以并排、层叠或"
                              "全部关闭。</li>"
                              "<li>每张帐表记住窗口的大小和是否最大化。还有帐表开着时退出，先询问一次。</li>"
                              "<li>“查找分录”（Ctrl+K）在整个帐套里按摘要、业务号、金额或凭证查找，再到凭证。</li>"
                              "<li>灰色的功能没有权限或尚未提供，选中它就说明原因。</li>"
                              "<li>下方的帐套菜单更改登录日期、外观和文字大小，或打开其他帐套。</li></ul>"
                              "<h3>按键</h3>")
                       .arg(areas) +
                   keysAsHtml({KeyPlace::navigator, KeyPlace::start, KeyPlace::everywhere}));
}

}  // namespace tz
