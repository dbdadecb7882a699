// What stands behind a refusal, and what to do about it: one sentence or two for each check that can refuse.
#pragma once

#include <string>
#include <string_view>

#include "core/reports/dialog_spec.h"

namespace tz::manual {

// Empty for a check that the manual does not know.
[[nodiscard]] std::string_view adviceOf(const Check& check);
[[nodiscard]] std::string_view adviceOf(ListChoice choice);

struct OpeningAdvice {
  std::string_view notThereYet;
  std::string_view databaseNotOpen;
  std::string_view noAccountAtAll;
  std::string_view noSuchAccount;
  std::string_view choiceWanted;
  std::string_view nothingToFind;
  std::string_view notFound;
};
[[nodiscard]] const OpeningAdvice& usualAdvice();

}  // namespace tz::manual
