// A report is never written over the ledger that it was read from.
#pragma once

#include <string>

namespace tz {

// What is wrong when a file written under this name would replace the ledger or one of its side files (log, journal,
// shared memory), or would come to stand where the ledger's next side file has to stand: by whatever name, link or
// second name it is reached. Empty when nothing is; ledgers on a server have no file.
[[nodiscard]] std::string ledgerAsOutput(const std::string& target, const std::string& ledger);

}  // namespace tz
