// tzassistant log: who marked, matched and planned.
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "cli/cli.h"
#include "cli/logon.h"
#include "cli/report_writer.h"
#include "cli/values.h"
#include "core/operators/work_log.h"
#include "core/reports/output_guard.h"

namespace tz::cli {
namespace {

struct LogOptions {
  std::string ledger;
  std::string operatorName;
  std::string from, to;
  LogAsk asked;
  OutputOptions output;
};
using LogJson = nlohmann::ordered_json;

LogJson jsonOf(const LogEntry& entry) {
  const LogJson none = nullptr;
  const bool line = entry.there && !entry.isPlan();
  return {{"when", entry.when},
          {"operator", entry.by},
          {"work", entry.work},
          {"batch", entry.batch},
          {"before", entry.before},
          {"after", entry.after},
          {"voucher", entry.line ? LogJson(entry.line->voucher) : none},
          {"line", entry.line ? LogJson(entry.line->line) : none},
          {"period", entry.there ? LogJson(entry.period) : none},
          {"date", line ? LogJson(isoText(entry.date)) : none},
          {"word", line ? LogJson(entry.word) : none},
          {"number", line ? LogJson(entry.number) : none},
          {"account", entry.there ? LogJson(entry.account) : none},
          {"account_name", entry.there ? LogJson(entry.accountName) : none},
          {"summary", line ? LogJson(entry.summary) : none},
          {"debit", line && entry.isDebit ? LogJson(entry.amount) : none},
          {"credit", line && !entry.isDebit ? LogJson(entry.amount) : none}};
}

bool writeLogJson(const WorkLog& log, const Sink& sink) {
  auto entries = LogJson::array();
  for (const auto& entry : log.entries) entries.push_back(jsonOf(entry));
  const LogJson answer = {
      {"kept", log.kept}, {"found", log.found}, {"shown", log.entries.size()}, {"entries", entries}};
  // Broken bytes of old imports become U+FFFD.
  return sink(answer.dump(1, ' ', false, LogJson::error_handler_t::replace) + "\n");
}

std::optional<Date> dayOf(const std::string& text, const char* option) {
  if (text.empty()) return std::nullopt;
  const auto date = parseIsoDate(text);
  if (!date) throw WrongUse(fmt::format("{}：“{}”不是 YYYY-MM-DD 形式的日期", option, text));
  return date;
}

// Others' work is for whoever has every right; one's own anybody may see.
bool mayRead(const Operator& who, LogAsk& asked) {
  if (who.everyRight) return true;
  if (asked.by.empty()) asked.by = who.name;
  if (asked.by == who.name) return true;
  tellAccess({AccessEvent::Kind::rightRefused, who.name, "操作日志"});
  complain(fmt::format("操作员 {} 没有全部权限，只能查看自己的操作日志", who.name));
  return false;
}

Status showLog(const LogOptions& options) {
  auto asked = options.asked;
  asked.from = dayOf(options.from, "--from");
  asked.to = dayOf(options.to, "--to");
  if (asked.from && asked.to && *asked.to < *asked.from) throw WrongUse("--to：不能早于 --from");
  makeSureOfOutput(options.output);
  if (const auto wrong = ledgerAsOutput(options.output.file, options.ledger); !wrong.empty()) throw WrongUse(wrong);
  CQnCwDB db(Access::read);
  db.Open(options.ledger);
  const auto who = logOnFromTerminal(db, options.operatorName);
  if (!who || !mayRead(*who, asked)) return Status::noRight;
  Session session{.db = db, .ledger = options.ledger, .logon = {}, .who = *who};
  const auto log = readWorkLog(session, asked);
  if (options.output.form == "json") {
    writeTo(options.output, [&](const Sink& sink) { return writeLogJson(log, sink); });
  } else {
    writeReport(logReport(asked, log), options.output);
  }
  return Status::done;
}

}  // namespace

void addLogCommand(CLI::App& app, Work& work) {
  auto* command = app.add_subcommand("log", "操作日志：谁在什么时候勾销、反两清、编制计划");
  const auto options = std::make_shared<LogOptions>();
  command->add_option("--ledger", options->ledger, "帐套的文件名或 postgresql:// 地址")
      ->required()
      ->type_name("LEDGER");
  command->add_option("--operator", options->operatorName, "操作员；口令取自 TZ_PASSWORD 或提示")->type_name("NAME");
  command->add_option("--by", options->asked.by, "只列这个操作员做的；没有全部权限的操作员只能看自己的")
      ->type_name("OPERATOR");
  command->add_option("--from", options->from, "从这一天起，按本机的时间")->type_name("YYYY-MM-DD");
  command->add_option("--to", options->to, "到这一天为止，按本机的时间")->type_name("YYYY-MM-DD");
  auto* most = command->add_option("--limit", options->asked.most,
                                   fmt::format("最多列出多少条，缺省为 {}；一共多少条总会说明", options->asked.most));
  most->type_name("N");
  letCount(*most, 1, 10'000'000);
  letChoose(*command->add_option("--as", options->output.form, "输出形式"), {"text", "csv", "json"});
  command->add_option("-o,--output", options->output.file, "写入文件，要么完整要么不写")->type_name("FILE");
  command->callback([&work, options] { work = [options] { return showLog(*options); }; });
  command->footer(
      "说明\n  最近的在前，一次做的在一起。时间按本机的时区显示，帐套和 json 中是 UTC。\n"
      "  做了什么由标记的前后和批次得知：手工勾销、自动勾销、取消勾销、反两清、撤消，以及计划的增加、修改和删除。");
}

}  // namespace tz::cli
