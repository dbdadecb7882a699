#include "bench/table.h"

#include <cstdio>
#include <fmt/format.h>

namespace tz::bench {
namespace {

int missedRows = 0;

const char* verdict(double figure, double bar) {
  if (figure <= bar) return "met";
  ++missedRows;
  return "missed";
}

}  // namespace

void printHead() {
  fmt::print("| what | against | measured | bar | |\n|---|---|---|---|---|\n");
  std::fflush(stdout);
}

void printRatio(const std::string& what, const std::string& against, const Ratio& ratio, double bar) {
  fmt::print("| {} | {} | {:.2f} × ({:.2f} to {:.2f}) | ≤ {:.2f} × | {} |\n", what, against, ratio.median, ratio.least,
             ratio.greatest, bar, verdict(ratio.median, bar));
  std::fflush(stdout);
}

void printFigure(const std::string& what, const std::string& against, double figure, double bar,
                 const std::string& unit) {
  fmt::print("| {} | {} | {:.1f} {} | ≤ {:g} {} | {} |\n", what, against, figure, unit, bar, unit,
             verdict(figure, bar));
  std::fflush(stdout);
}

int missed() { return missedRows; }

}  // namespace tz::bench
