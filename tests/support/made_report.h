// A report that no family has, made by the test itself: three units with their debts at a date. It has no months, no
// amount format and colours of its own, so that a frame which takes those for granted shows.
#pragma once

#include <array>
#include <utility>

#include "core/grid/column_adder.h"
#include "core/reports/report_definition.h"

namespace tz::test {

inline constexpr PeriodForm madePeriod = {
    .text = [](const Conditions& c, int /*year*/) { return "截止日期: " + c.request.text(ParameterKey::cutoff); },
    .painted = [](const Conditions& c, int /*year*/) { return "截止 " + c.request.text(ParameterKey::cutoff); },
    .printed = [](const Conditions& c,
                  int year) { return std::to_string(year) + " 年，" + c.request.text(ParameterKey::cutoff) + " 止"; },
    .inFileName = [](const Conditions& c, int /*year*/) { return c.request.text(ParameterKey::cutoff); },
    .tells = ParameterKey::cutoff,
};
inline constexpr std::array madeToolbar = {
    WindowCommand::exportFile, WindowCommand::query,    WindowCommand::separator, WindowCommand::reverseClearing,
    WindowCommand::detail,     WindowCommand::planView, WindowCommand::help,      WindowCommand::close,
};

inline void fillMadeGrid(const ReportDefinition& /*report*/, Session& /*session*/, const Conditions& /*conditions*/,
                         ComputedReport& computed) {
  CTzGrid& grid = computed.grid;
  CTzGridControl::AddCol(grid, "单位", 120, ColumnKind::text);
  CTzGridControl::AddCol(grid, "欠款", 100, ColumnKind::amount);
  grid.SetRows(3);
  const std::array debts = {std::pair("甲公司", 100.0), std::pair("乙公司", 20.5), std::pair("丙公司", 3.0)};
  for (std::size_t row = 0; row < debts.size(); ++row) {
    grid.SetText(static_cast<std::int64_t>(row), 0, debts.at(row).first);
    grid.SetNumber(static_cast<std::int64_t>(row), 1, debts.at(row).second);
  }
  grid.SetBackground(1, lightGreen);
}

inline ReportDefinition madeReport() {
  return {
      .command = 9000,
      .area = Area::unit,
      .right = 1,
      .rightName = "欠款",
      .window = 9002,
      .windowTitle = "欠款一览",
      .paintedTitle = "欠 款 一 览",
      .printTitle = "欠款一览表",
      .about = "各单位到一个日期为止的欠款。",
      .rules = {},
      .dialog =
          {
              .id = 9001,
              .title = "欠款条件",
              .controls = {ControlSpec{ControlSpec::Kind::date, ParameterKey::cutoff, 2101, 2001, "截止日期"}},
          },
      .toolbar = madeToolbar,
      .period = madePeriod,
      .colours = {.meaning = "已过期", .help = "浅绿色的行已过期"},
      .subtitle = [](const Conditions&) { return std::string("全部单位"); },
      .compute = fillMadeGrid,
  };
}

inline Request atMonthsEnd() {
  Request request;
  request.set(ParameterKey::cutoff, "2006-03-31");
  return request;
}

}  // namespace tz::test
