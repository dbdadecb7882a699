// What a person does with all rows of a grid at once.
#pragma once

#include <string>

namespace tz::bench {

// A grid of a million rows, then so many times the work: none, bare (a loop that reads every cell), filter, fold (every
// other time it opens them again), select. False for another word, or where the work came to nothing.
[[nodiscard]] bool workWithRows(const std::string& work, int times);

}  // namespace tz::bench
