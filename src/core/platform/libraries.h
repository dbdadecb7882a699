// Libraries that are loaded when first used.
#pragma once

namespace tz::platform {

// While it lives, nothing that a library prints on standard error is seen: its failures are told in our own words.
class SilentErrors {
 public:
  SilentErrors();
  SilentErrors(const SilentErrors&) = delete;
  SilentErrors& operator=(const SilentErrors&) = delete;
  ~SilentErrors();

 private:
  int errors_ = -1;
};

// A library loaded when first used, and its functions; null when there is none.
[[nodiscard]] void* loadLibrary(const char* name);
[[nodiscard]] void* functionOf(void* library, const char* name);

}  // namespace tz::platform
