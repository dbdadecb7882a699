#include "desktop/query/query_field_parts.h"

#include <QLineEdit>
#include <QToolButton>

#include "desktop/picking/useful_combox.h"
#include "desktop/theme/picture_icon.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int viewPicture = 303;

int placeOf(const CUsefulCombox& combo, const std::string& wanted, EntryValue value) {
  for (int i = 0; i < combo.count(); ++i) {
    if (valueOf(fromQt(combo.itemText(i)), value) == wanted) return i;
  }
  return -1;
}

bool offers(const CUsefulCombox& combo, const ComboList& list) {
  if (combo.count() != static_cast<int>(list.size())) return false;
  for (int i = 0; i < combo.count(); ++i) {
    if (fromQt(combo.itemText(i)) != list[static_cast<std::size_t>(i)].text) return false;
  }
  return true;
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

void setText(Request& request, ParameterKey key, const std::string& text) { setMember(request, key, {text}); }

void setMember(Request& request, ParameterKey key, const MemberChoice& member) {
  if (member.text.empty()) {
    request.clear(key);
  } else {
    request.choose(key, member);
  }
}

std::string valueOf(const std::string& entry, EntryValue value) {
  return value == EntryValue::code ? CGetData::GetCode_Separator(entry) : entry;
}

CUsefulCombox* madeCombo(int id, QWidget* parent) {
  auto* combo = new CUsefulCombox(parent, CUsefulCombox::Leaving::keeps);
  combo->setObjectName(QString::number(id));
  return combo;
}

void ListValue::Show(const std::string& wanted) {
  combo_.SelectIndex(placeOf(combo_, wanted, value_));
  if (combo_.currentIndex() < 0 && !wanted.empty()) combo_.ShowUnknown(toQt(wanted));
}

void ListValue::Refill(const ComboList& list) {
  const auto chosen = Value();
  combo_.Fill(list);
  Show(chosen);
}

std::string ListValue::Value() const {
  const auto unknown = combo_.UnknownText();
  return valueOf(unknown.empty() ? combo_.CurrentText() : unknown, value_);
}

void demandChoice(const CUsefulCombox& combo, ParameterKey about) {
  if (combo.count() == 0 || combo.currentIndex() >= 0 || !combo.UnknownText().empty()) return;
  throw WrongUse(about, messages::choiceWanted(about));
}

ComboList offeredDepts(const CQnCwDB& db, bool all) {
  auto depts = CInitComboFun::InitPartNameCombox(db);
  if (all) depts.insert(depts.begin(), {std::string(allMembers), 0});
  return depts;
}

void refill(CUsefulCombox& combo, const ComboList& list) {
  // What the person has emptied does not fill itself again.
  if (offers(combo, list)) return;
  const auto unknown = combo.UnknownText();
  const auto chosen = combo.CurrentText();
  combo.Fill(list);
  combo.SelectIndex(preselected(list, unknown.empty() ? chosen : unknown));
  if (!unknown.empty() && combo.CurrentText() != unknown) combo.ShowUnknown(toQt(unknown));
}

}  // namespace tz
