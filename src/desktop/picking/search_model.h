// Entries that are found as one types: by code, by a part of the name, by the sound of the name. Lists and pop-ups show
// the rows that were found, in the order of the entries; the best of them is to be made current.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "desktop/picking/name_list.h"

namespace tz {

// How an entry answers to what was typed, the better the greater.
enum class Found { no, bySound, inside, bySoundOfStart, atEnd, atStart, byCode, whole };

// A typed text, made ready for comparison with many entries.
class Typed {
 public:
  explicit Typed(const QString& text);
  [[nodiscard]] bool isEmpty() const { return text_.isEmpty(); }
  [[nodiscard]] Found find(const SearchEntry& entry) const;

 private:
  QString text_;
  QByteArray letters_;  // empty when it cannot be a sound
};

class SearchModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetNames(Names names);
  void SetEntries(std::vector<SearchEntry> entries);
  // Shows what the text finds, all for an empty one, of one group only unless it is -1. Returns the best row, among
  // equals one of the preferred group; -1 when there is none. More behind what was typed looks through what was found.
  int Search(const QString& text, int onlyGroup = -1, int preferredGroup = -1);
  [[nodiscard]] const SearchEntry& EntryAt(int row) const { return names_->entries[PlaceOf(row)]; }
  // The entry's place among all entries.
  [[nodiscard]] std::size_t PlaceOf(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  [[nodiscard]] const NameList& List() const { return *names_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;

 private:
  [[nodiscard]] std::vector<std::size_t> Candidates(const QString& text, int onlyGroup) const;

  Names names_ = std::make_shared<const NameList>();
  std::vector<std::size_t> rows_;  // places of the entries shown
  QString searched_;               // what they were found by
  int searchedGroup_ = -1;
};

}  // namespace tz
