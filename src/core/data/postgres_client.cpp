#include "core/data/postgres_client.h"

#include <dlfcn.h>
#include <poll.h>
#include <sys/socket.h>

#include "core/data/connection.h"

namespace tz {
namespace {

PostgresClient load() {
  // Not all names at once: those of the libraries behind it, for ciphers and directories, are many and hardly used.
  void* library = dlopen("libpq.so.5", RTLD_LAZY | RTLD_LOCAL);
  if (library == nullptr) {
    const char* reason = dlerror();
    throw DbError(DbError::Kind::other, "the PostgreSQL client library (libpq) cannot be loaded: " +
                                            std::string(reason == nullptr ? "unknown reason" : reason));
  }
  PostgresClient client;
#define TZ_FUNCTION(name)                                                                                     \
  client.name = reinterpret_cast<decltype(client.name)>(dlsym(library, #name));                               \
  if (client.name == nullptr) {                                                                               \
    throw DbError(DbError::Kind::other, "the PostgreSQL client library (libpq) is too old: it lacks " #name); \
  }
  TZ_FUNCTIONS
#undef TZ_FUNCTION
  return client;
}

}  // namespace

const PostgresClient& postgresClient() {
  static const PostgresClient client = load();
  return client;
}

bool waitForSocket(int socket, SocketUse use, std::chrono::milliseconds time) {
  const int events = (use == SocketUse::writing ? 0 : POLLIN) | (use == SocketUse::reading ? 0 : POLLOUT);
  pollfd waited{socket, static_cast<short>(events), 0};
  return poll(&waited, 1, static_cast<int>(time.count())) > 0;
}

void shutSocket(int socket) { shutdown(socket, SHUT_RDWR); }

}  // namespace tz
