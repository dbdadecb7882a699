// What the rows of every detail ledger are about: lines name a line of the ledger, headings and totals whom they show.
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <tuple>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/ledger/detail_report.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using LineKey = std::tuple<Book, Id, Id>;

std::map<LineKey, RegSubInfo> linesOf(Connection& connection) {
  std::map<LineKey, RegSubInfo> all;
  for (const auto book : {Book::posted, Book::unposted}) {
    const auto rows = connection.query(
        Sql(std::string("SELECT lId, lTieId, lCodeId, lDeptId, lPersonId, lEnterId, lItemId, sItemId, mMoney, bDirect, "
                        "sName FROM ") +
            (book == Book::posted ? "RegSub" : "UnregSub")));
    while (rows->next()) {
      RegSubInfo line;
      int column = 0;
      for (auto field : {&RegSubInfo::lId, &RegSubInfo::lTieId, &RegSubInfo::lCodeId, &RegSubInfo::lDeptId,
                         &RegSubInfo::lPersonId, &RegSubInfo::lEnterId, &RegSubInfo::lItemId}) {
        line.*field = rows->integer(column++);
      }
      line.sItemId = rows->text(column++);
      line.mMoney = rows->real(column++);
      line.bDirect = static_cast<int>(rows->integer(column++));
      line.sName = rows->text(column);
      all[{book, line.lId, line.lTieId}] = line;
    }
  }
  return all;
}

int columnOf(const CTzGrid& grid, ColumnKind kind) {
  for (int column = 0; column < grid.GetCols(); ++column) {
    if (grid.Columns()[static_cast<std::size_t>(column)].kind == kind) return column;
  }
  return -1;
}

// A line lies in what its row is about: in all dimensions that the subject names.
void expectInside(const Subject& subject, const RegSubInfo& line, CGetData& data) {
  EXPECT_EQ(subject.account, line.lCodeId);
  if (subject.dept != 0) {
    EXPECT_EQ(subject.dept, line.lDeptId);
  }
  if (subject.person != 0) {
    EXPECT_EQ(subject.person, line.lPersonId);
  }
  if (subject.unit != 0) {
    EXPECT_EQ(subject.unit, line.lEnterId);
  }
  if (subject.item != 0) {
    EXPECT_EQ(subject.item, line.lItemId);
  }
  if (!subject.itemClass.empty()) {
    EXPECT_EQ(subject.itemClass, line.sItemId);
  }
  if (subject.unitClass) {
    EXPECT_EQ(*subject.unitClass, data.GetEnterClassIdByEnterId(line.lEnterId));
  }
  if (subject.clerk) {
    EXPECT_EQ(*subject.clerk, line.sName);
  }
}

// The members of a subject that a level can be about, and how the ledger names them.
std::string nameOf(const Subject& subject, Entity entity, CGetData& data) {
  switch (entity) {
    case Entity::dept:
      return data.GetDeptName(subject.dept);
    case Entity::person:
      return data.GetPersonName(subject.person);
    case Entity::unit:
      return data.GetUnitName(subject.unit);
    case Entity::unitClass:
      return data.GetEnterClassName(subject.unitClass.value_or(0));
    case Entity::clerk:
      return subject.clerk.value_or("");
    case Entity::account:
      return data.GetCodeName(subject.account);
    case Entity::item:
    case Entity::project:
      return data.GetItemName(subject.itemClass, subject.item);
  }
  return {};
}

// The rows of one computed report against the ledger.
class SubjectRows {
 public:
  SubjectRows(const ComputedReport& computed, const GroupLevels& levels, CGetData& data)
      : grid_(computed.grid), subjects_(computed.subjects), levels_(levels), data_(data) {}

  void check(const std::map<LineKey, RegSubInfo>& ledger) {
    ASSERT_EQ(subjects_.size(), grid_.GetRows());
    for (std::int64_t row = 0; row < grid_.GetRows(); ++row) {
      SCOPED_TRACE(row);
      const auto kind = grid_.RowKindAt(row);
      ASSERT_EQ(subjects_.line(row).has_value(), kind == RowKind::line);
      if (kind == RowKind::line) checkLine(row, ledger);
      if (kind == RowKind::heading) checkHeading(row);
      if (addsUp(kind) && kind != RowKind::total) checkSubtotal(row);
      if (kind == RowKind::total) {
        EXPECT_EQ(subjects_.level(row), RowSubjects::wholeReport);
      }
      if (!addsUp(kind)) {
        EXPECT_EQ(subjects_.level(row), innermost());
      }
    }
  }
  [[nodiscard]] std::size_t lines() const { return shown_.size(); }

 private:
  [[nodiscard]] int innermost() const {
    return levels_.empty() ? RowSubjects::wholeReport : static_cast<int>(levels_.size()) - 1;
  }

  void checkLine(std::int64_t row, const std::map<LineKey, RegSubInfo>& ledger) {
    const auto line = *subjects_.line(row);
    const LineKey key{line.book, line.line, line.voucher};
    EXPECT_TRUE(shown_.insert(key).second);
    const auto found = ledger.find(key);
    ASSERT_NE(found, ledger.end());
    const auto& record = found->second;
    expectInside(subjects_.of(row), record, data_);
    const double debit = grid_.NumberAt(row, columnOf(grid_, ColumnKind::debitAmount));
    const double credit = grid_.NumberAt(row, columnOf(grid_, ColumnKind::creditAmount));
    EXPECT_EQ(debit, record.bDirect != 0 ? record.mMoney : 0);
    EXPECT_EQ(credit, record.bDirect != 0 ? 0 : record.mMoney);
    EXPECT_EQ(grid_.BackgroundAt(row) == lightGreen, line.book == Book::unposted);
  }

  void checkHeading(std::int64_t row) {
    heading_ = subjects_.of(row);
    std::string names;
    for (const auto& level : levels_) names.append(names.empty() ? "" : " ").append(named(heading_, level.entity));
    EXPECT_EQ(grid_.TextAt(row, summary), names);
  }

  // A total is of its month, or of the group whose caption it bears; what lies deeper is none of its matter.
  void checkSubtotal(std::int64_t row) {
    const auto caption = grid_.TextAt(row, summary);
    const int level = subjects_.level(row);
    if (caption == "本月合计" || caption == "本年累计") {
      EXPECT_EQ(level, innermost());
    } else {
      ASSERT_GE(level, 0);
      EXPECT_EQ(caption, levels_[static_cast<std::size_t>(level)].subtotal);
    }
    const auto& subject = subjects_.of(row);
    const auto& whole = subjects_.of(grid_.GetRows() - 1);
    for (std::size_t place = 0; place < levels_.size(); ++place) {
      const auto entity = levels_[place].entity;
      EXPECT_EQ(named(subject, entity), named(static_cast<int>(place) <= level ? heading_ : whole, entity));
    }
  }

  [[nodiscard]] std::string named(const Subject& subject, Entity entity) const {
    return nameOf(subject, entity, data_);
  }

  static constexpr int summary = 2;
  const CTzGrid& grid_;
  const RowSubjects& subjects_;
  const GroupLevels& levels_;
  CGetData& data_;
  Subject heading_;
  std::set<LineKey> shown_;
};

class CatalogueSubjects : public DatabaseTest {};

TEST_P(CatalogueSubjects, EveryRowSaysWhatItIsAbout) {
  const TestPlace place(GetParam());
  createLedger(place.address(), [](Connection& connection) { fillSample(connection, {}); });
  Reader reader(place.address());
  CGetData data(reader.db());
  const auto ledger = linesOf(reader.db().Current());
  const auto details = detailReports();
  std::size_t lines = 0;
  for (auto question : everyReport(reader)) {
    const auto detail = std::ranges::find(details, question.report->command, &DetailReport::command);
    if (detail == details.end()) continue;
    SCOPED_TRACE(question.report->command);
    question.request.set(ParameterKey::format, "金额式");
    const auto outcome = reader.ask(question);
    const auto* computed = std::get_if<ComputedReport>(&outcome);
    ASSERT_NE(computed, nullptr) << answerText(outcome);
    SubjectRows rows(*computed, (*detail)->member.selects.groups, data);
    rows.check(ledger);
    lines += rows.lines();
  }
  EXPECT_GT(lines, 0U);
}

TZ_ON_BOTH_DATABASES(CatalogueSubjects);

}  // namespace
}  // namespace tz::test
