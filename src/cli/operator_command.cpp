// tzassistant operator: who may log on to a ledger, and what each may do there.
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include "cli/cli.h"
#include "cli/logon.h"
#include "cli/refuse.h"
#include "cli/report_writer.h"
#include "cli/values.h"
#include "core/grid/column_adder.h"
#include "core/operators/operator_book.h"
#include "core/operators/right_table.h"
#include "core/output/display_text.h"

namespace tz::cli {
namespace {

struct OperatorOptions {
  std::string ledger;
  std::string operatorName;  // who asks
  std::string name;          // who is meant
  std::string newName;
  std::vector<std::string> give, take;
  bool every = false;
  bool notEvery = false;
  bool yes = false;
  std::string form = "text";
};
using Options = std::shared_ptr<OperatorOptions>;
using OperatorJson = nlohmann::ordered_json;

enum class MayAsk { keeper, keeperOrSelf };

// The operator who asks, after his logon; nothing after a complaint.
std::optional<Operator> keeperOf(const OperatorOptions& options, MayAsk mayAsk) {
  CQnCwDB db(Access::read);
  db.Open(options.ledger);
  const auto own = mayAsk == MayAsk::keeperOrSelf && options.operatorName.empty() && needsLogon(db);
  auto who = logOnFromTerminal(db, own ? options.name : options.operatorName);
  if (!who || who->everyRight || (mayAsk == MayAsk::keeperOrSelf && who->name == options.name)) return who;
  tellAccess({AccessEvent::Kind::rightRefused, who->name, "管理操作员"});
  complain(fmt::format("操作员 {} 没有全部权限，不能管理操作员", who->name));
  return std::nullopt;
}

// act(book, operators) on the ledger's keeper connection, once whoever asks has logged on. What it did is told in one
// line.
template <class Act>
Status keepOperators(const OperatorOptions& options, MayAsk mayAsk, const Act& act) {
  const auto who = keeperOf(options, mayAsk);
  if (!who) return Status::noRight;
  LedgerKeeper keeper(options.ledger, operatorTables());
  if (const auto& obstacle = keeper.obstacle()) {
    complain(obstacle->words.empty() ? obstacle->text : fmt::format("{}（{}）", obstacle->text, obstacle->words));
    return Status::failed;
  }
  return act(OperatorBook(keeper, *who), readOperators(keeper.connection()));
}

Status answerOf(const OperatorBook::Answer& answer, const std::string& done) {
  if (answer) return refuse(*answer);
  print(shownLine(done) + "\n");
  return Status::done;
}

bool isThere(const std::vector<KeptOperator>& all, std::string_view name) {
  return std::ranges::any_of(all, [&](const KeptOperator& one) { return one.who.name == name; });
}

std::optional<Refusal> unknownOperator(const std::vector<KeptOperator>& all, const std::string& name) {
  if (isThere(all, name)) return std::nullopt;
  Refusal refusal{.text = fmt::format("没有操作员“{}”", name)};
  for (const auto& one : all) refusal.offered.push_back(one.who.name);
  return refusal;
}

// Adds the rights that the words name to `rights`.
std::optional<Refusal> addNamed(const std::vector<std::string>& words, std::set<int>& rights) {
  for (const auto& word : words) {
    const auto named = namedRights(word);
    if (const auto* refusal = std::get_if<Refusal>(&named)) return *refusal;
    rights.insert(std::get<std::set<int>>(named).begin(), std::get<std::set<int>>(named).end());
  }
  return std::nullopt;
}

std::string rightsText(const Operator& who) {
  if (who.everyRight) return "全部权限";
  std::vector<std::string> names;
  for (const int right : who.rights) names.push_back(rightText(right));
  return names.empty() ? "没有权限" : fmt::to_string(fmt::join(names, "、"));
}

OperatorJson jsonOf(const KeptOperator& one) {
  return {{"id", one.who.id},
          {"name", one.who.name},
          {"all", one.who.everyRight},
          {"rights", one.who.rights},
          {"has_password", one.hasPassword}};
}

void printJson(const OperatorJson& json) {
  print(json.dump(1, ' ', false, OperatorJson::error_handler_t::replace) + "\n");
}

std::vector<KeptOperator> operatorsOf(const OperatorOptions& options) {
  CQnCwDB db(Access::read);
  db.Open(options.ledger);
  return readOperators(db.Current());
}

Status listOperators(const OperatorOptions& options) {
  if (!keeperOf(options, MayAsk::keeper)) return Status::noRight;
  const auto all = operatorsOf(options);
  if (options.form == "json") {
    auto json = OperatorJson::array();
    for (const auto& one : all) json.push_back(jsonOf(one));
    printJson(json);
    return Status::done;
  }
  ComputedReport report;
  report.title = "操作员";
  for (const char* caption : {"姓名", "口令", "权限"}) {
    CTzGridControl::AddCol(report.grid, caption, 100, ColumnKind::text);
  }
  for (const auto& one : all) {
    const auto row = report.grid.GetRows();
    report.grid.SetRows(row + 1);
    report.grid.SetText(row, 0, one.who.name);
    report.grid.SetText(row, 1, one.hasPassword ? "有" : "没有，不能登录");
    report.grid.SetText(row, 2, rightsText(one.who));
  }
  if (all.empty()) report.grid.notices.push_back({"帐套没有操作员：谁都不用登录，并有全部权限"});
  writeReport(report, {});
  return Status::done;
}

Status addOperator(const OperatorOptions& options) {
  return keepOperators(options, MayAsk::keeper, [&](const OperatorBook& book, const std::vector<KeptOperator>& all) {
    NewOperator wanted{.name = operatorName(options.name), .password = {}, .rights = {}};
    if (const auto no = nameFault(wanted.name)) return refuse(*no);
    if (isThere(all, wanted.name)) return refuse({.text = fmt::format("已经有操作员“{}”，请换一个姓名", wanted.name)});
    if (options.every) wanted.rights.everyRight = true;
    if (const auto no = addNamed(options.give, wanted.rights.give)) return refuse(*no);
    if (all.empty() && !options.every) {
      return refuse({.text = "第一个操作员必须有全部权限，请加 --all：否则没有人能再增加操作员、分配权限"});
    }
    const auto password = newPassword(wanted.name);
    if (!password) return Status::noRight;
    wanted.password = *password;
    return answerOf(book.add(wanted), fmt::format("已增加操作员“{}”", wanted.name));
  });
}

Status showRights(const Operator& who, const std::string& form) {
  if (form == "json") {
    auto rights = OperatorJson::array();
    for (const auto& right : rightTable()) {
      rights.push_back(
          {{"number", right.number}, {"area", right.area}, {"name", right.name}, {"granted", who.may(right.number)}});
    }
    printJson({{"name", who.name}, {"all", who.everyRight}, {"rights", rights}});
    return Status::done;
  }
  ComputedReport report;
  report.title = "操作员权限";
  report.subtitle = fmt::format("操作员：{}{}", who.name, who.everyRight ? "（全部权限）" : "");
  CTzGridControl::AddCol(report.grid, "有权", 40, ColumnKind::text);
  CTzGridControl::AddCol(report.grid, "编号", 40, ColumnKind::count);
  for (const char* caption : {"类别", "权限", "报表"})
    CTzGridControl::AddCol(report.grid, caption, 100, ColumnKind::text);
  for (const auto& right : rightTable()) {
    const auto row = report.grid.GetRows();
    report.grid.SetRows(row + 1);
    report.grid.SetText(row, 0, who.may(right.number) ? "√" : "");
    report.grid.SetNumber(row, 1, right.number);
    report.grid.SetText(row, 2, right.area);
    report.grid.SetText(row, 3, right.name);
    report.grid.SetText(row, 4, reportsOfRight(right.number));
  }
  writeReport(report, {});
  return Status::done;
}

Status changeRights(const OperatorOptions& options, const RightsChange& change) {
  return keepOperators(options, MayAsk::keeper, [&](const OperatorBook& book, const std::vector<KeptOperator>& all) {
    if (const auto no = unknownOperator(all, options.name)) return refuse(*no);
    return answerOf(book.changeRights(options.name, change), fmt::format("已更改操作员“{}”的权限", options.name));
  });
}

Status keepRights(const OperatorOptions& options) {
  RightsChange change;
  if (options.every || options.notEvery) change.everyRight = options.every;
  if (const auto no = addNamed(options.give, change.give)) return refuse(*no);
  if (const auto no = addNamed(options.take, change.take)) return refuse(*no);
  for (const int right : change.give) {
    if (change.take.contains(right)) throw WrongUse(fmt::format("--take：{} 已由 --give 给予", rightText(right)));
  }
  if (change.everyRight || !change.give.empty() || !change.take.empty()) return changeRights(options, change);
  if (!keeperOf(options, MayAsk::keeper)) return Status::noRight;
  const auto all = operatorsOf(options);
  if (const auto no = unknownOperator(all, options.name)) return refuse(*no);
  return showRights(std::ranges::find(all, options.name, [](const KeptOperator& one) { return one.who.name; })->who,
                    options.form);
}

Status renameOperator(const OperatorOptions& options) {
  return keepOperators(options, MayAsk::keeper, [&](const OperatorBook& book, const std::vector<KeptOperator>& all) {
    if (const auto no = unknownOperator(all, options.name)) return refuse(*no);
    return answerOf(book.rename(options.name, options.newName),
                    fmt::format("操作员“{}”现在叫“{}”", options.name, operatorName(options.newName)));
  });
}

Status changePassword(const OperatorOptions& options) {
  return keepOperators(
      options, MayAsk::keeperOrSelf, [&](const OperatorBook& book, const std::vector<KeptOperator>& all) {
        if (const auto no = unknownOperator(all, options.name)) return refuse(*no);
        const auto given = newPassword(options.name);
        if (!given) return Status::noRight;
        return answerOf(book.setPassword(options.name, *given), fmt::format("已更改操作员“{}”的口令", options.name));
      });
}

Status removeOperator(const OperatorOptions& options) {
  return keepOperators(options, MayAsk::keeper, [&](const OperatorBook& book, const std::vector<KeptOperator>& all) {
    if (const auto no = unknownOperator(all, options.name)) return refuse(*no);
    const bool last = all.size() == 1;
    if (last && !answeredBefore(options.yes, "--yes", complain)(removalQuestion(all, options.name))) {
      return Status::refused;
    }
    return answerOf(book.remove(options.name, last && options.yes), fmt::format("已删除操作员“{}”", options.name));
  });
}

CLI::App* addKeeping(CLI::App& parent, Work& work, const Options& options, const char* name, const char* description,
                     Status (*act)(const OperatorOptions&)) {
  auto* command = parent.add_subcommand(name, description);
  command->add_option("--ledger", options->ledger, "帐套的文件名或 postgresql:// 地址")
      ->required()
      ->type_name("LEDGER");
  command->add_option("--operator", options->operatorName, "有全部权限的操作员；口令取自 TZ_PASSWORD 或提示")
      ->type_name("NAME");
  command->callback([&work, options, act] { work = [options, act] { return act(*options); }; });
  return command;
}

void addMeant(CLI::App& command, const Options& options, const char* description) {
  command.add_option("OPERATOR", options->name, description)->required()->type_name("");
}

void addForm(CLI::App& command, const Options& options) {
  letChoose(*command.add_option("--as", options->form, "输出形式"), {"text", "json"});
}

void addRightOption(CLI::App& command, const char* name, std::vector<std::string>& words, const char* description) {
  command.add_option(name, words, description)
      ->type_name("RIGHT")
      ->expected(1)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void addAddCommand(CLI::App& parent, Work& work, const Options& options) {
  auto* command = addKeeping(parent, work, options, "add", "增加一个操作员；第一个必须有全部权限", addOperator);
  command->add_option("NAME", options->name, "姓名，与其他操作员不同")->required()->type_name("");
  command->add_flag("--all", options->every, "给全部权限");
  addRightOption(*command, "--right", options->give, "给一种权限：编号、名称、报表名称或一类的名称；可以重复");
  command->footer("说明\n  新口令取自环境变量 TZ_NEW_PASSWORD，或在终端上输入两次，不能写在命令行上。" +
                  passwordRule() + "。\n  有了操作员以后，打开帐套、运行报表都要登录。");
}

void addRightsCommand(CLI::App& parent, Work& work, const Options& options) {
  auto* command = addKeeping(parent, work, options, "rights", "显示或更改一个操作员的权限", keepRights);
  addMeant(*command, options, "操作员的姓名");
  addRightOption(*command, "--give", options->give, "给一种权限：编号、名称、报表名称或一类的名称；可以重复");
  addRightOption(*command, "--take", options->take, "收回一种权限，写法同 --give；可以重复");
  auto* every = command->add_flag("--all", options->every, "给全部权限");
  command->add_flag("--not-all", options->notEvery, "收回“全部权限”，留下单独给的权限")->excludes(every);
  addForm(*command, options);
  command->footer(
      "说明\n  不加 --give、--take、--all、--not-all 时，列出全部权限，并标明他有哪些。\n"
      "  只改写明的权限，别人同时给的其他权限不受影响。总要留下一个有全部权限、能够登录的操作员。");
}

}  // namespace

void addOperatorCommand(CLI::App& app, Work& work) {
  auto* parent = app.add_subcommand("operator", "管理操作员：谁可以登录，有哪些权限");
  parent->require_subcommand(1);
  const auto options = std::make_shared<OperatorOptions>();
  auto* listCommand = addKeeping(*parent, work, options, "list", "列出操作员及其权限", listOperators);
  addForm(*listCommand, options);
  addAddCommand(*parent, work, options);
  addRightsCommand(*parent, work, options);
  auto* renameCommand = addKeeping(*parent, work, options, "rename", "更改一个操作员的姓名", renameOperator);
  addMeant(*renameCommand, options, "现在的姓名");
  renameCommand->add_option("NEWNAME", options->newName, "新的姓名")->required()->type_name("");
  renameCommand->footer("说明\n  操作日志里以前的记录仍用原来的姓名。");
  auto* passwordCommand = addKeeping(*parent, work, options, "password", "更改一个操作员的口令", changePassword);
  addMeant(*passwordCommand, options, "操作员的姓名");
  passwordCommand->footer(
      "说明\n  不写 --operator 时是本人更改：TZ_PASSWORD "
      "或第一次提示是现在的口令。别人的口令由有全部权限的操作员更改。\n"
      "  新口令取自环境变量 TZ_NEW_PASSWORD，或在终端上输入两次。" +
      passwordRule() + "。");
  auto* removeCommand = addKeeping(*parent, work, options, "remove", "删除一个操作员", removeOperator);
  addMeant(*removeCommand, options, "操作员的姓名");
  removeCommand->add_flag("--yes", options->yes, "最后一个操作员也删除：以后谁都不用登录");
  parent->footer("说明\n  要由有全部权限的操作员登录；还没有操作员的帐套，谁都可以增加第一个。");
}

}  // namespace tz::cli
