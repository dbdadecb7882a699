#include "core/ledger/naive_format.h"

#include <algorithm>

namespace tz::test::naive {

Keeps keptBy(const Ledger& ledger, Id id) {
  Keeps keeps;
  for (const auto& account : ledger.accounts) {
    if (account.lId != id) continue;
    keeps.unit = account.sUnit;
    for (const auto& currency : ledger.currencies) {
      if (account.byExchId == 0 || currency.byExchId != account.byExchId) continue;
      keeps.currency = currency.sName;
      keeps.multiplies = currency.bConvert != 0;
    }
  }
  return keeps;
}

Format formatOf(const Ledger& ledger, const Report& report, const Question& question, const Chosen& chosen) {
  Format format;
  const bool oneAccount = report.accounts.which != Accounts::none && report.accounts.which != Accounts::list;
  if (oneAccount) format.keeps = keptBy(ledger, chosen.accounts.front().lId);
  const auto& keeps = format.keeps;
  const bool units = !oneAccount || !keeps.unit.empty();
  const bool currencies = !oneAccount || !keeps.currency.empty();
  std::vector<std::string> offered = {"金额式"};
  if (units) offered.emplace_back("数量金额式");
  if (currencies) offered.emplace_back("外币金额式");
  if (units && currencies) offered.emplace_back("数量外币式");
  format.name = question.format;
  if (format.name.empty()) format.name = oneAccount ? offered.back() : offered.front();
  if (currencies && !report.columns && report.family == Family::detail) offered.emplace_back("外币式");
  format.wrongUse = std::find(offered.begin(), offered.end(), format.name) == offered.end();
  if (format.name == "数量金额式") format.unit = keeps.unit;
  if (format.name == "外币金额式") format.unit = keeps.currency;
  if (format.name == "数量外币式" && oneAccount) format.unit = keeps.unit + "\n" + keeps.currency;
  return format;
}

}  // namespace tz::test::naive
