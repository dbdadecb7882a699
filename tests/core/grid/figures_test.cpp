#include "core/grid/figures.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tz::test {
namespace {

struct FigureCase {
  double value;
  const char* text;
};

void checkFigures(ColumnKind kind, std::initializer_list<FigureCase> cases) {
  for (const FigureCase& one : cases) EXPECT_EQ(figureText(one.value, kind), one.text) << one.value;
}

TEST(Figures, AmountsHaveTwoDecimals) {
  checkFigures(ColumnKind::amount, {{0, "0.00"},
                                    {1, "1.00"},
                                    {999.99, "999.99"},
                                    {1000, "1,000.00"},
                                    {-1234567.8, "-1,234,567.80"},
                                    {0.07, "0.07"},
                                    {0.1 + 0.2, "0.30"}});
}

TEST(Figures, TiesGoAwayFromZeroAsWritten) {
  checkFigures(ColumnKind::amount, {{1.005, "1.01"},
                                    {2.675, "2.68"},
                                    {-1.005, "-1.01"},
                                    {1.0049999, "1.00"},
                                    {0.005, "0.01"},
                                    {-0.005, "-0.01"},
                                    {9.995, "10.00"},
                                    {999.995, "1,000.00"},
                                    {99999999.995, "100,000,000.00"},
                                    {1.115, "1.12"},
                                    {0.125, "0.13"}});
}

TEST(Figures, WhatRoundsToZeroHasNoMinus) {
  checkFigures(ColumnKind::amount, {{-0.0, "0.00"}, {-0.001, "0.00"}, {-0.004999, "0.00"}, {-1e-300, "0.00"}});
  checkFigures(ColumnKind::quantity, {{-0.00001, "0"}});
}

TEST(Figures, QuantitiesAndRatesDropZerosAtTheEndPricesKeepTwo) {
  checkFigures(ColumnKind::quantity,
               {{12, "12"}, {1200, "1,200"}, {12.5, "12.5"}, {-0.12345, "-0.1235"}, {1000.0001, "1,000.0001"}});
  checkFigures(ColumnKind::price, {{3.14159, "3.1416"},
                                   {0.00005, "0.0001"},
                                   {10, "10.00"},
                                   {-2.5, "-2.50"},
                                   {1e13, "10,000,000,000,000.00"},
                                   {1.125, "1.125"}});
  checkFigures(ColumnKind::rate, {{8.0702, "8.0702"}, {0.1234565, "0.123457"}, {7, "7"}});
  checkFigures(ColumnKind::count, {{3, "3"}, {1234, "1,234"}, {2.5, "3"}});
}

TEST(Figures, HugeAndUndefinedOnes) {
  checkFigures(ColumnKind::amount, {{123456789012345.67, "123,456,789,012,345.67"},
                                    {1e15, "1,000,000,000,000,000.00"},
                                    {-1e21, "-1,000,000,000,000,000,000,000.00"},
                                    {9.5e22, "95,000,000,000,000,000,000,000.00"},
                                    {std::numeric_limits<double>::infinity(), "∞"},
                                    {-std::numeric_limits<double>::infinity(), "-∞"},
                                    {std::nan(""), "—"}});
  EXPECT_EQ(figureText(std::numeric_limits<double>::max(), ColumnKind::amount).size(), 309U + 102 + 3);
}

// The quick way for ordinary figures and the exact one agree with the C library where no tie is near.
TEST(Figures, AgreeWithPrintf) {
  for (int i = 0; i < 200'000; ++i) {
    const double value = (i * 7919 % 1'000'003) * 37.0 / 1000.0;  // three decimals
    if (std::llround(value * 1000) % 10 == 5) continue;
    char expected[64];
    std::snprintf(expected, sizeof expected, "%.2f", value);
    std::string text = figureText(value, ColumnKind::amount);
    std::erase(text, ',');
    ASSERT_EQ(text, expected);
  }
}

}  // namespace
}  // namespace tz::test
