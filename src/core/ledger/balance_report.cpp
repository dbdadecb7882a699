#include "core/ledger/balance_report.h"

#include <cmath>
#include <optional>
#include <vector>

#include "core/ledger/balance_reader.h"
#include "core/ledger/balance_rows.h"

namespace tz {
namespace {

// Which closing balances are listed: those in the range of amounts, both ends included, and on the side asked for.
class ListedBalances {
 public:
  explicit ListedBalances(const Request& request)
      : least_(wholeMillionths(request.amount(ParameterKey::minimum))),
        most_(wholeMillionths(request.amount(ParameterKey::maximum))),
        side_(static_cast<BalanceSide>(request.choice(ParameterKey::side))) {}

  [[nodiscard]] bool contain(double closing) const { return inRange(closing) && onSide(closing); }

 private:
  [[nodiscard]] bool inRange(double closing) const {
    if (least_ == 0 && most_ == 0) return true;
    const double amount = wholeMillionths(std::abs(closing));
    return amount >= least_ && amount <= most_;
  }
  [[nodiscard]] bool onSide(double closing) const {
    if (side_ == BalanceSide::both) return true;
    return directionText(closing, directions::rowClosing) == (side_ == BalanceSide::debit ? "借" : "贷");
  }

  double least_;
  double most_;
  BalanceSide side_;
};

class BalanceRun {
 public:
  BalanceRun(const BalanceMember& member, Session& session, const Conditions& conditions, const Subject& whole,
             ComputedReport& computed)
      : levels_(member.groupingFor(conditions).levels),
        headed_(member.groupingFor(conditions).headed),
        conditions_(conditions),
        whole_(whole),
        rows_(member.groupingFor(conditions), conditions, computed),
        listed_(conditions.request),
        balances_(readBalances(member, session, conditions)) {}

  void run() {
    if (headed_) {
      writeHeadedGroups();
    } else {
      writeMembers();
    }
    rows_.writeTotal("合计", whole_, all_);
  }

 private:
  // The units without a class and the lines without a clerk, "其它", come last.
  [[nodiscard]] bool isOthers(const GroupKey& key) const {
    const auto& part = key.parts.front();
    const auto entity = levels_[0].entity;
    return (entity == Entity::unitClass && part.id == 0) || (entity == Entity::clerk && part.text.empty());
  }

  void writeMembers() {
    for (const bool others : {false, true}) {
      for (const auto& [key, figures] : balances_.members) {
        if (isOthers(key) == others && listed_.contain(figures.closing().amount)) writeMember(key, figures);
      }
    }
    if (group_) closeGroups(0);
  }

  // A group stays while one of its members' rows is shown below it.
  void writeHeadedGroups() {
    auto member = balances_.members.begin();
    for (const auto& [key, figures] : balances_.groups) {
      std::vector<MemberBalances::const_iterator> shown;
      for (; member != balances_.members.end() && member->first.parts[0] == key.parts[0]; ++member) {
        if (!conditions_.hideDetails && isShown(member->second)) shown.emplace_back(member);
      }
      all_.add(figures);
      if (shown.empty() && !isShown(figures)) continue;
      const auto kind = shown.empty() ? RowKind::line : RowKind::heading;
      rows_.writeGroup(kind, key, subjectOf(key, 0), figures);
      for (const auto& one : shown) rows_.writeMember(one->first, subjectOf(one->first, 1), one->second);
    }
  }

  [[nodiscard]] bool isShown(const BalanceFigures& figures) const { return !conditions_.hideZero || !isZero(figures); }

  void writeMember(const GroupKey& key, const BalanceFigures& figures) {
    if (group_) closeGroups(group_->partsFrom(key));
    group_ = key;
    const auto innermost = levels_.size() - 1;
    if (!conditions_.hideDetails || innermost == 0) rows_.writeMember(key, subjectOf(key, innermost), figures);
    for (std::size_t level = 0; level < innermost; ++level) sums_.at(level).add(figures);
    all_.add(figures);
  }

  // Closes the open groups of the levels outside the innermost one from `outermost` on, inner ones first.
  void closeGroups(std::size_t outermost) {
    for (auto level = levels_.size() - 1; level-- > outermost;) {
      if (!levels_[level].subtotal.empty()) {
        rows_.writeSubtotal(levels_[level].subtotal, *group_, level, subjectOf(*group_, level), sums_.at(level));
      }
      sums_.at(level) = {};
    }
  }

  [[nodiscard]] Subject subjectOf(const GroupKey& key, std::size_t level) const {
    return groupSubject(whole_, levels_, key, level, conditions_);
  }

  const GroupLevels& levels_;
  bool headed_;
  const Conditions& conditions_;
  const Subject& whole_;
  BalanceRows rows_;
  ListedBalances listed_;
  TableBalances balances_;
  std::optional<GroupKey> group_;  // of the last row
  std::array<BalanceFigures, mostLevels> sums_;
  BalanceFigures all_;
};

}  // namespace

void computeBalance(const ReportDefinition& report, Session& session, const Conditions& conditions,
                    ComputedReport& computed) {
  const auto& member = static_cast<const BalanceReport&>(report).member;
  const auto whole = wholeSubject(report, conditions);
  BalanceRun(member, session, conditions, whole, computed).run();
}

void addBalanceColumns(const ReportDefinition& report, const Conditions& conditions, CTzGrid& grid) {
  ComputedReport columns;
  const BalanceRows rows(static_cast<const BalanceReport&>(report).member.groupingFor(conditions), conditions, columns);
  grid = std::move(columns.grid);
}

std::vector<const BalanceReport*> balanceReports() {
  std::vector<const BalanceReport*> all;
  for (const auto ofArea : {personBalances(), unitBalances(), departmentGenerals(), projectGenerals()})
    all.insert(all.end(), ofArea.begin(), ofArea.end());
  return all;
}

}  // namespace tz
