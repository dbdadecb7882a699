#include "core/reports/messages.h"

#include <fmt/format.h>

namespace tz {
namespace messages {

std::string notListed(std::string_view asked) { return fmt::format("没有“{}”，请从列表中选择。", asked); }

std::string choiceWanted(ParameterKey key) { return fmt::format("请从列表中选择{}。", parameter(key).label); }

}  // namespace messages

Refusal refusalWith(const Message& message) {
  return {.text = std::string(message.text), .caption = message.caption, .icon = message.icon};
}

}  // namespace tz
