#include "core/reports/question.h"

#include <fmt/format.h>

namespace tz {

Ask answeredBefore(bool yes, std::string_view option, std::function<void(const std::string&)> tell) {
  return [yes, option = std::string(option), tell = std::move(tell)](const Question& question) {
    if (!yes) tell(fmt::format("{}\n没有执行；回答“{}”请加 {}", question.text, question.yes, option));
    return yes;
  };
}

}  // namespace tz
