// The printed pages of every report of the sample company, in every format and on either paper: nothing is lost, cut or
// parted from what it belongs to, and what is carried over is what stands above it.
#include <algorithm>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <map>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/grid/figures.h"
#include "core/output/report_pages.h"
#include "core/reports/page_stamp.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

constexpr double hair = 1e-6;

std::string withoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

class PagesOf {
 public:
  PagesOf(const ComputedReport& report, const PageOptions& options)
      : report_(report), grid_(report.grid), pages_(report, options, {"王会计", "2026-01-05 09:30"}) {}

  void check() {
    checkColumns();
    checkHead();
    std::int64_t next = 0;
    for (const auto& page : pages_.Pages()) {
      EXPECT_EQ(page.first, next);
      next = page.end;
      checkFoot(page);
      checkRoom(page);
      for (const auto& line : pages_.LinesOf(page)) {
        if (line.kind == PageLine::Kind::row) checkRow(page, line);
        if (line.kind == PageLine::Kind::carriedForward) checkCarried(page, line);
      }
    }
    EXPECT_EQ(next, grid_.GetRows());
  }

 private:
  // Every column once, those at the left on each strip; no caption wider than what it stands over.
  void checkColumns() {
    std::map<int, std::size_t> times;
    for (const auto& strip : pages_.Columns().strips) {
      EXPECT_LE(strip.back().left + strip.back().width, pages_.Columns().paper.innerWidth() + hair);
      for (const auto& column : strip) {
        ++times[column.column];
        const auto& about = grid_.Columns()[static_cast<std::size_t>(column.column)];
        EXPECT_LE(displayWidth(about.caption), column.letters + 2) << about.caption;
      }
    }
    EXPECT_EQ(times.size(), grid_.Columns().size());
    for (const auto& [column, count] : times) {
      EXPECT_TRUE(count == 1 || count == pages_.Columns().strips.size()) << column;
    }
  }

  void checkHead() {
    std::string head;
    for (const auto& piece : pages_.Head().pieces) head += piece.text;
    head = withoutBlanks(head);
    auto parts = report_.printedConditions;
    parts.insert(parts.end(), {report_.title, report_.company, report_.printedPeriod});
    for (const auto& part : parts) EXPECT_NE(head.find(withoutBlanks(part)), std::string::npos) << part << '\n' << head;
    for (auto text : {report_.subtitle, report_.unit}) {
      std::ranges::replace(text, '\n', ' ');
      EXPECT_NE(head.find(withoutBlanks(text)), std::string::npos) << text << '\n' << head;
    }
  }

  void checkFoot(const Page& page) {
    if (page.end == grid_.GetRows() || page.end == page.first) return;
    const auto last = grid_.RowKindAt(page.end - 1);
    const auto next = grid_.RowKindAt(page.end);
    EXPECT_NE(last, RowKind::heading) << page.end;
    EXPECT_NE(last, RowKind::opening) << page.end;
    EXPECT_FALSE(last == RowKind::monthTotal && next == RowKind::yearTotal) << page.end;
  }

  void checkRoom(const Page& page) {
    const auto lines = pages_.LinesOf(page);
    const double bottom = pages_.Columns().paper.innerHeight() + hair;
    if (!lines.empty()) {
      EXPECT_LE(lines.back().top + lines.back().height, bottom);
    }
    if (&page != &pages_.Pages().back()) return;
    EXPECT_LE(pages_.RemarksTop(page) + static_cast<double>(pages_.Remarks().size()) * ReportPages::remarkHeight,
              bottom);
  }

  // All of each cell, no line of it wider than its column.
  void checkRow(const Page& page, const PageLine& line) {
    for (const auto& strip : pages_.Columns().strips) {
      for (const auto& column : strip) {
        std::string text;
        for (const auto& piece : pages_.TextOf(page, line, column)) {
          EXPECT_LE(displayWidth(piece), column.letters) << piece;
          text += piece;
        }
        EXPECT_EQ(withoutBlanks(text), withoutBlanks(grid_.ShownAt(line.row, column.column)));
      }
    }
  }

  // The lines since the last row of another kind, added up backwards; the balance of the row above.
  void checkCarried(const Page& page, const PageLine& line) {
    ++carried_;
    for (const auto& column : pages_.Columns().strips.front()) {
      const auto texts = pages_.TextOf(page, line, column);
      const std::string text = texts.empty() ? "" : texts.front();
      const int place = column.column;
      if (place == report_.carried->caption) {
        EXPECT_EQ(text, "过次页");
      } else if (place >= report_.carried->firstBalance && place <= report_.carried->lastBalance) {
        EXPECT_EQ(text, grid_.ShownAt(page.end - 1, place));
      } else {
        EXPECT_EQ(text, movedBefore(page.end, place));
      }
    }
  }
  [[nodiscard]] std::string movedBefore(std::int64_t end, int column) const {
    const auto kind = grid_.Columns()[static_cast<std::size_t>(column)].kind;
    if (traitsOf(kind).sum == ColumnTraits::Sum::none) return {};
    double sum = 0;
    for (auto row = end - 1; row >= 0 && grid_.RowKindAt(row) == RowKind::line; --row)
      sum += grid_.NumberAt(row, column);
    return std::abs(sum) < hair ? "" : figureText(sum, kind);
  }

  const ComputedReport& report_;
  const CTzGrid& grid_;
  ReportPages pages_;

 public:
  int carried_ = 0;
};

class PagesWalk : public ::testing::Test {
 protected:
  PagesWalk() : place_(Engine::sqlite) {
    createLedger(place_.address(), [](Connection& connection) { fillSample(connection, {}); });
    reader_.emplace(place_.address());
  }

  // Each report in each format that it offers.
  void each(const std::function<void(const ComputedReport&)>& check) {
    for (auto question : everyReport(*reader_)) {
      SCOPED_TRACE(question.report->command);
      const auto first = reader_->ask(question);
      ASSERT_TRUE(std::holds_alternative<ComputedReport>(first)) << answerText(first);
      check(std::get<ComputedReport>(first));
      for (const auto format : std::get<ComputedReport>(first).formats) {
        SCOPED_TRACE(formatName(format));
        question.request.set(ParameterKey::format, formatName(format));
        check(std::get<ComputedReport>(reader_->ask(question)));
      }
    }
  }

  TestPlace place_;
  std::optional<Reader> reader_;
};

TEST_F(PagesWalk, NothingIsLostCutOrParted) {
  int carried = 0;
  each([&](const ComputedReport& report) {
    for (const auto paper : {Orientation::byWidth, Orientation::portrait, Orientation::landscape}) {
      PagesOf pages(report, {.orientation = paper});
      pages.check();
      carried += pages.carried_;
    }
  });
  EXPECT_GT(carried, 0);
}

TEST_F(PagesWalk, PeriodsAndUnitsAreThoseOfTheFamily) {
  each([&](const ComputedReport& report) {
    // The colon is the area's or the report's own.
    const auto digits = [](const std::string& period) { return period.substr(period.find_first_of("0123456789")); };
    EXPECT_EQ(digits(report.printedPeriod), digits(report.carried ? report.paintedPeriod : report.period));
    const auto& traits = traitsOf(report.format.value_or(AmountFormat::amount));
    const auto& amounts = report.resolved->amounts;
    std::string unit;
    if (traits.amounts && traits.quantities) unit = amounts.unit;
    if (traits.amounts && traits.foreign)
      unit += (unit.empty() || amounts.currency.empty() ? "" : "\n") + amounts.currency;
    EXPECT_EQ(report.unit, unit);
  });
}

TEST_F(PagesWalk, SubtitlesAreNotSaidTwice) {
  each([&](const ComputedReport& report) {
    const auto& c = *report.resolved;
    const std::string project = c.project.fields.empty() ? "" : c.project.fields.at(1);
    for (const auto& member : {c.account.sName, c.person.sName, c.unit.sEnterName, project}) {
      if (member.empty() || report.subtitle.find(member) == std::string::npos) continue;
      for (const auto& condition : report.printedConditions) {
        EXPECT_EQ(condition.find(member), std::string::npos) << report.subtitle << '\n' << condition;
      }
    }
  });
}

TEST(PageStamp, IsTheOperatorAndTheMomentOnTheClocksHere) {
  ::setenv("TZ", "CST-8", 1);
  ::tzset();
  const auto stamp =
      pageStamp({.id = 1, .name = "王会计", .rights = {}},
                std::chrono::sys_days(std::chrono::year(2026) / 1 / 4) + std::chrono::minutes(17 * 60 + 5));
  ::unsetenv("TZ");
  ::tzset();
  EXPECT_EQ(stamp.printedBy + "|" + stamp.printedAt, "王会计|2026-01-05 01:05");
}

}  // namespace
}  // namespace tz::test
