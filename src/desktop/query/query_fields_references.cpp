// Names to type, or to pick with the button beside them: department, person, unit, item of a project class.
#include <QLineEdit>
#include <QToolButton>
#include <algorithm>

#include "desktop/picking/archive_references.h"
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
        edit_(madeControl<QLineEdit>(spec.id, row_)),
        view_(viewButton(spec, row_)) {
    edit_->setAccessibleName(toQt(spec.caption));
    if (spec.all) edit_->setPlaceholderText(toQt(allMembers));
    auto* layout = rowLayout(row_);
    layout->setSpacing(4);
    if (class_ != nullptr) layout->addWidget(class_, 1);
    layout->addWidget(edit_, 1);
    layout->addWidget(view_);
    connect(view_, &QToolButton::clicked, this, &QueryField::referenceWanted);
  }
  QWidget* Row() override { return row_; }
  std::vector<QWidget*> Stops() override { return {edit_}; }
  void Show(const Request& request) override { ShowName(request, Spec().key); }
  void Take(Request& request) const override { TakeName(request, Spec().key); }

 protected:
  void ShowName(const Request& request, ParameterKey key) {
    shown_ = request.member(key);
    edit_->setText(toQt(shown_.text));
    edit_->setCursorPosition(0);
  }
  // What was picked stays that record until something else is typed.
  void TakeName(Request& request, ParameterKey key) const {
    const auto text = fromQt(edit_->text().trimmed());
    setMember(request, key, text == shown_.text ? shown_ : MemberChoice{text});
  }
  [[nodiscard]] QLineEdit* Edit() const { return edit_; }
  // In front of the name of an item; null before other names.
  [[nodiscard]] CUsefulCombox* ClassCombo() const { return class_; }

 private:
  QWidget* row_;
  CUsefulCombox* class_;  // made before the name, for the Tab key
  QLineEdit* edit_;
  QToolButton* view_;
  MemberChoice shown_;
};

class DeptField : public ReferenceField {
 public:
  using ReferenceField::ReferenceField;
  bool Refer(Request& request, Session& session) override {
    CDeptReferenceDlg reference(session.db, Row()->window());
    reference.SetDept(request.member(ParameterKey::dept));
    if (!reference.DoModal()) return false;
    setMember(request, ParameterKey::dept, reference.Dept());
    return true;
  }
};

class PersonField : public ReferenceField {
 public:
  using ReferenceField::ReferenceField;
  bool Refer(Request& request, Session& session) override {
    CPersonReferenceDlg reference(session.db, Row()->window());
    reference.SetNames(request.member(ParameterKey::dept), request.member(ParameterKey::person));
    if (!reference.DoModal()) return false;
    setMember(request, ParameterKey::dept, reference.Dept());
    setMember(request, ParameterKey::person, reference.Person());
    return true;
  }
};

class UnitField : public ReferenceField {
 public:
  using ReferenceField::ReferenceField;
  bool Refer(Request& request, Session& session) override {
    CUnitReferenceDlg reference(session.db, Row()->window());
    reference.SetUnit(request.member(ParameterKey::unit));
    if (!reference.DoModal()) return false;
    setMember(request, ParameterKey::unit, reference.Unit());
    return true;
  }
};

// An item: its class in front of its name.
class ProjectField : public ReferenceField {
 public:
  ProjectField(const ControlSpec& spec, QWidget* dialog) : ReferenceField(spec, dialog), class_(ClassCombo()) {
    constexpr int signs = 12;
    class_->setMinimumContentsLength(signs);
    class_->setAccessibleName(QStringLiteral("项目大类"));
    Edit()->setPlaceholderText(QStringLiteral("项目名称"));
    connect(class_, &CUsefulCombox::entryChanged, this, &QueryField::ownerChanged);
  }
  std::vector<QWidget*> Stops() override { return {class_, Edit()}; }
  void Fill(const DialogSpec& dialog, Session& session) override {
    class_->Fill(offered(dialog, ParameterKey::projectClass, {}, session.db));
    hasWords_ = std::ranges::find(dialog.checks, &checks::classChosen, &Check::passes) != dialog.checks.end();
  }
  void Show(const Request& request) override {
    const auto asked = request.text(ParameterKey::projectClass);
    choice_.Show(asked.empty() ? fromQt(class_->itemText(0)) : asked);
    ShowName(request, ParameterKey::project);
  }
  void Take(Request& request) const override {
    setMember(request, ParameterKey::projectClass, choice_.Value());
    TakeName(request, ParameterKey::project);
  }
  void Demand() const override {
    if (!hasWords_) demandChoice(*class_, ParameterKey::projectClass);
  }
  bool Refer(Request& request, Session& session) override {
    const auto classId = request.text(ParameterKey::projectClass);
    if (classId.empty()) return false;
    CItemReferenceDlg reference(session.db, classId, Row()->window());
    reference.SetItem(request.member(ParameterKey::project));
    if (!reference.DoModal()) return false;
    setMember(request, ParameterKey::project, reference.Item());
    return true;
  }

 private:
  CUsefulCombox* class_;
  ListValue choice_{*class_, ParameterKey::projectClass};
  bool hasWords_ = false;  // the dialog says itself that a class is wanted
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
    default:
      return nullptr;
  }
}

}  // namespace tz
