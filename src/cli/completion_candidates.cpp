#include "cli/completion_candidates.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

#include "cli/ledger_names.h"
#include "core/catalogue/catalogue.h"
#include "core/data/amount_format.h"
#include "core/operators/right_table.h"
#include "core/receivables/clearing_report.h"
#include "core/reports/parameter.h"

namespace tz::cli {
namespace {

// The name under which an option is typed, or that of a place on the line.
std::string nameOf(const CLI::Option& option) {
  if (!option.get_lnames().empty()) return "--" + option.get_lnames().front();
  if (!option.get_snames().empty()) return "-" + option.get_snames().front();
  return option.get_name();
}

bool takesValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

// The line before the word that is being typed.
struct TypedLine {
  const CLI::App* command;
  const CLI::Option* awaiting = nullptr;  // the option whose value comes next
  std::size_t places = 0;                 // how many places of the command are taken
  GivenValues given;

  void take(const std::string& word) {
    if (awaiting != nullptr) {
      given[nameOf(*awaiting)] = word;
      awaiting = nullptr;
    } else if (word.starts_with("-")) {
      const auto equals = word.find('=');
      const auto* option = command->get_option_no_throw(word.substr(0, equals));
      if (option == nullptr) return;
      auto& value = given.try_emplace(nameOf(*option)).first->second;
      if (equals != std::string::npos) {
        value = word.substr(equals + 1);
      } else if (takesValue(*option)) {
        awaiting = option;
      }
    } else {
      takePlain(word);
    }
  }
  // A place that is still free.
  [[nodiscard]] const CLI::Option* nextPlace() const {
    const auto all = command->get_options([](const CLI::Option* option) { return option->get_positional(); });
    return places < all.size() ? all[places] : nullptr;
  }

 private:
  void takePlain(const std::string& word) {
    const auto found = command->get_subcommands([&](const CLI::App* one) { return one->get_name() == word; });
    if (!found.empty()) {
      *this = {found.front(), nullptr, 0, {}};
      return;
    }
    if (const auto* place = nextPlace()) given[nameOf(*place)] = word;
    ++places;
  }
};

// The choices that help shows in the place of a value, "text|csv", as words.
std::vector<std::string> choicesIn(const std::string& typeName) {
  if (typeName.find('|') == std::string::npos) return {};
  return CLI::detail::split(typeName, '|');
}

const ReportDefinition* reportOn(const TypedLine& line) {
  const auto id = line.given.find("ID");
  return id == line.given.end() ? nullptr : findReport(std::atoi(id->second.c_str()));
}

// The condition that an option of the report command stands for; null for the others. Reports may have different
// conditions under one name.
const Parameter* conditionOf(const CLI::Option& option, const TypedLine& line) {
  const auto isIt = [&](const Parameter& one) { return nameOf(option) == "--" + std::string(one.option); };
  if (const auto* report = reportOn(line)) {
    for (const auto key : parametersOf(*report)) {
      if (isIt(parameter(key))) return &parameter(key);
    }
  }
  const auto all = allParameters();
  const auto found = std::ranges::find_if(all, isIt);
  return found == all.end() ? nullptr : &*found;
}

void addConditionChoices(Candidates& found, const Parameter& condition) {
  if (condition.kind == Parameter::Kind::choice) {
    for (const auto& choice : condition.choices) found.words.push_back({std::string(choice.value), ""});
  }
  if (condition.key == ParameterKey::format) {
    // Which of them an account offers is seen when the report is asked for.
    for (const auto& format : amountFormats) found.words.push_back({std::string(format.name), ""});
  }
  if (condition.kind == Parameter::Kind::month) {
    for (int month = 1; month <= 12; ++month) found.words.push_back({std::to_string(month), ""});
  }
}

void addChoices(Candidates& found, const TypedLine& line, const CLI::Option& option) {
  const auto type = option.get_type_name();
  if (type == "FILE" || type == "LEDGER" || option.get_name() == "LEDGER") found.files = true;
  for (const auto& choice : choicesIn(type)) found.words.push_back({choice, ""});
  if (const auto* condition = conditionOf(option, line)) addConditionChoices(found, *condition);
}

void addReports(Candidates& found) {
  for (const auto* report : catalogue()) {
    found.words.push_back(
        {std::to_string(report->command), fmt::format("{} {}", areaName(report->area), report->printTitle)});
  }
}

void addRights(Candidates& found) {
  for (const auto& right : rightTable()) found.words.push_back({std::to_string(right.number), std::string(right.name)});
}

// What is given, with the report whose lists the command's conditions are taken from: clear has those of two-clearing.
GivenValues givenWithReport(const TypedLine& line, const CLI::Option& option) {
  auto given = line.given;
  if (line.command->get_name() == "report") return given;
  const auto kind = given.find("--kind");
  const bool unit =
      nameOf(option) == "--unit" || given.contains("--unit") || (kind != given.end() && kind->second == "unit");
  given["ID"] = std::to_string(clearingReport(unit ? ClearingKind::unit : ClearingKind::person).command);
  return given;
}

bool asksForConditions(const CLI::App& command) {
  return command.get_name() == "report" ||
         (command.get_parent() != nullptr && command.get_parent()->get_name() == "clear");
}

void addValues(Candidates& found, const TypedLine& line, const CLI::Option& option) {
  addChoices(found, line, option);
  if (option.get_type_name() == "RIGHT") addRights(found);
  if (const auto name = nameOf(option); name == "--operator" || name == "--by" || name == "OPERATOR") {
    for (auto& one : operatorNames(line.given)) found.words.push_back({std::move(one), ""});
  }
  if (!asksForConditions(*line.command)) return;
  if (option.get_name() == "ID") return addReports(found);
  const auto* condition = conditionOf(option, line);
  if (condition == nullptr) return;
  for (auto& [word, meaning] : ledgerNames(*condition, givenWithReport(line, option))) {
    found.words.push_back({word, meaning});
  }
}

void addOptions(Candidates& found, const TypedLine& line) {
  const auto* report = reportOn(line);
  for (const auto* option : line.command->get_options()) {
    const auto name = nameOf(*option);
    const auto* condition = conditionOf(*option, line);
    const bool again = condition != nullptr && report != nullptr && takesSeveral(*report, condition->key);
    if (option->get_positional() || (line.given.contains(name) && !again)) continue;
    found.words.push_back({name, option->get_description()});
  }
}

void addPlain(Candidates& found, const TypedLine& line) {
  for (const auto* command : line.command->get_subcommands({})) {
    found.words.push_back({command->get_name(), command->get_description()});
  }
  if (const auto* place = line.nextPlace()) addValues(found, line, *place);
  if (line.command->get_name() == "open") found.files = true;  // its words are the desktop's
}

}  // namespace

Candidates candidatesFor(const CLI::App& app, std::span<const std::string> words) {
  TypedLine line{&app, nullptr, 0, {}};
  if (words.empty()) return {};
  for (const auto& word : words.first(words.size() - 1)) line.take(word);
  auto typed = words.back();
  std::string before;  // "--as=" of a value in one word with its option
  if (const auto equals = typed.find('=');
      line.awaiting == nullptr && typed.starts_with("--") && equals != typed.npos) {
    before = typed.substr(0, equals + 1);
    line.take(typed.substr(0, equals));
    if (line.awaiting == nullptr) return {};
    typed.erase(0, equals + 1);
  }

  Candidates found;
  if (line.awaiting != nullptr) {
    addValues(found, line, *line.awaiting);
  } else if (typed.starts_with("-")) {
    addOptions(found, line);
  } else {
    addPlain(found, line);
    if (found.words.empty() && !found.files) addOptions(found, line);
  }
  std::erase_if(found.words, [&](const Candidate& one) { return !one.word.starts_with(typed); });
  for (auto& one : found.words) one.word.insert(0, before);
  return found;
}

}  // namespace tz::cli
