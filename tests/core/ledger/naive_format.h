// Which amount format a question comes to, and what its account keeps, for the naive computation.
#pragma once

#include "core/ledger/naive_dialog.h"
#include "core/ledger/naive_figures.h"

namespace tz::test::naive {

struct Format {
  std::string name, unit;
  bool wrongUse = false;  // it is not offered
  Keeps keeps;            // of the one account
};

[[nodiscard]] Keeps keptBy(const Ledger& ledger, Id account);
// Where no account is chosen every format is offered.
[[nodiscard]] Format formatOf(const Ledger& ledger, const Report& report, const Question& question,
                              const Chosen& chosen);

}  // namespace tz::test::naive
