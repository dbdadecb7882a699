// A file that is written whole or not at all: it grows beside its target and takes the target's place at the end. Until
// then, and after any failure, the target is what it was. Errors: OutputError.
#pragma once

#include <string>

#include "core/platform/work_file.h"

namespace tz {

class OutputFile {
 public:
  explicit OutputFile(const std::string& target) : file_(platform::openWorkFile(target)) {}
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() { platform::discard(file_); }

  // Takes contents; throws when they cannot be written.
  [[nodiscard]] Sink Contents();
  // Where it grows, for a library that writes by name.
  [[nodiscard]] const std::string& WorkPath() const { return file_.path; }
  // Without this call nothing remains.
  void Commit() { platform::moveIntoPlace(file_); }

 private:
  platform::WorkFile file_;
};

// Writes a whole output to a file. False when the producer gave up: then there is no file.
bool writeFile(const std::string& target, const Producer& produce);

}  // namespace tz
