// What differs between operating systems: work files, the terminal with its pager, loaded libraries, character codes.
// One source file per system implements it. Failures throw OutputError with a reason for people.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "grid/report_output.h"
#include "system/unfinished_files.h"

namespace tz {

// An output could not be written: which and why.
struct OutputError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Writes an output into the sink it is given; may be called again when a first sink came to nothing.
using Producer = std::function<bool(const Sink&)>;

namespace platform {

// A new file in the folder of its target, or the target itself when that is a device or a pipe, which nothing may
// replace.
struct WorkFile {
  std::string target;
  std::string path;
  int handle = -1;
  std::optional<system::UnfinishedFile> unfinished = std::nullopt;

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

[[nodiscard]] bool isTerminal();
// Writes to standard output. A reader that goes away early is no failure.
void writeToStandardOutput(const Producer& produce);
// Writes to a pager. False when it could not be started or failed; one that is left early is no failure.
[[nodiscard]] bool writeToPager(const std::string& command, const Producer& produce);
// The command of the pager to use: the user's own, else `less`; empty for none.
[[nodiscard]] std::string pagerCommand();

// While it lives, nothing that a library prints on standard error is seen: its failures are told in our own words.
class SilentErrors {
 public:
  SilentErrors();
  SilentErrors(const SilentErrors&) = delete;
  SilentErrors& operator=(const SilentErrors&) = delete;
  ~SilentErrors();

 private:
  int errors_ = -1;
};

// A library loaded when first used, and its functions; null when there is none.
[[nodiscard]] void* loadLibrary(const char* name);
[[nodiscard]] void* functionOf(void* library, const char* name);

// Valid UTF-8 in the code of older Chinese programs.
[[nodiscard]] std::string toGb18030(std::string_view text);

}  // namespace platform

// Shows an output to a person: through the pager on a terminal, else straight to standard output.
void showOutput(const Producer& produce);

}  // namespace tz
