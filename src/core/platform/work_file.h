// The work file behind an output: it grows beside its target and takes the target's place. Failures throw OutputError
// with a reason for people.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/platform/sink.h"
#include "core/platform/unfinished_files.h"

namespace tz::platform {

// A new file in the folder of its target, or the target itself when that is a device or a pipe, which nothing may
// replace.
struct WorkFile {
  std::string target;
  std::string path;
  int handle = -1;
  std::optional<UnfinishedFile> unfinished = std::nullopt;

  [[nodiscard]] bool direct() const { return path == target; }
};

// Where a path leads: a link stays, and what it points to is written, also when there is nothing yet.
[[nodiscard]] std::string placeOf(const std::string& target);
[[nodiscard]] WorkFile openWorkFile(const std::string& target);
void writeTo(const WorkFile& file, std::string_view text);
// Brings the contents to the disk and puts the file in its target's place.
void moveIntoPlace(WorkFile& file);
// Closes the file and removes it unless it is the target itself.
void discard(WorkFile& file) noexcept;

}  // namespace tz::platform
