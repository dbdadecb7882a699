// The engine behind every detail ledger: opening balance, posted and unposted lines of the period range, and the month
// walk that writes them with a running balance, "本月合计" and "本年累计".
//
// Sources: the opening is the member's AssAcc record of the first period (records of the account and the accounts below
// it added up, each by its own account's direction) and, with unposted vouchers, their lines of earlier periods; the
// movements are RegSub and UnregSub lines. Lines belong to the month of their voucher date. Nothing is rounded.
#pragma once

#include "data/line_query.h"
#include "ledger/detail_member.h"
#include "reports/session.h"

namespace tz {

class CTzGrid;

// The lines that a member reads for these conditions.
[[nodiscard]] LineQuery memberLines(const DetailMember& member, const Conditions& conditions, Book book);

void runDetailLedger(const DetailMember& member, Session& session, const Conditions& conditions, CTzGrid& grid);

}  // namespace tz
