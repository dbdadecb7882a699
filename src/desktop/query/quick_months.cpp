#include "desktop/query/quick_months.h"

namespace tz {
namespace {

constexpr int monthsOfQuarter = 3;
constexpr int monthsOfYear = 12;

MonthSpan thisQuarter(int month) {
  const int first = month - (month - 1) % monthsOfQuarter;
  return {first, first + monthsOfQuarter - 1};
}

}  // namespace

const std::array<QuickMonths, 4> quickMonths = {
    QuickMonths{"thisMonth", "本月", "Alt+1",
                [](int month) {
                  return MonthSpan{month, month};
                }},
    QuickMonths{"lastMonth", "上月", "Alt+2",
                [](int month) {
                  return MonthSpan{month - 1, month - 1};
                }},
    QuickMonths{"thisQuarter", "本季", "Alt+3", thisQuarter},
    QuickMonths{"thisYear", "本年", "Alt+4",
                [](int) {
                  return MonthSpan{1, monthsOfYear};
                }},
};

}  // namespace tz
