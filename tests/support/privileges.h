// The rights of other users, for tests of who may read and write what. Only root can take them on.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <unistd.h>

namespace tz::test {

inline constexpr uid_t nobody = 65534;

// The rights of nobody in particular while it lives; root would be allowed everything.
class WithoutPrivileges {
 public:
  WithoutPrivileges() {
    if (geteuid() == 0 && seteuid(nobody) != 0) throw std::runtime_error("the rights cannot be dropped");
  }
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
  ~WithoutPrivileges() {
    if (geteuid() != getuid()) [[maybe_unused]]
      const int failed = seteuid(getuid());
  }
};

inline void setRights(const std::filesystem::path& path, unsigned rights) {
  std::filesystem::permissions(path, static_cast<std::filesystem::perms>(rights));
}

}  // namespace tz::test
