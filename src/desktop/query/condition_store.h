// Conditions that a person keeps under a name, per report. They belong to the host: it says in which file they stand.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/reports/request.h"

namespace tz {

// The file cannot be read or written; what() says which and why. The file stays as it was.
class StoreError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Every operation may throw StoreError. A report is named by its command.
class ConditionStore {
 public:
  ConditionStore() = default;
  ConditionStore(const ConditionStore&) = delete;
  ConditionStore& operator=(const ConditionStore&) = delete;
  virtual ~ConditionStore() = default;

  // In the order of the names.
  [[nodiscard]] virtual std::vector<std::string> Names(int report) const = 0;
  // Also throws when nothing has that name.
  [[nodiscard]] virtual Request Load(int report, std::string_view name) const = 0;
  // Takes the place of what had that name.
  virtual void Save(int report, std::string_view name, const Request& request) = 0;
  virtual void Remove(int report, std::string_view name) = 0;
};

// A JSON file: {"10184": {"张三全年": {"account": "122101", "person": "张三", "person-id": "7", …}}}, keys as on the
// command line; the id of a member stands there when it was picked from a list. It is read at every operation, so that
// two windows see each other's conditions, and replaced as a whole.
class FileConditionStore : public ConditionStore {
 public:
  explicit FileConditionStore(std::filesystem::path file) : file_(std::move(file)) {}

  [[nodiscard]] std::vector<std::string> Names(int report) const override;
  [[nodiscard]] Request Load(int report, std::string_view name) const override;
  void Save(int report, std::string_view name, const Request& request) override;
  void Remove(int report, std::string_view name) override;

 private:
  std::filesystem::path file_;
};

}  // namespace tz
