// A condition dialog as data: its controls and its checks in their order. validate() serves the dialog's OK button and
// the command line alike.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "core/reports/conditions.h"
#include "core/reports/few.h"
#include "core/reports/messages.h"
#include "core/reports/session.h"

namespace tz {

// One condition on the dialog: control 2206 for the account, an edit with a button for a name, and so on.
struct ControlSpec {
  enum class Kind {
    accountCombo,
    accountLists,  // offered and chosen accounts side by side, with move buttons
    deptReference,
    personReference,
    personCombo,  // persons of the department
    unitReference,
    deptCombo,         // departments, with `all` also "全部"
    unitClassCombo,    // unit classes and "其它"
    clerkCombo,        // clerks of the account's lines and "其它"
    classCombo,        // project classes
    projectReference,  // project class (combo 2211), item name and its button
    itemReference,     // an item of the class that stands already
    itemCombo,
    projectRange,  // two combos from and to, which a button may unfold
    accountRange,  // the same for accounts
    months,
    month,  // the last one
    amountRange,
    side,
    date,
    analysis,  // one of two, each with its own id: the method of an analysis, a grouping
    checkBox,
  };

  Kind kind;
  ParameterKey key;  // of conditions with two ends or parts: the first one
  int id;
  int companion = 0;  // the VIEW button of a reference, the second control of two
  std::string_view caption;
  bool all = false;                       // "全部" is offered
  std::string_view unfoldedCaption = {};  // of a button that shows and hides something, when that is shown
  std::string_view foldedCaption = {};    // when it was hidden again; empty = the caption
  std::string_view accountWhere = {};     // which accounts the ends of a range may be
  int label = 0;                          // the id of its caption, where that has one
};

// The conditions of a control: one, or the two parts of months, ranges and project references.
[[nodiscard]] std::vector<ParameterKey> keysOf(const ControlSpec& control);

struct DialogSpec;

// What a check works on: conditions are resolved step by step, each check behind those it needs.
struct CheckContext {
  const DialogSpec& dialog;
  Session& session;
  const Request& request;
  Conditions& conditions;
  std::optional<std::vector<PersonInfo>> persons = {};  // of the name asked for, once a check has read them
};

struct Check {
  bool (*passes)(CheckContext&);
  Message message;
  ParameterKey about;      // the condition that the person should look at
  bool atOpening = false;  // before anything is asked: the dialog does not even open
};

// What is taken from a list: without a value the first entry, where something always stands. A value that is not on the
// list is refused.
struct Unlisted {
  ParameterKey about;
  std::vector<std::string> offered;  // empty where it is too much to tell
};
using ListChoice = std::optional<Unlisted> (*)(CheckContext&);

constexpr std::size_t mostControls = 12;
constexpr std::size_t mostChecks = 12;
constexpr std::size_t mostChoices = 4;
using Controls = Few<ControlSpec, mostControls>;
using Checks = Few<Check, mostChecks>;
using Choices = Few<ListChoice, mostChoices>;

struct DialogSpec {
  int id = 0;
  std::string_view title = {};
  std::string_view accountWhere = {};  // which accounts the combo offers; empty = no account condition
  // When there are none, or the one asked for is not among them.
  Message noAccount = messages::noMatchingAccount;
  Controls controls = {};
  Checks checks = {};                    // behind the account's; those at opening come before it
  Choices choices = {};                  // behind the checks
  std::string_view messageCaption = {};  // of its message boxes; empty = the program's own
  // What the dialog, and the report that it asks for, say of a ledger that is not open.
  Message databaseNotOpen = messages::databaseNotOpen;
  std::string_view group = {};  // the caption of a frame around the controls; empty = none
};

// A read that failed on the way to an answer: the refusal is what an empty result would have been answered with.
class UnreadAnswer : public DbError {
 public:
  UnreadAnswer(Refusal refusal, const DbError& error) : DbError(error), refusal_(std::move(refusal)) {
    refusal_.failure = error;
  }
  [[nodiscard]] const Refusal& refusal() const { return refusal_; }

 private:
  Refusal refusal_;
};

[[nodiscard]] bool asksForAccount(const DialogSpec& dialog);

// The refusal with which the dialog closes itself before it opens, for want of accounts or classes; nothing otherwise.
// Throws UnreadAnswer when these cannot be read.
[[nodiscard]] std::optional<Refusal> openingRefusal(const DialogSpec& dialog, Session& session);

// What the dialog's report answers when the ledger is not open.
[[nodiscard]] Refusal notOpen(const DialogSpec& dialog);
// The same as openingRefusal() where nothing can be read: the first thing that the dialog would miss; nothing for one
// that misses nothing.
[[nodiscard]] std::optional<Refusal> unreadOpening(const DialogSpec& dialog);

// The conditions, or the first refusal in the dialog's order. Throws DbError when the ledger cannot be read,
// UnreadAnswer where a check is what could not be read.
[[nodiscard]] std::variant<Conditions, Refusal> validate(const DialogSpec& dialog, const Request& request,
                                                         Session& session);

// Checks that dialogs have in common. Each resolves what it has checked.
namespace checks {
bool deptGiven(CheckContext& context);
bool deptKnown(CheckContext& context);
bool deptActive(CheckContext& context);
bool deptPersonsActive(CheckContext& context);  // lines of the department that name a person
bool deptKnownOrAll(CheckContext& context);     // none and "全部" are all departments
bool personGiven(CheckContext& context);
bool personKnown(CheckContext& context);
bool personOfDept(CheckContext& context);
bool personActive(CheckContext& context);
bool unitGiven(CheckContext& context);
bool unitKnown(CheckContext& context);
bool unitKnownOrAll(CheckContext& context);  // none is all units
bool unitsDefined(CheckContext& context);
bool unitClassesDefined(CheckContext& context);
bool accountGiven(CheckContext& context);
bool accountsOffered(CheckContext& context);
bool classesDefined(CheckContext& context);
bool classChosen(CheckContext& context);     // none given: refused
bool classOrFirst(CheckContext& context);    // none given: the first class
bool classOfAccount(CheckContext& context);  // the account's own, the first of them
bool deptsDefined(CheckContext& context);
bool classHasProjects(CheckContext& context);  // the class asked for, where it is on the list
bool projectGiven(CheckContext& context);
bool projectKnown(CheckContext& context);
bool accountsPicked(CheckContext& context);  // none picked: all
bool rangeInOrder(CheckContext& context);    // upper bound of the amount range not below the lower
}  // namespace checks

namespace choices {
std::optional<Unlisted> dept(CheckContext& context);       // in a list that offers no "全部"
std::optional<Unlisted> deptOrAll(CheckContext& context);  // none and "全部" are all departments
std::optional<Unlisted> unitClass(CheckContext& context);
std::optional<Unlisted> clerk(CheckContext& context);
std::optional<Unlisted> projectClass(CheckContext& context);  // among the account's, or where none is asked for all
std::optional<Unlisted> projectRange(CheckContext& context);  // without an end the range is open there
std::optional<Unlisted> accountRange(CheckContext& context);  // the last account covers those below it
}  // namespace choices

}  // namespace tz
