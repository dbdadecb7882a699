// The manual: the pages that are drawn up from the records are those that are kept in docs/manual, nothing in them is
// left unsaid, and every link leads somewhere. A change that is meant is kept with TZ_KEEP_HELP=1.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/manual/control_texts.h"
#include "core/manual/manual_pages.h"
#include "core/manual/markdown.h"
#include "core/manual/report_page.h"
#include "core/manual/sample_conditions.h"
#include "core/sample/sample_company.h"
#include "core/voucher/search_text.h"
#include "support/every_report.h"
#include "support/refusal_cases.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

const std::filesystem::path folder = std::filesystem::path(TZ_TEST_FOLDER) / ".." / "docs" / "manual";

std::string readFile(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

void expectKept(const std::string& page, const std::string& text) {
  const auto path = folder / (page + ".md");
  if (std::getenv("TZ_KEEP_HELP") != nullptr) std::ofstream(path, std::ios::binary) << text;
  EXPECT_EQ(readFile(path), text) << "when it is meant, keep it with TZ_KEEP_HELP=1: " << page;
}

// All pages by their path below the folder.
std::set<std::string> pagesThere() {
  std::set<std::string> pages;
  for (const auto& file : std::filesystem::recursive_directory_iterator(folder)) {
    if (file.path().extension() == ".md") pages.insert(std::filesystem::relative(file.path(), folder).string());
  }
  return pages;
}

// As readers of Markdown make them.
std::set<std::string> anchorsIn(const std::string& text) {
  std::set<std::string> anchors;
  static const std::regex heading("(^|\n)#+ ([^\n]*)");
  for (auto at = std::sregex_iterator(text.begin(), text.end(), heading); at != std::sregex_iterator(); ++at) {
    anchors.insert((*at)[2].str());
  }
  return anchors;
}

bool hasLines(const CTzGrid& grid) {
  for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
    if (grid.RowKindAt(row) == RowKind::line) return true;
  }
  return false;
}

TEST(Manual, KeepsAPageOfEachReportAsItsRecordIs) {
  const TempFolder place;
  const auto file = place.file("示例.db");
  createLedger(file, [](Connection& connection) { fillSample(connection, {}); });
  Reader reader(file);
  std::set<std::string> titles;
  for (const auto* report : catalogue()) {
    SCOPED_TRACE(report->command);
    EXPECT_TRUE(titles.insert(manual::reportTitle(*report)).second);
    EXPECT_FALSE(report->purpose.empty());
    const auto outcome = reader.ask({report, manual::sampleRequest(*report)});
    const auto* example = std::get_if<ComputedReport>(&outcome);
    ASSERT_NE(example, nullptr) << std::get<Refusal>(outcome).text;
    EXPECT_TRUE(hasLines(example->grid)) << "an example that shows nothing";
    expectKept(manual::reportPage(*report), manual::composeReportPage(*report, *example));
  }
  expectKept("index", manual::composeIndexPage());
  expectKept("messages", manual::composeMessagesPage());
}

TEST(Manual, SaysWhatEachColumnConditionAndRefusalMeans) {
  for (const auto* report : catalogue()) {
    SCOPED_TRACE(report->command);
    ASSERT_NE(report->columns, nullptr);
    for (const auto format : manual::possibleFormats(*report)) {
      for (const auto& column : manual::columnsOf(*report, format)) {
        EXPECT_NE(manual::meaningOf(*report, column), "") << column.caption;
        EXPECT_TRUE(column.group.empty() || !manual::meaningOfPart(column.kind).empty()) << column.caption;
      }
    }
    for (const auto& control : report->dialog.controls) {
      EXPECT_NE(manual::controlText(control, report->dialog).meaning, "") << control.caption;
      const auto where = control.accountWhere.empty() ? report->dialog.accountWhere : control.accountWhere;
      EXPECT_TRUE(where.empty() || !manual::accountsInWords(where).empty()) << where;
    }
    for (const auto& refusals :
         {manual::openingRefusals(*report), manual::confirmingRefusals(*report), manual::drillRefusals(report->detail),
          manual::drillRefusals(report->generalLedger), manual::findRefusals(*report)}) {
      for (const auto& refusal : refusals) EXPECT_NE(refusal.advice, "") << refusal.text;
    }
  }
}

// Whatever a dialog is provoked to refuse with stands on the page of its report.
TEST(Manual, TellsEveryRefusalThatCanBeProvoked) {
  for (const auto& one : refusalCases()) {
    const auto& report = *findReport(one.command);
    auto told = manual::openingRefusals(report);
    std::ranges::move(manual::confirmingRefusals(report), std::back_inserter(told));
    const auto text = one.unlisted ? messages::notListed("……") : std::string(one.text);
    EXPECT_TRUE(std::ranges::any_of(told, [&](const auto& refusal) { return refusal.text == text; }))
        << one.command << " " << one.text;
  }
}

// Every message that the sources declare, whoever declares it.
TEST(Manual, HoldsEveryMessageOfTheProgram) {
  const auto page = readFile(folder / "messages.md");
  static const std::regex declared(R"(Message \w+\{(?:\.text = )?\"([^\"]+)\")");
  int found = 0;
  const auto sources = std::filesystem::path(TZ_TEST_FOLDER) / ".." / "src";
  for (const auto& file : std::filesystem::recursive_directory_iterator(sources)) {
    if (file.path().extension() != ".cpp" && file.path().extension() != ".h") continue;
    const auto text = readFile(file.path());
    for (auto at = std::sregex_iterator(text.begin(), text.end(), declared); at != std::sregex_iterator(); ++at) {
      ++found;
      EXPECT_NE(page.find((*at)[1].str()), std::string::npos) << file.path() << ": " << (*at)[1].str();
    }
  }
  EXPECT_GT(found, 0);
}

TEST(Manual, TellsTheRulesOfTheSearch) {
  const auto page = readFile(folder / "search.md");
  for (const auto rule : searchRules) EXPECT_NE(page.find(manual::plain(rule)), std::string::npos) << rule;
}

TEST(Manual, LinksLeadToPagesAndHeadings) {
  static const std::regex link(R"(\]\(([^)#:]*)(?:#([^)]*))?\))");
  const auto pages = pagesThere();
  std::set<std::string> reached = {"index.md"};
  for (const auto& page : pages) {
    const auto text = readFile(folder / page);
    for (auto at = std::sregex_iterator(text.begin(), text.end(), link); at != std::sregex_iterator(); ++at) {
      const auto name = (*at)[1].str();
      const auto beside = std::filesystem::path(page).parent_path() / name;
      const auto target = name.empty() ? page : beside.lexically_normal().string();
      EXPECT_TRUE(pages.contains(target)) << page << ": " << name;
      if (page != target) reached.insert(target);
      const auto anchor = (*at)[2].str();
      EXPECT_TRUE(anchor.empty() || anchorsIn(readFile(folder / target)).contains(anchor)) << page << "#" << anchor;
    }
  }
  EXPECT_EQ(reached, pages) << "a page to which nothing leads";
}

}  // namespace
}  // namespace tz::test
