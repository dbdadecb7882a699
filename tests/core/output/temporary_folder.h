// A folder of a test's own, removed at its end, and helpers to look into files.
#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace tz::test {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tz-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  [[nodiscard]] std::string operator/(const std::string& name) const { return (path_ / name).string(); }
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) names.push_back(entry.path().filename());
    return names;
  }

 private:
  std::filesystem::path path_;
};

inline std::string contentsOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

inline void writeContents(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

// What a shell command prints.
inline std::string printedBy(const std::string& command) {
  std::string text;
  FILE* pipe = ::popen(command.c_str(), "r");
  for (int character = std::fgetc(pipe); character != EOF; character = std::fgetc(pipe)) {
    text += static_cast<char>(character);
  }
  EXPECT_EQ(::pclose(pipe), 0) << command;
  return text;
}

}  // namespace tz::test
