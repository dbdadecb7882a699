#include "desktop/shell/command_table.h"

#include <algorithm>
#include <array>

namespace tz {
namespace {

using enum Opens;

// command, bitmap, {left, top, width, height}
constexpr Command archiveCommands[] = {
    {10178, 1360, {223, 174, 76, 33}, directory},
    {10179, 1361, {343, 174, 73, 33}, directory},
    {10180, 1362, {223, 207, 76, 33}, directory},
    {10181, 1363, {343, 207, 73, 33}, directory},
};

constexpr Command personCommands[] = {
    {10183, 1364, {272, 88, 130, 23}},
    {10185, 1365, {272, 111, 130, 23}},
    {10187, 1366, {272, 134, 130, 23}},
    {10189, 1367, {272, 157, 130, 23}},
    {10192, 1368, {272, 180, 130, 23}, reportAlone},
    {10193, 1369, {272, 203, 130, 23}, reportAlone},
    {10194, 1370, {272, 226, 130, 23}, reportAlone},
    {10184, 1371, {411, 88, 130, 23}},
    {10186, 1372, {411, 111, 130, 23}},
    {10188, 1373, {411, 134, 130, 23}},
    {10190, 1374, {411, 157, 130, 23}},
    {10191, 1375, {411, 180, 130, 23}},
};

constexpr Command departmentCommands[] = {
    {10226, 1376, {272, 88, 130, 25}},  {10227, 1377, {272, 113, 121, 25}},
    {10228, 1378, {272, 138, 130, 25}}, {10229, 1379, {272, 163, 130, 25}},
    {10230, 1380, {272, 188, 130, 25}}, {10231, 1381, {408, 88, 130, 25}},
    {10232, 1382, {408, 113, 130, 25}}, {10233, 1383, {408, 138, 130, 25}, reportAlone},
};

constexpr Command planCommands[] = {
    {10235, 1384, {279, 112, 130, 25}, dialog},
    {10236, 1385, {279, 137, 130, 25}, reportAlone},
    {10237, 1386, {279, 162, 130, 25}, reportAlone},
    {10238, 1387, {279, 187, 130, 25}, reportAlone},
};

constexpr Command projectCommands[] = {
    {10215, 1388, {280, 88, 96, 25}},
    {10216, 1389, {280, 113, 96, 25}},
    {10217, 1390, {280, 138, 96, 25}},
    {10218, 1391, {280, 163, 96, 25}},
    {10219, 1392, {280, 188, 96, 25}},
    {10221, 1393, {408, 88, 96, 25}},
    {10223, 1394, {408, 113, 96, 25}},
    {10222, 1395, {408, 138, 129, 25}},
    {10224, 1396, {408, 163, 96, 25}, reportAlone},
    {10220, 1397, {408, 188, 96, 25}},
};

constexpr Command unitCommands[] = {
    {10196, 1398, {269, 88, 96, 25}},
    {10197, 1399, {269, 113, 96, 25}},
    {10198, 1400, {269, 138, 96, 25}},
    {10199, 1401, {269, 163, 96, 25}},
    {10200, 1402, {269, 188, 96, 25}},
    {10201, 1403, {269, 213, 96, 25}},
    {10202, 1404, {269, 238, 96, 25}},
    {10203, 1405, {365, 88, 96, 25}},
    {10204, 1406, {365, 113, 96, 25}},
    {10205, 1407, {365, 138, 96, 25}},
    {10206, 1408, {365, 163, 96, 25}},
    {10207, 1409, {365, 188, 96, 25}},
    {10208, 1410, {365, 213, 96, 25}},
    {10209, 1411, {461, 88, 96, 25}},
    {10210, 1412, {365, 238, 96, 25}},
    {10211, 1413, {461, 113, 96, 25}, reportAlone},
    {10212, 1414, {461, 138, 96, 25}, reportAlone},
    {10213, 1415, {461, 163, 91, 45}, reportAlone},
};

constexpr std::array areasInOrder = {NavigatorArea::archive, NavigatorArea::person,  NavigatorArea::department,
                                     NavigatorArea::plan,    NavigatorArea::project, NavigatorArea::unit};

}  // namespace

std::span<const Command> commandsOf(NavigatorArea area) {
  switch (area) {
    case NavigatorArea::archive:
      return archiveCommands;
    case NavigatorArea::person:
      return personCommands;
    case NavigatorArea::department:
      return departmentCommands;
    case NavigatorArea::plan:
      return planCommands;
    case NavigatorArea::project:
      return projectCommands;
    case NavigatorArea::unit:
      return unitCommands;
  }
  Q_UNREACHABLE();
}

bool standClose(NavigatorArea area) {
  constexpr int narrow = 100;
  return std::ranges::any_of(commandsOf(area), [](const Command& command) { return command.place.width() < narrow; });
}

const Command* findCommand(int id) {
  for (const NavigatorArea area : areasInOrder) {
    const auto commands = commandsOf(area);
    const auto found = std::ranges::find(commands, id, &Command::id);
    if (found != commands.end()) return &*found;
  }
  return nullptr;
}

}  // namespace tz
