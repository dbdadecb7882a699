// The amount formats: what a report shows of an account besides amounts. Everywhere they are values; their names stand
// only where people read or type them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tz {

enum class AmountFormat : std::uint8_t { amount, quantityAmount, foreignAmount, quantityForeign, foreignAlone };

struct AmountFormatTraits {
  AmountFormat format;
  std::string_view name;
  bool amounts;     // in home currency
  bool quantities;  // only of accounts that keep them
  bool foreign;     // foreign amounts, likewise
};

// In the order in which they are offered; each stands at the place of its value.
inline constexpr std::array amountFormats = {
    AmountFormatTraits{AmountFormat::amount, "金额式", true, false, false},
    AmountFormatTraits{AmountFormat::quantityAmount, "数量金额式", true, true, false},
    AmountFormatTraits{AmountFormat::foreignAmount, "外币金额式", true, false, true},
    AmountFormatTraits{AmountFormat::quantityForeign, "数量外币式", true, true, true},
    AmountFormatTraits{AmountFormat::foreignAlone, "外币式", false, false, true},
};

[[nodiscard]] constexpr const AmountFormatTraits& traitsOf(AmountFormat format) {
  return amountFormats.at(static_cast<std::size_t>(format));
}
[[nodiscard]] constexpr std::string_view formatName(AmountFormat format) { return traitsOf(format).name; }
[[nodiscard]] constexpr std::optional<AmountFormat> amountFormatNamed(std::string_view name) {
  for (const auto& traits : amountFormats) {
    if (traits.name == name) return traits.format;
  }
  return std::nullopt;
}

}  // namespace tz
