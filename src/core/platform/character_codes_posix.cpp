#include <iconv.h>

#include "core/platform/character_codes.h"
#include "core/platform/sink.h"

namespace tz::platform {

std::string toGb18030(std::string_view text) {
  const iconv_t converter = ::iconv_open("GB18030", "UTF-8");
  if (converter == reinterpret_cast<iconv_t>(-1)) throw OutputError("本机没有 GB18030 编码");  // NOLINT
  std::string result(text.size() * 2 + 16, '\0');  // four bytes at most for what takes two or more in UTF-8
  char* from = const_cast<char*>(text.data());     // NOLINT: iconv does not write there
  std::size_t fromLeft = text.size();
  char* to = result.data();
  std::size_t toLeft = result.size();
  while (::iconv(converter, &from, &fromLeft, &to, &toLeft) == static_cast<std::size_t>(-1) && fromLeft > 0) {
    // A character that the code lacks; the rest of its bytes fail likewise and are skipped in silence.
    const bool lead = (static_cast<unsigned char>(*from) & 0xC0) != 0x80;
    if (lead) {
      *to++ = '?';
      --toLeft;
    }
    ++from;
    --fromLeft;
  }
  ::iconv_close(converter);
  result.resize(static_cast<std::size_t>(to - result.data()));
  return result;
}

}  // namespace tz::platform
