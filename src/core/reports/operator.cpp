#include "core/reports/operator.h"

#include <algorithm>
#include <fmt/format.h>

#include "core/reports/password_hash.h"

namespace tz {

bool needsLogon(const CQnCwDB& db) { return db.Exists("zOperator", "1 = 1"); }

LogonQuestion logonQuestion(const CQnCwDB& db, std::string_view name) {
  const auto all = db.zOperator_GetInfo("lId > 0 ORDER BY lId");
  const auto found = std::ranges::find(all, name, &zOperatorInfo::sName);
  const auto like = std::ranges::find_if(all, [](const auto& one) { return acceptableHash(one.sPassHash); });
  LogonQuestion question;
  question.hash = like == all.end() ? nobodysHash() : like->sPassHash;
  // Somebody unknown is looked up and checked as everybody is.
  const bool known = found != all.end();
  for (const auto& right : db.zRight_GetInfo(Sql("lOperatorId = ?", known ? found->lId : Id{0}))) {
    question.who.rights.insert(right.nRight);
  }
  if (!known) return question;
  question.who.id = found->lId;
  question.who.name = found->sName;
  question.who.everyRight = found->bAll != 0;
  if (found->sPassHash.empty()) return question;
  if (!acceptableHash(found->sPassHash)) {
    throw UnacceptableHash(
        "帐套中操作员 " + found->sName +
        " 的口令散列不可接受：不是 argon2id 形式，或者核对它要用过多的内存或时间。请管理员重设其口令");
  }
  question.hash = found->sPassHash;
  question.mayLogOn = true;
  return question;
}

std::optional<Operator> logOn(const LogonQuestion& question, const std::string& password) {
  if (!passwordFits(question.hash, password) || !question.mayLogOn) return std::nullopt;
  return question.who;
}

Operator everybody() { return {.name = {}, .everyRight = true, .rights = {}}; }

Operator withRightsOfNow(const CQnCwDB& db, const Operator& who) {
  if (who.id == 0) return needsLogon(db) ? Operator{} : who;
  Operator now{.id = who.id, .name = who.name, .everyRight = false, .rights = {}};
  const auto rows = db.Current().query(Sql(
      "SELECT o.bAll, r.nRight, o.sName FROM zOperator o LEFT JOIN zRight r ON r.lOperatorId = o.lId WHERE o.lId = ?",
      who.id));
  while (rows->next()) {
    now.everyRight = rows->integer(0) != 0;
    now.name = rows->text(2);
    if (rows->kind(1) != CellKind::null) now.rights.insert(static_cast<int>(rows->integer(1)));
  }
  return now;
}

AccessLog& accessLog() {
  static AccessLog log;
  return log;
}

void tellAccess(const AccessEvent& event) {
  if (accessLog()) accessLog()(event);
}

CCheckAuth::CCheckAuth(const Operator& who, int right, int /*always1*/, std::string_view reportName)
    : granted_(who.may(right)) {
  if (!granted_) tellAccess({AccessEvent::Kind::rightRefused, who.name, fmt::format("{}（{} 号）", reportName, right)});
}

}  // namespace tz
