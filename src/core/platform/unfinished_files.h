// Files that must not outlive the work that makes them. A process that an interrupt, a hang-up, a termination or
// another ordinary signal ends removes them first, and then ends by that signal. A signal that was ignored when the
// first file was named stays ignored; one that cannot be caught leaves the files.
#pragma once

#include <string>

namespace tz::platform {

// No ending signal arrives while it lives: between the making of a file and its naming nothing may end the process.
class HeldSignals {
 public:
  HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;
  ~HeldSignals();

 private:
  struct Mask;
  Mask* before_;
};

// Names one unfinished file while it lives; files beside it (a log, a journal) are named each on its own. Its end
// removes nothing: whoever made the file has put it in its place or removed it before.
//
//   const HeldSignals held;
//   handle = open(path, O_CREAT | O_EXCL ...);
//   unfinished.emplace(path);
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const std::string& path);
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;
  UnfinishedFile(UnfinishedFile&& other) noexcept;
  UnfinishedFile& operator=(UnfinishedFile&&) = delete;
  ~UnfinishedFile();

 private:
  int place_;
};

// Puts a finished file in its place, over what stands there, and brings the folder to the disk, so that the name is
// still the new file's after a loss of power. Returns 0 or the error number.
[[nodiscard]] int putInPlace(const std::string& path, const std::string& target);
// The same where nothing may stand yet: EEXIST when something does, which stays as it is, and so does the file.
[[nodiscard]] int putInFreePlace(const std::string& path, const std::string& target);
// Brings a folder's names to the disk; 0, or the error number. File systems that cannot do it are no error.
[[nodiscard]] int syncFolderOf(const std::string& path);

}  // namespace tz::platform
