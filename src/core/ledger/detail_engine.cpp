#include "core/ledger/detail_engine.h"

#include <fmt/format.h>
#include <optional>

#include "core/ledger/detail_rows.h"
#include "core/ledger/line_reader.h"
#include "core/ledger/price_and_rate.h"
#include "core/reports/cancellation.h"

namespace tz {
namespace {

// Movements and closing balance of a block, a group or the whole report.
struct Sums {
  LedgerLine movements;
  LedgerBalance closing;

  void add(const Sums& other) {
    movements.debit += other.movements.debit;
    movements.credit += other.movements.credit;
    closing.quantity += other.closing.quantity;
    closing.foreignAmount += other.closing.foreignAmount;
    closing.amount += other.closing.amount;
  }
};

std::optional<SubAccountColumns> subAccountColumns(const DetailMember& member, Session& session,
                                                   const Conditions& conditions) {
  if (member.columnFlag == 0) return std::nullopt;
  return SubAccountColumns(session.db, conditions, member.columnFlag);
}

class DetailRun {
 public:
  DetailRun(const DetailMember& member, Session& session, const Conditions& conditions, const Subject& whole,
            ComputedReport& computed)
      : member_(member),
        levels_(member.selects.groups),
        accountLevel_(levelOf(levels_, Entity::account)),
        session_(session),
        conditions_(conditions),
        whole_(whole),
        grid_(computed.grid),
        layout_(amountLayout(conditions.format)),
        columns_(subAccountColumns(member, session, conditions)),
        rows_(computed, layout_, columns_ ? &*columns_ : nullptr),
        steps_(session),
        amounts_(conditions.amounts) {}

  void run() {
    openings_ = readOpenings(member_.selects, member_.openingSource, session_, conditions_);
    const ListedEntities listed(member_.listed, member_.selects, session_, conditions_);
    posted_ = lines(Book::posted);
    if (conditions_.unposted) unposted_ = lines(Book::unposted);
    if (levels_.empty()) {
      rows_.about(whole_, RowSubjects::wholeReport);
      runBlock({});
    } else {
      walkBlocks(listed);
    }
    addNotices();
  }

 private:
  void addNotices() {
    if (left_ > 0) {
      grid_.notices.push_back(
          {fmt::format("有{}条分录的凭证日期不在查询月份内，未列示", left_), Notice::Weight::incomplete});
    }
    if (yearTotals_ && conditions_.from > 1) {
      grid_.notices.push_back({fmt::format("本年累计自{}月起累计。", conditions_.from), Notice::Weight::warning});
    }
  }

  [[nodiscard]] LineReader lines(Book book) const {
    LineReader reader(session_.db.Current(), selectedLines(member_.selects, conditions_, book), levels_, layout_);
    reader.countIn(conditions_.amounts);
    return reader;
  }

  void walkBlocks(const ListedEntities& listed) {
    while (const auto key = nextKey()) {
      posted_.openBlock(*key);
      unposted_.openBlock(*key);
      const bool shown = listed.contains(*key);
      if (shown) runEntity(*key);
      passLines(shown);
      openings_.erase(*key);
    }
    if (!group_) return;
    closeGroups(0);
    rows_.about(whole_, RowSubjects::wholeReport);
    writeSums(all_, "合计", RowKind::total, !accountLevel_);
  }

  // The block of an entity, unless it has neither an opening row nor lines.
  void runEntity(const GroupKey& key) {
    const bool hasLines = !posted_.done() || !unposted_.done();
    if (!hasLines && !DetailRows::hasOpeningRow(openings_[key])) return;
    if (group_) closeGroups(group_->partsFrom(key));
    group_ = key;
    const auto innermost = levels_.size() - 1;
    rows_.about(subjectOf(key, innermost), static_cast<int>(innermost));
    rows_.writeHeading(heading(key));
    auto sums = runBlock(key);
    sums.movements.summary = levels_.back().subtotal;
    rows_.writeTotal(sums.movements, sums.closing, RowKind::subtotal);
    for (std::size_t level = 0; level < innermost; ++level) outerSums_.at(level).add(sums);
    all_.add(sums);
  }

  // Closes the open groups of the levels outside the innermost one from `outermost` on, inner ones first.
  void closeGroups(std::size_t outermost) {
    for (auto level = levels_.size() - 1; level-- > outermost;) {
      rows_.about(subjectOf(*group_, level), static_cast<int>(level));
      const bool oneAccount = !accountLevel_ || *accountLevel_ <= level;
      writeSums(outerSums_.at(level), levels_[level].subtotal, RowKind::subtotal, oneAccount);
      outerSums_.at(level) = {};
    }
  }

  // What the group of a key on a level is about.
  [[nodiscard]] Subject subjectOf(const GroupKey& key, std::size_t level) const {
    return groupSubject(whole_, levels_, key, level, conditions_);
  }

  [[nodiscard]] std::optional<GroupKey> nextKey() const {
    std::optional<GroupKey> next;
    const auto offer = [&](const GroupKey& key) {
      if (!next || key < *next) next = key;
    };
    if (!openings_.empty()) offer(openings_.begin()->first);
    if (!posted_.ended()) offer(posted_.key());
    if (!unposted_.ended()) offer(unposted_.key());
    return next;
  }

  [[nodiscard]] std::string heading(const GroupKey& key) const {
    std::string names;
    for (std::size_t level = 0; level < levels_.size(); ++level) {
      if (level > 0) names += ' ';
      names += entityName(levels_[level].entity, key.parts.at(level), conditions_);
    }
    return names;
  }

  Sums runBlock(const GroupKey& key) {
    balance_ = openings_[key];
    block_ = {};
    yearTotal_ = {};
    if (accountLevel_) countIn(key.parts.at(*accountLevel_).id);
    recomputePriceAndRate(balance_, amounts_);
    rows_.writeOpening(member_.openingCaption, balance_);
    while (!posted_.done() || !unposted_.done()) {
      if (!walkMonths()) break;
    }
    if (levels_.empty()) passLines(true);
    return {block_, balance_};
  }

  void countIn(Id account) {
    auto& data = *conditions_.data;
    amounts_ = CInitComboFun::InitAmountCombox(data, data.GetCodeCode(account));
    posted_.countIn(amounts_);
    unposted_.countIn(amounts_);
  }

  // One walk over the months; whether it consumed any line. A line whose voucher date lies outside the months stops its
  // list, and the walk is repeated for those behind it as long as that helps.
  bool walkMonths() {
    bool any = false;
    for (int month = conditions_.from; month <= conditions_.to; ++month) {
      bool inMonth = takeMonth(posted_, month, Book::posted);
      inMonth = takeMonth(unposted_, month, Book::unposted) || inMonth;
      if (inMonth) writeMonthTotals();
      any = any || inMonth;
    }
    return any;
  }

  bool takeMonth(LineReader& reader, int month, Book book) {
    bool any = false;
    for (; !reader.done() && reader.line().month == month; reader.advance()) {
      const auto& line = reader.line();
      monthTotal_.debit += line.debit;
      monthTotal_.credit += line.credit;
      balance_.quantity += line.debit.quantity - line.credit.quantity;
      balance_.foreignAmount += line.debit.foreign - line.credit.foreign;
      balance_.amount += line.debit.amount - line.credit.amount;
      recomputePriceAndRate(balance_, amounts_);
      if (columns_) columns_->add(line);
      rows_.writeLine(line, balance_, book);
      steps_.step();
      any = true;
    }
    return any;
  }

  void writeMonthTotals() {
    monthTotal_.summary = "本月合计";
    auto row = rows_.writeTotal(monthTotal_, balance_, RowKind::monthTotal);
    if (columns_) columns_->writeMonth(grid_, row);
    yearTotal_.debit += monthTotal_.debit;
    yearTotal_.credit += monthTotal_.credit;
    yearTotal_.summary = "本年累计";
    row = rows_.writeTotal(yearTotal_, balance_, RowKind::yearTotal);
    if (columns_) columns_->writeYear(grid_, row);
    yearTotals_ = true;
    block_.debit += monthTotal_.debit;
    block_.credit += monthTotal_.credit;
    monthTotal_ = {};
  }

  // Several accounts, each with its own unit and currency, have no price in common.
  void writeSums(Sums& sums, std::string_view caption, RowKind kind, bool oneAccount) {
    if (oneAccount) recomputePriceAndRate(sums.closing, amounts_);
    sums.movements.summary = caption;
    rows_.writeTotal(sums.movements, sums.closing, kind);
  }

  // Passes the lines of the open block that the month walk has left.
  void passLines(bool counts) {
    for (auto* reader : {&posted_, &unposted_}) {
      for (; !reader->done(); reader->advance()) left_ += counts ? 1 : 0;
    }
  }

  const DetailMember& member_;
  const GroupLevels& levels_;
  std::optional<std::size_t> accountLevel_;
  Session& session_;
  const Conditions& conditions_;
  const Subject& whole_;
  CTzGrid& grid_;
  const AmountLayout& layout_;
  std::optional<SubAccountColumns> columns_;
  DetailRows rows_;
  Steps steps_;
  AccountAmounts amounts_;  // of the block
  OpeningBalances openings_;
  LineReader posted_;
  LineReader unposted_;
  std::optional<GroupKey> group_;  // of the last block
  std::array<Sums, mostLevels> outerSums_;
  Sums all_;
  LedgerBalance balance_;
  LedgerLine monthTotal_;
  LedgerLine yearTotal_;
  LedgerLine block_;
  std::int64_t left_ = 0;
  bool yearTotals_ = false;  // "本年累计" was written
};

}  // namespace

void runDetailLedger(const DetailMember& member, Session& session, const Conditions& conditions, const Subject& whole,
                     ComputedReport& computed) {
  DetailRun(member, session, conditions, whole, computed).run();
}

}  // namespace tz
