// The engine behind every detail ledger: opening balance, posted and unposted lines of the period range, and the month
// walk that writes them with a running balance, "本月合计" and "本年累计".
//
// Sources: the opening is the member's AssAcc record of the first period (records of the account and the accounts below
// it added up, each by its own account's direction) and, with unposted vouchers, their lines of earlier periods; the
// movements are RegSub and UnregSub lines. Lines belong to the month of their voucher date. Nothing is rounded.
//
// A member with groups makes a block per entity of its innermost level, in the order of the group keys: a heading row,
// the opening, the lines with their months, a subtotal row. The lines of all blocks come from one ordered statement per
// book.
#pragma once

#include "core/ledger/detail_report.h"
#include "core/output/report_output.h"
#include "core/reports/session.h"

namespace tz {

// Fills the grid, its notices and its subjects; `whole` is what the whole report is about.
void runDetailLedger(const DetailMember& member, Session& session, const Conditions& conditions, const Subject& whole,
                     ComputedReport& computed);

}  // namespace tz
