#include "desktop/picking/search_model.h"

#include "desktop/picking/pinyin.h"

namespace tz {

Typed::Typed(const QString& text) : text_(text.trimmed()) {
  if (looksLikePinyin(text_)) letters_ = text_.toLower().toLatin1();
}

Found Typed::find(const SearchEntry& entry) const {
  const auto is = [this](const QString& whole) { return whole.compare(text_, Qt::CaseInsensitive) == 0; };
  if (is(entry.code) || is(entry.name)) return Found::whole;
  if (entry.code.startsWith(text_, Qt::CaseInsensitive)) return Found::byCode;
  const qsizetype place = entry.name.indexOf(text_, 0, Qt::CaseInsensitive);
  if (place == 0) return Found::atStart;
  if (entry.name.endsWith(text_, Qt::CaseInsensitive)) return Found::atEnd;
  if (!letters_.isEmpty()) {
    const qsizetype spoken = pinyinPlace(entry.name, letters_);
    if (spoken == 0) return Found::bySoundOfStart;
    if (spoken > 0 && place < 0) return Found::bySound;
  }
  return place > 0 ? Found::inside : Found::no;
}

void SearchModel::SetNames(Names names) {
  names_ = std::move(names);
  rows_.clear();
  searched_.clear();
  Search({});
}

void SearchModel::SetEntries(std::vector<SearchEntry> entries) {
  SetNames(std::make_shared<const NameList>(NameList{.entries = std::move(entries)}));
}

std::vector<std::size_t> SearchModel::Candidates(const QString& text, int onlyGroup) const {
  const bool goesOn = !searched_.isEmpty() && text.startsWith(searched_) && onlyGroup == searchedGroup_ &&
                      looksLikePinyin(text) == looksLikePinyin(searched_);
  if (goesOn) return rows_;
  std::vector<std::size_t> all;
  all.reserve(names_->entries.size());
  for (std::size_t place = 0; place < names_->entries.size(); ++place) {
    if (onlyGroup < 0 || names_->entries[place].group == onlyGroup) all.push_back(place);
  }
  return all;
}

int SearchModel::Search(const QString& text, int onlyGroup, int preferredGroup) {
  const Typed typed(text);
  const auto candidates = Candidates(text.trimmed(), onlyGroup);
  searched_ = text.trimmed();
  searchedGroup_ = onlyGroup;
  beginResetModel();
  rows_.clear();
  int best = -1;
  int bestWorth = -1;
  for (const std::size_t place : candidates) {
    const SearchEntry& entry = names_->entries[place];
    const Found found = typed.isEmpty() ? Found::whole : typed.find(entry);
    if (found == Found::no) continue;
    const int worth = 2 * static_cast<int>(found) + (preferredGroup >= 0 && entry.group == preferredGroup ? 1 : 0);
    if (worth > bestWorth) {
      best = static_cast<int>(rows_.size());
      bestWorth = worth;
    }
    rows_.push_back(place);
  }
  endResetModel();
  return best;
}

int SearchModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int SearchModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 1; }

}  // namespace tz
