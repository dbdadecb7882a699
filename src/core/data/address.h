// Addresses of ledgers: which are a server's, and how any text that may hold one is shown.
#pragma once

#include <string>
#include <string_view>

namespace tz {

// Every text that begins like a server's scheme, in capitals or with slashes missing too: it is no file's name.
[[nodiscard]] bool isServerAddress(std::string_view address);
// A text without the passwords of the addresses in it: "user:secret@" becomes "user@", "password=secret" "password=".
// Takes rather too much away than too little. Every message, log, title and list goes through here.
[[nodiscard]] std::string withoutPasswords(std::string_view text);

}  // namespace tz
