#include "desktop/shell/area_layout.h"

#include <QLatin1String>
#include <QtGlobal>
#include <algorithm>

namespace tz {
namespace {

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

std::span<const AreaPicture> areaPictures() { return areas; }

const AreaPicture& pictureOf(NavigatorArea area) { return *std::ranges::find(areas, area, &AreaPicture::area); }

ExitPicture exitPicture(Layout layout) {
  constexpr int exit = 10239;
  return {exit, 1308, layout == Layout::console ? QRect(482, 310, 80, 36) : QRect(482, 310, 72, 31)};
}

}  // namespace tz
