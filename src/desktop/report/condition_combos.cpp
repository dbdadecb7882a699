#include "desktop/report/condition_combos.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <algorithm>
#include <array>

#include "core/reports/members.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_field_parts.h"
#include "desktop/report/painted_static.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// Which combo of the window stands for a condition of the dialog.
struct WindowCombo {
  ControlSpec::Kind kind;
  int id;
};
constexpr std::array windowCombos = {
    WindowCombo{ControlSpec::Kind::accountCombo, 2206},  WindowCombo{ControlSpec::Kind::deptReference, 2207},
    WindowCombo{ControlSpec::Kind::deptCombo, 2207},     WindowCombo{ControlSpec::Kind::personReference, 2208},
    WindowCombo{ControlSpec::Kind::unitReference, 2212}, WindowCombo{ControlSpec::Kind::unitClassCombo, 2212},
    WindowCombo{ControlSpec::Kind::clerkCombo, 2213},
};
// The labels in front of them, from left to right.
constexpr std::array labelIds = {1006, 1009, 1012};

bool alwaysStands(const ControlSpec& control) {
  return control.all || control.kind == ControlSpec::Kind::deptCombo ||
         control.kind == ControlSpec::Kind::unitClassCombo || control.kind == ControlSpec::Kind::clerkCombo;
}

}  // namespace

ConditionCombos::ConditionCombos(const DialogSpec& dialog, QWidget* parent) : QWidget(parent), dialog_(dialog) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(6);
  for (const ControlSpec& control : dialog.controls) {
    const auto* const found = std::ranges::find(windowCombos, control.kind, &WindowCombo::kind);
    if (found != windowCombos.end()) AddCombo(control, found->id);
  }
  row->addStretch(1);
}

bool ConditionCombos::HasCombo(ControlSpec::Kind kind) {
  return std::ranges::find(windowCombos, kind, &WindowCombo::kind) != windowCombos.end();
}

void ConditionCombos::AddCombo(const ControlSpec& control, int comboId) {
  auto* row = static_cast<QHBoxLayout*>(layout());
  const int labelId = labelIds.at(std::min(members_.size(), labelIds.size() - 1));
  auto* label = new PaintedStatic(labelId, PaintedStatic::Look::label, this);
  const QString caption = toQt(control.caption);
  label->setText(caption);
  auto* combo = new CUsefulCombox(this);
  combo->setObjectName(QString::number(comboId));
  combo->setAccessibleName(caption);
  combo->lineEdit()->setPlaceholderText(QStringLiteral("请选择"));
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(control.kind == ControlSpec::Kind::accountCombo ? 16 : 8);
  label->setBuddy(combo);
  if (!members_.empty()) row->addSpacing(10);
  row->addWidget(label);
  row->addWidget(combo, control.kind == ControlSpec::Kind::accountCombo ? 2 : 1);
  members_.push_back({control.key, control.all, alwaysStands(control), combo});
  connect(combo, &CUsefulCombox::entryChanged, this,
          [this, key = control.key, combo] { emit chosen(key, ChosenIn(key, *combo)); });
  connect(combo, &CUsefulCombox::notFound, this,
          [this](const QString& text) { emit told(toQt(messages::notListed(fromQt(text)))); });
  connect(combo, &CUsefulCombox::givenUp, this,
          [this](const QString& text) { emit told(QStringLiteral("没有选定“%1”，条件不变。").arg(text)); });
}

bool ConditionCombos::AskForPerson() const { return Find(ParameterKey::person) != nullptr; }

CUsefulCombox* ConditionCombos::Find(ParameterKey key) const {
  const auto found = std::ranges::find(members_, key, &Member::key);
  return found == members_.end() ? nullptr : found->combo;
}

bool ConditionCombos::Fill(const CQnCwDB& db) {
  if (!dialog_.accountWhere.empty()) {
    const auto accounts = offeredAccounts(dialog_, db);
    if (accounts.empty()) return false;
    if (auto* account = Find(ParameterKey::account)) account->Fill(accounts);
  }
  for (const Member& member : members_) {
    if (member.key == ParameterKey::dept) member.combo->Fill(offeredDepts(db, member.all));
    if (member.key == ParameterKey::unit) member.combo->Fill(CInitComboFun::InitEnterCombox(db));
    if (member.key == ParameterKey::unitClass) member.combo->Fill(CInitComboFun::InitEnterClassCombox(db));
  }
  return true;
}

// An account is its code, however it was written; other members are records.
MemberChoice ConditionCombos::ChosenIn(ParameterKey key, const CUsefulCombox& combo) {
  if (key == ParameterKey::account) return {CGetData::GetCode_Separator(combo.CurrentText())};
  return {combo.CurrentText(), combo.CurrentDatum()};
}

void ConditionCombos::Select(const Request& request, const CQnCwDB& db) {
  for (const Member& member : members_) {
    if (member.key == ParameterKey::person) RefillPersons(db);
    if (member.key == ParameterKey::clerk) RefillClerks(request.text(ParameterKey::account), db);
    CUsefulCombox& combo = *member.combo;
    const auto wanted = request.member(member.key);
    combo.SelectIndex(wanted.text.empty() ? -1 : PlaceOf(member, wanted, db));
    const bool leftOut = wanted.text.empty() && !member.alwaysStands;
    if (combo.currentIndex() < 0 && !leftOut && combo.count() > 0) combo.SelectIndex(0);
  }
}

int ConditionCombos::PlaceOf(const Member& member, const MemberChoice& wanted, const CQnCwDB& db) const {
  const auto place = [&](const auto& found, Id id) {
    return found ? member.combo->findData(QVariant::fromValue<qlonglong>(id)) : -1;
  };
  switch (member.key) {
    case ParameterKey::account: {
      CGetData lookups(db);
      const auto* account = lookups.GetCODEINFOByCode(CGetData::GetCode_Separator(wanted.text));
      return place(account, account == nullptr ? 0 : account->lId);
    }
    case ParameterKey::dept: {
      const auto dept = findDept(db, wanted);
      return place(dept, dept.value_or(DeptInfo{}).lDeptId);
    }
    case ParameterKey::person: {
      const auto person = findPerson(db, wanted, Find(ParameterKey::dept)->CurrentDatum());
      return place(person, person.value_or(PersonInfo{}).lId);
    }
    case ParameterKey::unit: {
      const auto unit = findUnit(db, wanted);
      return place(unit, unit.value_or(EnterInfo{}).lId);
    }
    case ParameterKey::unitClass: {
      const auto unitClass = findUnitClass(db, wanted);
      return unitClass ? place(unitClass, unitClass->lId) : member.combo->findText(toQt(wanted.text));
    }
    default:
      return member.combo->findText(toQt(wanted.text));
  }
}

void ConditionCombos::RefillPersons(const CQnCwDB& db) {
  auto* person = Find(ParameterKey::person);
  const auto* dept = Find(ParameterKey::dept);
  if (person != nullptr && dept != nullptr) person->Fill(CInitComboFun::InitNameCombox(db, dept->CurrentDatum()));
}

void ConditionCombos::RefillClerks(const std::string& account, const CQnCwDB& db) {
  refill(*Find(ParameterKey::clerk), offeredClerks(db, CGetData(db).GetCodeId_new(account)));
}

void ConditionCombos::FollowAccount(Request& request, const CQnCwDB& db) {
  followAccount(dialog_, request, db);
  const auto* clerk = Find(ParameterKey::clerk);
  if (clerk == nullptr) return;
  RefillClerks(request.text(ParameterKey::account), db);
  request.set(ParameterKey::clerk, clerk->CurrentText());
}

}  // namespace tz
