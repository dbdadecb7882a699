#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>

#include "core/output/grid_reports.h"

namespace tz::test {
namespace {

std::string asJson(const ComputedReport& report) {
  std::string text;
  EXPECT_TRUE(writeJson(report, into(text)));
  return text;
}

TEST(JsonOutput, DetailLedger) {
  ComputedReport report = ledgerReport();
  report.subtitle = "科目：1133\n部门：销售部";
  report.grid.SetRows(6);
  report.conditions = {"余额分析", "包含未记帐凭证"};
  report.grid.notices = {Notice{"有\"1\"条", Notice::Weight::incomplete}, Notice{"完"}};
  EXPECT_EQ(asJson(report), R"(
{"report": 10190, "window": 518, "title": "三栏式明细帐", "subtitle": "科目：1133\n部门：销售部", "period": "月份: 2006.01 - 2006.02",
 "unit": "", "format": "金额式",
 "conditions": ["余额分析", "包含未记帐凭证"],
 "columns": [
  {"caption": "日期", "group": "", "width": 70},
  {"caption": "凭证号", "group": "", "width": 60},
  {"caption": "摘要", "group": "", "width": 120},
  {"caption": "借方", "group": "", "width": 100},
  {"caption": "贷方", "group": "", "width": 100},
  {"caption": "方向", "group": "", "width": 40},
  {"caption": "余额", "group": "", "width": 100}],
 "rows": [
  {"cells": [null, null, "个人期初", null, null, "借", 250.0], "background": null, "data": 0},
  {"cells": ["2006.01.05", "记-0001", "预借差旅费", 1000.0, null, "借", 1250.0], "background": null, "data": 0},
  {"cells": [null, null, "本月合计", 1000.0, null, "借", 1250.0], "background": null, "data": 0},
  {"cells": [null, null, "本年累计", 1000.0, null, "借", 1250.0], "background": null, "data": 0},
  {"cells": ["2006.02.03", "记-0012", "冲销多借", -30.5, null, "借", 1219.5], "background": null, "data": 0},
  {"cells": ["2006.02.10", "记-0020", "还款", null, 1219.5, "平", null], "background": "#E0FFE0", "data": 1}],
 "notices": ["有\"1\"条", "完"]}
)" + 1);
}

TEST(JsonOutput, EmptyGrid) {
  const auto json = nlohmann::json::parse(asJson(ComputedReport{}));
  EXPECT_EQ(json["rows"], nlohmann::json::array());
  EXPECT_EQ(json["columns"], nlohmann::json::array());
  EXPECT_EQ(json["notices"], nlohmann::json::array());
}

TEST(JsonOutput, NumbersReadBackAsTheyWere) {
  ComputedReport report;
  report.grid.AddColumn({"额", "", 100, ColumnKind::amount});
  const std::vector<double> numbers{0.1 + 0.2, 1e15, 1e-7, 123456789.125, -0.005, 1.7976931348623157e308, 5e-324, 1e14};
  for (const double number : numbers) addRow(report.grid, {number});
  const std::string text = asJson(report);
  const auto rows = nlohmann::json::parse(text)["rows"];
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    ASSERT_TRUE(rows[i]["cells"][0].is_number_float());
    EXPECT_EQ(rows[i]["cells"][0].get<double>(), numbers[i]);
  }
  EXPECT_NE(text.find("[0.30000000000000004]"), std::string::npos);
  EXPECT_NE(text.find("[100000000000000.0]"), std::string::npos);
}

TEST(JsonOutput, WhatIsNoNumberOrNoTextIsNull) {
  ComputedReport report;
  report.grid.AddColumn({"额", "", 100, ColumnKind::amount});
  addRow(report.grid, {std::nan("")});
  addRow(report.grid, {-std::numeric_limits<double>::infinity()});
  addRow(report.grid, {""});
  addRow(report.grid, {-0.0});
  const auto rows = nlohmann::json::parse(asJson(report))["rows"];
  for (std::size_t i = 0; i < 3; ++i) EXPECT_TRUE(rows[i]["cells"][0].is_null()) << i;
  EXPECT_EQ(rows[3]["cells"][0].dump(), "0.0");
}

TEST(JsonOutput, HostileTexts) {
  ComputedReport report;
  report.grid.AddColumn({"摘要", "", 100, ColumnKind::text});
  addRow(report.grid, {"\x01\x1f\"\\\n\t\r/\x7f𠮷"});
  addRow(report.grid, {"a\xff\xe4\xb8z\xed\xa0\x80\xc0\xaf"});
  const auto rows = nlohmann::json::parse(asJson(report))["rows"];
  EXPECT_EQ(rows[0]["cells"][0], "\x01\x1f\"\\\n\t\r/\x7f𠮷");
  EXPECT_EQ(rows[1]["cells"][0], "a\uFFFD\uFFFD\uFFFDz\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
}

}  // namespace
}  // namespace tz::test
