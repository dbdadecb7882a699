// Every message of the module, in one table. Their texts are fixed; where two windows word the same thing differently,
// both wordings are kept.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/data/connection.h"
#include "core/reports/parameter.h"

namespace tz {

enum class MessageId {
  databaseNotOpen,             // "数据库没有打开!"
  noAccount,                   // "没有符合条件的科目!"
  noPersonAccountThreeColumn,  // dialog 513
  deptEmpty,
  deptUnknown,
  deptWithoutActivity,
  personEmpty,
  personUnknown,
  personOfOtherDept,
  personWithoutActivity,
  noPersonAccountSubject,      // dialog 511
  noPersonAccountDept,         // dialog 512
  deptUnknownLoud,             // dialog 512
  noPersonAccountMulti,        // dialog 514
  noDeptAccount,               // dialogs 538 and 540
  noDeptParentAccount,         // dialog 541
  deptEmptyPlain,              // dialog 540
  deptUnknownPlain,            // dialog 540
  deptEmptySpaced,             // dialogs 539 and 541
  deptUnknownSpaced,           // dialogs 539 and 541
  noAccountCode,               // dialogs 558, 559 and 561
  noQualifyingAccount,         // dialog 560
  noProjectClassPlain,         // dialog 562
  noQualifyingProjectAccount,  // dialog 562
  noProjectAccount,            // dialog 562
  classNotChosen,              // dialog 562
  projectEmpty,
  projectNotInClass,
  deptNameUnknown,      // project dialogs
  noUnitAccount,        // dialog 618
  noUnitParentAccount,  // dialog 624
  unitEmpty,            // dialog 618
  unitWanted,           // dialog 619
  unitUnknown,
  rangeInvalid,
  databaseNotOpenEnglish,  // department reports
  noProjectClass,          // command 10224, dialogs 559 and 561
  noPlanAccount,           // command 10237
  noPlanProjectClass,      // command 10238
  notListed,               // text that a list does not offer, where the dialog has no words for it
  choiceWanted,            // an emptied list in which something has to be chosen
  linesOutsideMonths,      // notice of a detail ledger; one number
  yearTotalsFrom,          // notice of a detail ledger; the first month
  monthsReversed,          // notice
  projectsReversed,        // notice
  foreignFormat,           // notice of "外币式"
  logonOutsideYear,        // notice; the logon date and the account year
};

// The text with its arguments in the places of %d and %s.
[[nodiscard]] std::string messageText(MessageId id, const std::vector<std::string>& arguments = {});

enum class MessageIcon { information, warning };

// "No" as an answer: what a dialog shows in a message box and the command line prints before it ends with status 1.
struct Refusal {
  MessageId id;
  std::vector<std::string> arguments;
  std::string_view caption;  // of the message box; empty = the program's own
  MessageIcon icon = MessageIcon::information;
  std::optional<ParameterKey> about;  // the condition that is at fault, where it is one
  // Why the ledger could not be read, where that is behind it: said below the text.
  std::optional<DbError> failure = {};
  std::vector<std::string> offered = {};  // what could be chosen instead, for whoever sees no list

  [[nodiscard]] std::string text() const { return messageText(id, arguments); }
};

}  // namespace tz
