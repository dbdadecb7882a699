// The table of measures as Markdown, a row at a time as they are taken.
#pragma once

#include <string>

#include "bench/process.h"

namespace tz::bench {

void printHead();
// A ratio of CPU time against its bar.
void printRatio(const std::string& what, const std::string& against, const Ratio& ratio, double bar);
// Another figure against its bar.
void printFigure(const std::string& what, const std::string& against, double figure, double bar,
                 const std::string& unit);
// How many rows missed their bar.
[[nodiscard]] int missed();

}  // namespace tz::bench
