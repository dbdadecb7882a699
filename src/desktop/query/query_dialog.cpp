#include "desktop/query/query_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "desktop/frame/dialog_keys.h"
#include "desktop/frame/fit_window.h"
#include "desktop/frame/message_box.h"
#include "desktop/picking/name_edit.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_fields.h"
#include "desktop/query/saved_conditions_bar.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

QPushButton* textButton(int id, const QString& text, QWidget* parent) {
  constexpr int smallestWidth = 88;
  auto* button = new QPushButton(text, parent);
  button->setObjectName(QString::number(id));
  button->setMinimumWidth(smallestWidth);
  return button;
}

bool asksFor(const QueryField& field, std::initializer_list<ParameterKey> conditions) {
  return std::ranges::any_of(keysOf(field.Spec()),
                             [&](ParameterKey key) { return std::ranges::find(conditions, key) != conditions.end(); });
}

// Accounts and classes: others offer what belongs to them.
bool ownsOthers(const QueryField& field) { return asksFor(field, {ParameterKey::account, ParameterKey::projectClass}); }

}  // namespace

CTzQueryDialog::CTzQueryDialog(const DialogSpec& dialog, Session& session, QWidget* parent)
    : QDialog(parent), dialog_(dialog), session_(session) {
  setObjectName(QString::number(dialog.id));
  setWindowTitle(toQt(dialog.title));
  for (const auto& control : dialog.controls) fields_.push_back(makeField(control, this));
  ConnectFields();
  LayOut();
}

CTzQueryDialog::~CTzQueryDialog() = default;

void CTzQueryDialog::ConnectFields() {
  for (const auto& one : fields_) {
    QueryField* field = one.get();
    field->SetOwners([this] { return Owners(); });
    connect(field, &QueryField::referenceWanted, this, [this, field] { OnReference(*field); });
    connect(field, &QueryField::ownerChanged, this, &CTzQueryDialog::OnOwnerChanged);
    connect(field, &QueryField::pickedWithOthers, this, [this, field] { OnPickedWithOthers(*field); });
    connect(field, &QueryField::memberChanged, this, &CTzQueryDialog::MarkStrangers);
    connect(field, &QueryField::unreadable, this, [this](const DbError& error) { AfxMessageBox(this, error); });
    for (QWidget* stop : field->Stops()) {
      if (auto* combo = qobject_cast<CUsefulCombox*>(stop)) {
        connect(combo, &CUsefulCombox::clicked, this, [this, combo] { GoOnFrom(combo); });
      } else if (auto* name = qobject_cast<NameEdit*>(stop)) {
        connect(name, &NameEdit::clicked, this, [this, name] { GoOnFrom(name); });
      }
    }
  }
}

void CTzQueryDialog::LayOut() {
  constexpr int margin = 20;
  constexpr int betweenRows = 12;
  constexpr int labelGap = 12;
  constexpr int smallestWidth = 440;
  const bool framed = !dialog_.group.empty();
  QWidget* contents = framed ? new QGroupBox(toQt(dialog_.group), this) : new QWidget(this);
  auto* rows = new QGridLayout(contents);
  if (!framed) rows->setContentsMargins(0, 0, 0, 0);
  rows->setVerticalSpacing(betweenRows);
  rows->setHorizontalSpacing(labelGap);
  rows->setColumnStretch(1, 1);
  for (int row = 0; const auto& field : fields_) {
    if (field->HasLabel()) {
      auto* label = new QLabel(toQt(field->Spec().caption), contents);
      label->setBuddy(field->Stops().front());
      if (const int id = field->Spec().label; id != 0) label->setObjectName(QString::number(id));
      rows->addWidget(label, row, 0, Qt::AlignRight);
    }
    rows->addWidget(field->Row(), row++, 1);
  }
  rows->setRowStretch(rows->rowCount(), 1);
  auto* ok = textButton(IDOK, QStringLiteral("确定"), this);
  auto* cancel = textButton(IDCANCEL, QStringLiteral("取消"), this);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, [this] { OnOK(); });
  connect(cancel, &QPushButton::clicked, this, [this] { OnCancel(); });
  giveDialogKeys(*ok, *cancel);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(betweenRows);
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin);
  // Not the window's own least width: that would let fields that need more overlap.
  layout->addStrut(smallestWidth - 2 * margin);
  layout->addWidget(new ContentsArea(contents, this), 1);
  layout->addLayout(buttons);
}

void CTzQueryDialog::OfferSaved(ConditionStore& store, int report) {
  const auto current = [this]() -> std::optional<Request> {
    if (!Attempt([this] { DoDataExchange(true); })) return std::nullopt;
    return request_;
  };
  saved_ = new SavedConditionsBar(store, report, current, this);
  connect(saved_, &SavedConditionsBar::chosen, this, [this](const Request& request) {
    request_ = request;
    openedOn_ = request;
    Attempt([this] { DoDataExchange(false); });
  });
  auto* rule = new QFrame(this);
  rule->setFrameShape(QFrame::HLine);
  rule->setFrameShadow(QFrame::Plain);
  QPalette colours;
  colours.setColor(QPalette::WindowText, currentTheme().rule);
  rule->setPalette(colours);
  auto* head = new QVBoxLayout;
  head->setSpacing(2);
  head->addWidget(saved_);
  head->addWidget(rule);
  static_cast<QVBoxLayout*>(layout())->insertLayout(0, head);
}

bool CTzQueryDialog::DoModal() { return OnInitDialog() && exec() == Accepted; }

bool CTzQueryDialog::OnInitDialog() {
  if (!FillFields()) {
    OnCancel();
    return false;
  }
  if (saved_ != nullptr) saved_->Refresh();
  fitToContents(*this);
  const auto stops = Stops();
  if (!stops.empty()) stops.front()->setFocus(Qt::TabFocusReason);
  return true;
}

bool CTzQueryDialog::FillFields() {
  if (session_.db.DBSelect(session_.ledger) != 0) {
    TellNotOpen();
    return false;
  }
  bool filled = false;
  const bool read = Attempt([&] {
    if (const auto refusal = openingRefusal(dialog_, session_)) {
      AfxMessageBox(parentWidget(), *refusal);
      return;
    }
    for (const auto& field : fields_) field->Fill(dialog_, session_);
    openedOn_ = request_;
    DoDataExchange(false);
    filled = true;
  });
  return read && filled;
}

bool CTzQueryDialog::Attempt(const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const UnreadAnswer& unread) {
    AfxMessageBox(isVisible() ? this : parentWidget(), unread.refusal());
    if (isVisible() && unread.refusal().about) FocusOn(*unread.refusal().about);
  } catch (const DbError& error) {
    AfxMessageBox(isVisible() ? this : parentWidget(), error);
  } catch (const WrongUse& wrong) {
    AfxMessageBox(this, wrong.what(), dialog_.messageCaption);
    if (wrong.about()) FocusOn(*wrong.about());
  }
  return false;
}

// What it needs cannot be read either: the message for want of that stands, and below it why.
void CTzQueryDialog::TellNotOpen() {
  std::string text(dialog_.databaseNotOpen.text);
  if (const auto refusal = unreadOpening(dialog_)) text = refusal->text + "\n\n" + text;
  AfxMessageBox(parentWidget(), text, dialog_.messageCaption);
}

void CTzQueryDialog::DoDataExchange(bool takes) {
  if (takes) {
    SettleTexts();
    for (const auto& field : fields_) field->Demand();
    request_ = Taken();
    return;
  }
  Request owners = request_;
  for (const auto& field : fields_) {
    field->Follow(owners, session_);
    field->Show(request_);
    if (ownsOthers(*field)) field->Take(owners);
  }
}

void CTzQueryDialog::SettleTexts() {
  for (auto* combo : findChildren<CUsefulCombox*>()) combo->Settle();
  for (auto* name : findChildren<NameEdit*>()) name->Settle();
}

Request CTzQueryDialog::Taken() const {
  Request taken = request_;
  for (const auto& field : fields_) field->Take(taken);
  return taken;
}

Request CTzQueryDialog::Owners() const {
  Request owners = request_;
  for (const auto& field : fields_) {
    if (ownsOthers(*field) || asksFor(*field, {ParameterKey::dept})) field->Take(owners);
  }
  return owners;
}

void CTzQueryDialog::OnOwnerChanged() {
  Attempt([this] {
    Request owners = request_;
    for (const auto& field : fields_) {
      field->Follow(owners, session_);
      if (ownsOthers(*field)) field->Take(owners);
    }
  });
}

void CTzQueryDialog::MarkStrangers() {
  for (const auto& field : fields_) field->MarkStranger();
}

void CTzQueryDialog::OnPickedWithOthers(const QueryField& field) {
  Attempt([&] {
    Request taken = Taken();
    field.TakePicked(taken);
    request_ = std::move(taken);
    DoDataExchange(false);
  });
}

void CTzQueryDialog::OnOK() {
  Attempt([this] {
    DoDataExchange(true);
    // An amount format belongs to the account that it was chosen for.
    if (!sameAccounts(request_, openedOn_)) request_.clear(ParameterKey::format);
    const auto refusal = Refused();
    if (!refusal) {
      QDialog::done(Accepted);
      return;
    }
    AfxMessageBox(this, *refusal);
    if (refusal->about) FocusOn(*refusal->about);
  });
}

std::optional<Refusal> CTzQueryDialog::Refused() {
  auto validated = validate(dialog_, request_, session_);
  auto* refusal = std::get_if<Refusal>(&validated);
  return refusal == nullptr ? std::nullopt : std::optional(std::move(*refusal));
}

void CTzQueryDialog::OnReference(QueryField& field) {
  const auto stops = field.Stops();
  QWidget* at = std::ranges::count(stops, focusWidget()) != 0 ? focusWidget() : stops.back();
  bool picked = false;
  const bool asked = Attempt([&] {
    SettleTexts();
    request_ = Taken();
    picked = field.Refer(request_, session_);
    if (!picked) return;
    DoDataExchange(false);
    MarkStrangers();
  });
  if (picked) {
    GoOnFrom(at);
  } else if (asked) {
    at->setFocus(Qt::TabFocusReason);
  }
}

void CTzQueryDialog::GoOnFrom(QWidget* control) {
  const auto stops = Stops();
  const auto here = std::ranges::find(stops, control);
  if (here == stops.end()) return;
  QWidget* next = here + 1 == stops.end() ? findChild<QWidget*>(QString::number(IDOK)) : *(here + 1);
  next->setFocus(Qt::TabFocusReason);
}

void CTzQueryDialog::FocusOn(ParameterKey key) {
  for (const auto& field : fields_) {
    const auto keys = keysOf(field->Spec());
    const auto part = static_cast<std::size_t>(std::ranges::find(keys, key) - keys.begin());
    if (part < keys.size()) field->Stops().at(part)->setFocus(Qt::TabFocusReason);
  }
}

std::vector<QWidget*> CTzQueryDialog::Stops() const {
  std::vector<QWidget*> all;
  for (const auto& field : fields_) {
    for (QWidget* stop : field->Stops()) {
      if (stop->isVisibleTo(this)) all.push_back(stop);
    }
  }
  return all;
}

QueryField* CTzQueryDialog::FocusedField() const {
  const auto found = std::ranges::find_if(
      fields_, [this](const auto& field) { return std::ranges::count(field->Stops(), focusWidget()) != 0; });
  return found == fields_.end() ? nullptr : found->get();
}

void CTzQueryDialog::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && event->modifiers().testFlag(Qt::ControlModifier)) {
    OnOK();
  } else if (enter) {
    OnEnter();
  } else if (event->modifiers() != Qt::NoModifier && clickButtonOf(*this, *event)) {
    event->accept();
  } else if (QueryField* field = FocusedField(); event->key() == Qt::Key_F2 && field != nullptr) {
    OnReference(*field);
  } else {
    QDialog::keyPressEvent(event);
  }
}

void CTzQueryDialog::OnEnter() {
  const auto stops = Stops();
  const auto here = std::ranges::find(stops, focusWidget());
  if (here == stops.end()) {
    if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) {
      button->click();
    } else if (saved_ != nullptr && saved_->isAncestorOf(focusWidget())) {
      stops.front()->setFocus(Qt::TabFocusReason);
    }
  } else if (here + 1 != stops.end()) {
    (*(here + 1))->setFocus(Qt::TabFocusReason);
  } else {
    OnOK();
  }
}

}  // namespace tz
