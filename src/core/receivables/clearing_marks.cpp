#include "core/receivables/clearing_marks.h"

#include <algorithm>
#include <fmt/format.h>

#include "core/receivables/marks_in_turn.h"

namespace tz {
namespace {

constexpr std::string_view suite = "岚川财务软件";

Refusal unmarkable(Id line, std::string_view why) { return {.text = fmt::format("编号为 {} 的分录{}", line, why)}; }

// Who changed a line last and when, as far as the log knows. A ledger without operators knows no names.
std::string lastHand(Connection& connection, const ClearedLine& line) {
  const auto rows = connection.query(
      Sql("SELECT sOperator, sWhen FROM MarkLog WHERE lLineId = ? AND lTieId = ? ORDER BY lId DESC LIMIT 1", line.line,
          line.voucher));
  if (!rows->next()) return "被别的程序";
  const auto when = localTextOf(std::string(rows->text(1)));
  return rows->text(0).empty() ? fmt::format("在 {} 被", when) : fmt::format("被{}（{}）", rows->text(0), when);
}

std::string_view markName(int mark) { return mark == 0 ? "未两清" : mark == 1 ? "手工两清（√）" : "自动两清（○）"; }

ToggleOvertaken overtaken(Session& session, const ClearedLine& line) {
  return {line.mark, fmt::format("这条分录的两清标记已{}改动，现在是{}，没有再改。",
                                 lastHand(session.db.Current(), line), markName(line.mark))};
}

std::vector<MarkChange> marksOf(Connection& connection, ClearingKind kind) {
  const auto* const party = kind == ClearingKind::person ? "lPersonId" : "lEnterId";
  const auto rows =
      connection.query(Sql(fmt::format("SELECT lId, lTieId, byFlag FROM RegSub WHERE {} > 0 AND byFlag <> 0", party)));
  std::vector<MarkChange> changes;
  while (rows->next()) changes.push_back({rows->integer(0), rows->integer(1), static_cast<int>(rows->integer(2)), 0});
  return changes;
}

}  // namespace

std::string_view markSign(int mark) { return mark == 0 ? "" : mark == 1 ? "√" : "○"; }

ClearingRight rightOf(ClearingKind kind) {
  constexpr ClearingRight ofPersons{5, "个人往来两清"};
  constexpr ClearingRight ofUnits{79, "单位往来两清"};
  return kind == ClearingKind::person ? ofPersons : ofUnits;
}

std::variant<ClearedLine, Refusal> findClearedLine(Session& session, Id line, Id voucher) {
  auto where = Sql("s.lId = ?", line);
  if (voucher != 0) where += Sql(" AND s.lTieId = ?", voucher);
  const auto rows = session.db.Current().query(
      Sql("SELECT s.lTieId, s.byFlag, s.lPersonId, s.lEnterId, c.sAssBook FROM RegSub s JOIN RegMain m ON "
          "m.lTieId = s.lTieId LEFT JOIN Code c ON c.lId = s.lCodeId WHERE ") +
      where);
  if (!rows->next()) return unmarkable(line, "不在已记帐分录中");
  const auto keeps = [&](char flag) { return rows->text(4).find(flag) != std::string_view::npos; };
  const ClearedLine found{.line = line,
                          .voucher = rows->integer(0),
                          .ofPerson = rows->integer(2) > 0 && keeps('A'),
                          .ofUnit = rows->integer(3) > 0 && keeps('B'),
                          .mark = static_cast<int>(rows->integer(1))};
  if (rows->next()) return unmarkable(line, "不止一条，请指明凭证");
  if (!found.ofPerson && !found.ofUnit) return unmarkable(line, "不是个人往来或单位往来的分录");
  return found;
}

ToggleOutcome toggleMark(Session& session, ClearingKind kind, Id line, Id voucher, std::optional<int> seen) {
  return marksInTurn<ToggleOutcome>(session, [&]() -> std::optional<ToggleOutcome> {
    const auto found = findClearedLine(session, line, voucher);
    if (const auto* refusal = std::get_if<Refusal>(&found)) return *refusal;
    const auto& now = std::get<ClearedLine>(found);
    if (!now.isOf(kind)) return unmarkable(line, fmt::format("不是{}的分录", clearingName(kind)));
    if (seen && markSign(*seen) != markSign(now.mark)) return overtaken(session, now);
    const int wanted = now.mark != 0 ? 0 : 1;
    const MarkChange change{now.line, now.voucher, now.mark, wanted};
    const auto written = markLines(session, std::span(&change, 1), MarkWork::What::toggle, kind);
    if (std::holds_alternative<MarksWritten>(written)) return Toggled{wanted};
    return std::nullopt;
  });
}

Question reverseQuestion(ClearingKind kind) {
  Question question{.text = fmt::format("是否对所有{}业务进行反两清?", clearingName(kind)), .defaultsToNo = true};
  if (kind == ClearingKind::person) question.icon = MessageIcon::information;
  if (kind == ClearingKind::unit) question.caption = suite;
  return question;
}

ReverseOutcome reverseClearing(Session& session, ClearingKind kind) {
  if (!session.ask(reverseQuestion(kind))) return Cancelled{};
  return marksInTurn<ReverseOutcome>(session, [&]() -> std::optional<ReverseOutcome> {
    std::int64_t lines = 0;
    const auto read = [&] {
      auto changes = marksOf(session.db.Current(), kind);
      lines = std::ssize(changes);
      return changes;
    };
    if (std::holds_alternative<MarksOvertaken>(markLines(session, read, MarkWork::What::reverse, kind))) {
      return std::nullopt;
    }
    return lines;
  });
}

}  // namespace tz
