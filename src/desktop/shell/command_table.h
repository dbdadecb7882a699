// Every command of the navigator's areas as data: the right it needs and the window it opens.
#pragma once

#include <span>

namespace tz {

// What a command opens: a directory of the archives, a modal dialog or a report window.
enum class Opens { directory, dialog, report };

// Where the launch keeps its report window: a slot per report kind, which drill-down uses again, or only a local
// pointer.
enum class Pointer { none, slot, local };

struct Command {
  int id;
  int right;
  const char* handler;
  const char* reportName;  // passed to the rights check; empty when it takes none
  const char* title;       // of its window; empty for directories
  int window;              // dialog id; 0 for directories
  Opens opens;
  Pointer pointer;
};

// In the order of their ids.
[[nodiscard]] std::span<const Command> allCommands();
// Null for an id that is no such command.
[[nodiscard]] const Command* findCommand(int id);

}  // namespace tz
