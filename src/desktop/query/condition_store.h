// Conditions that a person keeps under a name, per report, and the last ones of each report and ledger. They belong to
// the host: it says in which files they stand.
#pragma once

#include <filesystem>
#include <optional>
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

  // What was last asked for in this ledger; nothing when that was never so.
  [[nodiscard]] virtual std::optional<Request> Last(int report) const = 0;
  virtual void KeepLast(int report, const Request& request) = 0;
};

// A JSON file: {"10184": {"张三全年": {"account": "122101", "person": "张三", "person-id": "7", …}}}, keys as on the
// command line; the id of a member stands there when it was picked from a list. It is read at every operation, so that
// two windows see each other's conditions, and replaced as a whole. The last conditions stand in a file beside it, by
// ledger and report: they are written with every query, which nobody's named conditions are to depend on.
class FileConditionStore : public ConditionStore {
 public:
  explicit FileConditionStore(std::filesystem::path file, std::string ledger = {});

  [[nodiscard]] std::vector<std::string> Names(int report) const override;
  [[nodiscard]] Request Load(int report, std::string_view name) const override;
  void Save(int report, std::string_view name, const Request& request) override;
  void Remove(int report, std::string_view name) override;
  [[nodiscard]] std::optional<Request> Last(int report) const override;
  // Replaces a file that cannot be read.
  void KeepLast(int report, const Request& request) override;

 private:
  std::filesystem::path file_;
  std::filesystem::path lastFile_;
  std::string ledger_;
};

}  // namespace tz
