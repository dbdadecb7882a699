#include "core/platform/write_posix.h"

#include <cerrno>
#include <poll.h>
#include <unistd.h>

#include "core/platform/error_text.h"
#include "core/platform/sink.h"

namespace tz::platform {

void failToWrite(const std::string& target, int error) {
  const bool noFolder = error == ENOENT || error == ENOTDIR;
  throw OutputError("无法写入“" + target + "”：" + (noFolder ? "文件夹不存在" : errorText(error)));
}

int writeAll(int handle, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(handle, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0 && errno == EAGAIN) {  // somebody else has made the pipe or terminal one that does not wait
      pollfd ready{.fd = handle, .events = POLLOUT, .revents = 0};
      (void)::poll(&ready, 1, -1);
      continue;
    }
    if (written < 0) return errno;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace tz::platform
