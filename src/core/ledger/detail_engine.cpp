#include "core/ledger/detail_engine.h"

#include <optional>

#include "core/ledger/detail_rows.h"
#include "core/ledger/line_reader.h"
#include "core/ledger/listed_entities.h"
#include "core/ledger/member_filter.h"
#include "core/ledger/opening_balances.h"
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
  DetailRun(const DetailMember& member, Session& session, const Conditions& conditions, CTzGrid& grid)
      : member_(member),
        session_(session),
        conditions_(conditions),
        grid_(grid),
        layout_(amountLayout(conditions.format)),
        columns_(subAccountColumns(member, session, conditions)),
        rows_(grid, layout_, columns_ ? &*columns_ : nullptr),
        steps_(session),
        amounts_(conditions.amounts) {}

  void run() {
    openings_ = readOpenings(member_, session_, conditions_);
    const ListedEntities listed(member_, session_, conditions_);
    posted_ = lines(Book::posted);
    if (conditions_.unposted) unposted_ = lines(Book::unposted);
    if (member_.isList()) {
      walkBlocks(listed);
    } else {
      runBlock({});
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
    LineReader reader(session_.db.Current(), memberLines(member_, conditions_, book), member_, layout_);
    reader.countIn(conditions_.amounts);
    return reader;
  }

  void walkBlocks(const ListedEntities& listed) {
    std::optional<GroupKey> group;  // the outer one that is open
    Sums groupSums, all;
    const auto closeGroup = [&] {
      if (!group || !nested()) return;
      writeSums(groupSums, member_.groups.front().subtotal, RowKind::subtotal);
      groupSums = {};
    };
    while (const auto key = nextKey()) {
      posted_.openBlock(*key);
      unposted_.openBlock(*key);
      const bool shown = listed.contains(*key);
      const auto sums = shown ? runEntity(*key, group, closeGroup) : std::nullopt;
      passLines(shown);
      openings_.erase(*key);
      if (!sums) continue;
      group = key;
      groupSums.add(*sums);
      all.add(*sums);
    }
    closeGroup();
    if (group) writeSums(all, "合计", RowKind::total);
  }

  // The block of an entity; nothing when it has neither an opening row nor lines.
  template <class CloseGroup>
  std::optional<Sums> runEntity(const GroupKey& key, const std::optional<GroupKey>& group, CloseGroup closeGroup) {
    const bool hasLines = !posted_.done() || !unposted_.done();
    if (!hasLines && !DetailRows::hasOpeningRow(openings_[key])) return std::nullopt;
    if (group && !group->sameOuter(key)) closeGroup();
    rows_.writeHeading(heading(key));
    auto sums = runBlock(key);
    sums.movements.summary = innermost().subtotal;
    rows_.writeTotal(sums.movements, sums.closing, RowKind::subtotal);
    return sums;
  }

  [[nodiscard]] bool nested() const { return member_.groups.back().entity != Entity::none; }
  [[nodiscard]] const GroupLevel& innermost() const {
    return nested() ? member_.groups.back() : member_.groups.front();
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
    auto name = entityName(member_.groups.front().entity, key, 0, conditions_);
    return nested() ? name + " " + entityName(member_.groups.back().entity, key, 1, conditions_) : name;
  }

  Sums runBlock(const GroupKey& key) {
    balance_ = openings_[key];
    block_ = {};
    yearTotal_ = {};
    if (member_.listsAccounts()) countInAccountOf(key);
    recomputePriceAndRate(balance_);
    rows_.writeOpening(member_.openingCaption, balance_);
    while (!posted_.done() || !unposted_.done()) {
      if (!walkMonths()) break;
    }
    if (!member_.isList()) passLines(true);
    return {block_, balance_};
  }

  void countInAccountOf(const GroupKey& key) {
    auto& data = *conditions_.data;
    const auto account = member_.groups.front().entity == Entity::account ? key.ids.front() : key.ids.back();
    amounts_ = CInitComboFun::InitAmountCombox(data, data.GetCodeCode(account));
    posted_.countIn(amounts_);
    unposted_.countIn(amounts_);
  }

  void recomputePriceAndRate(LedgerBalance& balance) const {
    const auto fresh =
        CGetData::GetScalAndPrice(balance.amount, balance.quantity, balance.foreignAmount, amounts_.rateMethod);
    if (balance.amount == 0) return;
    if (!amounts_.unit.empty() && balance.quantity != 0) balance.unitPrice = fresh.price;
    if (!amounts_.currency.empty() && balance.foreignAmount != 0) balance.exchangeRate = fresh.rate;
  }

  // One walk over the months; whether it consumed any line. A line whose voucher date lies outside the months stops its
  // list, and the walk is repeated for those behind it as long as that helps.
  bool walkMonths() {
    bool any = false;
    for (int month = conditions_.from; month <= conditions_.to; ++month) {
      bool inMonth = takeMonth(posted_, month, false);
      inMonth = takeMonth(unposted_, month, true) || inMonth;
      if (inMonth) writeMonthTotals();
      any = any || inMonth;
    }
    return any;
  }

  bool takeMonth(LineReader& reader, int month, bool unposted) {
    bool any = false;
    for (; !reader.done() && reader.line().month == month; reader.advance()) {
      const auto& line = reader.line();
      monthTotal_.debit += line.debit;
      monthTotal_.credit += line.credit;
      balance_.quantity += line.debit.quantity - line.credit.quantity;
      balance_.foreignAmount += line.debit.foreign - line.credit.foreign;
      balance_.amount += line.debit.amount - line.credit.amount;
      recomputePriceAndRate(balance_);
      if (columns_) columns_->add(line);
      rows_.writeLine(line, balance_, unposted);
      steps_.step();
      any = true;
    }
    return any;
  }

  void writeMonthTotals() {
    monthTotal_.summary = "本月合计";
    auto row = rows_.writeTotal(monthTotal_, balance_, RowKind::subtotal);
    if (columns_) columns_->writeMonth(grid_, row);
    yearTotal_.debit += monthTotal_.debit;
    yearTotal_.credit += monthTotal_.credit;
    yearTotal_.summary = "本年累计";
    row = rows_.writeTotal(yearTotal_, balance_, RowKind::subtotal);
    if (columns_) columns_->writeYear(grid_, row);
    yearTotals_ = true;
    block_.debit += monthTotal_.debit;
    block_.credit += monthTotal_.credit;
    monthTotal_ = {};
  }

  void writeSums(Sums& sums, std::string_view caption, RowKind kind) {
    // Accounts with units and currencies of their own have no price in common.
    if (!member_.listsAccounts()) recomputePriceAndRate(sums.closing);
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
  Session& session_;
  const Conditions& conditions_;
  CTzGrid& grid_;
  const AmountLayout& layout_;
  std::optional<SubAccountColumns> columns_;
  DetailRows rows_;
  Steps steps_;
  AccountAmounts amounts_;  // of the block
  OpeningBalances openings_;
  LineReader posted_;
  LineReader unposted_;
  LedgerBalance balance_;
  LedgerLine monthTotal_;
  LedgerLine yearTotal_;
  LedgerLine block_;
  std::int64_t left_ = 0;
  bool yearTotals_ = false;  // "本年累计" was written
};

}  // namespace

void runDetailLedger(const DetailMember& member, Session& session, const Conditions& conditions, CTzGrid& grid) {
  DetailRun(member, session, conditions, grid).run();
}

}  // namespace tz
