#include "desktop/page/print_queue.h"

#include "core/platform/libraries.h"

namespace tz {
namespace {

// Of the last answer of the service, as the library that the toolkit prints through has it.
int lastStatus() {
  static void* const library = platform::loadLibrary("libcups.so.2");
  if (library == nullptr) return 0;
  static auto* const status = reinterpret_cast<int (*)()>(platform::functionOf(library, "cupsLastError"));
  return status == nullptr ? 0 : status();
}

}  // namespace

bool queueRefused() {
  constexpr int firstError = 0x0400;
  return lastStatus() >= firstError;
}

}  // namespace tz
