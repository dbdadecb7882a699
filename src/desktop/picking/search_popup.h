// The list of what was found, open below a field while one types in it. It takes Enter and Tab for the entry that is
// marked; these and the keys of the window then go on to the field. A click beside it reaches what lies there.
#pragma once

#include <QObject>
#include <QPalette>
#include <functional>

#include "desktop/picking/search_model.h"

class QCompleter;
class QKeyEvent;
class QMouseEvent;

namespace tz {

[[nodiscard]] inline bool isEnterKey(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

// Of a field in which one types: text that stands for nothing is marked, selected or not.
[[nodiscard]] QPalette fieldColours(bool miss);

// What was found, as texts: `text` says how the entry at a place among all reads.
class FoundTexts : public SearchModel {
  Q_OBJECT

 public:
  using TextOf = std::function<QString(std::size_t place)>;
  FoundTexts(TextOf text, QObject* parent) : SearchModel(parent), text_(std::move(text)) {}
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  TextOf text_;
};

class SearchPopup : public QObject {
  Q_OBJECT

 public:
  static constexpr int rowsAtOnce = 14;

  // Both must outlive it.
  SearchPopup(FoundTexts& found, QWidget& field);

  // Opens with this row marked; -1 for none.
  void Open(int marked);
  void Close();
  [[nodiscard]] bool IsOpen() const;
  // Closes, taking the marked entry. False when none is marked.
  bool TakeMarked();

 signals:
  void taken(std::size_t place);
  // The entry was clicked: no key goes on from it.
  void clicked();
  void escaped();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool OnKey(const QKeyEvent& key);
  bool OnPress(const QMouseEvent& press);

  FoundTexts& found_;
  QWidget& field_;
  QCompleter* list_;
};

}  // namespace tz
