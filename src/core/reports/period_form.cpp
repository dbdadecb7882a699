#include "core/reports/period_form.h"

#include <fmt/format.h>

namespace tz {

std::string months::text(const Conditions& conditions, int year) {
  return fmt::format("月份: {}.{:02} - {}.{:02}", year, conditions.from, year, conditions.to);
}

std::string months::painted(const Conditions& conditions, int year) {
  return fmt::format("月份: {:4}.{}--{:4}.{}", year, conditions.from, year, conditions.to);
}

std::string months::printedWide(const Conditions& conditions, int year) {
  return fmt::format("月份：{:4}.{}--{:4}.{}", year, conditions.from, year, conditions.to);
}

std::string months::printedClose(const Conditions& conditions, int year) {
  return fmt::format("月份:{}.{:02} - {}.{:02}", year, conditions.from, year, conditions.to);
}

std::string months::inFileName(const Conditions& conditions, int year) {
  if (conditions.from == conditions.to) return fmt::format("{}.{:02}", year, conditions.from);
  return fmt::format("{}.{:02}-{:02}", year, conditions.from, conditions.to);
}

std::string months::inSubject(const Conditions& conditions, int year) {
  if (conditions.from == conditions.to) return fmt::format("{}.{:02}", year, conditions.from);
  return fmt::format("{}.{:02}–{}.{:02}", year, conditions.from, year, conditions.to);
}

std::string last_month::text(const Conditions& conditions, int year) {
  return fmt::format("截止月份: {:4}.{:02}", year, conditions.to);
}

std::string last_month::alone(const Conditions& conditions, int year) {
  return fmt::format("{:4}.{:02}", year, conditions.to);
}

std::string periodIn(PeriodForm::Text form, const Conditions& conditions, int year) {
  return form == nullptr ? std::string() : form(conditions, year);
}

}  // namespace tz
