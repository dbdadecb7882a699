// The address of a ledger on a server and its parts, one made from the other: fields compose the address, and a whole
// address that is pasted fills the fields.
#pragma once

#include <QString>
#include <optional>

namespace tz {

struct ServerAddress {
  QString host;  // empty: this machine
  QString port;  // empty: the usual one
  QString database;
  QString user;  // empty: who is logged on to this machine
  QString password;
  QString parameters;  // behind the question mark, as they stand

  // "postgresql://user@host:port/database?parameters"; every part is written so that it is read back.
  [[nodiscard]] QString Text(bool withPassword) const;
  bool operator==(const ServerAddress&) const = default;
};

// Nothing for what is no server's address. A password may hold any sign, "@" and "/" among them.
[[nodiscard]] std::optional<ServerAddress> readServerAddress(const QString& text);

}  // namespace tz
