#include "core/output/page_columns.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "core/output/column_widths.h"
#include "core/output/report_output.h"

namespace tz {
namespace {

// From the usual size to the smallest that is still read without a glass.
constexpr std::array letterSizes = {9.0, 8.0, 7.0, 6.5};
constexpr int padding = 2;         // letters beside each text, for both sides together
constexpr int narrowestText = 14;  // to which a text column gives way, its texts on several lines

struct Need {
  int natural = 0;  // letters
  int narrowest = 0;
  bool single = false;  // one character at most
};

std::vector<Need> needsOf(const CTzGrid& grid) {
  const auto contents = contentWidths(grid);
  std::vector<Need> needs;
  for (std::size_t i = 0; i < contents.size(); ++i) {
    const auto& column = grid.Columns()[i];
    const int caption = displayWidth(column.caption);
    const int natural = std::max(contents[i], caption);
    const bool wraps =
        !traitsOf(column.kind).isNumber() && traitsOf(column.kind).content != ColumnTraits::Content::date;
    const int narrowest = wraps ? std::max(caption, std::min(natural, narrowestText)) : natural;
    needs.push_back({natural + padding, narrowest + padding, wraps && contents[i] > 0 && contents[i] <= 2});
  }
  return needs;
}

int sum(const std::vector<Need>& needs, int Need::*part) {
  return std::accumulate(needs.begin(), needs.end(), 0, [part](int all, const Need& need) { return all + need.*part; });
}

// The columns at the left that say what a row is about; a strip repeats them.
std::size_t keyColumns(const CTzGrid& grid) {
  const auto& columns = grid.Columns();
  const auto firstNumber =
      std::ranges::find_if(columns, [](const GridColumn& c) { return traitsOf(c.kind).isNumber(); });
  return static_cast<std::size_t>(firstNumber - columns.begin());
}

// Letters for each of `chosen` columns out of `room`: natural ones, or less for those that give way; what is left over
// is shared out.
PageStrip strip(const std::vector<Need>& needs, const std::vector<std::size_t>& chosen, double room, double letter) {
  const int letters = static_cast<int>(room / letter);
  int natural = 0;
  int narrowest = 0;
  for (const auto i : chosen) {
    natural += needs[i].natural;
    narrowest += needs[i].narrowest;
  }
  // Each gets its narrowest and, in proportion, what it would like beyond it.
  const double wish = natural - narrowest;
  const double granted = wish == 0 ? 0 : std::clamp((letters - narrowest) / wish, 0.0, 1.0);
  std::vector<double> widths;
  for (const auto i : chosen) widths.push_back(needs[i].narrowest + granted * (needs[i].natural - needs[i].narrowest));
  const double stretch = room / (std::accumulate(widths.begin(), widths.end(), 0.0) * letter);
  PageStrip columns;
  double left = 0;
  for (std::size_t i = 0; i < chosen.size(); ++i) {
    const double width = widths[i] * letter * stretch;
    columns.push_back({static_cast<int>(chosen[i]), left, width, static_cast<int>(width / letter) - padding,
                       needs[chosen[i]].single});
    left += width;
  }
  return columns;
}

// Whole columns from the left, as many as fit beside the keys.
std::vector<std::vector<std::size_t>> shareOut(const std::vector<Need>& needs, std::size_t keys, int letters) {
  std::vector<std::size_t> keyPlaces(keys);
  std::iota(keyPlaces.begin(), keyPlaces.end(), std::size_t{0});
  int keyLetters = 0;
  for (const auto i : keyPlaces) keyLetters += needs[i].narrowest;
  std::vector<std::vector<std::size_t>> shares{keyPlaces};
  int used = keyLetters;
  for (auto i = keys; i < needs.size(); ++i) {
    if (used + needs[i].narrowest > letters && shares.back().size() > keys) {
      shares.push_back(keyPlaces);
      used = keyLetters;
    }
    shares.back().push_back(i);
    used += needs[i].narrowest;
  }
  return shares;
}

struct Fit {
  Paper paper;
  double size;
};

// The first way in which all columns stand beside each other: upright rather than broad, large rather than small,
// without rather than with texts on several lines.
std::optional<Fit> wholeFit(const std::vector<Need>& needs, const PageOptions& options) {
  const auto fits = [&](const Paper& paper, double size, int letters) {
    return letters * size * options.columnEm <= paper.innerWidth();
  };
  std::vector<Paper> papers;
  if (options.orientation != Orientation::landscape) papers.push_back(a4Portrait);
  if (options.orientation != Orientation::portrait) papers.push_back(a4Landscape);
  for (const double size : letterSizes) {
    for (const auto part : {&Need::natural, &Need::narrowest}) {
      for (const auto& paper : papers) {
        if (fits(paper, size, sum(needs, part))) return Fit{paper, size};
      }
    }
  }
  return std::nullopt;
}

}  // namespace

PageColumns fitColumns(const CTzGrid& grid, const PageOptions& options) {
  const auto needs = needsOf(grid);
  const auto fit = wholeFit(needs, options);
  PageColumns page;
  page.paper = fit ? fit->paper : options.orientation == Orientation::portrait ? a4Portrait : a4Landscape;
  page.letterSize = fit ? fit->size : letterSizes[2];
  const double letter = page.letterSize * options.columnEm;
  const double room = page.paper.innerWidth();
  const auto keys = fit ? needs.size() : std::min(keyColumns(grid), needs.size());
  for (const auto& chosen : shareOut(needs, keys, static_cast<int>(room / letter)))
    page.strips.push_back(strip(needs, chosen, room, letter));
  return page;
}

}  // namespace tz
