#include "core/data/amount_format.h"

#include <gtest/gtest.h>

namespace tz::test {
namespace {

TEST(AmountFormats, EachHasANameOfItsOwnAndItsPlaceInTheTable) {
  for (std::size_t place = 0; place < amountFormats.size(); ++place) {
    const auto& traits = amountFormats.at(place);
    EXPECT_EQ(static_cast<std::size_t>(traits.format), place) << traits.name;
    EXPECT_EQ(amountFormatNamed(formatName(traits.format)), traits.format) << traits.name;
    EXPECT_EQ(traits.quantities, traits.name.find("数量") != std::string_view::npos) << traits.name;
    EXPECT_EQ(traits.foreign, traits.name.find("外币") != std::string_view::npos) << traits.name;
  }
  for (const auto* unknown : {"", "金额", "金额式 ", "外币式\n"}) EXPECT_FALSE(amountFormatNamed(unknown)) << unknown;
}

}  // namespace
}  // namespace tz::test
