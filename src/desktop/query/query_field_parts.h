// What the fields of condition dialogs are made of, and the makers of their groups.
#pragma once

#include <QHBoxLayout>
#include <QString>
#include <string>

#include "core/reports/offers.h"
#include "desktop/query/query_fields.h"

class QToolButton;

namespace tz {

class CUsefulCombox;

// A control with its id as object name.
template <class Control>
Control* madeControl(int id, QWidget* parent) {
  auto* control = new Control(parent);
  control->setObjectName(QString::number(id));
  return control;
}

// A row without margins of its own.
[[nodiscard]] QHBoxLayout* rowLayout(QWidget* row);
// The button beside a name, which opens the name's reference window.
[[nodiscard]] QToolButton* viewButton(const ControlSpec& spec, QWidget* parent);
// An empty field is a condition left out.
void setText(Request& request, ParameterKey key, const std::string& text);
void setMember(Request& request, ParameterKey key, const MemberChoice& member);

// The combo of a dialog: text that stands for no entry stays in it, for the dialog to refuse.
[[nodiscard]] CUsefulCombox* madeCombo(int id, QWidget* parent);

// What is chosen in a combo, or stands in it and is not offered, or no longer: then it is refused by its name; another
// one in its place would pass unnoticed.
class ListValue {
 public:
  ListValue(CUsefulCombox& combo, ParameterKey key) : combo_(combo), key_(key) {}
  // By the code where the condition is asked for by code, else by the text.
  void Show(const std::string& wanted);
  // Other entries; the value stays.
  void Refill(const ComboList& list);
  [[nodiscard]] MemberChoice Value() const;

 private:
  CUsefulCombox& combo_;
  ParameterKey key_;
};

// Where one entry has to be chosen: throws WrongUse when none is, though there are some.
void demandChoice(const CUsefulCombox& combo, ParameterKey about);

// Other entries; the one chosen stays, else the first one is chosen. Text that stands for none stays. The same entries
// again change nothing.
void refill(CUsefulCombox& combo, const ComboList& list);
// Other entries, and the one at this place chosen; none for -1.
void refill(CUsefulCombox& combo, const ComboList& list, int place);
// Lets the person choose an entry in a reference window, which opens with what stands in the combo; `nests` shows each
// code below the one that it continues. False when he cancelled.
[[nodiscard]] bool pickFromList(CUsefulCombox& combo, const QString& caption, bool nests, QWidget* window);
// The entry that is chosen, as a request carries it.
[[nodiscard]] MemberChoice chosenIn(const CUsefulCombox& combo, ParameterKey key);

// The makers. Each knows the kinds of its group, of others it returns null.
[[nodiscard]] std::unique_ptr<QueryField> makeReferenceField(const ControlSpec& spec, QWidget* dialog);
[[nodiscard]] std::unique_ptr<QueryField> makeListField(const ControlSpec& spec, QWidget* dialog);
[[nodiscard]] std::unique_ptr<QueryField> makeRangeField(const ControlSpec& spec, QWidget* dialog);
[[nodiscard]] std::unique_ptr<QueryField> makeAccountListsField(const ControlSpec& spec, QWidget* dialog);
[[nodiscard]] std::unique_ptr<QueryField> makeFigureField(const ControlSpec& spec, QWidget* dialog);
[[nodiscard]] std::unique_ptr<QueryField> makeChoiceField(const ControlSpec& spec, QWidget* dialog);

}  // namespace tz
