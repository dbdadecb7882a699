// tzassistant clear: two-clearing marks by hand, automatic matching, their check and what takes them back.
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <map>
#include <nlohmann/json.hpp>

#include "cli/cli.h"
#include "cli/logon.h"
#include "cli/refuse.h"
#include "cli/report_writer.h"
#include "cli/values.h"
#include "core/grid/figures.h"
#include "core/receivables/automatic_matching.h"
#include "core/receivables/clearing_check.h"
#include "core/receivables/clearing_marks.h"
#include "core/receivables/clearing_report.h"
#include "core/reports/explain_error.h"
#include "core/reports/members.h"

namespace tz::cli {
namespace {

using ClearJson = nlohmann::ordered_json;

struct ClearOptions {
  std::string ledger;
  std::string operatorName;
  std::string form = "text";
  std::string kind;
  Id line = 0, voucher = 0;
  bool yes = false;
  bool all = false;
  std::map<ParameterKey, std::string> values;

  [[nodiscard]] std::string value(ParameterKey key) const {
    const auto found = values.find(key);
    return found == values.end() ? "" : found->second;
  }
};

constexpr std::int64_t largestLineId = (std::int64_t{1} << 53) - 1;

// The ledger opened and the operator logged on, for one piece of work.
class ClearWork {
 public:
  ClearWork(const ClearOptions& options, Access access) : db_(access), options_(options) { db_.Open(options.ledger); }

  // Runs `work( session )`, unless nobody logs on.
  Status run(const std::function<Status(Session&)>& work) {
    const auto who = logOnFromTerminal(db_, options_.operatorName);
    if (!who) return Status::noRight;
    Session session{.db = db_, .ledger = options_.ledger, .logon = defaultLogonDate(db_), .who = *who};
    session.ask = answeredBefore(options_.yes, "--yes", [](const std::string& question) { complain(question); });
    return work(session);
  }

 private:
  CQnCwDB db_;
  const ClearOptions& options_;
};

bool mayClear(const Operator& who, ClearingKind kind) {
  const auto right = rightOf(kind);
  return static_cast<bool>(CCheckAuth(who, right.right, 1, right.name));
}

Status refuseKind(const Operator& who, ClearingKind kind) {
  const auto right = rightOf(kind);
  return refuseRight(who, right.right, right.name);
}

void answer(const ClearOptions& options, const ClearJson& json, const std::string& text) {
  print((options.form == "json" ? json.dump() : text) + "\n");
}

Status toggle(const ClearOptions& options, Session& session) {
  const auto found = findClearedLine(session, options.line, options.voucher);
  if (const auto* refusal = std::get_if<Refusal>(&found)) return refuse(*refusal);
  const auto& line = std::get<ClearedLine>(found);
  // A line may be of both: either right will do.
  auto kind = line.ofPerson ? ClearingKind::person : ClearingKind::unit;
  if (line.ofPerson && line.ofUnit && !mayClear(session.who, kind)) kind = ClearingKind::unit;
  if (!mayClear(session.who, kind)) return refuseKind(session.who, kind);
  const auto outcome = toggleMark(session, kind, line.line, line.voucher);
  if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refuse(*refusal);
  const int mark = std::get<Toggled>(outcome).mark;
  answer(options, {{"line", options.line}, {"flag", mark}},
         fmt::format("分录 {} {}", options.line, mark == 0 ? "现在未两清" : "现在已两清（√）"));
  return Status::done;
}

ClearingKind kindNamed(const std::string& name) { return name == "unit" ? ClearingKind::unit : ClearingKind::person; }

Status reverse(const ClearOptions& options, Session& session) {
  const auto kind = kindNamed(options.kind);
  if (!mayClear(session.who, kind)) return refuseKind(session.who, kind);
  const auto outcome = reverseClearing(session, kind);
  if (std::holds_alternative<Cancelled>(outcome)) return Status::refused;
  const auto lines = std::get<std::int64_t>(outcome);
  answer(options, {{"lines", lines}}, fmt::format("已反两清 {} 条分录", lines));
  return Status::done;
}

Status undo(const ClearOptions& options, Session& session) {
  const auto batch = lastBatch(session);
  if (!batch) return refuse(refusalWith(nothingToUndo));
  const bool unknown = batch->work.what == MarkWork::What::unknown;
  const auto kind = unknown && !mayClear(session.who, ClearingKind::person) ? ClearingKind::unit : batch->work.kind;
  if (!mayClear(session.who, kind)) return refuseKind(session.who, kind);
  const auto outcome = undoBatch(session, *batch);
  if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refuse(*refusal);
  if (std::holds_alternative<Cancelled>(outcome)) return Status::refused;
  const auto& undone = std::get<Undone>(outcome);
  auto text = fmt::format("已撤销{}：{} 条分录", workText(batch->work), undone.lines);
  if (undone.kept != 0) text += fmt::format("；{} 条在这以后又改过，保持不变", undone.kept);
  answer(options, {{"lines", undone.lines}, {"kept", undone.kept}}, text);
  return Status::done;
}

Request requestOfCheck(const ClearOptions& options) {
  Request request;
  for (const auto& [key, value] : options.values) {
    if (!value.empty()) request.set(key, value);
  }
  return request;
}

Status check(const ClearOptions& options, Session& session) {
  const bool unit = options.kind.empty() ? !options.value(ParameterKey::unit).empty() : options.kind == "unit";
  const auto kind = unit ? ClearingKind::unit : ClearingKind::person;
  for (const auto key : {ParameterKey::dept, ParameterKey::person, ParameterKey::unit}) {
    const bool ofUnit = key == ParameterKey::unit;
    if (ofUnit != unit && !options.value(key).empty()) {
      throw WrongUse(key, fmt::format("不是{}两清的条件", clearingName(kind)));
    }
  }
  if (!mayClear(session.who, kind)) return refuseKind(session.who, kind);
  const auto outcome = runReport(clearingReport(kind), requestOfCheck(options), session);
  if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refuse(*refusal);
  const auto result = checkClearing(std::get<ComputedReport>(outcome));
  const auto figure = [](double amount) { return figureText(amount, ColumnKind::amount); };
  answer(options, {{"level", result.level}, {"debit", result.debit}, {"credit", result.credit}},
         result.level ? std::string(levelMessage(kind).text)
                      : fmt::format("{0}不平：借方勾对{0} {1}，贷方勾对{0} {2}", result.foreign ? "外币" : "金额",
                                    figure(result.debit), figure(result.credit)));
  return Status::done;
}

// Whose lines are matched, or why nobody's.
std::variant<std::vector<Party>, Refusal> partiesOf(const ClearOptions& options, ClearingKind kind, Session& session) {
  if (options.all) return allParties(session, kind);
  if (kind == ClearingKind::person) {
    const auto dept = findDept(session.db, {options.value(ParameterKey::dept)});
    if (!dept) return Refusal{.text = "非法的部门，请重新输入。"};
    return partiesOfDept(session, dept->lDeptId);
  }
  const auto unit = findUnit(session.db, {options.value(ParameterKey::unit)});
  if (!unit) return Refusal{.text = "非法的单位"};
  return std::vector{Party{unit->lId, unit->sEnterName}};
}

void requireParties(const ClearOptions& options, ClearingKind kind) {
  const auto own = kind == ClearingKind::person ? ParameterKey::dept : ParameterKey::unit;
  const auto other = kind == ClearingKind::person ? ParameterKey::unit : ParameterKey::dept;
  if (!options.value(other).empty()) throw WrongUse(other, fmt::format("不是{}勾对的条件", clearingName(kind)));
  if (options.all == options.value(own).empty()) return;
  throw WrongUse(fmt::format("请给出 --{} 或 --all 之一", parameter(own).option));
}

ClearJson matchJson(const MatchOutcome& outcome) {
  auto accounts = ClearJson::array();
  for (const auto& one : outcome.accounts) {
    accounts.push_back({{"account", one.account.sCode},
                        {"name", one.account.sName},
                        {"by_number", one.counts.byNumber},
                        {"pairwise", one.counts.pairwise},
                        {"whole", one.counts.whole}});
  }
  return {{"accounts", accounts}};
}

void tellMatched(const ClearOptions& options, const MatchOutcome& outcome) {
  if (options.form == "json")
    return print(matchJson(outcome).dump(1, ' ', false, ClearJson::error_handler_t::replace) + "\n");
  ComputedReport report;
  report.title = matchResultTitle;
  fillMatchGrid(outcome, report.grid);
  writeReport(report, {});
}

Status match(const ClearOptions& options, Session& session) {
  const auto kind = kindNamed(options.kind);
  requireParties(options, kind);
  if (!mayClear(session.who, kind)) return refuseKind(session.who, kind);
  const auto parties = partiesOf(options, kind, session);
  if (const auto* refusal = std::get_if<Refusal>(&parties)) return refuse(*refusal);
  const auto outcome = matchAutomatically(session, kind, std::get<std::vector<Party>>(parties));
  if (!outcome.failure) {
    tellMatched(options, outcome);
    return Status::done;
  }
  const auto [byNumber, pairwise, whole] = outcome.all();
  const auto marked = byNumber + pairwise + whole;
  if (marked != 0) tellMatched(options, outcome);
  complain(fmt::format("{}\n{}", tz::explain(*outcome.failure), brokenOffText(outcome)));
  return Status::failed;
}

// What one of the subcommands does, by whom it may be done and how it is asked for.
struct ClearSubcommand {
  const char* name;
  const char* about;
  Status (*work)(const ClearOptions&, Session&);
  Access access = Access::report;
};

using SharedOptions = std::shared_ptr<ClearOptions>;

CLI::App* addSubcommand(CLI::App& clear, Work& work, const ClearSubcommand& subcommand, const SharedOptions& options) {
  auto* command = clear.add_subcommand(subcommand.name, subcommand.about);
  command->add_option("--ledger", options->ledger, "帐套的文件名或 postgresql:// 地址")
      ->required()
      ->type_name("LEDGER");
  command->add_option("--operator", options->operatorName, "操作员；口令取自 TZ_PASSWORD 或提示")->type_name("NAME");
  letChoose(*command->add_option("--as", options->form, "输出形式"), {"text", "json"});
  command->callback([&work, options, subcommand] {
    work = [options, subcommand] {
      return ClearWork(*options, subcommand.access).run([&](Session& session) {
        return subcommand.work(*options, session);
      });
    };
  });
  return command;
}

CLI::Option* addKind(CLI::App& command, const SharedOptions& options) {
  auto* kind = command.add_option("--kind", options->kind, "person 个人往来，unit 单位往来");
  letChoose(*kind, {"person", "unit"});
  return kind;
}

void addCondition(CLI::App& command, ParameterKey key, const SharedOptions& options) {
  const auto& condition = parameter(key);
  command.add_option("--" + std::string(condition.option), options->values[key], std::string(condition.help))
      ->type_name(std::string(condition.valueName))
      ->group("条件");
}

}  // namespace

void addClearCommand(CLI::App& app, Work& work) {
  auto* clear = app.add_subcommand("clear", "往来两清：勾对、反两清、平衡检查、自动勾对、撤销");
  clear->require_subcommand(1);
  const auto made = [] { return std::make_shared<ClearOptions>(); };

  auto options = made();
  auto* command = addSubcommand(*clear, work, {"toggle", "改一条已记帐分录的两清标记", toggle}, options);
  auto* line =
      command->add_option("--line", options->line, "分录的编号 lId，见 report 10192、10211 的 json")->required();
  letCount(*line->type_name("ID"), 1, largestLineId);
  auto* voucher = command->add_option("--voucher", options->voucher,
                                      "它的凭证的编号 lTieId，见 find、log 的 json；几张凭证有同一编号的分录时需要");
  letCount(*voucher->type_name("LTIEID"), 1, largestLineId);
  command->footer("说明\n  未两清的分录变成手工两清（√），已两清的（√ 或 ○）变成未两清。");

  options = made();
  command = addSubcommand(*clear, work, {"reverse", "取消全部个人或全部单位在全部科目上的两清标记", reverse}, options);
  addKind(*command, options)->required();
  command->add_flag("--yes", options->yes, "回答“是”；没有它就不执行");
  command->footer("说明\n  涉及全部个人（或全部单位）的全部科目，不只是一张表；可以用 clear undo 撤销。");

  options = made();
  command =
      addSubcommand(*clear, work, {"check", "检查一张两清表里有标记的分录借贷是否相等", check, Access::read}, options);
  addKind(*command, options);
  for (const auto key : {ParameterKey::account, ParameterKey::dept, ParameterKey::person, ParameterKey::unit,
                         ParameterKey::month, ParameterKey::format}) {
    addCondition(*command, key, options);
  }
  command->footer("说明\n  给出单位的是单位往来，否则是个人往来；外币金额式和数量外币式比较外币。");

  options = made();
  command = addSubcommand(*clear, work, {"match", "自动勾对互相结清的分录", match}, options);
  addKind(*command, options)->required();
  addCondition(*command, ParameterKey::dept, options);
  addCondition(*command, ParameterKey::unit, options);
  command->add_flag("--all", options->all, "全部个人或全部单位")->group("条件");
  command->footer(
      "说明\n  " + std::string(clearingRules[5]) +
      "\n  个人往来勾对一个部门的全部个人，单位往来勾对一个单位；每个科目的每个个人或单位要么全部写入，要么完全不写。");

  options = made();
  command = addSubcommand(*clear, work, {"undo", "撤销最近一批两清标记", undo}, options);
  command->add_flag("--yes", options->yes, "最近一批是别的操作员的，也撤销");
  command->footer("说明\n  " + std::string(clearingRules[6]) + "在这以后又改过的分录保持不变。");
}

}  // namespace tz::cli
