// The rows of two-clearing: one pass over the lines in their order; with groups they are put into the order of these.
#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <limits>
#include <map>
#include <tuple>

#include "core/data/line_query.h"
#include "core/grid/figures.h"
#include "core/receivables/clearing_columns.h"
#include "core/receivables/clearing_marks.h"
#include "core/receivables/clearing_report.h"
#include "core/receivables/millionths.h"
#include "core/reports/cancellation.h"

namespace tz {
namespace {

struct LineFigures {
  double quantity = 0, foreign = 0, amount = 0;
};

struct ClearingLine {
  Id line = 0, voucher = 0;
  Date bill;
  std::string number;  // "记-0001"
  std::string summary, business;
  bool debit = false;
  bool opening = false;  // of an opening voucher
  int mark = 0;
  LineFigures figures;
  std::size_t group = 0;  // its place among those met
};

// A side's three sums.
struct SideSums {
  MillionthSum quantity, foreign, amount;

  void add(const LineFigures& figures) {
    quantity += figures.quantity;
    foreign += figures.foreign;
    amount += figures.amount;
  }
};
struct Sums {
  SideSums debit, credit;

  void add(const ClearingLine& line) { (line.debit ? debit : credit).add(line.figures); }
};

// What the lines stand together by, where they do: met in any order, sorted by code.
class ClearingGroups {
 public:
  ClearingGroups(ClearingGrouping grouping, CGetData& data) : grouping_(grouping), data_(data) {}

  // The columns that name a line's group, behind the others.
  [[nodiscard]] std::string_view columns() const {
    switch (grouping_) {
      case ClearingGrouping::date:
        break;
      case ClearingGrouping::dept:
        return ", s.lDeptId, ''";
      case ClearingGrouping::project:
        return ", s.lItemId, s.sItemId";
      case ClearingGrouping::clerk:
        return ", 0, s.sName";
    }
    return {};
  }

  std::size_t placeOf(Id id, std::string_view text) {
    // A class without an item names none, and an item is one of its class.
    const bool none = grouping_ == ClearingGrouping::project && id == 0;
    const auto [found, added] = places_.try_emplace({id, none ? std::string() : std::string(text)}, groups_.size());
    if (added) groups_.push_back(made(found->first.first, found->first.second));
    return found->second;
  }
  [[nodiscard]] const std::string& name(std::size_t place) const { return groups_[place].name; }
  [[nodiscard]] Subject subject(std::size_t place, Subject whole) const {
    const auto& group = groups_[place];
    if (grouping_ == ClearingGrouping::dept) whole.dept = group.id;
    if (grouping_ == ClearingGrouping::project) std::tie(whole.item, whole.itemClass) = std::tie(group.id, group.text);
    if (grouping_ == ClearingGrouping::clerk) whole.clerk = group.text;
    return whole;
  }
  // For each place met its rank; lines of no group come last.
  [[nodiscard]] std::vector<std::size_t> ranks() const {
    std::vector<std::size_t> order(groups_.size());
    for (std::size_t place = 0; place < order.size(); ++place) order[place] = place;
    std::ranges::sort(order, {}, [&](std::size_t place) {
      const auto& group = groups_[place];
      return std::tuple(group.id == 0 && group.text.empty(), std::string_view(group.text), std::string_view(group.code),
                        group.id);
    });
    std::vector<std::size_t> ranks(order.size());
    for (std::size_t rank = 0; rank < order.size(); ++rank) ranks[order[rank]] = rank;
    return ranks;
  }

 private:
  struct Group {
    Id id = 0;
    std::string text;  // project class, clerk
    std::string code, name;
  };

  [[nodiscard]] Group made(Id id, const std::string& text) {
    Group group{.id = id, .text = text, .code = {}, .name = text};
    if (grouping_ == ClearingGrouping::dept) {
      const auto* dept = data_.GetDEPTINFOByDeptId(id);
      if (dept != nullptr) std::tie(group.code, group.name) = std::tie(dept->sDeptId, dept->sDeptName);
    }
    if (grouping_ == ClearingGrouping::project) {
      group.name.clear();
      if (id == 0) return group;
      const auto& items = data_.ItemTable(text);
      const auto found = std::ranges::find(items, id, &ItemInfo::lId);
      if (found != items.end()) std::tie(group.code, group.name) = std::tie(found->fields.at(0), found->fields.at(1));
    }
    if (id != 0) group.name = nameOrNumber(group.name, id);
    return group;
  }

  ClearingGrouping grouping_;
  CGetData& data_;
  std::map<std::pair<Id, std::string>, std::size_t> places_;
  std::vector<Group> groups_;
};

// Reads the lines in their order: voucher date, word, number, line.
class ClearingReader {
 public:
  ClearingReader(Connection& connection, const Sql& lines, Date last, const AmountFormatTraits& shown,
                 ClearingGroups& groups)
      : groups_(groups), grouped_(!groups.columns().empty()) {
    std::string wanted =
        "m.dtBill, m.sWord, m.nNumber, m.byPeroid, s.lId, s.lTieId, s.bDirect, s.mMoney, s.sDigest, s.sBusiness, "
        "s.byFlag";
    int next = firstFurther;
    if (shown.quantities) {
      wanted += ", s.dAmount";
      quantity_ = next++;
    }
    if (shown.foreign) {
      wanted += ", s.mForeign";
      foreign_ = next++;
    }
    wanted += groups.columns();
    groupColumn_ = next;
    const LineQuery query{.filter = lines + Sql(" AND m.dtBill <= ?", last),
                          .firstPeriod = 0,
                          .lastPeriod = std::numeric_limits<std::int16_t>::max(),
                          .order = "m.dtBill, m.sWord, m.nNumber"};
    cursor_ = connection.query(lineStatement(query, wanted));
  }

  bool next(ClearingLine& line) {
    if (!cursor_->next()) return false;
    const auto& row = *cursor_;
    line.bill = row.date(bill);
    line.number.clear();
    appendVoucher(line.number, row.text(word), static_cast<int>(row.integer(number)));
    line.opening = row.integer(period) == 0;
    line.line = row.integer(lineId);
    line.voucher = row.integer(voucherId);
    line.debit = row.integer(direct) != 0;
    line.figures.amount = row.real(money);
    line.summary = row.text(digest);
    line.business = row.text(business);
    line.mark = static_cast<int>(row.integer(flag));
    if (quantity_ >= 0) line.figures.quantity = row.real(quantity_);
    if (foreign_ >= 0) line.figures.foreign = row.real(foreign_);
    if (grouped_) line.group = groups_.placeOf(row.integer(groupColumn_), row.text(groupColumn_ + 1));
    return true;
  }

 private:
  enum Column { bill, word, number, period, lineId, voucherId, direct, money, digest, business, flag, firstFurther };

  ClearingGroups& groups_;
  bool grouped_;
  int quantity_ = -1, foreign_ = -1, groupColumn_ = -1;
  std::unique_ptr<Cursor> cursor_;
};

class ClearingRows {
 public:
  ClearingRows(const ClearingMember& member, const Subject& whole, ClearingGrouping grouping, ComputedReport& computed)
      : member_(member),
        grouping_(grouping),
        grid_(computed.grid),
        subjects_(computed.subjects),
        columns_(addClearingColumns(grid_, *computed.format, grouping)),
        whole_(subjects_.keep(whole)),
        about_(whole_) {}

  // The lines that follow stand in this group.
  void openGroup(const Subject& subject, const std::string& name) {
    about_ = subjects_.keep(subject);
    group_ = name;
    ofGroup_ = {};
  }
  void write(const ClearingLine& line) {
    const auto row = append(RowKind::line);
    subjects_.set(row, about_, level(),
                  {.book = Book::posted, .line = line.line, .voucher = line.voucher, .opening = line.opening});
    grid_.SetDate(row, ClearingColumns::date, line.bill);
    grid_.SetText(row, ClearingColumns::voucher, line.number);
    if (columns_.group >= 0) grid_.SetText(row, columns_.group, group_);
    grid_.SetText(row, columns_.summary, line.summary);
    grid_.SetText(row, columns_.business, line.business);
    const auto& own = line.figures;
    put(row, line.debit ? columns_.debitQuantity : columns_.creditQuantity, own.quantity);
    put(row, line.debit ? columns_.debitForeign : columns_.creditForeign, own.foreign);
    put(row, line.debit ? columns_.debitAmount : columns_.creditAmount, own.amount);
    if (line.mark != 0) {
      grid_.SetBackground(row, member_.marked);
      grid_.SetText(row, columns_.mark, markSign(line.mark));
    }
    ofGroup_.add(line);
    all_.add(line);
  }
  void closeGroup() {
    const auto row = append(RowKind::subtotal);
    subjects_.set(row, about_, level());
    fill(row, "小计", ofGroup_);
  }
  void close() {
    const auto row = append(RowKind::total);
    subjects_.set(row, whole_, RowSubjects::wholeReport);
    const bool grouped = grouping_ != ClearingGrouping::date;
    fill(row, grouped ? fmt::format("{}小计", groupCaption(grouping_)) : "合计", all_);
    grid_.SetBackground(row, member_.closing);
  }
  [[nodiscard]] const Sums& all() const { return all_; }

 private:
  [[nodiscard]] int level() const { return grouping_ == ClearingGrouping::date ? RowSubjects::wholeReport : 0; }
  std::int64_t append(RowKind kind) {
    const auto row = grid_.GetRows();
    grid_.SetRows(row + 1);
    grid_.SetRowKind(row, kind);
    return row;
  }
  void put(std::int64_t row, int column, double value) {
    if (column >= 0 && value != 0) grid_.SetNumber(row, column, value);
  }
  void put(std::int64_t row, int column, const MillionthSum& sum) {
    if (column >= 0 && sum.sign() != 0) grid_.SetNumber(row, column, sum.value());
  }
  void fill(std::int64_t row, std::string_view caption, const Sums& sums) {
    grid_.SetText(row, columns_.summary, caption);
    put(row, columns_.debitQuantity, sums.debit.quantity);
    put(row, columns_.debitForeign, sums.debit.foreign);
    put(row, columns_.debitAmount, sums.debit.amount);
    put(row, columns_.creditQuantity, sums.credit.quantity);
    put(row, columns_.creditForeign, sums.credit.foreign);
    put(row, columns_.creditAmount, sums.credit.amount);
  }

  const ClearingMember& member_;
  ClearingGrouping grouping_;
  CTzGrid& grid_;
  RowSubjects& subjects_;
  ClearingColumns columns_;
  RowSubjects::Place whole_;
  RowSubjects::Place about_;
  std::string group_;
  Sums ofGroup_, all_;
};

void writeGrouped(ClearingReader& reader, ClearingGroups& groups, const Subject& whole, Steps& steps,
                  ClearingRows& rows) {
  std::vector<ClearingLine> lines;
  for (ClearingLine line; reader.next(line); steps.step()) lines.push_back(line);
  const auto ranks = groups.ranks();
  std::ranges::stable_sort(lines, {}, [&](const ClearingLine& line) { return ranks[line.group]; });
  for (std::size_t place = 0; place < lines.size(); ++place) {
    const auto group = lines[place].group;
    const bool first = place == 0 || lines[place - 1].group != group;
    if (first) rows.openGroup(groups.subject(group, whole), groups.name(group));
    rows.write(lines[place]);
    const bool last = place + 1 == lines.size() || lines[place + 1].group != group;
    if (last) rows.closeGroup();
  }
}

std::string balanceText(std::string_view caption, const MillionthSum& debit, const MillionthSum& credit,
                        ColumnKind kind) {
  MillionthSum difference = debit;
  difference -= credit;
  const int sign = difference.sign();
  if (sign == 0) return fmt::format("{}平", caption);
  return fmt::format("{}{} {}", caption, sign > 0 ? "借" : "贷", figureText(std::abs(difference.value()), kind));
}

// "方向: 借 1,000.00；数量 贷 3；外币 平"
std::string directionOf(const Sums& sums, const AmountFormatTraits& shown) {
  const auto& [debit, credit] = sums;
  auto text = balanceText("方向: ", debit.amount, credit.amount, ColumnKind::amount);
  if (shown.quantities)
    text.append("；").append(balanceText("数量 ", debit.quantity, credit.quantity, ColumnKind::quantity));
  if (shown.foreign) text.append("；").append(balanceText("外币 ", debit.foreign, credit.foreign, ColumnKind::foreign));
  return text;
}

}  // namespace

void computeClearing(const ReportDefinition& report, Session& session, const Conditions& conditions,
                     ComputedReport& computed) {
  const auto& member = static_cast<const ClearingReport&>(report).member;
  const auto grouping = static_cast<ClearingGrouping>(conditions.request.choice(ParameterKey::clearingGrouping));
  const auto& shown = traitsOf(conditions.format);
  const auto whole = wholeSubject(report, conditions);
  const Date last{session.logon.year, static_cast<std::uint8_t>(conditions.to),
                  static_cast<std::uint8_t>(daysInMonth(session.logon.year, conditions.to))};
  ClearingGroups groups(grouping, *conditions.data);
  Steps steps(session);
  ClearingRows rows(member, whole, grouping, computed);
  ClearingReader reader(session.db.Current(), member.lines(conditions), last, shown, groups);
  if (grouping == ClearingGrouping::date) {
    for (ClearingLine line; reader.next(line); steps.step()) rows.write(line);
  } else {
    writeGrouped(reader, groups, whole, steps, rows);
  }
  rows.close();
  computed.namesLines = true;
  if (!member.showsDirection) return;
  computed.found = directionOf(rows.all(), shown);
  computed.conditions.push_back(computed.found);
}

}  // namespace tz
