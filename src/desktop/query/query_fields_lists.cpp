// Conditions chosen from a list: account, department, unit class, clerk, project class, months.
#include <QLabel>
#include <QLineEdit>

#include "core/reports/members.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_field_parts.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// One combo. A condition left out is the first entry.
class ComboField : public QueryField {
 public:
  ComboField(const ControlSpec& spec, QWidget* dialog, EntryValue value = EntryValue::text)
      : QueryField(spec), combo_(madeCombo(spec.id, dialog)), value_(value), choice_(*combo_, value) {
    constexpr int signs = 28;
    combo_->setMinimumContentsLength(signs);
    combo_->setAccessibleName(toQt(spec.caption));
  }
  QWidget* Row() override { return combo_; }
  std::vector<QWidget*> Stops() override { return {combo_}; }
  void Show(const Request& request) override {
    const auto wanted = request.text(Spec().key);
    choice_.Show(valueOf(wanted.empty() ? fromQt(combo_->itemText(0)) : wanted, value_));
  }
  void Take(Request& request) const override { setText(request, Spec().key, choice_.Value()); }
  void Demand() const override { demandChoice(*combo_, Spec().key); }

 protected:
  [[nodiscard]] CUsefulCombox& Combo() const { return *combo_; }
  // Other fields follow what is chosen here.
  void OwnsOthers() { connect(combo_, &CUsefulCombox::entryChanged, this, &QueryField::ownerChanged); }

 private:
  CUsefulCombox* combo_;
  EntryValue value_;
  ListValue choice_;
};

class AccountField : public ComboField {
 public:
  AccountField(const ControlSpec& spec, QWidget* dialog) : ComboField(spec, dialog, EntryValue::code) { OwnsOthers(); }
  void Fill(const DialogSpec& dialog, Session& session) override { Combo().Fill(offeredAccounts(dialog, session.db)); }
  void Demand() const override {}  // the dialog has its own words
};

// Members: the one chosen is that record, not the first of its name.
class MemberField : public ComboField {
 public:
  using ComboField::ComboField;
  void Fill(const DialogSpec& /*dialog*/, Session& session) override {
    db_ = &session.db;
    Combo().Fill(Offered(session.db));
  }
  void Show(const Request& request) override {
    const auto wanted = request.member(Spec().key);
    const auto found = wanted.text.empty() ? std::nullopt : IdOf(*db_, wanted);
    if (found) Combo().SelectDatum(*found);
    if (!found || Combo().currentIndex() < 0) ComboField::Show(request);
  }
  void Take(Request& request) const override {
    ComboField::Take(request);
    if (Combo().UnknownText().empty() && Combo().currentIndex() >= 0) {
      request.choose(Spec().key, {Combo().CurrentText(), Combo().CurrentDatum()});
    }
  }

 protected:
  [[nodiscard]] virtual ComboList Offered(const CQnCwDB& db) const = 0;
  [[nodiscard]] virtual std::optional<Id> IdOf(const CQnCwDB& db, const MemberChoice& wanted) const = 0;

 private:
  const CQnCwDB* db_ = nullptr;
};

class DeptListField : public MemberField {
 public:
  DeptListField(const ControlSpec& spec, QWidget* dialog) : MemberField(spec, dialog) {
    if (spec.all) Combo().lineEdit()->setPlaceholderText(toQt(allMembers));
  }
  void Demand() const override {
    if (!Spec().all) MemberField::Demand();
  }

 protected:
  [[nodiscard]] ComboList Offered(const CQnCwDB& db) const override { return offeredDepts(db, Spec().all); }
  [[nodiscard]] std::optional<Id> IdOf(const CQnCwDB& db, const MemberChoice& wanted) const override {
    const auto found = findDept(db, wanted);
    return found ? std::optional(found->lDeptId) : std::nullopt;
  }
};

class UnitClassField : public MemberField {
 public:
  using MemberField::MemberField;

 protected:
  [[nodiscard]] ComboList Offered(const CQnCwDB& db) const override { return CInitComboFun::InitEnterClassCombox(db); }
  [[nodiscard]] std::optional<Id> IdOf(const CQnCwDB& db, const MemberChoice& wanted) const override {
    const auto found = findUnitClass(db, wanted);
    return found ? std::optional(found->lId) : std::nullopt;
  }
};

class ClerkField : public ComboField {
 public:
  using ComboField::ComboField;
  void Follow(const Request& request, Session& session) override {
    const auto account = CGetData(session.db).GetCodeId_new(request.text(ParameterKey::account));
    refill(Combo(), offeredClerks(session.db, account));
  }
};

// The classes that the account carries.
class ClassField : public ComboField {
 public:
  ClassField(const ControlSpec& spec, QWidget* dialog) : ComboField(spec, dialog, EntryValue::code) { OwnsOthers(); }
  void Follow(const Request& request, Session& session) override {
    refill(Combo(), offeredClasses(session.db, request.text(ParameterKey::account)));
  }
};

class MonthsField : public QueryField {
 public:
  MonthsField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec),
        row_(new QWidget(dialog)),
        first_(madeCombo(spec.id, row_)),
        last_(madeCombo(spec.companion, row_)) {
    first_->setAccessibleName(QStringLiteral("起始月份"));
    last_->setAccessibleName(QStringLiteral("终止月份"));
    auto* layout = rowLayout(row_);
    layout->addWidget(first_, 1);
    layout->addWidget(new QLabel(QStringLiteral("至"), row_));
    layout->addWidget(last_, 1);
  }
  QWidget* Row() override { return row_; }
  std::vector<QWidget*> Stops() override { return {first_, last_}; }
  void Fill(const DialogSpec& /*dialog*/, Session& session) override {
    first_->FillMonths(session.logon.year);
    last_->FillMonths(session.logon.year);
    logonMonth_ = session.logon.month;
  }
  void Show(const Request& request) override {
    first_->SelectDatum(MonthOr(request, Spec().key));
    last_->SelectDatum(MonthOr(request, ParameterKey::to));
  }
  void Take(Request& request) const override {
    TakeMonth(request, Spec().key, *first_);
    TakeMonth(request, ParameterKey::to, *last_);
  }
  void Demand() const override {
    demandChoice(*first_, Spec().key);
    demandChoice(*last_, ParameterKey::to);
  }

 private:
  static void TakeMonth(Request& request, ParameterKey key, const CUsefulCombox& month) {
    const auto unknown = month.UnknownText();
    if (!unknown.empty()) throw WrongUse(key, messages::notListed(unknown));
    setText(request, key, month.currentIndex() < 0 ? "" : std::to_string(month.CurrentDatum()));
  }
  [[nodiscard]] int MonthOr(const Request& request, ParameterKey key) const {
    const int month = request.month(key);
    return month == 0 ? logonMonth_ : month;
  }
  QWidget* row_;
  CUsefulCombox* first_;
  CUsefulCombox* last_;
  int logonMonth_ = 1;
};

}  // namespace

std::unique_ptr<QueryField> makeListField(const ControlSpec& spec, QWidget* dialog) {
  switch (spec.kind) {
    case ControlSpec::Kind::accountCombo:
      return std::make_unique<AccountField>(spec, dialog);
    case ControlSpec::Kind::deptCombo:
      return std::make_unique<DeptListField>(spec, dialog);
    case ControlSpec::Kind::unitClassCombo:
      return std::make_unique<UnitClassField>(spec, dialog);
    case ControlSpec::Kind::clerkCombo:
      return std::make_unique<ClerkField>(spec, dialog);
    case ControlSpec::Kind::classCombo:
      return std::make_unique<ClassField>(spec, dialog);
    case ControlSpec::Kind::months:
      return std::make_unique<MonthsField>(spec, dialog);
    default:
      return nullptr;
  }
}

}  // namespace tz
