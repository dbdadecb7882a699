// The operators of a ledger: who there is, and what whoever has every right does with them. Each act is one transaction
// of the ledger's keeper, in which it is looked anew whether it may be done, so that of two who keep operators at once
// the second finds what the first has left.
//
// Once a ledger has operators, one of them has every right and a password: else nobody could keep them any more.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/reports/keeper.h"
#include "core/reports/messages.h"
#include "core/reports/operator.h"
#include "core/reports/question.h"

namespace tz {

struct KeptOperator {
  Operator who;
  bool hasPassword = false;  // one that can be checked: without it he cannot log on
};

// By the order in which they were added.
[[nodiscard]] std::vector<KeptOperator> readOperators(Connection& connection);

// What changes, and nothing else: two who change different rights of one operator do not undo each other's.
struct RightsChange {
  std::optional<bool> everyRight = {};
  std::set<int> give = {};
  std::set<int> take = {};
};

struct NewOperator {
  std::string name;
  std::string password;
  RightsChange rights;
};

// The name as it is kept, without blanks around it.
[[nodiscard]] std::string operatorName(std::string_view typed);
// Why a name cannot be an operator's, whoever there is.
[[nodiscard]] std::optional<Refusal> nameFault(std::string_view name);
// Why an operator cannot have this password.
[[nodiscard]] std::optional<Refusal> passwordFault(std::string_view name, std::string_view password);
inline constexpr int shortestPassword = 8;  // characters
// What a password has to be, for whoever is to think of one.
[[nodiscard]] std::string passwordRule();

[[nodiscard]] std::vector<std::string_view> operatorTables();

// Acts on the operators in the name of `by`, who is everybody() where there are none yet. Each answers with why it was
// not done, or with nothing when it was; throws DbError, after which nothing was written.
class OperatorBook {
 public:
  // A keeper of operatorTables, without an obstacle.
  OperatorBook(LedgerKeeper& keeper, Operator by) : keeper_(keeper), by_(std::move(by)) {}

  using Answer = std::optional<Refusal>;
  [[nodiscard]] Answer add(const NewOperator& wanted) const;
  [[nodiscard]] Answer changeRights(std::string_view name, const RightsChange& change) const;
  [[nodiscard]] Answer rename(std::string_view name, std::string_view newName) const;
  // One's own, or anybody's for whoever has every right. Takes a while.
  [[nodiscard]] Answer setPassword(std::string_view name, const std::string& password) const;
  // The last one leaves a ledger that is open to everyone: only where that is said.
  [[nodiscard]] Answer remove(std::string_view name, bool openToEveryone) const;

 private:
  // act(all, the one that is meant) in one transaction; what it leaves is looked at before it lasts.
  template <class Act>
  [[nodiscard]] Answer keep(std::string_view name, bool orSelf, const Act& act) const;

  LedgerKeeper& keeper_;
  Operator by_;
};

// What removing this operator means, to be asked before it is done.
[[nodiscard]] Question removalQuestion(const std::vector<KeptOperator>& all, std::string_view name);

}  // namespace tz
