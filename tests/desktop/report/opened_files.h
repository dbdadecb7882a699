// Stands for the programs of the desktop: opens nothing, but remembers which files it was asked to open.
#pragma once

#include <QStringList>

#include "support/test_ledger.h"

namespace tz::test {

// The helper that desktops open files with, first in the search path; it ends with that code.
class OpenedFiles {
 public:
  explicit OpenedFiles(int code = 0);
  ~OpenedFiles();
  OpenedFiles(const OpenedFiles&) = delete;
  OpenedFiles& operator=(const OpenedFiles&) = delete;

  [[nodiscard]] QStringList Paths() const;

 private:
  TempFolder folder_;
  QByteArray searched_;
};

}  // namespace tz::test
