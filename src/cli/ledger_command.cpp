// tzassistant ledger: makes ledgers and checks them.
#include <chrono>

#include "cli/cli.h"
#include "cli/logon.h"
#include "cli/values.h"
#include "core/check/ledger_check.h"
#include "core/data/create_ledger.h"
#include "core/data/record_io.h"
#include "core/output/display_text.h"
#include "core/reports/parameter.h"
#include "core/sample/sample_company.h"

namespace tz::cli {
namespace {

struct CreateOptions {
  std::string address;
  bool sample = false;
  bool empty = false;
  std::int64_t lines = 0;
  int year = 0;
  std::string name = "新帐套";
};

int currentYear() {
  const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  return static_cast<int>(std::chrono::year_month_day(today).year());
}

Status create(const CreateOptions& options) {
  createLedger(options.address, [&](Connection& connection) {
    if (options.sample) {
      fillSample(connection, {.lines = options.lines});
    } else {
      const int year = options.year == 0 ? currentYear() : options.year;
      insertRecords(connection, std::vector{zAccountMInfo{1, options.name, "4222", year}});
    }
  });
  return Status::done;
}

// The lines name amounts, accounts and people, so whoever asks logs on; no right of a report is needed.
bool mayCheck(const std::string& address, const std::string& operatorName) {
  CQnCwDB db(Access::read);
  db.Open(address);
  return logOnFromTerminal(db, operatorName).has_value();
}

Status check(const std::string& address, const std::string& operatorName) {
  if (!mayCheck(address, operatorName)) return Status::noRight;
  const auto connection = openAsStored(address);
  Transaction reading(*connection, Transaction::Purpose::reading);
  std::string lines;
  bool sound = true;
  checkLedger(*connection, [&](const Violation& violation) {
    sound = sound && violation.hint;
    lines += shownLine(violation.text()) + "\n";
  });
  reading.commit();  // until then it is not known that all was read at one moment
  print(lines + (sound ? "帐套符合全部规则\n" : ""));
  return sound ? Status::done : Status::refused;
}

}  // namespace

void addLedgerCommand(CLI::App& app, Work& work) {
  auto* ledger = app.add_subcommand("ledger", "建立和检查帐套");
  ledger->require_subcommand(1);

  auto* createCommand = ledger->add_subcommand("create", "建立新帐套：文件或 postgresql:// 地址");
  const auto options = std::make_shared<CreateOptions>();
  createCommand->add_option("LEDGER", options->address, "新帐套的文件名或服务器地址")->required();
  auto* sample = createCommand->add_flag("--sample", options->sample, "示例企业的一个会计年度");
  createCommand->add_flag("--empty", options->empty, "空帐套（缺省）")->excludes(sample);
  auto* lines = createCommand->add_option("--lines", options->lines, "示例企业的已记帐分录数，缺省为便于阅读的小帐套");
  lines->needs(sample)->type_name("N");
  letCount(*lines, 1, 100'000'000);
  auto* year = createCommand->add_option("--year", options->year, "空帐套的会计年度，缺省为今年");
  year->excludes(sample)->type_name("YYYY");
  letCount(*year, 1900, 9999);
  createCommand->add_option("--name", options->name, "空帐套的名称")->excludes(sample);
  createCommand->callback([&work, options] { work = [options] { return create(*options); }; });

  auto* checkCommand = ledger->add_subcommand("check", "逐条检查帐套的规则，每处违反一行，提示另行标明");
  const auto address = std::make_shared<std::string>();
  const auto operatorName = std::make_shared<std::string>();
  checkCommand->add_option("LEDGER", *address, "帐套的文件名或服务器地址")->required();
  checkCommand->add_option("--operator", *operatorName, "操作员；口令取自 TZ_PASSWORD 或提示")->type_name("NAME");
  checkCommand->callback(
      [&work, address, operatorName] { work = [address, operatorName] { return check(*address, *operatorName); }; });
}

}  // namespace tz::cli
