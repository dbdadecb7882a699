#include "core/reports/request.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <sstream>

#include "core/data/get_data.h"
#include "core/grid/utf8.h"

namespace tz {
namespace {

bool isMonth(std::string_view text) {
  int month = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), month);
  return error == std::errc{} && end == text.data() + text.size() && month >= 1 && month <= 12;
}

bool isNumber(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} && end == text.data() + text.size() && std::isfinite(number);
}

std::string choiceComplaint(std::span<const ParameterChoice> choices, std::string_view text) {
  if (std::ranges::find(choices, text, &ParameterChoice::value) != choices.end()) return {};
  std::vector<std::string_view> values;
  for (const auto& choice : choices) values.push_back(choice.value);
  return fmt::format("“{}”不在可选项中：{}", text, fmt::join(values, "|"));
}

// What is wrong with a value of this kind; empty when nothing is.
std::string complaint(const Parameter& condition, std::string_view text) {
  const auto quoted = "“" + std::string(text) + "”";
  switch (condition.kind) {
    case Parameter::Kind::month:
      return isMonth(text) ? "" : "月份应为 1 至 12，不是" + quoted;
    case Parameter::Kind::amount:
      return isNumber(text) ? "" : quoted + "不是数字";
    case Parameter::Kind::date:
      return parseIsoDate(text) ? "" : quoted + "不是 YYYY-MM-DD 形式的日期";
    case Parameter::Kind::choice:
      return choiceComplaint(condition.choices, text);
    default:
      return "";
  }
}

bool isUtf8(std::string_view text) {
  std::string repaired;
  appendUtf8(repaired, text);
  return repaired == text;
}

}  // namespace

void Request::set(ParameterKey key, std::string_view text) {
  if (!isUtf8(text)) throw WrongUse(key, "不是有效的 UTF-8 文字");
  const auto wrong = complaint(parameter(key), text);
  if (!wrong.empty()) throw WrongUse(key, wrong);
  values_[key] = text;
  ids_.erase(key);
}

void Request::choose(ParameterKey key, const MemberChoice& member) {
  set(key, member.text);
  if (member.id != 0) ids_[key] = member.id;
}

void Request::clear(ParameterKey key) {
  values_.erase(key);
  ids_.erase(key);
}

std::string Request::text(ParameterKey key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? std::string() : found->second;
}

MemberChoice Request::member(ParameterKey key) const {
  const auto id = ids_.find(key);
  return {text(key), id == ids_.end() ? 0 : id->second};
}

std::vector<std::string> Request::list(ParameterKey key) const {
  std::vector<std::string> all;
  std::istringstream lines(text(key));
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty()) all.push_back(line);
  }
  return all;
}

double Request::amount(ParameterKey key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? 0 : std::stod(found->second);
}

int Request::month(ParameterKey key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? 0 : std::stoi(found->second);
}

std::size_t Request::choice(ParameterKey key) const {
  const auto& choices = parameter(key).choices;
  const auto found = std::ranges::find(choices, text(key), &ParameterChoice::value);
  return found == choices.end() ? 0 : static_cast<std::size_t>(found - choices.begin());
}

bool sameAccounts(const Request& one, const Request& other) {
  return std::ranges::equal(one.list(ParameterKey::account), other.list(ParameterKey::account), {},
                            CGetData::GetCode_Separator, CGetData::GetCode_Separator);
}

}  // namespace tz
