// Automatic matching over the ledger: every account of the kind, every party asked for, one transaction for each
// account and party. All marks of one run are one batch.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/grid/tz_grid.h"
#include "core/receivables/line_matching.h"
#include "core/reports/messages.h"
#include "core/reports/session.h"

namespace tz {

// A person or unit, and how it is called.
struct Party {
  Id id = 0;
  std::string name;
};

// Whose lines are matched: every person of a department, one unit, or everybody. Throws DbError.
[[nodiscard]] std::vector<Party> partiesOfDept(Session& session, Id dept);
[[nodiscard]] std::vector<Party> allParties(Session& session, ClearingKind kind);

struct MatchedAccount {
  CodeInfo account;
  MatchCounts counts;

  // "应收账款(1122)", as progress and results show it.
  [[nodiscard]] std::string text() const;
};

struct MatchOutcome {
  std::vector<MatchedAccount> accounts;  // by code, those without any line too
  bool stopped = false;                  // between two parties, on request; what was marked before stays
  // Why it broke off; what is counted was marked before. Each account and party is marked wholly or not at all.
  std::optional<DbError> failure = {};

  [[nodiscard]] MatchCounts all() const;
};

// What is marked where it broke off.
[[nodiscard]] std::string brokenOffText(const MatchOutcome& outcome);

// The result's grid, a row for each account; counts of zero are empty cells.
void fillMatchGrid(const MatchOutcome& outcome, CTzGrid& grid);
inline constexpr std::string_view matchResultTitle = "自动勾对结果";

// What the person sees while it goes on, besides the session's progress, which counts accounts.
struct MatchWatch {
  std::function<void(const CodeInfo& account)> account = [](const CodeInfo&) {};
  std::function<void(const Party& party)> party = [](const Party&) {};
};

// Throws DbError when the accounts cannot be read.
[[nodiscard]] MatchOutcome matchAutomatically(Session& session, ClearingKind kind, const std::vector<Party>& parties,
                                              const MatchWatch& watch = {});

}  // namespace tz
