// Conditions chosen from a list: account, department, unit class, clerk, project class, months.
#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "desktop/frame/combo_name.h"
#include "desktop/frame/narrow_button.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_field_parts.h"
#include "desktop/query/quick_months.h"
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
    nameCombo(*combo_, toQt(spec.caption));
    combo_->setToolTip(howToFind());
    combo_->setAccessibleDescription(howToFind());
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
  bool Refer(Request& request, Session& /*session*/) override {
    const bool nests = Spec().key == ParameterKey::account;
    if (!pickFromList(*combo_, toQt(Spec().caption), nests, combo_->window())) return false;
    Take(request);
    return true;
  }
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

void takeMonth(Request& request, ParameterKey key, const CUsefulCombox& month) {
  const auto unknown = month.UnknownText();
  if (!unknown.empty()) throw WrongUse(key, messages::notListed(unknown));
  setText(request, key, month.currentIndex() < 0 ? "" : std::to_string(month.CurrentDatum()));
}

constexpr int signsOfMonth = 7;  // "2006.01"

// One month, the last one that is listed; that of the logon unless something else is asked for.
class MonthField : public QueryField {
 public:
  MonthField(const ControlSpec& spec, QWidget* dialog) : QueryField(spec), month_(madeCombo(spec.id, dialog)) {
    nameCombo(*month_, toQt(parameter(spec.key).label));
    month_->setMinimumContentsLength(signsOfMonth);
  }
  QWidget* Row() override { return month_; }
  std::vector<QWidget*> Stops() override { return {month_}; }
  void Fill(const DialogSpec& /*dialog*/, Session& session) override {
    month_->FillMonths(session.logon.year);
    logonMonth_ = session.logon.month;
  }
  void Show(const Request& request) override {
    const int month = request.month(Spec().key);
    month_->SelectDatum(month == 0 ? logonMonth_ : month);
  }
  void Take(Request& request) const override { takeMonth(request, Spec().key, *month_); }
  void Demand() const override { demandChoice(*month_, Spec().key); }

 private:
  CUsefulCombox* month_;
  int logonMonth_ = 1;
};

// Two months, with the months that are asked for most as buttons beside them: these are one stop of the Tab key, the
// arrow keys move among them.
class MonthsField : public QueryField {
 public:
  MonthsField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec),
        row_(new QWidget(dialog)),
        first_(madeCombo(spec.id, row_)),
        last_(madeCombo(spec.companion, row_)) {
    nameCombo(*first_, QStringLiteral("起始月份"));
    nameCombo(*last_, QStringLiteral("终止月份"));
    for (CUsefulCombox* month : {first_, last_}) month->setMinimumContentsLength(signsOfMonth);
    auto* layout = rowLayout(row_);
    layout->addWidget(first_, 1);
    layout->addWidget(new QLabel(QStringLiteral("至"), row_));
    layout->addWidget(last_, 1);
    for (const QuickMonths& one : quickMonths) layout->addWidget(MadeButton(one));
  }
  QWidget* Row() override { return row_; }
  std::vector<QWidget*> Stops() override { return {first_, last_}; }
  void Fill(const DialogSpec& /*dialog*/, Session& session) override {
    first_->FillMonths(session.logon.year);
    last_->FillMonths(session.logon.year);
    logonMonth_ = session.logon.month;
    for (std::size_t i = 0; i < quickMonths.size(); ++i) {
      buttons_[i]->setEnabled(!quickMonths[i].of(logonMonth_).IsEmpty());
    }
  }
  void Show(const Request& request) override {
    first_->SelectDatum(MonthOr(request, Spec().key));
    last_->SelectDatum(MonthOr(request, ParameterKey::to));
  }
  void Take(Request& request) const override {
    takeMonth(request, Spec().key, *first_);
    takeMonth(request, ParameterKey::to, *last_);
  }
  void Demand() const override {
    demandChoice(*first_, Spec().key);
    demandChoice(*last_, ParameterKey::to);
  }

 private:
  QPushButton* MadeButton(const QuickMonths& months) {
    auto* button = new NarrowButton(months.Caption(), row_);
    button->setObjectName(QString::fromLatin1(months.name));
    button->setShortcut(QKeySequence(QString::fromLatin1(months.key)));
    button->setToolTip(months.Tip());
    button->setFocusPolicy(buttons_.empty() ? Qt::TabFocus : Qt::NoFocus);
    connect(button, &QPushButton::clicked, this, [this, &months] {
      const MonthSpan span = months.of(logonMonth_);
      first_->Choose(first_->findData(span.from));
      last_->Choose(last_->findData(span.to));
    });
    group_->addButton(button);
    buttons_.push_back(button);
    return button;
  }
  [[nodiscard]] int MonthOr(const Request& request, ParameterKey key) const {
    const int month = request.month(key);
    return month == 0 ? logonMonth_ : month;
  }
  QWidget* row_;
  CUsefulCombox* first_;
  CUsefulCombox* last_;
  QButtonGroup* group_ = new QButtonGroup(this);
  std::vector<QPushButton*> buttons_;
  int logonMonth_ = 1;
};

}  // namespace

std::unique_ptr<QueryField> makeListField(const ControlSpec& spec, QWidget* dialog) {
  switch (spec.kind) {
    case ControlSpec::Kind::accountCombo:
    case ControlSpec::Kind::deptCombo:
    case ControlSpec::Kind::personCombo:
    case ControlSpec::Kind::itemCombo:
    case ControlSpec::Kind::unitClassCombo:
    case ControlSpec::Kind::clerkCombo:
    case ControlSpec::Kind::classCombo:
      return std::make_unique<ComboField>(spec, dialog);
    case ControlSpec::Kind::months:
      return std::make_unique<MonthsField>(spec, dialog);
    case ControlSpec::Kind::month:
      return std::make_unique<MonthField>(spec, dialog);
    default:
      return nullptr;
  }
}

}  // namespace tz
