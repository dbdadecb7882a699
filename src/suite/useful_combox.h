// CUsefulCombox: a combo box whose entries are found as one types: by code, part of the name or its sound. What is
// typed but finds nothing is never taken: the entry chosen before comes back. Enter takes the best entry found, or the
// one moved to, and goes on to whatever Enter does in the window.
#pragma once

#include <QComboBox>

#include "data/init_combo_fun.h"

class QCompleter;

namespace tz {

class SearchModel;

class CUsefulCombox : public QComboBox {
  Q_OBJECT

 public:
  explicit CUsefulCombox(QWidget* parent = nullptr);

  // Replaces the entries; none is chosen. Filling and selecting by program do not count as choosing.
  void Fill(const ComboList& list);
  void SelectIndex(int index);
  // By the id that an entry stands for; without such an entry, none is chosen.
  void SelectDatum(Id datum);
  // Erasing the text means from now on that none is chosen; otherwise the entry comes back.
  void SetErasable() { erasable_ = true; }
  // 0 and "" when none is chosen.
  [[nodiscard]] Id CurrentDatum() const { return currentData().toLongLong(); }
  [[nodiscard]] std::string CurrentText() const;

 signals:
  // The person chose an entry other than the one before; choosing the same again does nothing.
  void entryChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void Search(const QString& typed);
  void Choose(int index);
  void ShowChosen();
  // What was typed is given up.
  void GiveUpTyping();
  // True when it took the key.
  bool OnKeyInPopup(int key);
  [[nodiscard]] bool IsBeingTyped() const;
  void SetMiss(bool miss);

  SearchModel* found_;
  QCompleter* popup_;
  int chosen_ = -1;
  bool erasable_ = false;
};

}  // namespace tz
