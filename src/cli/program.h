// The program as a function, for tzassistant and for the program beside it that makes pages.
#pragma once

namespace tz::cli {

// Exit status: 0 done, 1 refused, 2 wrong use, 3 the database or the output failed, 4 no right.
[[nodiscard]] int runProgram(int argc, char** argv);

}  // namespace tz::cli
