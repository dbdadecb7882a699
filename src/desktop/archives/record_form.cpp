#include "desktop/archives/record_form.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "core/archives/archive_list.h"
#include "core/reports/explain_error.h"
#include "desktop/archives/record_field.h"
#include "desktop/frame/announce.h"
#include "desktop/frame/dialog_keys.h"
#include "desktop/frame/fit_window.h"
#include "desktop/frame/message_box.h"
#include "desktop/picking/search_popup.h"
#include "desktop/report/log.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int formMargin = 24;

QPushButton* formButton(const QString& text, const char* name, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false);
  return button;
}

bool sameInput(const ArchiveInput& one, const ArchiveInput& other) {
  return std::ranges::equal(one, other, [](const MemberChoice& left, const MemberChoice& right) {
    return left.text == right.text && left.id == right.id;
  });
}

}  // namespace

RecordForm::RecordForm(const Archive& archive, LedgerKeeper& keeper, const CQnCwDB& reports, ArchiveRecord record,
                       QWidget* parent)
    : QDialog(parent),
      archive_(archive),
      keeper_(keeper),
      reports_(reports),
      read_(std::move(record)),
      first_(read_),
      note_(new QLabel(this)),
      ok_(formButton(QStringLiteral("保存"), "1", this)) {
  setWindowTitle((read_.lId == 0 ? QStringLiteral("新增") : QStringLiteral("修改")) + toQt(archive.noun));
  LayOut();
  Fill();
}

RecordForm::~RecordForm() = default;

void RecordForm::LayOut() {
  auto* form = new QFormLayout;
  form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
  for (const auto& field : archive_.fields) {
    auto made = makeRecordField(field, reports_, this);
    auto* label = new QLabel(toQt(field.caption), this);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(made->Focus());
    if (field.fixed && read_.lId != 0) made->SetFixed();
    form->addRow(label, made->Place());
    fields_.push_back(std::move(made));
  }
  note_->setObjectName(QStringLiteral("note"));
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  note_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QPalette colours = note_->palette();
  colours.setColor(QPalette::WindowText, currentTheme().warning);
  note_->setPalette(colours);
  note_->hide();
  auto* cancel = formButton(QStringLiteral("取消"), "2", this);
  giveDialogKeys(*ok_, *cancel);
  connect(ok_, &QPushButton::clicked, this, &RecordForm::accept);
  connect(cancel, &QPushButton::clicked, this, &RecordForm::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  if (read_.lId == 0) {
    auto* goOn = formButton(QStringLiteral("保存并继续(&N)"), "goOn", this);
    goOn->setToolTip(QStringLiteral("保存这一条，再新增一条（Alt+N）"));
    connect(goOn, &QPushButton::clicked, this, &RecordForm::KeepAndGoOn);
    buttons->addWidget(goOn);
  }
  buttons->addWidget(ok_);
  buttons->addWidget(cancel);
  auto* body = new QWidget(this);
  body->setLayout(form);
  form->setContentsMargins(0, 0, 0, 0);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(formMargin, formMargin, formMargin, formMargin);
  layout->setSpacing(formMargin / 2);
  layout->addWidget(new ContentsArea(body, this), 1);
  layout->addWidget(note_);
  layout->addLayout(buttons);
}

void RecordForm::Fill() {
  ArchiveReferences references(reports_, archive_);
  const auto input = read_.values.empty() ? ArchiveInput(fields_.size()) : inputOf(archive_, read_);
  for (std::size_t place = 0; place < fields_.size(); ++place) {
    const auto& field = archive_.fields[place];
    auto value = input[place];
    if (field.kind == ArchiveField::Kind::settled) value.text = value.text.empty() || value.text == "0" ? "" : "1";
    fields_[place]->Show(value, toQt(references.NameOf(field.kind, value.id)));
  }
  shown_ = Input();
  const auto open = std::ranges::find_if(fields_, [](const auto& field) { return field->Focus()->isEnabled(); });
  if (open != fields_.end()) (*open)->Focus()->setFocus();
}

ArchiveInput RecordForm::Input() const {
  ArchiveInput input;
  for (const auto& field : fields_) input.push_back(field->Input());
  return input;
}

bool RecordForm::IsEdited() const { return !sameInput(Input(), shown_); }

void RecordForm::keyPressEvent(QKeyEvent* event) {
  if (!isEnterKey(event->key())) return QDialog::keyPressEvent(event);
  auto* button = qobject_cast<QPushButton*>(focusWidget());
  if (button != nullptr) return button->click();
  const auto enabled = [](const auto& field) { return field->Focus()->isEnabled(); };
  const auto last = std::find_if(fields_.rbegin(), fields_.rend(), enabled);
  if (last == fields_.rend() || (*last)->Focus() == focusWidget()) {
    ok_->click();
  } else {
    focusNextChild();
  }
}

void RecordForm::Tell(const QString& text, const QString& detail) {
  note_->setText(text);
  note_->setToolTip(detail);
  note_->setVisible(!text.isEmpty());
  if (text.isEmpty()) return;
  announce(note_);
  fitToContents(*note_);
}

void RecordForm::Refuse(const ArchiveRefusal& refusal) {
  Tell(toQt(refusal.refusal.text));
  if (!refusal.field) return;
  fields_[*refusal.field]->Focus()->setFocus();
  fields_[*refusal.field]->SelectAll();
}

void RecordForm::TellMeanwhile(const ArchiveAnswer& answer) {
  listIsOld_ = true;
  if (!answer.now) {
    AfxMessageBox(this, answer.refused->refusal);
    QDialog::reject();
    return;
  }
  read_ = *answer.now;
  Fill();
  Refuse(*answer.refused);
}

// Names that occur twice are kept, once the person knows.
bool RecordForm::IsMeant(const ArchiveInput& input) {
  const ArchiveReferences references(reports_, archive_);
  const auto values = readInput(archive_, references, input);
  if (const auto* refused = std::get_if<ArchiveRefusal>(&values)) {
    Refuse(*refused);
    return false;
  }
  const auto doubt = doubtAbout(reports_, archive_, read_, input);
  return doubt.empty() || AfxMessageBox(this, Question{.text = doubt, .defaultsToNo = true});
}

bool RecordForm::Keep() {
  Tell({});
  const auto input = Input();
  try {
    if (!IsMeant(input)) return false;
    const auto answer =
        read_.lId == 0 ? addRecord(keeper_, archive_, input) : changeRecord(keeper_, archive_, read_, input);
    if (answer.changedMeanwhile) {
      TellMeanwhile(answer);
    } else if (answer.refused) {
      Refuse(*answer.refused);
    } else {
      written_ = answer.now->lId;
      listIsOld_ = true;
      return true;
    }
  } catch (const DbError& error) {
    logFailure(archive_.title, error.what());
    Tell(QStringLiteral("没有保存。") + toQt(explainInWindow(error)), toQt(wordsOf(error)));
  }
  return false;
}

void RecordForm::accept() {
  if (read_.lId != 0 && !IsEdited()) return QDialog::reject();
  if (Keep()) QDialog::accept();
}

// The next record begins as this one did: in the same department, in the same class.
void RecordForm::KeepAndGoOn() {
  if (!Keep()) return;
  const auto kept = Input()[archive_.name.value_or(0)].text;
  read_ = first_;
  Fill();
  Tell(QStringLiteral("“%1”已经保存。").arg(toQt(trimmedText(kept))));
}

void RecordForm::reject() {
  const bool leaves = !IsEdited() || AfxMessageBox(this, Question{.text = "内容已经改动，还没有保存。要放弃吗？",
                                                                  .yes = "放弃",
                                                                  .no = "继续修改",
                                                                  .defaultsToNo = true});
  if (leaves) QDialog::reject();
}

}  // namespace tz
