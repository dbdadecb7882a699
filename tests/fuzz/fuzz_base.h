// What the fuzz targets share: a folder of the process's own with the sample company in it, and the way to say that
// something is wrong.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/data/create_ledger.h"
#include "core/sample/sample_company.h"

namespace tz::fuzz {

// Ends the run; the fuzzer keeps the input.
inline void require(bool right, const char* what) {
  if (right) return;
  std::fprintf(stderr, "wrong: %s\n", what);
  std::abort();
}

inline std::filesystem::path makeFolder() {
  auto name = (std::filesystem::temp_directory_path() / "tz-fuzz.XXXXXX").string();
  require(mkdtemp(name.data()) != nullptr, "no temporary folder");
  static const struct Removal {
    std::string folder;
    ~Removal() {
      std::error_code ignored;
      std::filesystem::remove_all(folder, ignored);
    }
  } removal{name};
  return name;
}

inline const std::filesystem::path& folder() {
  static const auto made = makeFolder();
  return made;
}

// One file without work files beside it, of pages of 1024 bytes.
inline std::string makeSample(const std::string& path) {
  createLedger(path, [](Connection& connection) { fillSample(connection, {}); });
  const auto keeper = openLedger(path, Access::keeper);
  for (const char* statement : {"PRAGMA journal_mode = DELETE", "PRAGMA page_size = 1024", "VACUUM"}) {
    keeper->execute(Sql(statement));
  }
  return path;
}

inline std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tz::fuzz
