// Names that people gave: departments, persons, units, accounts and summaries carry the input as their text, and every
// report is asked with it. The outputs must be whole and the ledger must hold as many rows as before.
#include <nlohmann/json.hpp>

#include "core/output/grid_to_file.h"
#include "fuzz/fuzz_base.h"
#include "support/every_report.h"

namespace {

using namespace tz;

constexpr std::pair<const char*, const char*> names[] = {
    {"Dept", "sDeptName"}, {"Person", "sName"}, {"Enter", "sEnterName"}, {"EnterClass", "sName"}};

struct Base {
  std::string path = fuzz::makeSample((fuzz::folder() / "names.db").string());
  std::unique_ptr<Connection> keeper = openLedger(path, Access::keeper);
  std::vector<test::Question> questions = [this] {
    test::Reader reader(path);
    return test::everyReport(reader);
  }();
  Base() { keeper->execute("PRAGMA synchronous = OFF"); }
};

void rename(Connection& keeper, const std::string& from, const std::string& to) {
  for (const auto& [table, column] : names) {
    const std::string text = std::string("UPDATE ") + table + " SET " + column + " = ? WHERE " + column + " = ?";
    keeper.execute(Sql(text, to, from));
  }
}

void checkOutputs(const ComputedReport& report) {
  std::string text;
  const auto sink = [&](std::string_view piece) {
    text += piece;
    return true;
  };
  fuzz::require(writeJson(report, sink) && nlohmann::json::accept(text), "the JSON cannot be read");
  fuzz::require(writeText(report, {}, sink), "no text");
  fuzz::require(writeCsv(report, CsvCode::utf8, sink) && writeCsv(report, CsvCode::gb18030, sink), "no CSV");
}

// The question with the name in the place of the one that its first text condition has; that one is answered.
std::string renamed(test::Question& question, const std::string& name) {
  for (const auto& [key, value] : std::map(question.request.values())) {
    if (parameter(key).kind != Parameter::Kind::text || key == ParameterKey::account) continue;
    question.request.set(key, name);
    return value;
  }
  return {};
}

std::string counts(Connection& keeper) {
  std::string all;
  for (const char* table : {"Dept", "Person", "Enter", "EnterClass", "Code", "RegSub", "Plan", "sqlite_master"}) {
    const auto cursor = keeper.query(Sql(std::string("SELECT count(*) FROM ") + table));
    fuzz::require(cursor->next(), "a table is gone");
    all += cursor->anyText(0) + " ";
  }
  return all;
}

void ask(Base& base, test::Question question, const std::string& name) {
  const auto before = renamed(question, name);
  if (!before.empty()) rename(*base.keeper, before, name);
  {
    test::Reader reader(base.path);
    const auto outcome = reader.ask(question);
    if (const auto* report = std::get_if<ComputedReport>(&outcome)) checkOutputs(*report);
  }
  if (!before.empty()) rename(*base.keeper, name, before);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Base base;
  static const auto rows = counts(*base.keeper);
  const std::string name(reinterpret_cast<const char*>(data), size);
  base.keeper->execute(Sql("UPDATE RegSub SET sDigest = ? WHERE lId % 16 = 0", name));
  base.keeper->execute(Sql("UPDATE Code SET sName = ?", name));
  for (const auto& question : base.questions) {
    try {
      ask(base, question, name);
    } catch (const WrongUse&) {
      continue;  // no text in UTF-8
    }
  }
  fuzz::require(counts(*base.keeper) == rows, "rows were added or lost");
  return 0;
}
