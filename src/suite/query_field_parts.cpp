#include "suite/query_field_parts.h"

#include <QLineEdit>
#include <QToolButton>

#include "suite/picture_icon.h"
#include "suite/qt_text.h"
#include "suite/useful_combox.h"

namespace tz {
namespace {

constexpr int viewPicture = 303;

int placeOf(const CUsefulCombox& combo, const std::string& wanted, EntryValue value) {
  for (int i = 0; i < combo.count(); ++i) {
    if (valueOf(fromQt(combo.itemText(i)), value) == wanted) return i;
  }
  return -1;
}

}  // namespace

QHBoxLayout* rowLayout(QWidget* row) {
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  return layout;
}

QToolButton* viewButton(const ControlSpec& spec, QWidget* parent) {
  auto* view = madeControl<QToolButton>(spec.companion, parent);
  const QString caption = toQt(spec.caption).remove(u' ');
  view->setIcon(pictureIcon(viewPicture));
  view->setToolTip(QStringLiteral("选择%1 (F2)").arg(caption));
  view->setAccessibleName(QStringLiteral("选择%1").arg(caption));
  view->setFocusPolicy(Qt::TabFocus);
  return view;
}

void setText(Request& request, ParameterKey key, const std::string& text) {
  if (text.empty()) {
    request.clear(key);
  } else {
    request.set(key, text);
  }
}

std::string valueOf(const std::string& entry, EntryValue value) {
  return value == EntryValue::code ? CGetData::GetCode_Separator(entry) : entry;
}

void chooseValue(CUsefulCombox& combo, const std::string& wanted, EntryValue value) {
  combo.SelectIndex(placeOf(combo, wanted, value));
  const bool gone = combo.currentIndex() < 0 && !wanted.empty();
  combo.lineEdit()->setPlaceholderText(gone ? QStringLiteral("%1 不在可选项之中").arg(toQt(wanted)) : QString());
}

void KeptChoice::Show(const std::string& wanted) {
  chooseValue(combo_, wanted, value_);
  gone_ = combo_.currentIndex() < 0 ? wanted : std::string();
}

void KeptChoice::Refill(const ComboList& list) {
  const auto chosen = Value();
  combo_.Fill(list);
  Show(chosen);
}

std::string KeptChoice::Value() const {
  const auto chosen = valueOf(combo_.CurrentText(), value_);
  return chosen.empty() ? gone_ : chosen;
}

ComboList offeredDepts(const CQnCwDB& db, bool all) {
  auto depts = CInitComboFun::InitPartNameCombox(db);
  if (all) depts.insert(depts.begin(), {std::string(allMembers), 0});
  return depts;
}

void refill(CUsefulCombox& combo, const ComboList& list) {
  const auto chosen = combo.CurrentText();
  combo.Fill(list);
  combo.SelectIndex(preselected(list, chosen));
}

}  // namespace tz
