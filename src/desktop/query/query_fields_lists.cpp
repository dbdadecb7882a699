// Conditions chosen from a list: account, department, unit class, clerk, project class, months.
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_field_parts.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// One combo of what the condition offers. A condition left out is the first entry; the one chosen is that record, not
// the first of its name.
class ComboField : public QueryField {
 public:
  ComboField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec), combo_(madeCombo(spec.id, dialog)), choice_(*combo_, spec.key) {
    constexpr int signs = 28;
    combo_->setMinimumContentsLength(signs);
    combo_->setAccessibleName(toQt(spec.caption));
    if (spec.all) combo_->lineEdit()->setPlaceholderText(toQt(allMembers));
    // Accounts and classes: other fields follow what is chosen here.
    if (parameter(spec.key).byCode) connect(combo_, &CUsefulCombox::entryChanged, this, &QueryField::ownerChanged);
  }
  QWidget* Row() override { return combo_; }
  std::vector<QWidget*> Stops() override { return {combo_}; }
  void Fill(const DialogSpec& dialog, Session& session) override {
    dialog_ = &dialog;
    db_ = &session.db;
    if (offerFollows(Spec())) return;
    offer_ = offered(dialog, Spec().key, {}, session.db);
    combo_->Fill(offer_);
  }
  void Follow(const Request& request, Session& session) override {
    if (!offerFollows(Spec())) return;
    offer_ = offered(*dialog_, Spec().key, request, session.db);
    refill(*combo_, offer_);
  }
  void Show(const Request& request) override {
    const auto wanted = request.text(Spec().key);
    const int place =
        wanted.empty() ? std::min(0, combo_->count() - 1) : placeIn(offer_, *dialog_, Spec().key, request, *db_);
    combo_->SelectIndex(place);
    if (place < 0 && !wanted.empty()) combo_->ShowUnknown(toQt(valueOf(Spec().key, wanted)));
  }
  void Take(Request& request) const override { setMember(request, Spec().key, choice_.Value()); }
  void Demand() const override {
    // Of an account the dialog has its own words.
    if (!Spec().all && Spec().kind != ControlSpec::Kind::accountCombo) demandChoice(*combo_, Spec().key);
  }

 private:
  CUsefulCombox* combo_;
  ListValue choice_;
  const DialogSpec* dialog_ = nullptr;
  const CQnCwDB* db_ = nullptr;
  ComboList offer_;
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
    case ControlSpec::Kind::deptCombo:
    case ControlSpec::Kind::unitClassCombo:
    case ControlSpec::Kind::clerkCombo:
    case ControlSpec::Kind::classCombo:
      return std::make_unique<ComboField>(spec, dialog);
    case ControlSpec::Kind::months:
      return std::make_unique<MonthsField>(spec, dialog);
    default:
      return nullptr;
  }
}

}  // namespace tz
