// Price and rate of a balance, as the account counts them.
#pragma once

#include "core/data/init_combo_fun.h"
#include "core/ledger/ledger_line.h"

namespace tz {

// Computes them anew from the balance's figures; where these give none they stay what they were.
inline void recomputePriceAndRate(LedgerBalance& balance, const AccountAmounts& amounts) {
  const auto fresh =
      CGetData::GetScalAndPrice(balance.amount, balance.quantity, balance.foreignAmount, amounts.rateMethod);
  if (balance.amount == 0) return;
  if (!amounts.unit.empty() && balance.quantity != 0) balance.unitPrice = fresh.price;
  if (!amounts.currency.empty() && balance.foreignAmount != 0) balance.exchangeRate = fresh.rate;
}

}  // namespace tz
