// Reading an archive, and adding, changing and removing its records: each in one transaction of the ledger's keeper, or
// refused with the reason. What somebody else changed meanwhile is never overwritten.
//
// A change is checked in this order: the fields as they stand in the form; whether the record still is what was read;
// codes that occur twice; what the archive itself forbids; where the record is used. Throws DbError when the database
// fails, and then nothing was written.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/archives/archive_values.h"
#include "core/reports/keeper.h"

namespace tz {

// In the order of the archive's list. Rows that stand for nobody (lId 0) are left out.
[[nodiscard]] std::vector<ArchiveRecord> readArchive(const CQnCwDB& db, const Archive& archive);

struct ArchiveAnswer {
  std::optional<ArchiveRefusal> refused = {};
  // The record as it stands in the ledger now: what was written, or what somebody else has made of it.
  std::optional<ArchiveRecord> now = {};
  bool changedMeanwhile = false;  // or removed, where there is no record now
};

[[nodiscard]] ArchiveAnswer addRecord(LedgerKeeper& keeper, const Archive& archive, const ArchiveInput& input);
[[nodiscard]] ArchiveAnswer changeRecord(LedgerKeeper& keeper, const Archive& archive, const ArchiveRecord& read,
                                         const ArchiveInput& input);
[[nodiscard]] ArchiveAnswer removeRecord(LedgerKeeper& keeper, const Archive& archive, const ArchiveRecord& read);

// "部门“销售部”"
[[nodiscard]] std::string calledRecord(const Archive& archive, const ArchiveRecord& record,
                                       const ArchiveReferences& references);
// What a person should know before a record is written that may be written all the same: another one bears the name,
// which reports take by its name. Empty for nothing; what cannot be written is no matter of this.
[[nodiscard]] std::string doubtAbout(const CQnCwDB& db, const Archive& archive, const ArchiveRecord& read,
                                     const ArchiveInput& input);

}  // namespace tz
