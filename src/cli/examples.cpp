#include "cli/examples.h"

#include <fmt/format.h>

#include "core/catalogue/catalogue.h"
#include "core/manual/sample_conditions.h"

namespace tz::cli {
namespace {

const ReportDefinition& anyReport() { return *catalogue().front(); }

void addExample(CLI::App& command, std::string_view line) {
  const auto before = command.get_footer();
  command.footer(fmt::format("{}{}例：tzassistant {}", before, before.empty() ? "" : "\n", line));
}

void addOperatorExamples(CLI::App& app) {
  auto& parent = *app.get_subcommand("operator");
  for (const auto& [command, line] :
       {std::pair("list", "operator list --ledger 示例.db --operator 主管"),
        std::pair("add", "operator add 李明 --ledger 示例.db --right 个人往来 --operator 主管"),
        std::pair("rights", "operator rights 王会计 --ledger 示例.db --give 个人往来 --take 12 --operator 主管"),
        std::pair("rename", "operator rename 王会计 王芳 --ledger 示例.db --operator 主管"),
        std::pair("password", "operator password 王会计 --ledger 示例.db"),
        std::pair("remove", "operator remove 王会计 --ledger 示例.db --operator 主管")}) {
    addExample(*parent.get_subcommand(command), line);
  }
  addExample(parent, "operator add 主管 --ledger 示例.db --all");
  for (const char* line : {"log --ledger 示例.db", "log --ledger 示例.db --by 王会计 --from 2025-03-01 --as json"}) {
    addExample(*app.get_subcommand("log"), line);
  }
}

void addClearExamples(CLI::App& app) {
  auto& clear = *app.get_subcommand("clear");
  addExample(clear, "clear match --ledger 示例.db --kind unit --unit 江淮重工集团");
  for (const auto& [name, rest] : {std::pair{"toggle", "--line 27"},
                                   {"reverse", "--kind unit --yes"},
                                   {"check", "--account 112201 --unit 江淮重工集团 --month 3 --as json"},
                                   {"match", "--kind person --dept 销售部 --as json"},
                                   {"undo", "--as json"}}) {
    addExample(*clear.get_subcommand(name), fmt::format("clear {} --ledger 示例.db {}", name, rest));
  }
}

}  // namespace

void addReportExamples(CLI::App& app, int reportId) {
  const auto* named = findReport(reportId);
  const auto& report = named == nullptr ? anyReport() : *named;
  const auto line = manual::sampleCommand(report);
  const auto workbook = fmt::format(" --as xlsx -o {}.xlsx", report.printTitle);
  for (const std::string_view more : {std::string_view(), std::string_view(" --as json"), std::string_view(workbook)}) {
    addExample(*app.get_subcommand("report"), fmt::format("{}{}", line, more));
  }
}

void addExamples(CLI::App& app, int reportId) {
  auto& ledger = *app.get_subcommand("ledger");
  addExample(app, "ledger create 示例.db --sample");
  addExample(app, "reports");
  addExample(app, manual::sampleCommand(anyReport()));
  addExample(ledger, "ledger create 示例.db --sample");
  addExample(*ledger.get_subcommand("create"), "ledger create 示例.db --sample");
  addExample(*ledger.get_subcommand("create"), "ledger create 新帐套.db --empty --year 2025 --name 新帐套");
  addExample(*ledger.get_subcommand("check"), "ledger check 示例.db");
  addExample(*app.get_subcommand("reports"), "reports --as json");
  addExample(*app.get_subcommand("voucher"), "voucher 120 --ledger 示例.db");
  addExample(*app.get_subcommand("voucher"), "voucher 120 --ledger 示例.db --as json");
  addExample(app, "find 差旅费 --ledger 示例.db");
  for (const char* line : {"find 差旅费 --ledger 示例.db", "find 5,000.00 --ledger 示例.db --as json",
                           "find 记-12 --ledger 示例.db", "find --ledger 示例.db -- -300"}) {
    addExample(*app.get_subcommand("find"), line);
  }
  addOperatorExamples(app);
  addClearExamples(app);
  addExample(*app.get_subcommand("completion"), "completion bash");
  addReportExamples(app, reportId);
}

}  // namespace tz::cli
