#include "reports/request.h"

#include <charconv>

#include "grid/utf8.h"

namespace tz {
namespace {

bool isMonth(std::string_view text) {
  int month = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), month);
  return error == std::errc{} && end == text.data() + text.size() && month >= 1 && month <= 12;
}

bool isUtf8(std::string_view text) {
  std::string repaired;
  appendUtf8(repaired, text);
  return repaired == text;
}

}  // namespace

void Request::set(ParameterKey key, std::string_view text) {
  const auto& condition = parameter(key);
  if (!isUtf8(text)) throw WrongUse("--" + std::string(condition.option) + "：不是有效的 UTF-8 文字");
  if (condition.kind == Parameter::Kind::month && !isMonth(text)) {
    throw WrongUse("--" + std::string(condition.option) + "：月份应为 1 至 12，不是“" + std::string(text) + "”");
  }
  values_[key] = text;
}

std::string Request::text(ParameterKey key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? std::string() : found->second;
}

int Request::month(ParameterKey key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? 0 : std::stoi(found->second);
}

}  // namespace tz
