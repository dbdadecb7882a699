// Golden files: a ledger in tables, the commands that are run over it, and what each of them must print, all in one
// file that a person can check by head.
//
//     # a comment
//     [Person]                                       a table, as TestLedger::fill takes it
//     lId | sName
//     1   | 张三
//     [report] --account 113301 --dept 销售部 ...    a command
//     title    | 三栏式明细帐                        what it prints: key, then cells
//              | 2006.01.05 | 记-0001 | ...          no key: a plain row; "green": a row of an unposted voucher
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace tz::test {

struct GoldenTable {
  std::string name;
  std::string rows;
};

struct GoldenReport {
  std::string id;                      // "[report 10184]"; 10190 where a file says "[report]"
  std::vector<std::string> arguments;  // behind "report ID --ledger LEDGER"
  std::string expected;                // canonical lines, as shownReport makes them
};

struct GoldenFile {
  std::vector<GoldenTable> tables;
  std::vector<GoldenReport> reports;
};

// Throws std::runtime_error when the file is missing or a line stands outside the sections.
[[nodiscard]] GoldenFile readGoldenFile(const std::string& path);

// The JSON of a report in the form of a golden file: title, subtitle, period, unit and format, captions, rows, notices.
// A text cell that could be taken for a number stands in quotes.
[[nodiscard]] std::string shownReport(const nlohmann::json& report);

}  // namespace tz::test
