#include "core/ledger/amount_layout.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace tz::test {
namespace {

struct Header {
  AmountFormat format;
  std::string captions;
  std::string sums;  // the places of what lines move, each with the name of its sum
};

void PrintTo(const Header& header, std::ostream* out) { *out << formatName(header.format); }

class LedgerHeader : public testing::TestWithParam<Header> {};

TEST_P(LedgerHeader, HasTheColumnsOfItsFormat) {
  CTzGrid grid;
  addLedgerColumns(grid, amountLayout(GetParam().format), threeColumnCaptions);
  std::string captions;
  std::string sums;
  for (int place = 0; place < grid.GetCols(); ++place) {
    const auto& column = grid.Columns().at(static_cast<std::size_t>(place));
    const auto name = traitsOf(column.kind).sumName;
    captions += column.group + column.caption + " ";
    if (!name.empty()) sums += fmt::format("{}{} ", place, name);
  }
  EXPECT_EQ(captions, GetParam().captions);
  EXPECT_EQ(sums, GetParam().sums);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, LedgerHeader,
    testing::Values(Header{AmountFormat::amount, "日期 凭证号 摘要 借方 贷方 方向 余额 ", "3借方 4贷方 "},
                    Header{AmountFormat::quantityAmount,
                           "日期 凭证号 摘要 单价 借方数量 借方金额 贷方数量 贷方金额 方向 余额数量 余额单价 余额金额 ",
                           "4借方数量 5借方 6贷方数量 7贷方 "},
                    Header{AmountFormat::foreignAmount,
                           "日期 凭证号 摘要 汇率 借方外币 借方金额 贷方外币 贷方金额 方向 余额外币 余额汇率 余额金额 ",
                           "4借方外币 5借方 6贷方外币 7贷方 "},
                    Header{AmountFormat::quantityForeign,
                           "日期 凭证号 摘要 单价 汇率 借方数量 借方外币 借方金额 贷方数量 贷方外币 贷方金额 方向 "
                           "余额数量 余额单价 余额外币 余额汇率 余额金额 ",
                           "5借方数量 6借方外币 7借方 8贷方数量 9贷方外币 10贷方 "},
                    // Its figures stand where a wider header has their columns.
                    Header{AmountFormat::foreignAlone, "日期 凭证号 摘要 借方 贷方 方向 余额 ",
                           "4借方外币 6贷方外币 "}));

}  // namespace
}  // namespace tz::test
