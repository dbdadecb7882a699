#include "core/receivables/automatic_matching.h"

#include <algorithm>
#include <fmt/format.h>
#include <limits>
#include <map>
#include <set>
#include <tuple>

#include "core/data/line_query.h"
#include "core/grid/column_adder.h"
#include "core/receivables/marks_in_turn.h"

namespace tz {
namespace {

constexpr int automaticallyCleared = 2;

// An open line with what orders it.
struct ReadLine {
  OpenLine open;
  Date bill;
  std::string word;
  int number = 0;
};
using PartyLines = std::vector<ReadLine>;
using Key = std::pair<Id, Id>;  // account and party

std::vector<CodeInfo> accountsOfKind(const CQnCwDB& db, ClearingKind kind) {
  return db.Code_GetInfo(kind == ClearingKind::person ? "sAssBook LIKE '%A%' AND lId>0 AND bEnd <> 0 ORDER BY sCode"
                                                      : "sAssBook LIKE '%B%' AND lId>0 AND bEnd <> 0 ORDER BY sCode");
}

class OpenLines {
 public:
  OpenLines(Session& session, ClearingKind kind, const std::vector<CodeInfo>& accounts)
      : session_(session), kind_(kind), accounts_(accounts) {}

  // Everything that the parties have open, in one pass.
  std::map<Key, PartyLines> read(const std::vector<Party>& parties) {
    std::vector<Id> ids;
    for (const auto& party : parties) ids.push_back(party.id);
    std::vector<Id> accounts;
    for (const auto& account : accounts_) accounts.push_back(account.lId);
    return read(inList("+lCodeId", accounts), among(ids));
  }
  // Of one party on one account, as it stands now.
  PartyLines read(const CodeInfo& account, const Party& party) {
    auto found = read(Sql("lCodeId = ?", account.lId), Sql(std::string(column()) + " = ?", party.id));
    return std::move(found[{account.lId, party.id}]);
  }

 private:
  [[nodiscard]] std::string_view column() const { return kind_ == ClearingKind::person ? "lPersonId" : "lEnterId"; }

  // A list that names most of the parties is longer than reading all of them.
  [[nodiscard]] Sql among(const std::vector<Id>& ids) {
    constexpr std::size_t mostListed = 500;
    wanted_ = {};
    if (ids.size() <= mostListed) return inList(column(), ids);
    wanted_ = std::set<Id>(ids.begin(), ids.end());
    return Sql(std::string(column()) + " > 0");
  }

  std::map<Key, PartyLines> read(const Sql& accounts, const Sql& parties) {
    const LineQuery query{.filter = accounts + " AND " + parties +
                                    Sql(fmt::format(" AND {} <> 0 AND byFlag = 0{}", column(),
                                                    kind_ == ClearingKind::person ? " AND mMoney > 0" : "")),
                          .firstPeriod = 0,
                          .lastPeriod = std::numeric_limits<std::int16_t>::max(),
                          .order = {}};
    const auto rows = session_.db.Current().query(unorderedStatement(
        query, fmt::format("s.lCodeId, s.{}, s.lId, s.lTieId, s.bDirect, s.mMoney, s.mForeign, s.sBusiness, m.dtBill, "
                           "m.sWord, m.nNumber",
                           column())));
    enum Column { account, party, line, voucher, direct, money, foreign, business, bill, word, number };
    std::map<Key, PartyLines> found;
    while (rows->next()) {
      const Key key{rows->integer(account), rows->integer(party)};
      if (!wanted_.empty() && !wanted_.contains(key.second)) continue;
      found[key].push_back({.open = {.line = rows->integer(line),
                                     .voucher = rows->integer(voucher),
                                     .amount = rows->real(comparesForeign(key.first) ? foreign : money),
                                     .debit = rows->integer(direct) != 0,
                                     .business = std::string(rows->text(business))},
                            .bill = rows->date(bill),
                            .word = std::string(rows->text(word)),
                            .number = static_cast<int>(rows->integer(number))});
    }
    for (auto& [key, lines] : found) {
      std::ranges::sort(lines, {}, [](const ReadLine& one) {
        return std::tuple(one.bill, std::string_view(one.word), one.number, one.open.line);
      });
    }
    return found;
  }

  [[nodiscard]] bool comparesForeign(Id account) const {
    const auto found = std::ranges::find(accounts_, account, &CodeInfo::lId);
    return found != accounts_.end() && found->byExchId != 0;
  }

  Session& session_;
  ClearingKind kind_;
  const std::vector<CodeInfo>& accounts_;
  std::set<Id> wanted_;
};

// One run: each account and party is matched by what was read, and anew where another operator was there in between.
class Run {
 public:
  Run(Session& session, ClearingKind kind, const std::vector<CodeInfo>& accounts)
      : session_(session), kind_(kind), lines_(session, kind, accounts) {}

  std::map<Key, PartyLines> read(const std::vector<Party>& parties) {
    const CancelWatch watch(session_);
    return lines_.read(parties);
  }

  MatchCounts match(const CodeInfo& account, const Party& party, PartyLines lines) {
    bool first = true;
    return marksInTurn<MatchCounts>(session_, [&]() -> std::optional<MatchCounts> {
      if (!std::exchange(first, false)) lines = lines_.read(account, party);
      std::vector<OpenLine> open;
      open.reserve(lines.size());
      for (auto& line : lines) open.push_back(std::move(line.open));
      const auto matched = matchLines(kind_, open);
      std::vector<MarkChange> changes;
      changes.reserve(matched.places.size());
      for (const auto place : matched.places) {
        changes.push_back({open[place].line, open[place].voucher, 0, automaticallyCleared});
      }
      if (!write(changes)) return std::nullopt;
      return matched.counts;
    });
  }

 private:
  bool write(const std::vector<MarkChange>& changes) {
    if (changes.empty()) return true;
    const auto outcome =
        batch_ ? markLines(session_, changes, batch_) : markLines(session_, changes, MarkWork::What::match, kind_);
    const auto* written = std::get_if<MarksWritten>(&outcome);
    if (written == nullptr) return false;
    batch_ = written->batch;
    return true;
  }

  Session& session_;
  ClearingKind kind_;
  OpenLines lines_;
  std::optional<std::string> batch_;
};

}  // namespace

std::vector<Party> partiesOfDept(Session& session, Id dept) {
  std::vector<Party> parties;
  for (auto& person : session.db.Person_GetInfo(Sql("lId > 0 AND lDeptId = ? ORDER BY sPersonId, lId", dept))) {
    parties.push_back({person.lId, std::move(person.sName)});
  }
  return parties;
}

std::vector<Party> allParties(Session& session, ClearingKind kind) {
  std::vector<Party> parties;
  if (kind == ClearingKind::person) {
    for (auto& person : session.db.Person_GetInfo("lId > 0 ORDER BY sPersonId, lId")) {
      parties.push_back({person.lId, std::move(person.sName)});
    }
  } else {
    for (auto& unit : session.db.Enter_GetInfo("lId > 0 ORDER BY sEnterId, lId")) {
      parties.push_back({unit.lId, std::move(unit.sEnterName)});
    }
  }
  return parties;
}

std::string MatchedAccount::text() const { return fmt::format("{}({})", account.sName, account.sCode); }

MatchCounts MatchOutcome::all() const {
  MatchCounts sum;
  for (const auto& one : accounts) sum += one.counts;
  return sum;
}

std::string brokenOffText(const MatchOutcome& outcome) {
  const auto [byNumber, pairwise, whole] = outcome.all();
  const auto marked = byNumber + pairwise + whole;
  const bool doubt = outcome.failure && outcome.failure->kind() == DbError::Kind::undecided;
  const std::string_view last = doubt ? "，最后一家的不能确定，其余的没有勾对" : "，其余的没有勾对";
  if (marked == 0) return doubt ? "第一家的分录是否勾对不能确定，其余的没有勾对" : "没有勾对任何分录";
  return fmt::format("在此之前已勾对 {} 条分录{}；可以再勾对一次，或者撤销", marked, last);
}

void fillMatchGrid(const MatchOutcome& outcome, CTzGrid& grid) {
  constexpr int accountWidth = 160, countWidth = 80;
  grid.Clear();
  CTzGridControl::AddCol(grid, "科目", accountWidth, ColumnKind::text);
  for (const auto* const caption : {"专认勾对", "逐笔勾对", "全额勾对"}) {
    CTzGridControl::AddCol(grid, caption, countWidth, ColumnKind::count);
  }
  grid.SetRows(static_cast<std::int64_t>(outcome.accounts.size()));
  std::int64_t row = 0;
  for (const auto& one : outcome.accounts) {
    grid.SetText(row, 0, one.text());
    int column = 1;
    for (const auto count : {one.counts.byNumber, one.counts.pairwise, one.counts.whole}) {
      if (count != 0) grid.SetNumber(row, column, static_cast<double>(count));
      ++column;
    }
    ++row;
  }
}

MatchOutcome matchAutomatically(Session& session, ClearingKind kind, const std::vector<Party>& parties,
                                const MatchWatch& watch) {
  const auto accounts = accountsOfKind(session.db, kind);
  MatchOutcome outcome;
  for (const auto& account : accounts) outcome.accounts.push_back({account, {}});
  Run run(session, kind, accounts);
  try {
    auto open = run.read(parties);
    std::int64_t done = 0;
    for (auto& result : outcome.accounts) {
      watch.account(result.account);
      session.progress(done++, static_cast<std::int64_t>(accounts.size()));
      for (const auto& party : parties) {
        const auto lines = open.find({result.account.lId, party.id});
        if (lines == open.end()) continue;
        if (session.cancelled()) {
          outcome.stopped = true;
          return outcome;
        }
        watch.party(party);
        result.counts += run.match(result.account, party, std::move(lines->second));
        open.erase(lines);
      }
    }
    session.progress(done, done);
  } catch (const DbError& error) {
    // A statement that was stopped on request ends with an error of the database; its transaction left nothing.
    outcome.stopped = session.cancelled();
    if (!outcome.stopped) outcome.failure = error;
  }
  return outcome;
}

}  // namespace tz
