// Every message with which a condition dialog refuses, each with a ledger and conditions that provoke it. The dialogs
// on the screen and the command line are held against the same table.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "core/reports/messages.h"
#include "core/reports/request.h"
#include "support/test_ledger.h"

namespace tz::test {

struct RefusalCase {
  int command;
  std::string_view text;
  std::vector<std::pair<ParameterKey, std::string_view>> values = {};
  std::string_view change = {};  // of the ledger: SQL statements, a semicolon between them
  // The change shows only when the dialog is confirmed.
  bool onConfirming = false;
  // The dialog opens on an account, which is erased.
  bool accountErased = false;
  // What the command line lists below the message.
  std::string_view listed = {};
  // It tells the text that is on no list.
  bool unlisted = false;

  [[nodiscard]] Request request() const;
};

[[nodiscard]] std::vector<RefusalCase> refusalCases();

// Accounts of every kind, three departments, persons with and without movements, a unit, a project; then the change of
// a case.
void fillRefusalLedger(TestLedger& ledger, std::string_view change = {});

}  // namespace tz::test
