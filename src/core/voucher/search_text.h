// What somebody looks for across the ledger. One text says it all: any text is part of a summary or of a business
// number; one that reads as a figure is also an amount, a whole number also the number of a voucher, and a word with a
// number ("记-12", "记-0012", "记12") that voucher. Full-width figures and signs read as the usual ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tz {

struct SearchedVoucher {
  std::string word;  // empty: of any word
  int number = 0;

  bool operator==(const SearchedVoucher&) const = default;
};

struct SearchText {
  std::string text;                   // without the blanks around it; empty: nothing is looked for
  std::optional<std::int64_t> cents;  // as it is signed; figures of more than two decimals are no amount
  std::optional<SearchedVoucher> voucher;
};

// Bytes that a text may have; no summary is longer, and databases take patterns up to a length only.
inline constexpr std::size_t longestSearch = 1000;

[[nodiscard]] SearchText readSearchText(std::string_view typed);

// Whether a text contains another one, whatever the case of ASCII letters.
[[nodiscard]] bool containsAnyCase(std::string_view text, std::string_view part);

// How the text is understood, for help and manual.
inline constexpr std::string_view searchRules[] = {
    "任何文字：摘要或业务号含有它的分录，英文字母不分大小写，% 和 _ 就是它们自己",
    "数，如 1,234.50、-300：也找金额等于它的分录，借方贷方都找，精确到分；红字带负号",
    "整数，如 12、0012：也找凭证号是它的凭证",
    "凭证字加号，如 记-12、记-0012、记12：也找那张凭证",
    "全角的数字和符号与半角的一样；已记帐、未记帐和期初的凭证都找",
};

}  // namespace tz
