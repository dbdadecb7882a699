#include "suite/query_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "reports/explain_error.h"
#include "suite/message_box.h"
#include "suite/qt_text.h"
#include "suite/query_fields.h"
#include "suite/saved_conditions_bar.h"
#include "suite/theme.h"

namespace tz {
namespace {

QPushButton* textButton(int id, const QString& text, QWidget* parent) {
  constexpr int smallestWidth = 88;
  auto* button = new QPushButton(text, parent);
  button->setObjectName(QString::number(id));
  button->setMinimumWidth(smallestWidth);
  return button;
}

}  // namespace

CTzQueryDialog::CTzQueryDialog(const DialogSpec& dialog, Session& session, QWidget* parent)
    : QDialog(parent), dialog_(dialog), session_(session) {
  setObjectName(QString::number(dialog.id));
  setWindowTitle(toQt(dialog.title));
  for (const auto& control : dialog.controls) {
    fields_.push_back(makeField(control, this));
    QueryField* field = fields_.back().get();
    connect(field, &QueryField::referenceWanted, this, [this, field] { OnReference(*field); });
  }
  LayOut();
}

CTzQueryDialog::~CTzQueryDialog() = default;

void CTzQueryDialog::LayOut() {
  constexpr int margin = 20;
  constexpr int betweenRows = 12;
  constexpr int labelGap = 12;
  constexpr int smallestWidth = 440;
  auto* rows = new QGridLayout;
  rows->setVerticalSpacing(betweenRows);
  rows->setHorizontalSpacing(labelGap);
  rows->setColumnStretch(1, 1);
  for (int row = 0; const auto& field : fields_) {
    if (field->HasLabel()) {
      auto* label = new QLabel(toQt(field->Spec().caption), this);
      label->setBuddy(field->Stops().front());
      rows->addWidget(label, row, 0, Qt::AlignRight);
    }
    rows->addWidget(field->Row(), row++, 1);
  }
  auto* ok = textButton(IDOK, QStringLiteral("确定"), this);
  auto* cancel = textButton(IDCANCEL, QStringLiteral("取消"), this);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, [this] { OnOK(); });
  connect(cancel, &QPushButton::clicked, this, [this] { OnCancel(); });
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(betweenRows);
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin);
  layout->addLayout(rows);
  layout->addStretch();
  layout->addLayout(buttons);
  setMinimumWidth(smallestWidth);
}

void CTzQueryDialog::OfferSaved(ConditionStore& store, int report) {
  const auto current = [this] {
    DoDataExchange(true);
    return request_;
  };
  saved_ = new SavedConditionsBar(store, report, current, this);
  connect(saved_, &SavedConditionsBar::chosen, this, [this](const Request& request) {
    request_ = request;
    openedOn_ = request.text(ParameterKey::account);
    DoDataExchange(false);
  });
  auto* rule = new QFrame(this);
  rule->setFrameShape(QFrame::HLine);
  rule->setFrameShadow(QFrame::Plain);
  QPalette colours;
  colours.setColor(QPalette::WindowText, currentTheme().rule);
  rule->setPalette(colours);
  auto* rows = static_cast<QVBoxLayout*>(layout());
  rows->insertWidget(0, saved_);
  rows->insertWidget(1, rule);
}

bool CTzQueryDialog::DoModal() { return OnInitDialog() && exec() == Accepted; }

bool CTzQueryDialog::OnInitDialog() {
  if (!FillFields()) {
    OnCancel();
    return false;
  }
  if (saved_ != nullptr) saved_->Refresh();
  openedOn_ = request_.text(ParameterKey::account);
  DoDataExchange(false);
  const auto stops = Stops();
  if (!stops.empty()) stops.front()->setFocus(Qt::TabFocusReason);
  return true;
}

bool CTzQueryDialog::FillFields() {
  try {
    if (session_.db.DBSelect(session_.ledger) != 0) {
      AfxMessageBox(parentWidget(), Refusal{.id = MessageId::databaseNotOpen});
      return false;
    }
    for (const auto& field : fields_) {
      if (field->Fill(dialog_, session_)) continue;
      AfxMessageBox(parentWidget(), Refusal{.id = dialog_.noAccount});
      return false;
    }
    return true;
  } catch (const DbError& error) {
    AfxMessageBox(parentWidget(), explain(error), {}, MessageIcon::warning);
    return false;
  }
}

void CTzQueryDialog::DoDataExchange(bool takes) {
  for (const auto& field : fields_) {
    if (takes) {
      field->Take(request_);
    } else {
      field->Show(request_);
    }
  }
}

void CTzQueryDialog::OnOK() {
  DoDataExchange(true);
  // An amount format belongs to the account that it was chosen for.
  if (request_.text(ParameterKey::account) != openedOn_) request_.clear(ParameterKey::format);
  try {
    const auto validated = validate(dialog_, request_, session_);
    if (const auto* refusal = std::get_if<Refusal>(&validated)) {
      AfxMessageBox(this, *refusal);
      if (refusal->about) FocusOn(*refusal->about);
      return;
    }
  } catch (const DbError& error) {
    AfxMessageBox(this, explain(error), {}, MessageIcon::warning);
    return;
  }
  QDialog::done(Accepted);
}

void CTzQueryDialog::OnReference(QueryField& field) {
  DoDataExchange(true);
  try {
    if (field.Refer(request_, session_)) DoDataExchange(false);
  } catch (const DbError& error) {
    AfxMessageBox(this, explain(error), {}, MessageIcon::warning);
  }
  field.Stops().front()->setFocus(Qt::TabFocusReason);
}

void CTzQueryDialog::FocusOn(ParameterKey key) {
  for (const auto& field : fields_) {
    if (field->Spec().key == key) field->Stops().front()->setFocus(Qt::TabFocusReason);
  }
}

std::vector<QWidget*> CTzQueryDialog::Stops() const {
  std::vector<QWidget*> all;
  for (const auto& field : fields_) {
    for (QWidget* stop : field->Stops()) all.push_back(stop);
  }
  return all;
}

QueryField* CTzQueryDialog::FocusedField() const {
  const auto found = std::ranges::find_if(
      fields_, [this](const auto& field) { return std::ranges::count(field->Stops(), focusWidget()) != 0; });
  return found == fields_.end() ? nullptr : found->get();
}

void CTzQueryDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    OnEnter();
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
    if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) button->click();
    if (saved_ != nullptr && saved_->isAncestorOf(focusWidget())) stops.front()->setFocus(Qt::TabFocusReason);
  } else if (here + 1 != stops.end()) {
    (*(here + 1))->setFocus(Qt::TabFocusReason);
  } else {
    OnOK();
  }
}

}  // namespace tz
