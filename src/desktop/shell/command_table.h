// The commands of the navigator's areas: where each stands, with which picture, and what it opens. Titles, rights and
// windows are the records' own; a command whose record is still to come is shown and refused with what stands here.
// Places are client pixels at 100 %.
#pragma once

#include <QRect>
#include <cstdint>
#include <span>

#include "desktop/shell/area_layout.h"

namespace tz {

// A directory of the archives, a modal dialog, or the window of a report. A report has a slot, which drill-down uses
// again; one that no other leads to has none.
enum class Opens : std::uint8_t { directory, dialog, report, reportAlone };

struct Command {
  int id;
  int bitmap;
  QRect place;
  Opens opens = Opens::report;
};

// In the order in which they are inserted, which is the order of the Tab key.
[[nodiscard]] std::span<const Command> commandsOf(NavigatorArea area);
// Whether some of their pictures are so narrow that all keep little room around their captions.
[[nodiscard]] bool standClose(NavigatorArea area);
// Null for an id that is no such command.
[[nodiscard]] const Command* findCommand(int id);

}  // namespace tz
