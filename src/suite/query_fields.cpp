#include "suite/query_fields.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "suite/archive_references.h"
#include "suite/picture_icon.h"
#include "suite/qt_text.h"
#include "suite/useful_combox.h"

namespace tz {
namespace {

constexpr int viewPicture = 303;

template <class Control>
Control* made(int id, QWidget* parent) {
  auto* control = new Control(parent);
  control->setObjectName(QString::number(id));
  return control;
}

QHBoxLayout* rowLayout(QWidget* row) {
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  return layout;
}

// An empty field is a condition left out.
void setText(Request& request, ParameterKey key, const std::string& text) {
  if (text.empty()) {
    request.clear(key);
  } else {
    request.set(key, text);
  }
}

class AccountField : public QueryField {
 public:
  AccountField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec), combo_(made<CUsefulCombox>(spec.id, dialog)) {
    constexpr int signs = 28;
    combo_->setMinimumContentsLength(signs);
    combo_->setAccessibleName(toQt(spec.caption));
  }
  QWidget* Row() override { return combo_; }
  std::vector<QWidget*> Stops() override { return {combo_}; }
  bool Fill(const DialogSpec& dialog, Session& session) override {
    const auto accounts = offeredAccounts(dialog, session.db);
    combo_->Fill(accounts);
    return !accounts.empty();
  }
  void Show(const Request& request) override {
    const auto code = CGetData::GetCode_Separator(request.text(Spec().key));
    // An account that is no longer offered leaves the field empty: another one in its place would pass unnoticed.
    combo_->SelectIndex(code.empty() ? 0 : PlaceOf(code));
    const bool gone = combo_->currentIndex() < 0;
    combo_->lineEdit()->setPlaceholderText(gone ? QStringLiteral("%1 不在可选科目之中").arg(toQt(code)) : QString());
  }
  void Take(Request& request) const override {
    setText(request, Spec().key, CGetData::GetCode_Separator(combo_->CurrentText()));
  }

 private:
  [[nodiscard]] int PlaceOf(const std::string& code) const {
    for (int i = 0; i < combo_->count(); ++i) {
      if (CGetData::GetCode_Separator(fromQt(combo_->itemText(i))) == code) return i;
    }
    return -1;
  }
  CUsefulCombox* combo_;
};

// A name to type, or to pick with the button beside it.
class ReferenceField : public QueryField {
 public:
  ReferenceField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec), row_(new QWidget(dialog)), edit_(made<QLineEdit>(spec.id, row_)) {
    auto* view = made<QToolButton>(spec.companion, row_);
    const QString caption = toQt(spec.caption);
    view->setIcon(pictureIcon(viewPicture));
    view->setToolTip(QStringLiteral("选择%1 (F2)").arg(caption));
    view->setAccessibleName(QStringLiteral("选择%1").arg(caption));
    view->setFocusPolicy(Qt::TabFocus);
    edit_->setAccessibleName(caption);
    auto* layout = rowLayout(row_);
    layout->setSpacing(4);
    layout->addWidget(edit_, 1);
    layout->addWidget(view);
    connect(view, &QToolButton::clicked, this, &QueryField::referenceWanted);
  }
  QWidget* Row() override { return row_; }
  std::vector<QWidget*> Stops() override { return {edit_}; }
  void Show(const Request& request) override {
    edit_->setText(toQt(request.text(Spec().key)));
    edit_->setCursorPosition(0);
  }
  void Take(Request& request) const override { setText(request, Spec().key, fromQt(edit_->text().trimmed())); }

 private:
  QWidget* row_;
  QLineEdit* edit_;
};

class DeptField : public ReferenceField {
 public:
  using ReferenceField::ReferenceField;
  bool Refer(Request& request, Session& session) override {
    CDeptReferenceDlg reference(session.db, Row()->window());
    reference.SetDeptName(request.text(ParameterKey::dept));
    if (!reference.DoModal()) return false;
    setText(request, ParameterKey::dept, reference.DeptName());
    return true;
  }
};

class PersonField : public ReferenceField {
 public:
  using ReferenceField::ReferenceField;
  bool Refer(Request& request, Session& session) override {
    CPersonReferenceDlg reference(session.db, Row()->window());
    reference.SetNames(request.text(ParameterKey::dept), request.text(ParameterKey::person));
    if (!reference.DoModal()) return false;
    setText(request, ParameterKey::dept, reference.DeptName());
    setText(request, ParameterKey::person, reference.PersonName());
    return true;
  }
};

class MonthsField : public QueryField {
 public:
  MonthsField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec),
        row_(new QWidget(dialog)),
        first_(made<CUsefulCombox>(spec.id, row_)),
        last_(made<CUsefulCombox>(spec.companion, row_)) {
    first_->setAccessibleName(QStringLiteral("起始月份"));
    last_->setAccessibleName(QStringLiteral("终止月份"));
    auto* layout = rowLayout(row_);
    layout->addWidget(first_, 1);
    layout->addWidget(new QLabel(QStringLiteral("至"), row_));
    layout->addWidget(last_, 1);
  }
  QWidget* Row() override { return row_; }
  std::vector<QWidget*> Stops() override { return {first_, last_}; }
  bool Fill(const DialogSpec& /*dialog*/, Session& session) override {
    const auto months = CInitComboFun::InitMonthCombox(session.logon.year);
    first_->Fill(months);
    last_->Fill(months);
    logonMonth_ = session.logon.month;
    return true;
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

class CheckField : public QueryField {
 public:
  CheckField(const ControlSpec& spec, QWidget* dialog) : QueryField(spec), box_(made<QCheckBox>(spec.id, dialog)) {
    box_->setText(toQt(spec.caption));
  }
  QWidget* Row() override { return box_; }
  std::vector<QWidget*> Stops() override { return {box_}; }
  [[nodiscard]] bool HasLabel() const override { return false; }
  void Show(const Request& request) override { box_->setChecked(request.flag(Spec().key)); }
  void Take(Request& request) const override { setText(request, Spec().key, box_->isChecked() ? "1" : ""); }

 private:
  QCheckBox* box_;
};

}  // namespace

std::unique_ptr<QueryField> makeField(const ControlSpec& spec, QWidget* dialog) {
  switch (spec.kind) {
    case ControlSpec::Kind::accountCombo:
      return std::make_unique<AccountField>(spec, dialog);
    case ControlSpec::Kind::deptReference:
      return std::make_unique<DeptField>(spec, dialog);
    case ControlSpec::Kind::personReference:
      return std::make_unique<PersonField>(spec, dialog);
    case ControlSpec::Kind::months:
      return std::make_unique<MonthsField>(spec, dialog);
    case ControlSpec::Kind::checkBox:
      return std::make_unique<CheckField>(spec, dialog);
  }
  return nullptr;
}

}  // namespace tz
