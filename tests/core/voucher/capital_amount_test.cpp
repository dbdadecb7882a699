#include "core/voucher/capital_amount.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tz::test {
namespace {

TEST(CapitalAmount, SaysEveryPlaceAndEveryZero) {
  const std::vector<std::pair<double, const char*>> cases = {
      {1234.56, "壹仟贰佰叁拾肆元伍角陆分"},
      {6789, "陆仟柒佰捌拾玖元整"},
      // Nothing, less than a yuan, and what ends with jiao.
      {0, "零元整"},
      {-0.0, "零元整"},
      {0.01, "壹分"},
      {0.1, "壹角整"},
      {0.53, "伍角叁分"},
      {1, "壹元整"},
      {10, "壹拾元整"},
      {15.5, "壹拾伍元伍角整"},
      // Zeros between: one for a run of them, none at the end.
      {1409.5, "壹仟肆佰零玖元伍角整"},
      {6007.14, "陆仟零柒元壹角肆分"},
      {325.04, "叁佰贰拾伍元零肆分"},
      {1680.32, "壹仟陆佰捌拾元零叁角贰分"},
      {20.05, "贰拾元零伍分"},
      {100, "壹佰元整"},
      {1010, "壹仟零壹拾元整"},
      // Beyond ten thousand and a hundred million.
      {16409.02, "壹万陆仟肆佰零玖元零贰分"},
      {107000.53, "壹拾万柒仟元零伍角叁分"},
      {100001, "壹拾万零壹元整"},
      {10010, "壹万零壹拾元整"},
      {10000, "壹万元整"},
      {20100000, "贰仟零壹拾万元整"},
      {100000000, "壹亿元整"},
      {100000001, "壹亿零壹元整"},
      {100010000, "壹亿零壹万元整"},
      {110010000, "壹亿壹仟零壹万元整"},
      {1000000000000, "壹万亿元整"},
      {1000100000000.5, "壹万零壹亿元零伍角整"},
      {1200000030004, "壹万贰仟亿零叁万零肆元整"},
      {10000000000000000, "壹亿亿元整"},
      // Red entries, and rounding as figures are rounded.
      {-200, "负贰佰元整"},
      {-0.05, "负伍分"},
      {1.005, "壹元零壹分"},
      {0.995, "壹元整"},
      {9999.999, "壹万元整"},
      {-0.001, "零元整"},
      {0.1 + 0.2, "叁角整"},
  };
  for (const auto& [amount, text] : cases) EXPECT_EQ(capitalAmount(amount), text) << amount;
  EXPECT_EQ(capitalAmount(std::numeric_limits<double>::infinity()), "");
  EXPECT_EQ(capitalAmount(std::nan("")), "");
}

// What the text of an amount below 亿 says when it is read back, in cents.
std::int64_t readBack(const std::string& text) {
  const std::string numerals = "零壹贰叁肆伍陆柒捌玖";
  constexpr std::size_t bytes = 3;
  std::int64_t all = 0;
  std::int64_t group = 0;
  std::int64_t digit = 0;
  for (std::size_t place = 0; place < text.size(); place += bytes) {
    const auto sign = text.substr(place, bytes);
    const auto found = numerals.find(sign);
    if (found != std::string::npos) {
      digit = static_cast<std::int64_t>(found / bytes);
    } else if (sign == "拾" || sign == "佰" || sign == "仟") {
      group += digit * (sign == "拾" ? 10 : sign == "佰" ? 100 : 1000);
      digit = 0;
    } else if (sign == "万") {
      all = (group + digit) * 10'000;
      group = digit = 0;
    } else if (sign == "元") {
      all = (all + group + digit) * 100;
      group = digit = 0;
    } else if (sign == "角" || sign == "分") {
      all += digit * (sign == "角" ? 10 : 1);
      digit = 0;
    }
  }
  return all;
}

TEST(CapitalAmount, ReadsBackAsTheSameAmount) {
  std::uint32_t random = 20060105;
  for (int i = 0; i < 20'000; ++i) {
    random = random * 1'664'525 + 1'013'904'223;
    // Many zeros among the digits.
    std::int64_t cents = 0;
    for (int place = 0; place < 10; ++place) {
      const auto bits = random >> (2 * place + 8) & 15;
      cents = cents * 10 + (bits < 8 ? 0 : bits - 6);
    }
    const auto text = capitalAmount(static_cast<double>(cents) / 100);
    ASSERT_EQ(readBack(text), cents) << text;
    ASSERT_EQ(text.find("零零"), std::string::npos) << text;
  }
}

}  // namespace
}  // namespace tz::test
