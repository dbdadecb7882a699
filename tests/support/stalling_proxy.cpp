#include "support/stalling_proxy.h"

#include <limits>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace tz::test {
namespace {

constexpr std::string_view hostParameter = "host=";

std::string hostOf(const std::string& address) {
  const auto start = address.find(hostParameter) + hostParameter.size();
  return address.substr(start, address.find('&', start) - start);
}

int socketAt(const std::string& folder, bool listening) {
  const int handle = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un place{AF_UNIX, {}};
  const auto path = folder + "/.s.PGSQL.5432";
  path.copy(place.sun_path, sizeof place.sun_path - 1);
  const auto* address = reinterpret_cast<const sockaddr*>(&place);
  if (listening) {
    if (::bind(handle, address, sizeof place) != 0 || ::listen(handle, 8) != 0) throw std::runtime_error("no proxy");
  } else if (::connect(handle, address, sizeof place) != 0) {
    throw std::runtime_error("no test server at " + path);
  }
  return handle;
}

struct Link {
  int client;
  int server;
};

// Passes on what has come; how much, 0 when the other side is gone.
ssize_t pass(int from, int to) {
  char buffer[16'384];
  const ssize_t size = ::read(from, buffer, sizeof buffer);
  for (ssize_t done = 0; done < size;) {
    const auto sent = ::send(to, buffer + done, static_cast<std::size_t>(size - done), MSG_NOSIGNAL);
    if (sent <= 0) return 0;
    done += sent;
  }
  return size > 0 ? size : 0;
}

}  // namespace

StallingProxy::StallingProxy() : left_(std::numeric_limits<long>::max()) {
  listener_ = socketAt(folder_.path().string(), true);
  thread_ = std::thread([this] { run(); });
}

StallingProxy::~StallingProxy() {
  ending_ = true;
  thread_.join();
  ::close(listener_);
}

std::string StallingProxy::addressOf(const std::string& address) const {
  auto changed = address;
  const auto host = hostOf(address);
  return changed.replace(changed.find(hostParameter) + hostParameter.size(), host.size(), folder_.path().string());
}

void StallingProxy::run() {
  const auto server = hostOf(serverAddress("postgres"));
  std::vector<Link> links;
  while (!ending_) {
    std::vector<pollfd> waited = {{listener_, POLLIN, 0}};
    for (const auto& link : links) {
      waited.push_back({link.client, POLLIN, 0});
      waited.push_back({link.server, POLLIN, 0});
    }
    constexpr int milliseconds = 20;
    if (left_ <= 0) waited.resize(1);
    if (::poll(waited.data(), waited.size(), milliseconds) <= 0) continue;
    for (std::size_t i = 1; i < waited.size(); ++i) {
      if (waited[i].revents == 0) continue;
      auto& link = links[(i - 1) / 2];
      const bool fromServer = i % 2 == 0;
      const auto size = fromServer ? pass(link.server, link.client) : pass(link.client, link.server);
      if (fromServer) left_ -= size;
      if (size == 0) {
        ::shutdown(link.client, SHUT_RDWR);
        ::shutdown(link.server, SHUT_RDWR);
        ::close(link.client);
        ::close(link.server);
        links.erase(links.begin() + static_cast<std::ptrdiff_t>((i - 1) / 2));
        break;
      }
    }
    if ((waited.front().revents & POLLIN) != 0) {
      links.push_back({::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC), socketAt(server, false)});
    }
  }
  for (const auto& link : links) {
    ::close(link.client);
    ::close(link.server);
  }
}

}  // namespace tz::test
