#include "desktop/picking/name_edit.h"

#include <QKeyEvent>

#include "desktop/picking/search_popup.h"
#include "desktop/theme/qt_text.h"

namespace tz {

NameEdit::NameEdit(QWidget* parent)
    : QLineEdit(parent),
      found_(new FoundTexts(
          [this](std::size_t place) {
            const SearchEntry& entry = names_->entries[place];
            const QString group = toQt(names_->GroupOf(entry).text);
            return group.isEmpty() ? withCode(entry) : withCode(entry) + QStringLiteral("　") + group;
          },
          this)),
      popup_(new SearchPopup(*found_, *this)) {
  setToolTip(howToFind());
  setAccessibleDescription(howToFind());
  connect(this, &QLineEdit::textEdited, this, &NameEdit::OnTyped);
  connect(popup_, &SearchPopup::taken, this, &NameEdit::Take);
  connect(popup_, &SearchPopup::clicked, this, &NameEdit::clicked);
  connect(popup_, &SearchPopup::escaped, this, &NameEdit::OnEscape);
}

void NameEdit::Forget() {
  popup_->Close();
  names_.reset();
  unreadable_ = false;
  found_->SetNames(std::make_shared<const NameList>());
}

Names NameEdit::List() {
  if (names_ == nullptr && read_) {
    names_ = read_();
    unreadable_ = names_ == nullptr;
    if (names_ != nullptr) found_->SetNames(names_);
  }
  return names_;
}

void NameEdit::ShowMember(const MemberChoice& member) {
  shown_ = member;
  setText(toQt(member.text));
  setCursorPosition(0);
  SetMiss(false);
}

MemberChoice NameEdit::Member() const {
  const auto typed = fromQt(text().trimmed());
  return typed == shown_.text ? shown_ : MemberChoice{typed};
}

bool NameEdit::IsBeingTyped() const { return isModified() && fromQt(text().trimmed()) != shown_.text; }

bool NameEdit::Find(const QString& typed) {
  // What could not be read is not asked for at every key.
  if (unreadable_ || List() == nullptr) return false;
  const int group = group_ ? group_(*names_) : -1;
  best_ = found_->Search(typed, group);
  if (best_ < 0 && group >= 0) best_ = found_->Search(typed);
  // Of one name alone the first that was made is meant.
  if (best_ >= 0) {
    const QString name = typed.trimmed();
    for (int row = best_ + 1; row < found_->rowCount(); ++row) {
      if (found_->EntryAt(row).name == name && found_->EntryAt(row).id < found_->EntryAt(best_).id) best_ = row;
    }
  }
  return true;
}

// An emptied field asks for nothing: the list would stand in the way of the next one.
void NameEdit::OnTyped(const QString& typed) {
  const bool empty = typed.trimmed().isEmpty();
  if (!empty && !Find(typed)) return;
  SetMiss(!empty && best_ < 0);
  if (empty || best_ < 0) return popup_->Close();
  popup_->Open(best_);
}

// All that there is, unless something is being typed.
void NameEdit::OpenList() {
  if (!Find(IsBeingTyped() ? text() : QString()) || found_->rowCount() == 0) return;
  int marked = IsBeingTyped() ? best_ : -1;
  for (int row = 0; marked < 0 && row < found_->rowCount(); ++row) {
    const SearchEntry& entry = found_->EntryAt(row);
    if (shown_.id != 0 ? entry.id == shown_.id : !shown_.text.empty() && entry.name == toQt(shown_.text)) marked = row;
  }
  popup_->Open(std::max(marked, 0));
}

void NameEdit::Take(std::size_t place) {
  const SearchEntry entry = names_->entries[place];
  ShowMember(names_->ChoiceOf(entry));
  emit picked(entry);
  emit memberChanged();
}

void NameEdit::Settle() {
  popup_->Close();
  if (!IsBeingTyped()) return;
  const QString typed = text().trimmed();
  if (typed.isEmpty()) return Become({});
  if (!Find(typed)) return;
  if (names_->Knows(typed)) return Become({fromQt(typed)});
  int ofCode = 0;
  for (int row = 0; row < found_->rowCount(); ++row) ofCode += found_->EntryAt(row).code == typed ? 1 : 0;
  const bool alone = ofCode == 1 || (ofCode == 0 && found_->rowCount() == 1);
  SetMiss(!alone);
  if (alone) Take(found_->PlaceOf(best_));
}

void NameEdit::Become(const MemberChoice& member) {
  ShowMember(member);
  emit memberChanged();
}

void NameEdit::SetStranger(bool stranger) {
  if (!IsBeingTyped()) SetMiss(stranger);
}

void NameEdit::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Escape && OnEscape()) return event->accept();
  if (isEnterKey(key)) {
    if (popup_->IsOpen()) popup_->TakeMarked();
    return event->ignore();  // it is the window's
  }
  if (key == Qt::Key_Down && !popup_->IsOpen()) return OpenList();
  QLineEdit::keyPressEvent(event);
}

bool NameEdit::OnEscape() {
  const bool wasOpen = popup_->IsOpen();
  popup_->Close();
  if (!IsBeingTyped()) return wasOpen;
  Become(MemberChoice(shown_));
  selectAll();
  return true;
}

void NameEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) Settle();
}

void NameEdit::SetMiss(bool miss) { setPalette(fieldColours(miss)); }

}  // namespace tz
