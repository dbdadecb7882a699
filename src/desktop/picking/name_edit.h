// A field for the name of a record: what is typed is found by code, part of the name or its sound, in a list below it
// that is read when it is first needed. A record that was picked stays that record until something else is typed; text
// that was typed and not taken means another name only when it can mean no other.
#pragma once

#include <QLineEdit>
#include <functional>

#include "desktop/picking/name_list.h"

namespace tz {

class FoundTexts;
class SearchPopup;

class NameEdit : public QLineEdit {
  Q_OBJECT

 public:
  // Null when they cannot be read, which was told.
  using Read = std::function<Names()>;
  // The place of the group that names are looked for in first; -1 for none.
  using Group = std::function<int(const NameList&)>;

  explicit NameEdit(QWidget* parent);

  void SetReader(Read read) { read_ = std::move(read); }
  void SetGroup(Group group) { group_ = std::move(group); }
  // What is found is read anew when it is next needed.
  void Forget();
  // The names, read now if they were not; null when they cannot be read.
  [[nodiscard]] Names List();

  void ShowMember(const MemberChoice& member);
  [[nodiscard]] MemberChoice Member() const;
  // Marks a name that stands in the field but does not belong to what was chosen beside it, as text that is none.
  void SetStranger(bool stranger);
  // Typed text that is no name and can mean one alone becomes that one.
  void Settle();

 signals:
  // A record was taken from the list; after a click nothing else leads on to the next field.
  void picked(const tz::SearchEntry& entry);
  void clicked();
  // By hand, from the list or typed whole; not at every letter.
  void memberChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] bool IsBeingTyped() const;
  // False when there is nothing to look through.
  bool Find(const QString& typed);
  void OnTyped(const QString& typed);
  void OpenList();
  void Take(std::size_t place);
  void Become(const MemberChoice& member);
  bool OnEscape();
  void SetMiss(bool miss);

  Read read_;
  Group group_;
  Names names_;
  bool unreadable_ = false;
  FoundTexts* found_;
  SearchPopup* popup_;
  int best_ = -1;
  MemberChoice shown_;
};

}  // namespace tz
