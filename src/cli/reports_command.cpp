// tzassistant reports: every report with its conditions.
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "cli/cli.h"
#include "cli/values.h"
#include "core/catalogue/catalogue.h"
#include "core/output/report_output.h"

namespace tz::cli {
namespace {

std::string padded(std::string_view text, int width) {
  return std::string(text) + std::string(static_cast<std::size_t>(std::max(0, width - displayWidth(text))), ' ');
}

std::string conditionsOf(const ReportDefinition& report) {
  std::string text;
  for (const auto key : parametersOf(report)) {
    const auto& condition = parameter(key);
    text += fmt::format("{}--{}", text.empty() ? "" : " ", condition.option);
    if (!condition.valueName.empty()) text += fmt::format(" {}", condition.valueName);
  }
  return text;
}

std::string listText() {
  std::string text;
  for (const auto* report : catalogue()) {
    text += fmt::format("{}  {}  {}  {}\n", report->command, padded(areaName(report->area), 8),
                        padded(report->printTitle, 20), conditionsOf(*report));
  }
  return text;
}

std::string listJson() {
  auto list = nlohmann::ordered_json::array();
  for (const auto* report : catalogue()) {
    auto conditions = nlohmann::ordered_json::array();
    for (const auto key : parametersOf(*report)) conditions.push_back(std::string(parameter(key).option));
    list.push_back({{"id", report->command},
                    {"area", std::string(areaName(report->area))},
                    {"title", std::string(report->printTitle)},
                    {"conditions", conditions}});
  }
  return list.dump(1) + "\n";
}

}  // namespace

void addReportsCommand(CLI::App& app, Work& work) {
  auto* command = app.add_subcommand("reports", "列出全部报表：编号、领域、名称、条件");
  const auto form = std::make_shared<std::string>("text");
  letChoose(*command->add_option("--as", *form, "输出形式"), {"text", "json"});
  command->callback([&work, form] {
    work = [form] {
      print(*form == "json" ? listJson() : listText());
      return Status::done;
    };
  });
}

}  // namespace tz::cli
