#include "desktop/query/query_field_parts.h"

#include <QLineEdit>
#include <QToolButton>
#include <algorithm>

#include "desktop/picking/reference_dialog.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/theme/picture_icon.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int viewPicture = 303;

bool holds(const CUsefulCombox& combo, const ComboList& list) {
  return std::ranges::equal(combo.Entries(), list, [](const ComboEntry& one, const ComboEntry& other) {
    return one.datum == other.datum && one.text == other.text;
  });
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
  view->setFocusPolicy(Qt::NoFocus);  // F2 does the same: the next stop is the next condition
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

CUsefulCombox* madeCombo(int id, QWidget* parent) {
  auto* combo = new CUsefulCombox(parent, CUsefulCombox::Leaving::keeps);
  combo->setObjectName(QString::number(id));
  return combo;
}

void ListValue::Show(const std::string& wanted) {
  const auto value = valueOf(key_, wanted);
  int place = combo_.count() - 1;
  while (place >= 0 && valueOf(key_, fromQt(combo_.itemText(place))) != value) --place;
  combo_.SelectIndex(place);
  if (place < 0 && !wanted.empty()) combo_.ShowUnknown(toQt(value));
}

void ListValue::Refill(const ComboList& list) {
  const auto chosen = Value().text;
  combo_.Fill(list);
  Show(chosen);
}

MemberChoice ListValue::Value() const {
  const auto unknown = combo_.UnknownText();
  return unknown.empty() ? chosenIn(combo_, key_) : MemberChoice{valueOf(key_, unknown)};
}

void demandChoice(const CUsefulCombox& combo, ParameterKey about) {
  if (combo.count() == 0 || combo.currentIndex() >= 0 || !combo.UnknownText().empty()) return;
  throw WrongUse(about, messages::choiceWanted(about));
}

void refill(CUsefulCombox& combo, const ComboList& list) {
  // What the person has emptied does not fill itself again.
  if (holds(combo, list)) return;
  const auto unknown = combo.UnknownText();
  const auto chosen = combo.CurrentText();
  combo.Fill(list);
  combo.SelectIndex(preselected(list, unknown.empty() ? chosen : unknown));
  if (!unknown.empty() && combo.CurrentText() != unknown) combo.ShowUnknown(toQt(unknown));
}

void refill(CUsefulCombox& combo, const ComboList& list, int place) {
  if (!holds(combo, list)) combo.Fill(list);
  combo.SelectIndex(place);
}

bool pickFromList(CUsefulCombox& combo, const QString& caption, bool nests, QWidget* window) {
  const ComboList& offer = combo.Entries();
  NameList names;
  for (std::size_t place = 0; place < offer.size(); ++place) {
    const QString text = toQt(offer[place].text);
    if (text.isEmpty()) continue;  // an end of a range left open
    SearchEntry entry = entryOf(offer[place]);
    entry.id = static_cast<Id>(place);
    names.entries.push_back(std::move(entry));
  }
  if (nests) names.depths = depthsOf(names.entries);
  ReferenceDialog reference(QString(caption).remove(u' ') + QStringLiteral("参照"), {},
                            std::make_shared<const NameList>(std::move(names)), window);
  reference.OpenAt({fromQt(combo.currentText().trimmed())});
  if (!reference.DoModal()) return false;
  combo.Choose(static_cast<int>(reference.ChosenEntry().id));
  return true;
}

MemberChoice chosenIn(const CUsefulCombox& combo, ParameterKey key) {
  return choiceOf(key, {combo.CurrentText(), combo.CurrentDatum()});
}

}  // namespace tz
