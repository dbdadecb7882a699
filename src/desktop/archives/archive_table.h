// The records of an archive in a grid: found as one types by code, name or the sound of the name, kept to a group,
// ordered by a column. It holds what the list shows; reading and writing are others' matter.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "core/archives/archive_list.h"
#include "desktop/gridview/shown_rows.h"
#include "desktop/picking/name_list.h"

namespace tz {

class GridView;

class ArchiveTable {
 public:
  explicit ArchiveTable(GridView& view) : view_(view) {}

  void Show(Archive archive, std::vector<ArchiveRecord> records, ArchiveReferences references);
  void ShowNone(const QString& why);
  [[nodiscard]] const Archive& Shown() const { return archive_; }

  // Shows what the text finds in the group; stays on the current record where that is still shown.
  void Find(const QString& text, std::optional<Id> group);
  // By this column, and the other way round when it is asked again.
  void SortBy(int column);
  // Null where none is current.
  [[nodiscard]] const ArchiveRecord* Current() const;
  // Makes a record current; the first one that is shown where it is not.
  void StandOn(Id lId);
  [[nodiscard]] std::size_t Count() const { return records_.size(); }
  [[nodiscard]] std::size_t Found() const;
  // What is shown, to be printed or written.
  [[nodiscard]] ComputedReport Report(const QString& title) const;

 private:
  void Fill();
  [[nodiscard]] RowBits Kept() const;

  GridView& view_;
  Archive archive_;
  std::vector<ArchiveRecord> records_;
  std::vector<ArchiveRecord> asRead_;  // in the archive's own order
  std::optional<ArchiveReferences> references_;
  std::vector<SearchEntry> entries_;  // what the records are found by
  std::unique_ptr<ComputedReport> shown_;
  QString text_;
  std::optional<Id> group_;
  int sortedBy_ = -1;
  bool downwards_ = false;
};

}  // namespace tz
