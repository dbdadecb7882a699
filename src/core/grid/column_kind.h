// What a column holds: one kind with one table, which every output and the view of the grid read.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tz {

enum class ColumnKind : std::uint8_t {
  text,
  date,
  isoDate,  // "2006-01-05"; other dates are "2006.01.05"
  amount,   // home currency: balances and others that no line adds to
  quantity,
  foreign,
  price,
  rate,
  count,
  // What lines move, the two sides and each unit apart.
  debitAmount,
  creditAmount,
  debitQuantity,
  creditQuantity,
  debitForeign,
  creditForeign,
  repeatedAmount,  // the line's amount once more, in the column of its sub-account
};

// How a number is shown. `scale` is a one with as many zeros as there are decimals.
struct FigureForm {
  int decimals;
  int kept;  // so many of them even where they are zeros
  double scale;

  [[nodiscard]] constexpr bool fixed() const { return kept == decimals; }
};
inline constexpr FigureForm wholeForm{0, 0, 1};
inline constexpr FigureForm amountForm{2, 2, 1e2};
inline constexpr FigureForm priceForm{4, 2, 1e4};
inline constexpr FigureForm fourDecimals{4, 0, 1e4};
inline constexpr FigureForm sixDecimals{6, 0, 1e6};

struct ColumnTraits {
  enum class Content : std::uint8_t { text, date, number };
  enum class Sum : std::uint8_t {
    none,     // balances, prices and rates do not add up
    ofLines,  // the figures of voucher lines do
    bySide,   // so do these, as figures of the side on which the line stands
  };

  ColumnKind kind;
  Content content;
  FigureForm form;                // of numbers, which may stand among texts and dates too
  std::string_view caption = {};  // below that of a group
  Sum sum = Sum::none;
  std::string_view sumName = {};  // of what lines add up to

  [[nodiscard]] constexpr bool isNumber() const { return content == Content::number; }
  [[nodiscard]] constexpr bool alignsRight() const { return isNumber(); }
};

// Each at the place of its value.
inline constexpr std::array columnKinds = [] {
  using enum ColumnTraits::Content;
  using enum ColumnTraits::Sum;
  return std::array{
      ColumnTraits{ColumnKind::text, text, sixDecimals},
      ColumnTraits{ColumnKind::date, date, sixDecimals},
      ColumnTraits{ColumnKind::isoDate, date, sixDecimals},
      ColumnTraits{ColumnKind::amount, number, amountForm, "金额"},
      ColumnTraits{ColumnKind::quantity, number, fourDecimals, "数量"},
      ColumnTraits{ColumnKind::foreign, number, amountForm, "外币"},
      ColumnTraits{ColumnKind::price, number, priceForm, "单价"},
      ColumnTraits{ColumnKind::rate, number, sixDecimals, "汇率"},
      ColumnTraits{ColumnKind::count, number, wholeForm},
      ColumnTraits{ColumnKind::debitAmount, number, amountForm, "金额", ofLines, "借方"},
      ColumnTraits{ColumnKind::creditAmount, number, amountForm, "金额", ofLines, "贷方"},
      ColumnTraits{ColumnKind::debitQuantity, number, fourDecimals, "数量", ofLines, "借方数量"},
      ColumnTraits{ColumnKind::creditQuantity, number, fourDecimals, "数量", ofLines, "贷方数量"},
      ColumnTraits{ColumnKind::debitForeign, number, amountForm, "外币", ofLines, "借方外币"},
      ColumnTraits{ColumnKind::creditForeign, number, amountForm, "外币", ofLines, "贷方外币"},
      ColumnTraits{ColumnKind::repeatedAmount, number, amountForm, "金额", bySide},
  };
}();

[[nodiscard]] constexpr const ColumnTraits& traitsOf(ColumnKind kind) {
  return columnKinds[static_cast<std::size_t>(kind)];
}

}  // namespace tz
