// Texts in GB18030, the code of older Chinese programs. Its editions disagree about a few signs (vertical punctuation
// and some components of characters): one code stands for a private code point in the older ones and for a public code
// point in the newer. They are written in the code that means the sign in every edition.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace tz {

class Gb18030Converter {
 public:
  // Valid UTF-8 in; whole characters only.
  [[nodiscard]] std::string Convert(std::string_view text);
  // The signs so far that not every program reads back as the code point they were.
  [[nodiscard]] const std::set<char32_t>& Ambiguous() const { return ambiguous_; }

 private:
  std::set<char32_t> ambiguous_;
};

}  // namespace tz
