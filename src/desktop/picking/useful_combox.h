// CUsefulCombox: a combo box whose entries are found as one types: by code, part of the name or its sound. Enter and
// Tab take the best entry found, or the one moved to, and go on to whatever they do in the window. Text that was typed
// and not taken means an entry only when it can mean no other; Esc takes it back.
#pragma once

#include <QComboBox>

#include "core/data/init_combo_fun.h"
#include "desktop/picking/name_list.h"

namespace tz {

// What an entry is found by: "122101 职工借款" and "122101<tab>职工借款" are a code and a name; a name that comes with
// its code is that name.
[[nodiscard]] SearchEntry entryOf(const ComboEntry& entry);

class ComboEntries;
class FoundTexts;
class SearchPopup;

class CUsefulCombox : public QComboBox {
  Q_OBJECT

 public:
  // What becomes of text that stands for no entry, and of an erased one, when the focus leaves.
  enum class Leaving {
    restores,  // the entry chosen before comes back: the combo shows what holds
    keeps,     // it stays, for a dialog to refuse; erased, none is chosen
  };

  explicit CUsefulCombox(QWidget* parent = nullptr, Leaving leaving = Leaving::restores);

  // Replaces the entries; none is chosen. Filling and selecting by program do not count as choosing.
  void Fill(const ComboList& list);
  [[nodiscard]] const ComboList& Entries() const;
  // The months of a year, found by their number.
  void FillMonths(int year);
  void SelectIndex(int index);
  // By the id that an entry stands for; without such an entry, none is chosen.
  void SelectDatum(Id datum);
  // As if the person had chosen it.
  void Choose(int index);
  // A text that stands for no entry, as if it had been typed.
  void ShowUnknown(const QString& text);
  // Typed text that can mean one entry alone becomes that entry; other text is given up or stays, as on leaving.
  void Settle();

  // 0 and "" when none is chosen.
  [[nodiscard]] Id CurrentDatum() const { return currentData().toLongLong(); }
  [[nodiscard]] std::string CurrentText() const;
  // The text that stands for no entry; empty when there is none.
  [[nodiscard]] std::string UnknownText() const;

  void showPopup() override;

 signals:
  // The person chose an entry other than the one before; choosing the same again does nothing.
  void entryChanged();
  // An entry was taken from a list by the mouse or in the list that drops down: no key leads on to the next field.
  void clicked();
  // Of a combo that restores: Enter was pressed on text that finds nothing; the focus left a text that was not taken.
  void notFound(const QString& text);
  void givenUp(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  // What to look for: of a month its number, without the year and the zero in front.
  [[nodiscard]] QString Meant(const QString& typed) const;
  // The beginning of a month with its year, which is none yet.
  [[nodiscard]] bool BeginsMonth(const QString& typed) const;
  // The entry that a text can mean alone; -1 for none.
  int OnlyMeaning(const QString& typed);
  // What is looked through, made when somebody first types.
  void ReadyToFind();
  void Search(const QString& typed);
  void ShowChosen();
  void SelectText();
  void OnActivated(int index);
  // True when they took the key.
  bool OnEnter();
  bool OnEscape();
  [[nodiscard]] bool IsBeingTyped() const;
  void SetMiss(bool miss);

  ComboEntries* entries_;
  FoundTexts* found_;
  SearchPopup* popup_;
  Leaving leaving_;
  bool readyToFind_ = false;
  bool listIsOpen_ = false;
  QString yearPart_;  // of months: "2006."
  int chosen_ = -1;
};

}  // namespace tz
