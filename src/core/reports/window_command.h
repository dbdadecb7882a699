// Commands of a report window; the numbers are those of its toolbar and of WM_COMMAND. How each is named, drawn and
// answered stands in the windows' own table.
#pragma once

namespace tz {

enum class WindowCommand {
  separator = 0,
  print = 50000,
  preview = 50001,
  find = 50007,
  help = 50009,
  close = 50010,
  exportFile = 50020,
  reverseClearing = 50029,
  query = 50031,
  detail = 50052,
  generalLedger = 50053,
  planReport = 50058,
  matchLines = 50061,
  checkClearing = 50063,
  planView = 50066,
  groupRows = 50077,
  zeroRows = 50078,
  tabDate = 50079,
  tabDept = 50080,
  tabProject = 50081,
  tabClerk = 50083,
  undoMarks = 50084,
};

}  // namespace tz
