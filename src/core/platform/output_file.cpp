#include "core/platform/output_file.h"

namespace tz {

Sink OutputFile::Contents() {
  return [this](std::string_view text) {
    platform::writeTo(file_, text);
    return true;
  };
}

bool writeFile(const std::string& target, const Producer& produce) {
  OutputFile file(target);
  if (!produce(file.Contents())) return false;
  file.Commit();
  return true;
}

}  // namespace tz
