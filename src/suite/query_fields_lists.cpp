// Conditions chosen from a list: account, department, unit class, clerk, project class, months.
#include <QLabel>

#include "suite/qt_text.h"
#include "suite/query_field_parts.h"
#include "suite/useful_combox.h"

namespace tz {
namespace {

// One combo. A condition left out is the first entry; one that is no longer offered leaves the field empty.
class ComboField : public QueryField {
 public:
  ComboField(const ControlSpec& spec, QWidget* dialog, EntryValue value = EntryValue::text)
      : QueryField(spec), combo_(madeControl<CUsefulCombox>(spec.id, dialog)), value_(value), choice_(*combo_, value) {
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

 protected:
  [[nodiscard]] CUsefulCombox& Combo() { return *combo_; }
  // Other fields follow what is chosen here.
  void OwnsOthers() { connect(combo_, &CUsefulCombox::entryChanged, this, &QueryField::ownerChanged); }

 private:
  CUsefulCombox* combo_;
  EntryValue value_;
  KeptChoice choice_;
};

class AccountField : public ComboField {
 public:
  AccountField(const ControlSpec& spec, QWidget* dialog) : ComboField(spec, dialog, EntryValue::code) {
    OwnsOthers();
    Combo().SetErasable();
  }
  void Fill(const DialogSpec& dialog, Session& session) override { Combo().Fill(offeredAccounts(dialog, session.db)); }
};

class DeptListField : public ComboField {
 public:
  using ComboField::ComboField;
  void Fill(const DialogSpec& /*dialog*/, Session& session) override {
    Combo().Fill(offeredDepts(session.db, Spec().all));
  }
};

class UnitClassField : public ComboField {
 public:
  using ComboField::ComboField;
  void Fill(const DialogSpec& /*dialog*/, Session& session) override {
    Combo().Fill(CInitComboFun::InitEnterClassCombox(session.db));
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
        first_(madeControl<CUsefulCombox>(spec.id, row_)),
        last_(madeControl<CUsefulCombox>(spec.companion, row_)) {
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
    const auto months = CInitComboFun::InitMonthCombox(session.logon.year);
    first_->Fill(months);
    last_->Fill(months);
    logonMonth_ = session.logon.month;
  }
  void Show(const Request& request) override {
    first_->SelectDatum(MonthOr(request, Spec().key));
    last_->SelectDatum(MonthOr(request, ParameterKey::to));
  }
  void Take(Request& request) const override {
    request.set(Spec().key, std::to_string(first_->CurrentDatum()));
    request.set(ParameterKey::to, std::to_string(last_->CurrentDatum()));
  }

 private:
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
