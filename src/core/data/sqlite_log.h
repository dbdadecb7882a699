// Whether the log (-wal) or the journal (-journal) beside a ledger file can be that ledger's own. SQLite takes whatever
// bears the name and changes the ledger by it, also what was left by a file that stood there before: a ledger that was
// replaced by its backup would get pages of another day.
//
// What shows it: the size of the pages; the counter in the first page, which goes up with the log's first change of
// that page; the count of pages, which only changes together with the first page; and a ledger that was written later
// than its log without getting anything from it. What cannot be known stands in docs/troubles.md.
#pragma once

#include "core/data/sqlite_file.h"

namespace tz {

// Throws DbError (foreignLog) when it cannot be. Belongs before the first statement of a connection, which would take
// the log in.
void requireOwnLog(const LedgerFile& ledger);

}  // namespace tz
