// fuzz_seeds FOLDER: the inputs that the fuzz targets begin with, in a folder for each.
#include <filesystem>
#include <fstream>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/data/record_io.h"
#include "core/reports/parameter.h"
#include "fuzz/fuzz_base.h"
#include "support/every_report.h"

namespace {

namespace fs = std::filesystem;
using namespace tz;

void write(const fs::path& path, std::string_view contents) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << contents;
}

void makeLedger(const fs::path& path) {
  fs::create_directories(path.parent_path());
  if (fs::exists(path)) return;
  createLedger(path.string(), [](Connection& connection) {
    insertRecords(connection, std::vector{zAccountMInfo{1, "小公司", "4222", 2025}});
    insertRecords(connection, std::vector{DeptInfo{1, 1, "D1", "销售部"}});
  });
  const auto keeper = openLedger(path.string(), Access::keeper);
  for (const char* statement : {"PRAGMA journal_mode = DELETE", "PRAGMA page_size = 512", "VACUUM"}) {
    keeper->execute(Sql(statement));
  }
}

std::string valueOf(const Parameter& condition) {
  switch (condition.kind) {
    case Parameter::Kind::amount:
      return "1,000.5";
    case Parameter::Kind::date:
      return "2025-06-30";
    case Parameter::Kind::choice:
      return std::string(condition.choices.back().value);
    default:
      return {};
  }
}

// Every report as it is asked of the sample company, with a value for each further condition but names.
void makeArguments(const fs::path& folder) {
  test::Reader reader(fuzz::makeSample((fuzz::folder() / "sample.db").string()));
  for (const auto& question : test::everyReport(reader)) {
    const auto id = std::to_string(question.report->command);
    std::string text = "report\n" + id + "\n--ledger\n@\n";
    for (const auto key : parametersOf(*question.report)) {
      const auto& condition = parameter(key);
      const auto& asked = question.request.values();
      const auto value = asked.contains(key) ? asked.at(key) : valueOf(condition);
      if (value.empty()) continue;
      text += "--" + std::string(condition.option) + "\n";
      if (condition.kind != Parameter::Kind::flag) text += value + "\n";
    }
    write(folder / id, text + "--as\njson\n-o\nout\n");
  }
  write(folder / "check", "ledger\ncheck\n@\n");
  write(folder / "create", "ledger\ncreate\nnew.db\n--year\n2025\n--name\n新\n");
  write(folder / "reports", "reports\n--as\njson\n");
  write(folder / "help", "report\n10190\n--help\n");
}

void makeNames(const fs::path& folder) {
  write(folder / "quote", "O'Brien'; DROP TABLE Plan --");
  write(folder / "signs", "\"\\%_\t\r\n,;|=+-@");
  write(folder / "wide", "销售部\xF0\xA0\x80\x80\xE2\x80\xAE\xCC\x81");
  write(folder / "broken", "\xC3\x28\xED\xA0\x80\xFF");
  write(folder / "long", std::string(300, 'x') + std::string(3, '\0'));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const fs::path folder = argv[1];
  makeLedger(folder / "ledger" / "small.db");
  write(folder / "ledger" / "changes", std::string("\x00\x00\x40\x01\x02\x10\x05\x80", 8));
  makeArguments(folder / "arguments");
  makeNames(folder / "names");
  return 0;
}
