#include "cli/given_words.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <set>

#include "cli/shell_words.h"
#include "core/catalogue/catalogue.h"
#include "core/reports/parameter.h"

namespace tz::cli {
namespace {

bool isFlag(const CLI::Option& option) { return option.get_items_expected_max() == 0; }

// Conditions take their value also where the report, and with it its options, is not known yet.
bool isConditionWithValue(std::string_view name) {
  return std::ranges::any_of(allParameters(), [&](const Parameter& condition) {
    return condition.kind != Parameter::Kind::flag && name == "--" + std::string(condition.option);
  });
}

class LineReader {
 public:
  LineReader(const CLI::App& app, std::span<const std::string> words) : command_(&app), rest_(words) {}

  std::vector<GivenWord> read() {
    while (!rest_.empty()) {
      const auto& word = take();
      if (onlyPlaces_ || word.size() < 2 || word.front() != '-') {
        takePlain(word);
      } else if (word == "--") {
        onlyPlaces_ = true;
      } else {
        takeOption(word);
      }
    }
    return std::move(given_);
  }

 private:
  const std::string& take() {
    const auto& word = rest_.front();
    rest_ = rest_.subspan(1);
    return word;
  }

  void takePlain(const std::string& word) {
    const auto found = command_->get_subcommands([&](const CLI::App* one) { return one->get_name() == word; });
    if (!onlyPlaces_ && !found.empty()) {
      command_ = found.front();
    } else {
      given_.push_back({.command = command_, .value = word});
    }
  }

  // "--name", "--name=value", "-n" or "-nvalue".
  void takeOption(const std::string& word) {
    const bool isLong = word.starts_with("--");
    const auto end = isLong ? std::min(word.find('='), word.size()) : 2;
    GivenWord one{.command = command_, .name = word.substr(0, end)};
    one.option = command_->get_option_no_throw(one.name);
    if (end < word.size()) one.value = word.substr(isLong ? end + 1 : end);
    const bool wantsValue = one.option != nullptr ? !isFlag(*one.option) : isConditionWithValue(one.name);
    if (wantsValue && !one.value && !rest_.empty()) one.value = take();
    given_.push_back(std::move(one));
  }

  const CLI::App* command_;
  std::span<const std::string> rest_;
  bool onlyPlaces_ = false;
  std::vector<GivenWord> given_;
};

// The words of another line that completion was asked about; bash hands it over as one, behind what it will replace.
std::vector<std::string> completedLine(const std::vector<GivenWord>& given) {
  std::vector<std::string> line;
  for (const auto& one : given) {
    if (one.value) line.push_back(*one.value);
  }
  line.erase(line.begin());  // the word "words"
  const bool bash = std::ranges::find(given, "--bash", &GivenWord::name) != given.end();
  return bash && line.size() > 1 ? readShellLine(line[1]).words : line;
}

}  // namespace

std::vector<GivenWord> givenWords(const CLI::App& app, std::span<const std::string> words) {
  return LineReader(app, words).read();
}

int namedReport(const CLI::App& app, std::span<const std::string> words) {
  const auto given = givenWords(app, words);
  const auto place = std::ranges::find(given, std::string(), &GivenWord::name);
  if (place == given.end()) return 0;
  const auto& command = place->command->get_name();
  if (command == "completion" && place->value == "words") return namedReport(app, completedLine(given));
  if (command != "report") return 0;
  int id = 0;
  const auto& text = *place->value;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
  return error == std::errc{} && end == text.data() + text.size() && findReport(id) != nullptr ? id : 0;
}

void refuseWrongValues(const std::vector<GivenWord>& given) {
  std::set<const CLI::Option*> once;
  for (const auto& one : given) {
    if (one.command->get_name() == "completion") return;  // its words are another line's, and may be empty
    if (one.name.empty() && one.value->empty()) throw WrongUse("参数不能为空");
    const bool unknown = one.option == nullptr && !one.name.empty();
    if (unknown && one.command->get_parent() == nullptr) {
      throw WrongUse(fmt::format("不认识的参数“{}”；子命令的参数写在子命令之后", one.name));
    }
    if (one.option == nullptr) continue;
    const bool flag = isFlag(*one.option);
    const bool isLong = one.name.starts_with("--");
    if (flag && one.value && isLong) throw WrongUse(fmt::format("{} 不带值，请去掉“={}”", one.name, *one.value));
    if (!flag && one.value && one.value->empty()) throw WrongUse(fmt::format("{} 的值不能为空", one.name));
    const bool repeats = one.option->get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
    if (!flag && !once.insert(one.option).second && !repeats) throw WrongUse(fmt::format("{} 只能给一次", one.name));
  }
}

}  // namespace tz::cli
