// Other character codes than UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace tz::platform {

// Valid UTF-8 in the code of older Chinese programs. Throws OutputError where this machine does not have it.
[[nodiscard]] std::string toGb18030(std::string_view text);

}  // namespace tz::platform
