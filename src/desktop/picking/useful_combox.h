// CUsefulCombox: a combo box whose entries are found as one types: by code, part of the name or its sound. Enter and
// Tab take the best entry found, or the one moved to, and go on to whatever they do in the window. Text that was typed
// and not taken means an entry only when it can mean no other; Esc takes it back.
#pragma once

#include <QComboBox>

#include "core/data/init_combo_fun.h"

class QCompleter;

namespace tz {

class SearchModel;

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
  // The months of a year, found by their number.
  void FillMonths(int year);
  void SelectIndex(int index);
  // By the id that an entry stands for; without such an entry, none is chosen.
  void SelectDatum(Id datum);
  // A text that stands for no entry, as if it had been typed.
  void ShowUnknown(const QString& text);
  // Typed text that can mean one entry alone becomes that entry; other text is given up or stays, as on leaving.
  void Settle();

  // 0 and "" when none is chosen.
  [[nodiscard]] Id CurrentDatum() const { return currentData().toLongLong(); }
  [[nodiscard]] std::string CurrentText() const;
  // The text that stands for no entry; empty when there is none.
  [[nodiscard]] std::string UnknownText() const;

 signals:
  // The person chose an entry other than the one before; choosing the same again does nothing.
  void entryChanged();
  // Of a combo that restores: Enter was pressed on text that finds nothing; the focus left a text that was not taken.
  void notFound(const QString& text);
  void givenUp(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  // What to look for: of a month its number, without the year and the zero in front.
  [[nodiscard]] QString Meant(const QString& typed) const;
  // The beginning of a month with its year, which is none yet.
  [[nodiscard]] bool BeginsMonth(const QString& typed) const;
  // The entry that a text can mean alone; -1 for none.
  int OnlyMeaning(const QString& typed);
  void Search(const QString& typed);
  void Choose(int index);
  void ShowChosen();
  // True when they took the key.
  bool OnKeyInPopup(int key);
  bool OnEnter();
  bool OnEscape();
  [[nodiscard]] bool IsBeingTyped() const;
  void SetMiss(bool miss);

  SearchModel* found_;
  QCompleter* popup_;
  Leaving leaving_;
  QString yearPart_;  // of months: "2006."
  int chosen_ = -1;
};

}  // namespace tz
