#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <tuple>

#include "core/ledger/naive_columns.h"
#include "core/ledger/naive_families.h"
#include "core/ledger/naive_format.h"
#include "core/ledger/naive_lines.h"

namespace tz::test::naive {
namespace {

// One member with its lines: the whole ledger where a report has no groups.
struct Block {
  Balance opening;
  std::vector<Entry> posted, unposted;
};

using Key = std::vector<std::tuple<Entity, std::string, Id>>;  // for each group; the text is a project's class

struct Sums {
  Figures moved;
  Balance balance;
};

class Computation {
 public:
  Computation(const Ledger& ledger, const Report& report, const Question& question)
      : ledger_(ledger),
        report_(report),
        question_(question),
        chosen_(choose(ledger, report, question)),
        names_(namesOf(ledger)) {}

  Answer run() {
    answer_.refused = chosen_.refused;
    if (answer_.refused) return answer_;
    const auto format = formatOf(ledger_, report_, question_, chosen_);
    answer_.format = format.name;
    answer_.unit = format.unit;
    answer_.wrongUse = format.wrongUse;
    keeps_ = format.keeps;
    if (answer_.wrongUse) return answer_;
    if (report_.columns) {
      columns_ = std::make_unique<SubAccountColumns>(ledger_, chosen_.accounts.front(), report_.accounts.flags[0],
                                                     question_.amountAnalysis, columnsOf(answer_.format));
    }
    const Lines lines(ledger_, report_, question_, chosen_);
    openings(lines);
    movements(lines);
    write();
    return answer_;
  }

 private:
  // --- what belongs to which block

  Key keyOf(const Dimensions& of) const {
    Key key;
    for (const auto group : report_.groups) {
      key.push_back({group, group == Entity::project ? of.classId : "", of[group]});
    }
    return key;
  }

  void openings(const Lines& lines) {
    for (const auto& record : lines.openings(report_.fromYearsStart ? 1 : question_.from)) {
      blocks_[keyOf(record.of)].opening.add(record.amounts);
    }
    if (report_.fromYearsStart) {
      for (const auto& entry : lines.posted(1, question_.from - 1))
        blocks_[keyOf(entry.of)].opening.move(entry.figures);
    }
    if (!question_.unposted) return;
    for (const auto& entry : lines.unpostedBefore(question_.from)) {
      blocks_[keyOf(entry.of)].opening.money += entry.figures.debit.money - entry.figures.credit.money;
    }
  }

  void movements(const Lines& lines) {
    for (auto& entry : lines.posted(question_.from, question_.to)) blocks_[keyOf(entry.of)].posted.push_back(entry);
    if (!question_.unposted) return;
    for (auto& entry : lines.unposted(question_.from, question_.to)) {
      blocks_[keyOf(entry.of)].unposted.push_back(entry);
    }
  }

  // --- rows

  void write() {
    std::vector<Sums> open(report_.groups.size());  // of each group but the innermost, and behind them the whole report
    const Key* previous = nullptr;
    int blocks = 0;
    std::size_t unlisted = 0;
    for (auto& [key, block] : blocks_) {
      const bool shown = std::fabs(block.opening.money) >= 0.00001 || !block.posted.empty() || !block.unposted.empty();
      if (!report_.groups.empty() && !shown) continue;
      if (previous != nullptr) closeOuter(*previous, key, open);
      previous = &key;
      ++blocks;
      if (!report_.groups.empty()) addHeading(key);
      if (!report_.groups.empty() && report_.groups[0] == Entity::account)
        keeps_ = keptBy(ledger_, std::get<Id>(key[0]));
      const auto sums = writeBlock(block);
      unlisted += block.posted.size() + block.unposted.size();
      if (report_.groups.empty()) continue;
      addSums(RowKind::subtotal, sums.moved, sums.balance);
      for (auto& outer : open) {
        outer.moved.add(sums.moved);
        outer.balance.add(sums.balance);
      }
    }
    if (!report_.groups.empty() && blocks != 0) {
      closeOuter(*previous, {}, open);
      addTotal(RowKind::total, open.back());
    }
    if (unlisted != 0) answer_.notices.push_back(static_cast<int>(unlisted));
    addNotices();
  }

  void addNotices() {
    if (yearTotals_ && question_.from != 1) answer_.notices.push_back(question_.from);
    if (question_.to < question_.from) answer_.notices.push_back(0);
    const auto& first = chosen_.projectFrom;
    const auto& last = chosen_.projectTo;
    if (!first.empty() && !last.empty() && last < first) answer_.notices.push_back(0);
    if (answer_.format == "外币式") answer_.notices.push_back(0);
  }

  // The outer groups that end with this block, innermost first.
  void closeOuter(const Key& ended, const Key& next, std::vector<Sums>& open) {
    for (std::size_t level = report_.groups.size(); level-- > 1;) {
      const bool goesOn =
          !next.empty() && std::equal(ended.begin(), ended.begin() + static_cast<long>(level), next.begin());
      if (goesOn) return;
      addTotal(RowKind::subtotal, open[level - 1]);
      open[level - 1] = {};
    }
  }

  void addTotal(RowKind kind, Sums& sums) {
    if (report_.groups[0] != Entity::account) keeps_.priceAndRate(sums.balance);
    addSums(kind, sums.moved, sums.balance);
  }

  using Texts = std::array<std::string, 3>;                 // date, voucher, summary
  static inline const Texts caption = {"", "", "caption"};  // in whatever words

  void addHeading(const Key& key) {
    std::string text;
    for (const auto& member : key) text += (text.empty() ? "" : " ") + names_.at(member);
    addRow(RowKind::heading, {"", "", text}, {}, "", {}, Place::opening);
  }

  void addSums(RowKind kind, const Figures& moved, const Balance& balance) {
    addRow(kind, caption, moved, running(balance), balance, Place::running);
  }

  using Names = std::map<Key::value_type, std::string>;
  static Names namesOf(const Ledger& ledger) {
    Names names;
    for (const auto& account : ledger.accounts) names[{Entity::account, "", account.lId}] = account.sName;
    for (const auto& dept : ledger.depts) names[{Entity::dept, "", dept.lDeptId}] = dept.sDeptName;
    for (const auto& person : ledger.persons) names[{Entity::person, "", person.lId}] = person.sName;
    for (const auto& unit : ledger.units) names[{Entity::unit, "", unit.lId}] = unit.sEnterName;
    for (const auto& item : ledger.items) names[{Entity::project, item.classId, item.id}] = item.name;
    return names;
  }

  // The opening row and the months; the lines that no month takes remain in the block.
  Sums writeBlock(Block& block) {
    Sums sums;
    sums.balance = block.opening;
    keeps_.priceAndRate(sums.balance);
    const double money = sums.balance.money;
    if (std::fabs(money) >= 0.00001) {
      addRow(RowKind::opening, caption, {}, money >= 0 ? "借" : "贷", sums.balance, Place::opening);
    }
    Figures month;
    bool progress = true;
    while (progress && !(block.posted.empty() && block.unposted.empty())) {
      progress = false;
      for (int m = question_.from; m <= question_.to; ++m) {
        const auto before = block.posted.size() + block.unposted.size();
        take(block.posted, m, false, month, sums.balance);
        take(block.unposted, m, true, month, sums.balance);
        if (block.posted.size() + block.unposted.size() == before) continue;
        progress = true;
        addSums(RowKind::monthTotal, month, sums.balance);
        if (columns_) columns_->monthTotal(answer_.rows.back());
        sums.moved.add(month);
        month = {};
        addSums(RowKind::yearTotal, sums.moved, sums.balance);
        yearTotals_ = true;
        if (columns_) columns_->yearTotal(answer_.rows.back());
      }
    }
    return sums;
  }

  void take(std::vector<Entry>& entries, int month, bool unposted, Figures& total, Balance& balance) {
    while (!entries.empty() && entries.front().head.dtBill.month == month) {
      const auto entry = entries.front();
      entries.erase(entries.begin());
      auto figures = entry.figures;
      const double money = figures.debit.money + figures.credit.money;
      const double quantity = figures.debit.quantity + figures.credit.quantity;
      if (!keeps_.unit.empty() && money != 0 && quantity != 0) figures.price = money / quantity;
      if (keeps_.currency.empty()) figures.rate = 0;
      total.add(figures);
      balance.move(figures);
      keeps_.priceAndRate(balance);
      addRow(RowKind::line, {dateText(entry), voucherText(entry), entry.line.sDigest}, figures, running(balance),
             balance, Place::running);
      if (columns_) columns_->line(entry.of[Entity::account], figures, answer_.rows.back());
      answer_.rows.back().unposted = unposted;
    }
  }

  // Beside sub-accounts the direction is finer and takes an even balance below zero for a credit.
  std::string running(const Balance& balance) const {
    if (std::fabs(balance.money) < (report_.columns ? 0.00001 : 0.0001)) return "平";
    return balance.money > (report_.columns ? 0 : 0.0001) ? "借" : "贷";
  }

  void addRow(RowKind kind, const Texts& texts, const Figures& figures, const std::string& direction,
              const Balance& balance, Place place) {
    Row row;
    row.kind = kind;
    for (const auto& text : texts) row.cells.push_back(text.empty() ? nlohmann::json() : nlohmann::json(text));
    for (const auto& cell : figureCells(answer_.format, place, figures, direction, balance)) {
      row.cells.push_back(kind == RowKind::heading ? nlohmann::json() : cell);
    }
    if (columns_) columns_->widen(row);
    answer_.rows.push_back(row);
  }

  const Ledger& ledger_;
  const Report& report_;
  const Question& question_;
  const Chosen chosen_;
  const Names names_;
  Answer answer_;
  bool yearTotals_ = false;
  Keeps keeps_;
  std::map<Key, Block> blocks_;
  std::unique_ptr<SubAccountColumns> columns_;
};

}  // namespace

Answer detailLedger(const Ledger& ledger, const Report& report, const Question& question) {
  return Computation(ledger, report, question).run();
}

}  // namespace tz::test::naive
