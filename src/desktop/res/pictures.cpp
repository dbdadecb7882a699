#include "desktop/res/pictures.h"

#include <QFile>
#include <QHash>
#include <QSvgRenderer>
#include <algorithm>
#include <memory>

namespace tz {
namespace {

// In the order of their ids.
constexpr Picture pictures[] = {
    {280, "group-rows", "隐藏明细"},
    {281, "unclear", "反两清"},
    {282, "match", "自动勾对"},
    {283, "balance", "平衡检查"},
    {284, "undo", "撤销"},
    {285, "general", "总帐"},
    {286, "date", "日期"},
    {287, "department", "部门"},
    {288, "project", "项目"},
    {289, "person", "业务员"},
    {300, "help", "帮助"},
    {301, "close", "退出"},
    {303, "find", "查找"},
    {305, "export", "输出"},
    {306, "preview", "预览"},
    {307, "print", "打印"},
    {308, "query", "查询"},
    {310, "previous", "上一张"},
    {311, "next", "下一张"},
    {316, "drill", "明细"},
    {320, "plan-view", "计划"},
    {322, "plan-table", "报告"},
    {404, "zero-rows", "隐藏零值"},
    {1308, "exit", "退出"},
    {1353, "navigator-ground", ""},
    {1354, "person", "个人往来"},
    {1355, "archive", "基础档案"},
    {1356, "department", "部门核算"},
    {1357, "plan", "计划管理"},
    {1358, "project", "项目核算"},
    {1359, "unit", "单位往来"},
    {1360, "person", "个人目录"},
    {1361, "project", "项目目录"},
    {1362, "unit", "单位目录"},
    {1363, "department", "部门目录"},
    {1364, "balance", "科目余额表"},
    {1365, "balance", "部门余额表"},
    {1366, "balance", "个人余额表"},
    {1367, "balance", "三栏式余额表"},
    {1368, "clearing", "个人往来两清"},
    {1369, "letter", "个人往来催款单"},
    {1370, "aging", "个人往来帐龄分析"},
    {1371, "detail", "科目明细帐"},
    {1372, "detail", "部门明细帐"},
    {1373, "detail", "个人明细帐"},
    {1374, "three-column", "三栏式明细帐"},
    {1375, "multi-column", "多栏式明细帐"},
    {1376, "general", "科目总帐"},
    {1377, "general", "部门总帐"},
    {1378, "general", "三栏式总帐"},
    {1379, "detail", "科目明细帐"},
    {1380, "detail", "部门明细帐"},
    {1381, "three-column", "三栏式明细帐"},
    {1382, "multi-column", "多栏式明细帐"},
    {1383, "analysis", "部门收支分析表"},
    {1384, "plan-edit", "计划编制"},
    {1385, "plan-report", "科目计划执行报告"},
    {1386, "plan-report", "部门计划执行报告"},
    {1387, "plan-report", "项目计划执行报告"},
    {1388, "general", "科目总帐"},
    {1389, "general", "项目总帐"},
    {1390, "general", "三栏式总帐"},
    {1391, "general", "部门项目总帐"},
    {1392, "detail", "科目明细帐"},
    {1393, "three-column", "三栏式明细帐"},
    {1394, "multi-column", "多栏式明细帐"},
    {1395, "detail", "部门项目明细帐"},
    {1396, "statistics", "项目统计表"},
    {1397, "detail", "项目明细帐"},
    {1398, "balance", "科目余额表"},
    {1399, "balance", "单位余额表"},
    {1400, "balance", "分类余额表"},
    {1401, "balance", "部门余额表"},
    {1402, "balance", "项目余额表"},
    {1403, "balance", "三栏式余额表"},
    {1404, "balance", "业务员余额表"},
    {1405, "detail", "科目明细帐"},
    {1406, "detail", "单位明细帐"},
    {1407, "detail", "分类明细帐"},
    {1408, "detail", "部门明细帐"},
    {1409, "detail", "项目明细帐"},
    {1410, "three-column", "三栏式明细帐"},
    {1411, "multi-column", "多栏式明细帐"},
    {1412, "detail", "业务员明细帐"},
    {1413, "clearing", "单位往来两清"},
    {1414, "statement", "单位对帐单"},
    {1415, "aging", "单位往来帐龄分析"},
    {1501, "add", "新增"},
    {1502, "edit", "修改"},
    {1503, "remove", "删除"},
};

QString fileOf(const Picture& picture) {
  const QString name = QString::fromLatin1(picture.drawing);
  return picture.id == navigatorGround ? QStringLiteral(":/res/%1.svg").arg(name)
                                       : QStringLiteral(":/res/icons/%1.svg").arg(name);
}

// A drawing names its colours by two words; the file is read once per pair of colours.
QSvgRenderer& rendererOf(const Picture& picture, const PictureColours& colours) {
  static QHash<QString, std::shared_ptr<QSvgRenderer>> renderers;
  const QString ink = colours.ink.name();
  const QString accent = colours.accent.name();
  const QString key = QString::fromLatin1(picture.drawing) + ink + accent;
  auto& renderer = renderers[key];
  if (renderer == nullptr) {
    QFile file(fileOf(picture));
    // Built in: a drawing that is missing is a mistake of ours, and shows as an empty picture.
    if (!file.open(QIODevice::ReadOnly)) qWarning("no drawing %s", picture.drawing);
    QByteArray drawing = file.readAll();
    drawing.replace("currentColor", ink.toLatin1()).replace("accentColor", accent.toLatin1());
    renderer = std::make_shared<QSvgRenderer>(drawing);
  }
  return *renderer;
}

}  // namespace

std::span<const Picture> allPictures() { return pictures; }

const Picture* findPicture(int id) {
  const auto* found = std::lower_bound(std::begin(pictures), std::end(pictures), id,
                                       [](const Picture& picture, int wanted) { return picture.id < wanted; });
  return found != std::end(pictures) && found->id == id ? found : nullptr;
}

QSize pictureSize(int id) {
  const Picture* picture = findPicture(id);
  if (picture == nullptr) return {};
  return rendererOf(*picture, {Qt::black, Qt::black}).defaultSize();
}

void paintPicture(QPainter& painter, int id, const QRectF& place, const PictureColours& colours) {
  if (const Picture* picture = findPicture(id)) rendererOf(*picture, colours).render(&painter, place);
}

}  // namespace tz
