#include <algorithm>
#include <functional>

#include "core/reports/offers.h"

namespace tz {
namespace {

int monthOr(const Request& request, ParameterKey key, int otherwise) {
  const int month = request.month(key);
  return month == 0 ? otherwise : month;
}

bool hasControl(const DialogSpec& dialog, ControlSpec::Kind kind) {
  return std::ranges::find(dialog.controls, kind, &ControlSpec::kind) != dialog.controls.end();
}

// An account left out is refused at once, unless a later check has words for just that.
bool takeAccount(const DialogSpec& dialog, CheckContext& context) {
  auto& conditions = context.conditions;
  const auto& db = context.session.db;
  if (hasControl(dialog, ControlSpec::Kind::accountLists)) {
    conditions.accounts = accountsOf(dialog, db);
    return !conditions.accounts.empty();
  }
  const auto wanted = CGetData::GetCode_Separator(context.request.text(ParameterKey::account));
  if (wanted.empty() &&
      std::ranges::find(dialog.checks, &checks::accountGiven, &Check::passes) != dialog.checks.end()) {
    return !accountsOf(dialog, db).empty();
  }
  // Whether it is one of those offered is asked of this one alone: reading all of them would take a twentieth of a
  // small report.
  const auto* account = conditions.data->GetCODEINFOByCode(wanted);
  if (account == nullptr) return false;
  if (!db.Exists("Code", Sql("lId = ? AND ", account->lId) + Sql(dialog.accountWhere))) return false;
  conditions.account = *account;
  conditions.amounts = CInitComboFun::InitAmountCombox(*conditions.data, wanted);
  return true;
}

// Months that are left out: where none are asked for, the report is about the whole year.
void takeMonths(const DialogSpec& dialog, const Session& session, const Request& request, Conditions& conditions) {
  constexpr int lastMonth = 12;
  if (hasControl(dialog, ControlSpec::Kind::month)) {
    conditions.from = 1;
    conditions.to = monthOr(request, ParameterKey::month, session.logon.month);
    return;
  }
  const bool given = request.month(ParameterKey::from) != 0 || request.month(ParameterKey::to) != 0;
  const bool asks = given || hasControl(dialog, ControlSpec::Kind::months);
  conditions.from = monthOr(request, ParameterKey::from, asks ? session.logon.month : 1);
  conditions.to = monthOr(request, ParameterKey::to, asks ? session.logon.month : lastMonth);
}

Refusal refusal(const DialogSpec& dialog, const Message& message, ParameterKey about) {
  auto refused = refusalWith(message);
  if (refused.caption.empty()) refused.caption = dialog.messageCaption;
  refused.about = about;
  return refused;
}

Refusal noAccountRefusal(const DialogSpec& dialog) { return refusal(dialog, dialog.noAccount, ParameterKey::account); }

Refusal notListed(const DialogSpec& dialog, const Request& request, Unlisted missing) {
  return {.text = messages::notListed(request.text(missing.about)),
          .caption = dialog.messageCaption,
          .about = missing.about,
          .offered = std::move(missing.offered)};
}

std::optional<Refusal> firstRefusal(const DialogSpec& dialog, CheckContext& context, bool atOpening) {
  for (const auto& check : dialog.checks) {
    if (check.atOpening != atOpening) continue;
    try {
      if (!check.passes(context)) return refusal(dialog, check.message, check.about);
    } catch (const DbError& error) {
      throw UnreadAnswer(refusal(dialog, check.message, check.about), error);
    }
  }
  return std::nullopt;
}

// Whether a read of accounts comes to something.
bool hasAccounts(const DialogSpec& dialog, const std::function<bool()>& read) {
  try {
    return read();
  } catch (const DbError& error) {
    throw UnreadAnswer(noAccountRefusal(dialog), error);
  }
}

}  // namespace

Refusal notOpen(const DialogSpec& dialog) {
  auto refused = refusalWith(dialog.databaseNotOpen);
  refused.ledgerNotOpen = true;
  return refused;
}

bool asksForAccount(const DialogSpec& dialog) { return !dialog.accountWhere.empty(); }

std::optional<Refusal> openingRefusal(const DialogSpec& dialog, Session& session) {
  Conditions conditions;
  conditions.data = std::make_shared<CGetData>(session.db);
  const Request nothing;
  CheckContext context{dialog, session, nothing, conditions};
  if (auto refused = firstRefusal(dialog, context, true)) return refused;
  if (!asksForAccount(dialog)) return std::nullopt;
  if (hasAccounts(dialog, [&] { return !accountsOf(dialog, session.db).empty(); })) return std::nullopt;
  return noAccountRefusal(dialog);
}

std::optional<Refusal> unreadOpening(const DialogSpec& dialog) {
  const auto* const first = std::ranges::find(dialog.checks, true, &Check::atOpening);
  if (first != dialog.checks.end()) return refusal(dialog, first->message, first->about);
  return asksForAccount(dialog) ? std::optional(noAccountRefusal(dialog)) : std::nullopt;
}

std::variant<Conditions, Refusal> validate(const DialogSpec& dialog, const Request& request, Session& session) {
  Conditions conditions;
  conditions.request = request;
  conditions.data = std::make_shared<CGetData>(session.db);
  takeMonths(dialog, session, request, conditions);
  conditions.unposted = request.flag(ParameterKey::unposted);
  conditions.hideDetails = request.flag(ParameterKey::hideDetails);
  conditions.hideZero = request.flag(ParameterKey::hideZero);
  conditions.analysis = static_cast<Analysis>(request.choice(ParameterKey::analysis));
  CheckContext context{dialog, session, request, conditions};
  if (auto refused = firstRefusal(dialog, context, true)) return *refused;
  if (asksForAccount(dialog) && !hasAccounts(dialog, [&] { return takeAccount(dialog, context); })) {
    return noAccountRefusal(dialog);
  }
  if (auto refused = firstRefusal(dialog, context, false)) return *refused;
  for (const auto choose : dialog.choices) {
    if (auto missing = choose(context)) return notListed(dialog, request, std::move(*missing));
  }
  return conditions;
}

}  // namespace tz
