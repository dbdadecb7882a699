// tzassistant find: the lines of a ledger by amount, voucher, summary or business number.
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include "cli/cli.h"
#include "cli/logon.h"
#include "cli/refuse.h"
#include "cli/report_writer.h"
#include "cli/values.h"
#include "core/catalogue/catalogue.h"
#include "core/grid/figures.h"
#include "core/voucher/line_search.h"

namespace tz::cli {
namespace {

struct FindOptions {
  std::string text;
  std::string ledger;
  std::string operatorName;
  std::string form = "text";
  std::size_t most = LineSearch{}.most;
};

using Json = nlohmann::ordered_json;

Json foundDate(Date date) {
  std::string text;
  appendDate(text, date);
  return text;
}
Json textOrNone(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

Json jsonOf(const FoundLine& line) {
  auto by = Json::array();
  if (line.by.amount) by.emplace_back("amount");
  if (line.by.voucher) by.emplace_back("voucher");
  if (line.by.summary) by.emplace_back("summary");
  if (line.by.business) by.emplace_back("business");
  const Json none = nullptr;
  return {{"line", line.id.line},
          {"voucher", line.id.voucher},
          {"posted", line.id.book == Book::posted},
          {"period", line.period},
          {"date", foundDate(line.date)},
          {"word", line.word},
          {"number", line.number},
          {"summary", line.summary},
          {"account", line.names.account},
          {"account_name", line.names.accountName},
          {"dept", textOrNone(line.names.dept)},
          {"person", textOrNone(line.names.person)},
          {"unit", textOrNone(line.names.unit)},
          {"project", textOrNone(line.names.project)},
          {"debit", line.isDebit ? Json(line.debit) : none},
          {"credit", line.isDebit ? none : Json(line.credit)},
          {"business_number", textOrNone(line.business)},
          {"found_by", by}};
}

std::string foundJson(const SearchText& text, const FoundLines& found) {
  auto lines = Json::array();
  for (const auto& line : found.lines) lines.push_back(jsonOf(line));
  const Json answer = {{"find", text.text}, {"found", found.found}, {"shown", found.lines.size()}, {"lines", lines}};
  // Broken bytes of old imports become U+FFFD.
  return answer.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Status find(const FindOptions& options) {
  const auto text = readSearchText(options.text);
  if (text.text.empty()) throw WrongUse("TEXT：要查找的文字不能是空白");
  if (text.text.size() > longestSearch) throw WrongUse(fmt::format("TEXT：最多 {} 个字节", longestSearch));
  CQnCwDB db(Access::read);
  db.Open(options.ledger);
  const auto who = logOnFromTerminal(db, options.operatorName);
  if (!who) return Status::noRight;
  if (!mayReadVouchers(*who)) {
    complain(fmt::format("操作员 {} 没有任何明细帐的权限，不能查找分录", who->name));
    return Status::noRight;
  }
  Session session{.db = db, .ledger = options.ledger, .logon = defaultLogonDate(db), .who = *who};
  const auto outcome = searchLines(session, {.text = text, .most = options.most});
  if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refuse(*refusal);
  const auto& found = std::get<FoundLines>(outcome);
  if (options.form == "json") {
    print(foundJson(text, found));
  } else {
    writeReport(foundReport(text, found), {});
  }
  return Status::done;
}

}  // namespace

void addFindCommand(CLI::App& app, Work& work) {
  auto* command = app.add_subcommand("find", "在整个帐套里查找分录：按金额、凭证号、摘要或业务号");
  const auto options = std::make_shared<FindOptions>();
  command->add_option("TEXT", options->text, "要查找的文字或数；以“-”开头的，前面另写 --")->required()->type_name("");
  command->add_option("--ledger", options->ledger, "帐套的文件名或 postgresql:// 地址")
      ->required()
      ->type_name("LEDGER");
  command->add_option("--operator", options->operatorName, "操作员；口令取自 TZ_PASSWORD 或提示")->type_name("NAME");
  letChoose(*command->add_option("--as", options->form, "输出形式"), {"text", "json"});
  auto* most = command->add_option("--limit", options->most,
                                   fmt::format("最多列出多少条，缺省为 {}；找到的总数总会说明", options->most));
  most->type_name("N");
  letCount(*most, 1, 1'000'000);
  command->footer("说明\n  " + fmt::to_string(fmt::join(searchRules, "\n  ")) +
                  "\n  按期间、凭证字、凭证号、分录的次序列出，最后一栏说明找到于哪一项");
  command->callback([&work, options] { work = [options] { return find(*options); }; });
}

}  // namespace tz::cli
