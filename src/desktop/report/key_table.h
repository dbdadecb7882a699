// The keys of all windows, in one table, from which the manual's page of keys is drawn up. Keys of a
// report's toolbar stand with its commands (window_commands.h).
#pragma once

#include <span>

namespace tz {

enum class KeyPlace {
  everywhere,
  navigator,
  start,
  conditions,
  field,
  report,
  grid,
  filter,
  locate,
  voucher,
  search,
  preview,
  manual,
  archives,
  operators,
  workLog
};

struct KeyEntry {
  const char* keys;  // as a person reads them
  const char* does;
};

struct KeyGroup {
  KeyPlace place;
  const char* caption;
  std::span<const KeyEntry> entries;
};

// In the order of a day's work.
[[nodiscard]] std::span<const KeyGroup> keyTable();

}  // namespace tz
