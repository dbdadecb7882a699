// An archive as a table, for its window and for what is written and printed from it.
#pragma once

#include <string>
#include <vector>

#include "core/archives/archive_values.h"
#include "core/output/report_output.h"

namespace tz {

// One row for each record, in their order.
[[nodiscard]] ComputedReport archiveList(const Archive& archive, const std::vector<ArchiveRecord>& records,
                                         const ArchiveReferences& references);
// Ids as the names that they stand for, types and marks in words; figures and dates as they are written in files.
[[nodiscard]] std::string shownValue(const ArchiveField& field, const Value& value,
                                     const ArchiveReferences& references);
// By one column, upwards or downwards: figures by their size, texts as codes compare, equal ones as they stood.
void sortRecords(std::vector<ArchiveRecord>& records, const Archive& archive, const ArchiveReferences& references,
                 std::size_t field, bool downwards);

}  // namespace tz
