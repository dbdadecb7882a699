// Names to type, or to pick with the button beside them: department, person, unit, item of a project class.
#include <QToolButton>
#include <algorithm>

#include "desktop/frame/combo_name.h"
#include "desktop/picking/archive_names.h"
#include "desktop/picking/archive_references.h"
#include "desktop/picking/name_edit.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_field_parts.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int classComboId = 2211;

class ReferenceField : public QueryField {
 public:
  ReferenceField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec),
        row_(new QWidget(dialog)),
        class_(spec.kind == ControlSpec::Kind::projectReference ? madeCombo(classComboId, row_) : nullptr),
        edit_(madeControl<NameEdit>(spec.id, row_)),
        view_(viewButton(spec, row_)) {
    edit_->setAccessibleName(toQt(spec.caption));
    if (spec.all) edit_->setPlaceholderText(toQt(allMembers));
    edit_->SetReader([this] { return ReadNames(); });
    connect(edit_, &NameEdit::memberChanged, this, &QueryField::memberChanged);
    auto* layout = rowLayout(row_);
    layout->setSpacing(4);
    if (class_ != nullptr) layout->addWidget(class_, 1);
    layout->addWidget(edit_, 1);
    layout->addWidget(view_);
    connect(view_, &QToolButton::clicked, this, &QueryField::referenceWanted);
  }
  QWidget* Row() override { return row_; }
  std::vector<QWidget*> Stops() override { return {edit_}; }
  void Fill(const DialogSpec& /*dialog*/, Session& session) override {
    db_ = &session.db;
    edit_->Forget();
  }
  void Show(const Request& request) override { edit_->ShowMember(request.member(MemberKey())); }
  void Take(Request& request) const override { setMember(request, MemberKey(), edit_->Member()); }

 protected:
  [[nodiscard]] virtual NameList Read(const CQnCwDB& db) const = 0;
  [[nodiscard]] virtual ParameterKey MemberKey() const { return Spec().key; }
  [[nodiscard]] NameEdit* Edit() const { return edit_; }
  // In front of the name of an item; null before other names.
  [[nodiscard]] CUsefulCombox* ClassCombo() const { return class_; }

 private:
  Names ReadNames() {
    if (db_ == nullptr) return nullptr;
    try {
      return std::make_shared<const NameList>(Read(*db_));
    } catch (const DbError& error) {
      emit unreadable(error);
      return nullptr;
    }
  }

  QWidget* row_;
  CUsefulCombox* class_;  // made before the name, for the Tab key
  NameEdit* edit_;
  QToolButton* view_;
  const CQnCwDB* db_ = nullptr;
};

// Null: there is no list to choose from.
bool referItem(const Names& items, QWidget* window, Request& request) {
  if (items == nullptr) return false;
  CItemReferenceDlg reference(items, window);
  reference.SetItem(request.member(ParameterKey::project));
  if (!reference.DoModal()) return false;
  setMember(request, ParameterKey::project, reference.Item());
  return true;
}

class DeptField : public ReferenceField {
 public:
  using ReferenceField::ReferenceField;
  bool Refer(Request& request, Session& /*session*/) override {
    const Names depts = Edit()->List();
    if (depts == nullptr) return false;
    CDeptReferenceDlg reference(depts, Row()->window());
    reference.SetDept(request.member(ParameterKey::dept));
    if (!reference.DoModal()) return false;
    setMember(request, ParameterKey::dept, reference.Dept());
    return true;
  }

 protected:
  [[nodiscard]] NameList Read(const CQnCwDB& db) const override {
    NameList depts = deptNames(db);
    if (Spec().all) {
      depts.entries.insert(depts.entries.begin(), {{}, toQt(allMembers)});
      depts.depths.insert(depts.depths.begin(), 0);
    }
    return depts;
  }
};

// Persons of the department first; one of another department brings that one along.
class PersonField : public ReferenceField {
 public:
  PersonField(const ControlSpec& spec, QWidget* dialog) : ReferenceField(spec, dialog) {
    Edit()->SetGroup(
        [this](const NameList& persons) { return persons.PlaceOfGroup(Owners().member(ParameterKey::dept)); });
    connect(Edit(), &NameEdit::picked, this, [this](const SearchEntry& person) {
      const Names persons = Edit()->List();
      if (person.group == persons->PlaceOfGroup(Owners().member(ParameterKey::dept))) return;
      pickedDept_ = persons->GroupOf(person);
      emit pickedWithOthers();
    });
  }
  bool Refer(Request& request, Session& /*session*/) override {
    const Names persons = Edit()->List();
    if (persons == nullptr) return false;
    CPersonReferenceDlg reference(persons, Row()->window());
    reference.SetNames(request.member(ParameterKey::dept), request.member(ParameterKey::person));
    if (!reference.DoModal()) return false;
    setMember(request, ParameterKey::dept, reference.Dept());
    setMember(request, ParameterKey::person, reference.Person());
    return true;
  }
  void TakePicked(Request& request) const override { setMember(request, ParameterKey::dept, pickedDept_); }
  void MarkStranger() override {
    const MemberChoice person = Edit()->Member();
    const Request owners = Owners();
    if (person.text.empty() || owners.text(ParameterKey::dept).empty()) return Edit()->SetStranger(false);
    const Names persons = Edit()->List();
    if (persons == nullptr) return;
    const int dept = persons->PlaceOfGroup(owners.member(ParameterKey::dept));
    Edit()->SetStranger(dept >= 0 && !persons->HasInGroup(person, dept));
  }

 protected:
  [[nodiscard]] NameList Read(const CQnCwDB& db) const override { return personNames(db); }

 private:
  MemberChoice pickedDept_;
};

class UnitField : public ReferenceField {
 public:
  using ReferenceField::ReferenceField;
  bool Refer(Request& request, Session& /*session*/) override {
    const Names units = Edit()->List();
    if (units == nullptr) return false;
    CUnitReferenceDlg reference(units, Row()->window());
    reference.SetUnit(request.member(ParameterKey::unit));
    if (!reference.DoModal()) return false;
    setMember(request, ParameterKey::unit, reference.Unit());
    return true;
  }

 protected:
  [[nodiscard]] NameList Read(const CQnCwDB& db) const override {
    NameList units = unitNames(db);
    if (Spec().all) units.entries.insert(units.entries.begin(), {{}, toQt(allMembers)});
    return units;
  }
};

// An item: its class in front of its name.
class ProjectField : public ReferenceField {
 public:
  ProjectField(const ControlSpec& spec, QWidget* dialog) : ReferenceField(spec, dialog), class_(ClassCombo()) {
    constexpr int signs = 12;
    class_->setMinimumContentsLength(signs);
    nameCombo(*class_, QStringLiteral("项目大类"));
    Edit()->setPlaceholderText(QStringLiteral("项目名称"));
    connect(class_, &CUsefulCombox::entryChanged, Edit(), &NameEdit::Forget);
    connect(class_, &CUsefulCombox::entryChanged, this, &QueryField::ownerChanged);
  }
  std::vector<QWidget*> Stops() override { return {class_, Edit()}; }
  void Fill(const DialogSpec& dialog, Session& session) override {
    ReferenceField::Fill(dialog, session);
    class_->Fill(offered(dialog, ParameterKey::projectClass, {}, session.db));
    hasWords_ = std::ranges::find(dialog.checks, &checks::classChosen, &Check::passes) != dialog.checks.end();
  }
  void Show(const Request& request) override {
    const auto asked = request.text(ParameterKey::projectClass);
    const auto before = choice_.Value().text;
    choice_.Show(asked.empty() ? fromQt(class_->itemText(0)) : asked);
    if (choice_.Value().text != before) Edit()->Forget();
    ReferenceField::Show(request);
  }
  void Take(Request& request) const override {
    setMember(request, ParameterKey::projectClass, choice_.Value());
    ReferenceField::Take(request);
  }
  void Demand() const override {
    if (!hasWords_) demandChoice(*class_, ParameterKey::projectClass);
  }
  bool Refer(Request& request, Session& /*session*/) override {
    const Names items = class_->currentIndex() < 0 ? nullptr : Edit()->List();
    return referItem(items, Row()->window(), request);
  }

 protected:
  [[nodiscard]] ParameterKey MemberKey() const override { return ParameterKey::project; }
  [[nodiscard]] NameList Read(const CQnCwDB& db) const override {
    return class_->currentIndex() < 0 ? NameList() : itemNames(db, choice_.Value().text);
  }

 private:
  CUsefulCombox* class_;
  ListValue choice_{*class_, ParameterKey::projectClass};
  bool hasWords_ = false;  // the dialog says itself that a class is wanted
};

// An item of a class that is not asked for.
class ItemField : public ReferenceField {
 public:
  using ReferenceField::ReferenceField;
  bool Refer(Request& request, Session& /*session*/) override {
    const Names items = Edit()->List();
    return referItem(items, Row()->window(), request);
  }

 protected:
  [[nodiscard]] NameList Read(const CQnCwDB& db) const override {
    const auto classId = CGetData::GetCode_Separator(Owners().text(ParameterKey::projectClass));
    return classId.empty() ? NameList() : itemNames(db, classId);
  }
};

}  // namespace

std::unique_ptr<QueryField> makeReferenceField(const ControlSpec& spec, QWidget* dialog) {
  switch (spec.kind) {
    case ControlSpec::Kind::deptReference:
      return std::make_unique<DeptField>(spec, dialog);
    case ControlSpec::Kind::personReference:
      return std::make_unique<PersonField>(spec, dialog);
    case ControlSpec::Kind::unitReference:
      return std::make_unique<UnitField>(spec, dialog);
    case ControlSpec::Kind::projectReference:
      return std::make_unique<ProjectField>(spec, dialog);
    case ControlSpec::Kind::itemReference:
      return std::make_unique<ItemField>(spec, dialog);
    default:
      return nullptr;
  }
}

}  // namespace tz
