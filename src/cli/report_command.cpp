// tzassistant report: computes one report and prints it or writes it to a file.
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <map>

#include "cli/cli.h"
#include "cli/logon.h"
#include "cli/refuse.h"
#include "cli/report_writer.h"
#include "cli/values.h"
#include "cli/voucher_writer.h"
#include "core/catalogue/catalogue.h"
#include "core/reports/output_guard.h"
#include "core/reports/page_stamp.h"
#include "core/reports/report_definition.h"

namespace tz::cli {
namespace {

struct ReportOptions {
  int id = 0;
  std::string ledger;
  std::map<ParameterKey, std::vector<std::string>> values;
  std::map<ParameterKey, bool> flags;
  std::string date;
  std::string operatorName;
  std::optional<std::int64_t> detail;  // the row to go on from
  OutputOptions output;
};

Request requestOf(const ReportOptions& options) {
  Request request;
  for (const auto& [key, values] : options.values) {
    const auto text = fmt::format("{}", fmt::join(values, "\n"));
    if (!values.empty()) request.set(key, text);
  }
  for (const auto& [key, given] : options.flags) {
    if (given) request.set(key, "1");
  }
  return request;
}

// The date asked for; nothing when the ledger's own is to be taken.
std::optional<Date> logonDate(const ReportOptions& options) {
  if (options.date.empty()) return std::nullopt;
  const auto date = parseIsoDate(options.date);
  if (!date) throw WrongUse("--date：“" + options.date + "”不是 YYYY-MM-DD 形式的日期");
  return date;
}

void refuseOtherYear(const CQnCwDB& db, const std::optional<Date>& asked) {
  if (!asked) return;
  const auto year = accountSet(db).year;
  if (year && asked->year != *year) {
    throw WrongUse(fmt::format("--date：{} 不在会计年度 {} 年内", isoText(*asked), *year));
  }
}

// A report that the operator may see, computed and handed on.
Status show(const ReportDefinition& report, const Request& request, const RunOptions& how, Session& session,
            const std::function<Status(const ComputedReport&)>& handOn) {
  if (!CCheckAuth(session.who, report.right, 1, report.rightName)) {
    return refuseRight(session.who, report.right, report.rightName);
  }
  if (const auto refusal = launchRefusal(report.launchChecks, session.db)) return refuse(*refusal);
  const auto outcome = runReport(report, request, session, how);
  if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refuse(*refusal);
  return handOn(std::get<ComputedReport>(outcome));
}

Status write(const ComputedReport& report, const OutputOptions& output, const Session& session) {
  writeReport(report, output, pageStamp(session.who, session.now()));
  return Status::done;
}

Status showVoucher(const LineId& line, Session& session, const OutputOptions& output) {
  const auto outcome = readVoucher(session, line.book, line.voucher);
  if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refuse(*refusal);
  writeVoucher(std::get<Voucher>(outcome), output);
  return Status::done;
}

// What a row leads to: the report behind it, or the voucher.
Status showDetail(const ReportDefinition& report, const ComputedReport& shown, const ReportOptions& options,
                  Session& session) {
  const auto rows = shown.grid.GetRows();
  if (report.detail == nullptr) throw WrongUse(fmt::format("--detail：{} 没有明细", report.windowTitle));
  if (rows > 0 && *options.detail >= rows) {
    throw WrongUse(fmt::format("--detail：没有第 {} 行，可以是 0 至 {}", *options.detail, rows - 1));
  }
  const auto leadsTo = report.detail(*shown.resolved, shown, rows == 0 ? -1 : *options.detail);
  if (const auto* refusal = std::get_if<Refusal>(&leadsTo)) return refuse(*refusal);
  if (const auto* voucher = std::get_if<VoucherTarget>(&leadsTo)) {
    return showVoucher(voucher->line, session, options.output);
  }
  const auto& target = std::get<DetailTarget>(leadsTo);
  return show(*findReport(target.command), target.conditions, {.formatYields = true}, session,
              [&](const ComputedReport& behind) { return write(behind, options.output, session); });
}

Status run(const ReportOptions& options) {
  const auto* report = findReport(options.id);
  if (report == nullptr)
    throw WrongUse(fmt::format("没有编号为 {} 的报表；全部报表见 tzassistant reports", options.id));
  makeSureOfOutput(options.output);
  const auto request = requestOf(options);
  const auto asked = logonDate(options);
  if (const auto wrong = ledgerAsOutput(options.output.file, options.ledger); !wrong.empty()) throw WrongUse(wrong);
  CQnCwDB db(Access::read);
  db.Open(options.ledger);
  const auto who = logOnFromTerminal(db, options.operatorName);
  if (!who) return Status::noRight;
  // Before anything that depends on the ledger's contents.
  if (!who->may(report->right)) return refuseRight(*who, report->right, report->rightName);
  refuseOtherYear(db, asked);
  Session session{.db = db, .ledger = options.ledger, .logon = asked ? *asked : defaultLogonDate(db), .who = *who};
  return show(*report, request, {}, session, [&](const ComputedReport& shown) {
    return options.detail ? showDetail(*report, shown, options, session) : write(shown, options.output, session);
  });
}

void addConditions(CLI::App& command, const ReportDefinition& report, ReportOptions& options) {
  for (const auto key : parametersOf(report)) {
    const auto& condition = parameter(key);
    const auto name = "--" + std::string(condition.option);
    auto* option = condition.kind == Parameter::Kind::flag
                       ? command.add_flag(name, options.flags[key], std::string(condition.help))
                       : command.add_option(name, options.values[key], std::string(condition.help));
    if (condition.kind != Parameter::Kind::flag) {
      option->type_name(std::string(condition.valueName))->expected(1)->allow_extra_args(false);
      option->multi_option_policy(takesSeveral(report, key) ? CLI::MultiOptionPolicy::TakeAll
                                                            : CLI::MultiOptionPolicy::Throw);
    }
    option->group("条件");
  }
}

}  // namespace

std::function<void(int)> addReportCommand(CLI::App& app, Work& work) {
  auto* command = app.add_subcommand("report", "计算一张报表");
  const auto options = std::make_shared<ReportOptions>();
  auto* id = command->add_option("ID", options->id, "报表编号，见 tzassistant reports")->required();
  letCount(*id, 1, 99'999);
  command->add_option("--ledger", options->ledger, "帐套的文件名或 postgresql:// 地址")
      ->required()
      ->type_name("LEDGER");
  command->add_option("--date", options->date, "登录日期，在会计年度之内；缺省为最后一张已记帐凭证的日期")
      ->type_name("YYYY-MM-DD");
  command->add_option("--operator", options->operatorName, "操作员；口令取自 TZ_PASSWORD 或提示")->type_name("NAME");
  constexpr std::int64_t mostRows = 999'999'999;
  auto* row = command->add_option("--detail", options->detail, "不显示报表，而显示它的一行的明细或凭证；行号从 0 数起");
  letCount(*row->type_name("ROW"), 0, mostRows);
  letChoose(*command->add_option("--as", options->output.form, "输出形式"), outputForms());
  letChoose(*command->add_option("--encoding", options->output.encoding, "csv 的编码，缺省为带标记的 utf-8"),
            {"utf-8", "gb18030"});
  command->add_option("-o,--output", options->output.file, "写入文件，要么完整要么不写；不能是帐套自身")
      ->type_name("FILE");
  command->callback([&work, options] { work = [options] { return run(*options); }; });
  return [command, options](int reportId) {
    if (const auto* report = findReport(reportId)) {
      command->description(fmt::format("{} {}\n{}", report->windowTitle, report->command, report->about));
      command->footer("说明\n  " + fmt::to_string(fmt::join(report->rules, "\n  ")));
      addConditions(*command, *report, *options);
    } else {
      command->footer("各报表的条件：tzassistant report 编号 --help");
    }
  };
}

}  // namespace tz::cli
