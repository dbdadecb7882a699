#include "desktop/report/condition_combos.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>
#include <array>

#include "core/reports/offers.h"
#include "desktop/frame/combo_name.h"
#include "desktop/picking/search_popup.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_field_parts.h"
#include "desktop/report/month_combos.h"
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
constexpr int monthComboId = 8022;
// Of our own; templates have none.
constexpr int lastMonthLabelId = 1016;

bool alwaysStands(const ControlSpec& control) {
  return control.all || control.kind == ControlSpec::Kind::deptCombo ||
         control.kind == ControlSpec::Kind::unitClassCombo || control.kind == ControlSpec::Kind::clerkCombo;
}

}  // namespace

ConditionCombos::ConditionCombos(const DialogSpec& dialog, QWidget* parent)
    : QWidget(parent), dialog_(dialog), row_(new QHBoxLayout) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addLayout(row_);
  row_->setSpacing(6);
  for (const ControlSpec& control : dialog.controls) {
    const auto* const found = std::ranges::find(windowCombos, control.kind, &WindowCombo::kind);
    if (found != windowCombos.end()) AddCombo(control, found->id);
    if (control.kind == ControlSpec::Kind::months) AddMonths(control);
    if (control.kind == ControlSpec::Kind::month) AddMonth(control);
  }
  row_->addStretch(1);
}

bool ConditionCombos::HasCombo(ControlSpec::Kind kind) {
  return kind == ControlSpec::Kind::months || kind == ControlSpec::Kind::month ||
         std::ranges::find(windowCombos, kind, &WindowCombo::kind) != windowCombos.end();
}

void ConditionCombos::AddCombo(const ControlSpec& control, int comboId) {
  const int labelId = labelIds.at(std::min(members_.size(), labelIds.size() - 1));
  const QString caption = toQt(control.caption);
  auto* label = AddLabel(labelId, caption);
  auto* combo = new CUsefulCombox(this);
  combo->setObjectName(QString::number(comboId));
  nameCombo(*combo, caption);
  combo->setToolTip(howToFind());
  combo->setAccessibleDescription(howToFind());
  combo->lineEdit()->setPlaceholderText(QStringLiteral("请选择"));
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(control.kind == ControlSpec::Kind::accountCombo ? 16 : 8);
  label->setBuddy(combo);
  row_->addWidget(combo, control.kind == ControlSpec::Kind::accountCombo ? 2 : 1);
  members_.push_back({&control, combo});
  connect(combo, &CUsefulCombox::entryChanged, this,
          [this, key = control.key, combo] { emit chosen(key, chosenIn(*combo, key)); });
  connect(combo, &CUsefulCombox::clicked, this, [this, &control] { GoOnFrom(control); });
  TellOf(combo);
}

PaintedStatic* ConditionCombos::AddLabel(int id, const QString& caption) {
  auto* label = new PaintedStatic(id, PaintedStatic::Look::label, this);
  label->setText(caption);
  if (!members_.empty()) row_->addSpacing(10);
  row_->addWidget(label);
  return label;
}

void ConditionCombos::TellOf(CUsefulCombox* combo) {
  connect(combo, &CUsefulCombox::notFound, this,
          [this](const QString& text) { emit told(toQt(messages::notListed(fromQt(text)))); });
  connect(combo, &CUsefulCombox::givenUp, this,
          [this](const QString& text) { emit told(QStringLiteral("没有选定“%1”，条件不变。").arg(text)); });
}

void ConditionCombos::AddMonth(const ControlSpec& control) {
  constexpr int signs = 7;  // "2006.01"
  auto* label = AddLabel(lastMonthLabelId, toQt(control.caption));
  month_ = new CUsefulCombox(this);
  month_->setObjectName(QString::number(monthComboId));
  nameCombo(*month_, toQt(parameter(control.key).label));
  month_->setMinimumContentsLength(signs);
  label->setBuddy(month_);
  row_->addWidget(month_);
  connect(month_, &CUsefulCombox::entryChanged, this,
          [this, key = control.key] { emit chosen(key, {.text = std::to_string(month_->CurrentDatum()), .id = 0}); });
  TellOf(month_);
}

void ConditionCombos::AddMonths(const ControlSpec& control) {
  months_ = new MonthCombos(toQt(control.caption), this);
  if (!members_.empty()) row_->addSpacing(10);
  placeInRow_ = row_->count();
  row_->addWidget(months_);
  connect(months_, &MonthCombos::chosen, this, &ConditionCombos::monthsChosen);
  connect(months_, &MonthCombos::told, this, &ConditionCombos::told);
}

// Where the row is too narrow for all, the months have one of their own.
void ConditionCombos::PlaceMonths() {
  if (months_ == nullptr) return;
  const bool below = layout()->indexOf(months_) >= 0;
  const int needed = row_->minimumSize().width() + (below ? row_->spacing() + months_->minimumSizeHint().width() : 0);
  if ((needed > width()) == below) return;
  if (below) {
    layout()->removeWidget(months_);
    row_->insertWidget(placeInRow_, months_);
  } else {
    row_->removeWidget(months_);
    static_cast<QVBoxLayout*>(layout())->addWidget(months_, 0, Qt::AlignLeft);
  }
  updateGeometry();
}

QSize ConditionCombos::minimumSizeHint() const {
  QSize least = QWidget::minimumSizeHint();
  if (months_ == nullptr || layout()->indexOf(months_) >= 0) return least;
  const int months = months_->minimumSizeHint().width();
  least.setWidth(std::max(row_->minimumSize().width() - months - row_->spacing(), months));
  return least;
}

bool ConditionCombos::event(QEvent* event) {
  const bool answered = QWidget::event(event);
  if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) PlaceMonths();
  return answered;
}

void ConditionCombos::ShowMonths(const Request& request, Date logon) {
  const bool otherYear = std::exchange(year_, logon.year) != logon.year;
  const auto monthOf = [&](ParameterKey key) { return request.month(key) == 0 ? logon.month : request.month(key); };
  if (month_ != nullptr) {
    if (otherYear) month_->FillMonths(logon.year);
    month_->SelectDatum(monthOf(ParameterKey::month));
  }
  if (months_ == nullptr) return;
  if (otherYear) months_->Fill(logon.year);
  months_->SetLogonMonth(logon.month);
  months_->Show({monthOf(ParameterKey::from), monthOf(ParameterKey::to)});
}

void ConditionCombos::keyPressEvent(QKeyEvent* event) {
  const auto focused =
      std::ranges::find_if(members_, [this](const Member& one) { return one.combo == window()->focusWidget(); });
  const bool enter = isEnterKey(event->key());
  if ((event->key() != Qt::Key_F2 && !enter) || focused == members_.end()) return QWidget::keyPressEvent(event);
  const ControlSpec& control = *focused->control;
  const bool nests = control.key == ParameterKey::account;
  if (enter || pickFromList(*focused->combo, toQt(control.caption), nests, window())) GoOnFrom(control);
}

// The report waits for a person of the department: he is what is asked for next.
void ConditionCombos::GoOnFrom(const ControlSpec& control) {
  const Member* person = Find(ParameterKey::person);
  if (control.key == ParameterKey::dept && person != nullptr) person->combo->setFocus(Qt::TabFocusReason);
}

bool ConditionCombos::AskForPerson() const { return Find(ParameterKey::person) != nullptr; }

const ConditionCombos::Member* ConditionCombos::Find(ParameterKey key) const {
  const auto found = std::ranges::find_if(members_, [key](const Member& one) { return one.control->key == key; });
  return found == members_.end() ? nullptr : &*found;
}

bool ConditionCombos::HasAccounts(const CQnCwDB& db) const {
  return !asksForAccount(dialog_) || !accountsOf(dialog_, db).empty();
}

void ConditionCombos::Fill(const CQnCwDB& db) {
  for (const Member& member : members_) {
    if (!offerFollows(*member.control)) refill(*member.combo, offered(dialog_, member.control->key, {}, db), -1);
  }
}

ConditionCombos::Lists ConditionCombos::Read(const Request& request, const CQnCwDB& db) const {
  Lists lists;
  for (const Member& member : members_) lists.push_back(ReadOne(member, request, db));
  return lists;
}

ConditionCombos::List ConditionCombos::ReadOne(const Member& member, const Request& request, const CQnCwDB& db) const {
  const ParameterKey key = member.control->key;
  List list{offered(dialog_, key, request, db), -1};
  list.place = placeIn(list.entries, dialog_, key, request, db);
  const bool leftOut = request.text(key).empty() && !alwaysStands(*member.control);
  if (list.place < 0 && !leftOut && !list.entries.empty()) list.place = 0;
  return list;
}

void ConditionCombos::Show(const Lists& lists) {
  for (std::size_t i = 0; i < lists.size(); ++i) refill(*members_.at(i).combo, lists[i].entries, lists[i].place);
}

void ConditionCombos::RefillPersons(const Request& request, const CQnCwDB& db) {
  const Member* person = Find(ParameterKey::person);
  if (person != nullptr) refill(*person->combo, offered(dialog_, ParameterKey::person, request, db), -1);
}

void ConditionCombos::FollowAccount(Request& request, const CQnCwDB& db) {
  followAccount(dialog_, request, db);
  const Member* clerk = Find(ParameterKey::clerk);
  if (clerk == nullptr) return;
  const List list = ReadOne(*clerk, request, db);
  refill(*clerk->combo, list.entries, list.place);
}

}  // namespace tz
