// A line of bash as it is being typed: its words as the program will get them, and names written so that bash gives
// them back as they are and runs nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tz::cli {

enum class Quoting { none, single, doubled, ansi };  // a b · 'a b' · "a b" · $'a b'

struct TypedShellLine {
  std::vector<std::string> words;   // behind the program's name; the last one is being typed and may be empty
  std::string raw;                  // that last word as it stands on the line
  Quoting quoting = Quoting::none;  // inside which the line ends
};

[[nodiscard]] TypedShellLine readShellLine(std::string_view text);
// The text that completes a word to `name`, in the place of `replaced`: the end of the word typed, as bash parts it.
// Empty when what stands before it is no beginning of the name.
[[nodiscard]] std::string shellCompletion(const TypedShellLine& line, std::string_view replaced, std::string_view name);

}  // namespace tz::cli
