#include "cli/voucher_writer.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "cli/values.h"
#include "cli/voucher_text.h"
#include "core/grid/figures.h"
#include "core/reports/parameter.h"
#include "core/voucher/capital_amount.h"

namespace tz::cli {
namespace {

using Json = nlohmann::ordered_json;

Json textOrNull(const std::string& text) { return text.empty() ? Json() : Json(text); }
Json idOrNull(Id id) { return id == 0 ? Json() : Json(id); }
// Nothing is null: what a line does not carry is no zero.
Json figureOrNull(double figure) { return figure == 0 ? Json() : Json(figure); }

Json dateJson(Date date) {
  std::string text;
  appendDate(text, date);
  return text;
}

Json memberJson(const VoucherMember& member) {
  if (!member.named()) return {};
  return {{"id", member.id}, {"code", textOrNull(member.code)}, {"name", textOrNull(member.name)}};
}

Json itemJson(const VoucherLine& line) {
  Json item = memberJson(line.item);
  if (!item.is_null()) item["class"] = line.entry.sItemId;
  return item;
}

Json lineJson(const VoucherLine& line) {
  const auto& entry = line.entry;
  return {{"line", entry.lId},
          {"summary", entry.sDigest},
          {"account", {{"code", textOrNull(line.account.sCode)}, {"name", textOrNull(line.accountName)}}},
          {"dept", memberJson(line.dept)},
          {"person", memberJson(line.person)},
          {"unit", memberJson(line.unit)},
          {"project", itemJson(line)},
          {"debit", entry.bDirect != 0 ? Json(entry.mMoney) : Json()},
          {"credit", entry.bDirect != 0 ? Json() : Json(entry.mMoney)},
          {"quantity", figureOrNull(entry.dAmount)},
          {"price", figureOrNull(line.price())},
          {"foreign", figureOrNull(entry.mForeign)},
          {"rate", figureOrNull(entry.dFrat)},
          {"currency", textOrNull(line.currency)},
          {"business_number", textOrNull(entry.sBusiness)},
          {"clerk", textOrNull(entry.sName)},
          {"flag", entry.byFlag}};
}

std::string voucherJson(const Voucher& voucher) {
  const auto& head = voucher.head;
  Json lines = Json::array();
  for (const auto& line : voucher.lines) lines.push_back(lineJson(line));
  const Json json = {{"voucher", head.lTieId},
                     {"posted", voucher.book == Book::posted},
                     {"period", head.byPeroid},
                     {"word", head.sWord},
                     {"number", head.nNumber},
                     {"date", dateJson(head.dtBill)},
                     {"entry_date", dateJson(head.dtDate)},
                     {"attachments", head.nAttach},
                     {"lines", std::move(lines)},
                     {"debit", voucher.debit},
                     {"credit", voucher.credit},
                     {"capital", capitalAmount(voucher.debit)},
                     {"maker", textOrNull(head.sMaker)},
                     {"checker", textOrNull(head.sChecker)},
                     {"poster", textOrNull(head.sPoster)},
                     {"previous", idOrNull(voucher.previous)},
                     {"next", idOrNull(voucher.next)}};
  return json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::vector<std::string> voucherForms() { return {"text", "json"}; }

void writeVoucher(const Voucher& voucher, const OutputOptions& options) {
  const auto forms = voucherForms();
  if (std::ranges::find(forms, options.form) == forms.end()) {
    throw WrongUse(fmt::format("--as：凭证没有 {} 形式，可用：{}", options.form, choiceNames(forms)));
  }
  writeTo(options, [&](const Sink& sink) {
    return sink(options.form == "json" ? voucherJson(voucher) : voucherText(voucher, wantsColour(options)));
  });
}

}  // namespace tz::cli
