// Conditions after validation: the request with every name resolved to what it stands for. Computations read this.
#pragma once

#include <memory>
#include <string>

#include "data/init_combo_fun.h"
#include "reports/request.h"

namespace tz {

struct Conditions {
  Request request;
  std::shared_ptr<CGetData> data;  // lookups as of the same moment
  CodeInfo account;
  AccountAmounts amounts;  // of the account
  DeptInfo dept;
  PersonInfo person;
  int from = 0;
  int to = 0;
  bool unposted = false;
  std::string format;  // amount format to show

  // An account as subtitles show it.
  [[nodiscard]] std::string accountText() const { return account.sCode + " " + account.sName; }
};

}  // namespace tz
