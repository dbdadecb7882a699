// The keys of all windows, in one table: the help windows and the manual's page of keys are drawn up from it. Keys of a
// report's toolbar stand with its commands (window_commands.h).
#pragma once

#include <QString>
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
  preview
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
// The groups of these places as a piece of a help page.
[[nodiscard]] QString keysAsHtml(std::initializer_list<KeyPlace> places);

}  // namespace tz
