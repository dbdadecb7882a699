// The passwords' hashes as a ledger holds them: "$argon2id$v=19$m=65536,t=2,p=1$…", m in KiB.
#pragma once

#include <string>

namespace tz {

// One that can be checked in reasonable time and memory: at most 1 GiB, and four passes over that much.
[[nodiscard]] bool acceptableHash(const std::string& hash);
// The hash of no password, as dear as a usual one.
[[nodiscard]] const std::string& nobodysHash();
// Of a new password: argon2id with 64 MiB and two passes. May run on any thread.
[[nodiscard]] std::string passwordHash(const std::string& password);
// Takes as long as the hash demands; may run on any thread.
[[nodiscard]] bool passwordFits(const std::string& hash, const std::string& password);

}  // namespace tz
