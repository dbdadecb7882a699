// Texts as a cell of an xlsx file can hold them.
#pragma once

#include <string>
#include <string_view>

namespace tz {

// Replaces `out` by the text: valid, at most 32 767 UTF-16 units and no character parted. Control characters, and texts
// that would be read as one, are written in the format's own way: "_x001B_" stands for escape, "_x005F_" for the "_" of
// a text that itself reads "_x001B_".
void xlsxTextInto(std::string& out, std::string_view text);

}  // namespace tz
