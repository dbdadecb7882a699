#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <tuple>

#include "core/ledger/naive_columns.h"
#include "core/ledger/naive_dialog.h"
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
    answer_.refusal = chosen_.refusal;
    if (!chosen_.refusal.empty()) return answer_;
    chooseFormat();
    if (answer_.wrongUse) return answer_;
    answer_.title = report_.wording.title;
    answer_.subtitle = subtitle();
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
  // Where no account is chosen every format is offered.
  void chooseFormat() {
    const bool oneAccount = report_.accounts.which != Accounts::none && report_.accounts.which != Accounts::list;
    if (oneAccount) keeps_ = keptBy(chosen_.accounts.front().lId);
    const bool units = !oneAccount || !keeps_.unit.empty();
    const bool currencies = !oneAccount || !keeps_.currency.empty();
    std::vector<std::string> offered = {"金额式"};
    if (units) offered.emplace_back("数量金额式");
    if (currencies) offered.emplace_back("外币金额式");
    if (units && currencies) offered.emplace_back("数量外币式");
    answer_.format = question_.format;
    if (answer_.format.empty()) answer_.format = oneAccount ? offered.back() : offered.front();
    if (currencies && !report_.columns) offered.emplace_back("外币式");
    answer_.wrongUse = std::find(offered.begin(), offered.end(), answer_.format) == offered.end();
    if (answer_.format == "数量金额式") answer_.unit = keeps_.unit;
    if (answer_.format == "外币金额式") answer_.unit = keeps_.currency;
    if (answer_.format == "数量外币式" && oneAccount) answer_.unit = keeps_.unit + "\n" + keeps_.currency;
  }

  Keeps keptBy(Id id) const {
    Keeps keeps;
    for (const auto& account : ledger_.accounts) {
      if (account.lId != id) continue;
      keeps.unit = account.sUnit;
      for (const auto& currency : ledger_.currencies) {
        if (account.byExchId == 0 || currency.byExchId != account.byExchId) continue;
        keeps.currency = currency.sName;
        keeps.multiplies = currency.bConvert != 0;
      }
    }
    return keeps;
  }

  std::string subtitle() const {
    std::map<std::string, std::string> texts = {
        {"{dept}", chosen_.dept.sDeptName},  {"{person}", chosen_.person.sName},
        {"{unit}", chosen_.unit.sEnterName}, {"{unit class}", chosen_.unitClass.sName},
        {"{project}", chosen_.project.name}, {"{clerk}", chosen_.clerk.empty() ? "其它" : chosen_.clerk},
    };
    if (!chosen_.accounts.empty()) {
      texts["{account}"] = chosen_.accounts.front().sCode + " " + chosen_.accounts.front().sName;
    }
    std::string text, rest = report_.wording.subtitle;
    while (!rest.empty()) {
      const auto open = rest.find('{');
      text += rest.substr(0, open);
      if (open == std::string::npos) break;
      const auto close = rest.find('}', open);
      text += texts[rest.substr(open, close + 1 - open)];
      rest = rest.substr(close + 1);
    }
    return text;
  }

  // --- what belongs to which block

  Key keyOf(const Dimensions& of) const {
    Key key;
    for (const auto& group : report_.groups) {
      key.push_back({group.entity, group.entity == Entity::project ? of.classId : "", of[group.entity]});
    }
    return key;
  }

  void openings(const Lines& lines) {
    // The multi-column ledger of a department starts from the year's opening.
    const bool fromYearsStart = report_.id == 10232;
    for (const auto& record : lines.openings(fromYearsStart ? 1 : question_.from)) {
      blocks_[keyOf(record.of)].opening.add(record.amounts);
    }
    if (fromYearsStart) {
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
      if (!report_.groups.empty()) addRow("", "", heading(key), {}, "", {}, Place::opening, true);
      if (!report_.groups.empty() && report_.groups[0].entity == Entity::account) keeps_ = keptBy(std::get<Id>(key[0]));
      const auto sums = writeBlock(block);
      unlisted += block.posted.size() + block.unposted.size();
      if (report_.groups.empty()) continue;
      addRow("", "", report_.groups.back().subtotal, sums.moved, running(sums.balance), sums.balance, Place::running);
      for (auto& outer : open) {
        outer.moved.add(sums.moved);
        outer.balance.add(sums.balance);
      }
    }
    if (!report_.groups.empty() && blocks != 0) {
      closeOuter(*previous, {}, open);
      addTotal("合计", open.back());
    }
    if (unlisted != 0) {
      answer_.notices.push_back("有" + std::to_string(unlisted) + "条分录的凭证日期不在查询月份内，未列示");
    }
    addNotices();
  }

  void addNotices() {
    bool yearTotals = false;
    for (const auto& row : answer_.rows) yearTotals = yearTotals || row.cells.at(2) == "本年累计";
    if (yearTotals && question_.from != 1) {
      answer_.notices.push_back("本年累计自" + std::to_string(question_.from) + "月起累计。");
    }
    if (question_.to < question_.from) answer_.notices.emplace_back("起始月份在终止月份之后。");
    const auto& first = chosen_.projectFrom;
    const auto& last = chosen_.projectTo;
    if (!first.empty() && !last.empty() && last < first) answer_.notices.emplace_back("起始项目在终止项目之后。");
    if (answer_.format == "外币式") {
      answer_.notices.emplace_back("外币式沿用七栏表头：借方外币在“贷方”栏，贷方外币在“余额”栏。");
    }
  }

  // The outer groups that end with this block, innermost first.
  void closeOuter(const Key& ended, const Key& next, std::vector<Sums>& open) {
    for (std::size_t level = report_.groups.size(); level-- > 1;) {
      const bool goesOn =
          !next.empty() && std::equal(ended.begin(), ended.begin() + static_cast<long>(level), next.begin());
      if (goesOn) return;
      addTotal(report_.groups[level - 1].subtotal, open[level - 1]);
      open[level - 1] = {};
    }
  }

  void addTotal(const char* caption, Sums& sums) {
    if (report_.groups[0].entity != Entity::account) keeps_.priceAndRate(sums.balance);
    addRow("", "", caption, sums.moved, running(sums.balance), sums.balance, Place::running);
  }

  std::string heading(const Key& key) const {
    std::string text;
    for (const auto& member : key) text += (text.empty() ? "" : " ") + names_.at(member);
    return text;
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
      addRow("", "", report_.wording.opening, {}, money >= 0 ? "借" : "贷", sums.balance, Place::opening);
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
        addRow("", "", "本月合计", month, running(sums.balance), sums.balance, Place::running);
        if (columns_) columns_->monthTotal(answer_.rows.back());
        sums.moved.add(month);
        month = {};
        addRow("", "", "本年累计", sums.moved, running(sums.balance), sums.balance, Place::running);
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
      addRow(dateText(entry), voucherText(entry), entry.line.sDigest, figures, running(balance), balance,
             Place::running);
      if (columns_) columns_->line(entry.of[Entity::account], figures, answer_.rows.back());
      answer_.rows.back().unposted = unposted;
    }
  }

  // Beside sub-accounts the direction is finer and takes an even balance below zero for a credit.
  std::string running(const Balance& balance) const {
    if (std::fabs(balance.money) < (report_.columns ? 0.00001 : 0.0001)) return "平";
    return balance.money > (report_.columns ? 0 : 0.0001) ? "借" : "贷";
  }

  void addRow(const std::string& date, const std::string& number, const std::string& summary, const Figures& figures,
              const std::string& direction, const Balance& balance, Place place, bool isHeading = false) {
    Row row;
    for (const auto& text : {date, number, summary})
      row.cells.push_back(text.empty() ? nlohmann::json() : nlohmann::json(text));
    for (const auto& cell : figureCells(answer_.format, place, figures, direction, balance)) {
      row.cells.push_back(isHeading ? nlohmann::json() : cell);
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
  Keeps keeps_;
  std::map<Key, Block> blocks_;
  std::unique_ptr<SubAccountColumns> columns_;
};

}  // namespace

Answer detailLedger(const Ledger& ledger, const Question& question) {
  return Computation(ledger, *findNaive(question.report), question).run();
}

}  // namespace tz::test::naive
