#include "desktop/shell/area_layout.h"

#include <QLatin1String>
#include <QtGlobal>
#include <algorithm>

namespace tz {
namespace {

// command, bitmap, {left, top, width, height}
constexpr PicturePlace archivePictures[] = {
    {10178, 1360, {223, 174, 76, 33}},
    {10179, 1361, {343, 174, 73, 33}},
    {10180, 1362, {223, 207, 76, 33}},
    {10181, 1363, {343, 207, 73, 33}},
};

constexpr PicturePlace personPictures[] = {
    {10183, 1364, {272, 88, 130, 23}},  {10185, 1365, {272, 111, 130, 23}}, {10187, 1366, {272, 134, 130, 23}},
    {10189, 1367, {272, 157, 130, 23}}, {10192, 1368, {272, 180, 130, 23}}, {10193, 1369, {272, 203, 130, 23}},
    {10194, 1370, {272, 226, 130, 23}}, {10184, 1371, {411, 88, 130, 23}},  {10186, 1372, {411, 111, 130, 23}},
    {10188, 1373, {411, 134, 130, 23}}, {10190, 1374, {411, 157, 130, 23}}, {10191, 1375, {411, 180, 130, 23}},
};

constexpr PicturePlace departmentPictures[] = {
    {10226, 1376, {272, 88, 130, 25}},  {10227, 1377, {272, 113, 121, 25}}, {10228, 1378, {272, 138, 130, 25}},
    {10229, 1379, {272, 163, 130, 25}}, {10230, 1380, {272, 188, 130, 25}}, {10231, 1381, {408, 88, 130, 25}},
    {10232, 1382, {408, 113, 130, 25}}, {10233, 1383, {408, 138, 130, 25}},
};

constexpr PicturePlace planPictures[] = {
    {10235, 1384, {279, 112, 130, 25}},
    {10236, 1385, {279, 137, 130, 25}},
    {10237, 1386, {279, 162, 130, 25}},
    {10238, 1387, {279, 187, 130, 25}},
};

constexpr PicturePlace projectPictures[] = {
    {10215, 1388, {280, 88, 96, 25}},  {10216, 1389, {280, 113, 96, 25}},  {10217, 1390, {280, 138, 96, 25}},
    {10218, 1391, {280, 163, 96, 25}}, {10219, 1392, {280, 188, 96, 25}},  {10221, 1393, {408, 88, 96, 25}},
    {10223, 1394, {408, 113, 96, 25}}, {10222, 1395, {408, 138, 129, 25}}, {10224, 1396, {408, 163, 96, 25}},
    {10220, 1397, {408, 188, 96, 25}},
};

constexpr PicturePlace unitPictures[] = {
    {10196, 1398, {269, 88, 96, 25}},  {10197, 1399, {269, 113, 96, 25}}, {10198, 1400, {269, 138, 96, 25}},
    {10199, 1401, {269, 163, 96, 25}}, {10200, 1402, {269, 188, 96, 25}}, {10201, 1403, {269, 213, 96, 25}},
    {10202, 1404, {269, 238, 96, 25}}, {10203, 1405, {365, 88, 96, 25}},  {10204, 1406, {365, 113, 96, 25}},
    {10205, 1407, {365, 138, 96, 25}}, {10206, 1408, {365, 163, 96, 25}}, {10207, 1409, {365, 188, 96, 25}},
    {10208, 1410, {365, 213, 96, 25}}, {10209, 1411, {461, 88, 96, 25}},  {10210, 1412, {365, 238, 96, 25}},
    {10211, 1413, {461, 113, 96, 25}}, {10212, 1414, {461, 138, 96, 25}}, {10213, 1415, {461, 163, 91, 45}},
};

constexpr AreaPicture areas[] = {
    {NavigatorArea::archive, 10177, 1355, "个人、部门、项目与单位的目录", {24, 95, 112, 30}, {}},
    {NavigatorArea::person, 10182, 1354, "职员往来的余额、明细与帐龄", {24, 125, 112, 32}, {80, 82, 138, 30}},
    {NavigatorArea::department, 10225, 1356, "各部门的总帐、明细帐与收支分析", {24, 157, 112, 34}, {80, 112, 138, 30}},
    {NavigatorArea::plan, 10234, 1357, "编制计划，对照执行情况", {24, 191, 112, 32}, {80, 142, 138, 31}},
    {NavigatorArea::project, 10214, 1358, "各项目的总帐、明细帐与统计", {24, 223, 112, 33}, {80, 173, 138, 30}},
    {NavigatorArea::unit, 10195, 1359, "客户与供应商往来的余额、明细与帐龄", {24, 256, 112, 31}, {80, 203, 138, 31}},
};

}  // namespace

Layout layoutFor(std::string_view argument) {
  const QLatin1String text(argument.data(), static_cast<qsizetype>(argument.size()));
  const bool console = text.compare(QLatin1String("-ERPCONSOLE"), Qt::CaseInsensitive) == 0 ||
                       text.compare(QLatin1String("-ERPSINGLE"), Qt::CaseInsensitive) == 0;
  return console ? Layout::console : Layout::standard;
}

std::span<const PicturePlace> picturesOf(NavigatorArea area) {
  switch (area) {
    case NavigatorArea::archive:
      return archivePictures;
    case NavigatorArea::person:
      return personPictures;
    case NavigatorArea::department:
      return departmentPictures;
    case NavigatorArea::plan:
      return planPictures;
    case NavigatorArea::project:
      return projectPictures;
    case NavigatorArea::unit:
      return unitPictures;
  }
  Q_UNREACHABLE();
}

bool standClose(NavigatorArea area) {
  constexpr int narrow = 100;
  return std::ranges::any_of(picturesOf(area),
                             [](const PicturePlace& picture) { return picture.place.width() < narrow; });
}

std::span<const AreaPicture> areaPictures() { return areas; }

const AreaPicture& pictureOf(NavigatorArea area) { return *std::ranges::find(areas, area, &AreaPicture::area); }

PicturePlace exitPicture(Layout layout) {
  constexpr int exit = 10239;
  return {exit, 1308, layout == Layout::console ? QRect(482, 310, 80, 36) : QRect(482, 310, 72, 31)};
}

}  // namespace tz
