#include "desktop/archives/archive_table.h"

#include <algorithm>

#include "desktop/gridview/grid_view.h"
#include "desktop/picking/search_model.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// Other texts than code and name are found by a part of them.
bool findsInside(const Archive& archive, const ArchiveRecord& record, const QString& text) {
  return std::ranges::any_of(record.values, [&, place = std::size_t{0}](const Value& value) mutable {
    const auto& field = archive.fields[place++];
    const auto* words = std::get_if<std::string>(&value);
    return words != nullptr && field.kind == ArchiveField::Kind::text &&
           toQt(*words).contains(text, Qt::CaseInsensitive);
  });
}

}  // namespace

void ArchiveTable::Show(Archive archive, std::vector<ArchiveRecord> records, ArchiveReferences references) {
  const bool same = archive.table == archive_.table;
  archive_ = std::move(archive);
  asRead_ = std::move(records);
  references_ = std::move(references);
  if (!same || sortedBy_ >= static_cast<int>(archive_.fields.size())) sortedBy_ = -1;
  Fill();
}

void ArchiveTable::ShowNone(const QString& why) {
  view_.SetGrid(nullptr);
  shown_.reset();
  records_.clear();
  asRead_.clear();
  view_.SetEmptyText(why);
}

void ArchiveTable::Fill() {
  records_ = asRead_;
  auto shown = archive_;
  if (sortedBy_ >= 0) {
    const auto field = static_cast<std::size_t>(sortedBy_);
    sortRecords(records_, archive_, *references_, field, downwards_);
    shown.fields[field].caption += downwards_ ? " ▼" : " ▲";
  }
  entries_.clear();
  entries_.reserve(records_.size());
  const auto text = [&](const ArchiveRecord& record, std::optional<std::size_t> place) {
    return place ? toQt(shownValue(archive_.fields[*place], record.values[*place], *references_)) : QString();
  };
  for (const auto& record : records_) {
    entries_.push_back({text(record, archive_.code), text(record, archive_.name), record.lId});
  }
  view_.SetGrid(nullptr);
  shown_ = std::make_unique<ComputedReport>(archiveList(shown, records_, *references_));
  view_.SetReport(shown_.get());
  view_.SetKept(Kept());
}

RowBits ArchiveTable::Kept() const {
  RowBits kept(static_cast<std::int64_t>(records_.size()));
  const Typed typed(text_);
  for (std::size_t row = 0; row < records_.size(); ++row) {
    const auto& record = records_[row];
    const bool inGroup = !group_ || !archive_.group || record.values[*archive_.group] == Value(*group_);
    if (!inGroup) continue;
    const bool found =
        typed.isEmpty() || typed.find(entries_[row]) != tz::Found::no || findsInside(archive_, record, text_.trimmed());
    if (found) kept.Set(static_cast<std::int64_t>(row));
  }
  return kept;
}

void ArchiveTable::Find(const QString& text, std::optional<Id> group) {
  const auto* current = Current();
  const Id lId = current == nullptr ? 0 : current->lId;
  text_ = text;
  group_ = group;
  if (shown_ == nullptr) return;
  view_.SetKept(Kept());
  StandOn(lId);
}

void ArchiveTable::SortBy(int column) {
  if (shown_ == nullptr || column < 0) return;
  const auto* current = Current();
  const Id lId = current == nullptr ? 0 : current->lId;
  downwards_ = sortedBy_ == column && !downwards_;
  sortedBy_ = column;
  Fill();
  StandOn(lId);
}

const ArchiveRecord* ArchiveTable::Current() const {
  const auto row = view_.Current().row;
  if (shown_ == nullptr || row < 0 || row >= static_cast<std::int64_t>(records_.size()) || !view_.Rows().Shows(row)) {
    return nullptr;
  }
  return &records_[static_cast<std::size_t>(row)];
}

void ArchiveTable::StandOn(Id lId) {
  if (view_.Rows().Count() == 0) return;
  const int column = std::max(0, view_.Current().column);
  for (std::size_t row = 0; row < records_.size(); ++row) {
    const auto place = static_cast<std::int64_t>(row);
    if (records_[row].lId != lId || !view_.Rows().Shows(place)) continue;
    view_.SetCurrent(place, column);
    return;
  }
  view_.SetCurrent(view_.Rows().RowAt(0), column);
}

std::size_t ArchiveTable::Found() const {
  return shown_ == nullptr ? 0 : static_cast<std::size_t>(view_.Rows().Count());
}

ComputedReport ArchiveTable::Report(const QString& title) const {
  std::vector<ArchiveRecord> records;
  const auto& rows = view_.Rows();
  for (std::int64_t place = 0; place < rows.Count(); ++place) {
    records.push_back(records_[static_cast<std::size_t>(rows.RowAt(place))]);
  }
  auto report = archiveList(archive_, records, *references_);
  report.title = fromQt(title);
  report.fileName = report.title;
  return report;
}

}  // namespace tz
