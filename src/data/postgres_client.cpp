#include "data/postgres_client.h"

#include <dlfcn.h>
#include <poll.h>

#include "data/connection.h"

namespace tz {
namespace {

PostgresClient load() {
  void* library = dlopen("libpq.so.5", RTLD_NOW | RTLD_LOCAL);
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

void waitForSocket(int socket, SocketUse use, std::chrono::milliseconds time) {
  pollfd waited{socket, static_cast<short>(use == SocketUse::reading ? POLLIN : POLLOUT), 0};
  poll(&waited, 1, static_cast<int>(time.count()));
}

}  // namespace tz
