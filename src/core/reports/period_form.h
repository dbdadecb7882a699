// How a report tells its period, each face in its own form. Reports differ: most cover months, others a cutoff date or
// a year, some none; the faces show what the form gives and know no more.
#pragma once

#include <optional>
#include <string>

#include "core/reports/conditions.h"

namespace tz {

struct PeriodForm {
  // `year` is the account year. A form that is missing shows nothing.
  using Text = std::string (*)(const Conditions& conditions, int year);

  Text text = nullptr;        // files, terminal and JSON
  Text painted = nullptr;     // above the grid of its window
  Text printed = nullptr;     // on the page
  Text inFileName = nullptr;  // at the end of the proposed name
  Text inSubject = nullptr;   // behind what the report is about, in lists of windows
  // The condition that it tells, which is then not told a second time among the others.
  std::optional<ParameterKey> tells = {};
};

// "月份: 2006.01 - 2006.03", painted and printed "月份: 2006.1--2006.3", in names "2006.01-03", in lists
// "2006.01–2006.03".
namespace months {
[[nodiscard]] std::string text(const Conditions& conditions, int year);
[[nodiscard]] std::string painted(const Conditions& conditions, int year);
// The same with the wide colon of the units' ledgers: "月份：2006.1--2006.3".
[[nodiscard]] std::string printedWide(const Conditions& conditions, int year);
// "月份:2006.01 - 2006.03"
[[nodiscard]] std::string printedClose(const Conditions& conditions, int year);
[[nodiscard]] std::string inFileName(const Conditions& conditions, int year);
[[nodiscard]] std::string inSubject(const Conditions& conditions, int year);
}  // namespace months

inline constexpr PeriodForm monthsPeriod{
    .text = months::text,
    .painted = months::painted,
    .printed = months::painted,
    .inFileName = months::inFileName,
    .inSubject = months::inSubject,
    .tells = ParameterKey::from,
};
// "截止月份: 2006.03", in names and lists "2006.03".
namespace last_month {
[[nodiscard]] std::string text(const Conditions& conditions, int year);
[[nodiscard]] std::string alone(const Conditions& conditions, int year);
}  // namespace last_month

inline constexpr PeriodForm lastMonthPeriod{
    .text = last_month::text,
    .painted = last_month::text,
    .printed = last_month::text,
    .inFileName = last_month::alone,
    .inSubject = last_month::alone,
    .tells = ParameterKey::month,
};
inline constexpr PeriodForm noPeriod{};

// Empty for a form that is missing.
[[nodiscard]] std::string periodIn(PeriodForm::Text form, const Conditions& conditions, int year);

}  // namespace tz
