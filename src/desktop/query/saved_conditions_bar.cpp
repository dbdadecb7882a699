#include "desktop/query/saved_conditions_bar.h"

#include <QComboBox>
#include <QCompleter>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "desktop/frame/message_box.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

QToolButton* textButton(const QString& name, const QString& text, const QString& tip, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setText(text);
  button->setToolTip(tip);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

}  // namespace

SavedConditionsBar::SavedConditionsBar(ConditionStore& store, int report, Current current, QWidget* parent)
    : QWidget(parent), store_(store), report_(report), current_(std::move(current)), names_(new QComboBox(this)) {
  const QString caption = QStringLiteral("保存的条件");
  auto* label = new QLabel(caption, this);
  label->setForegroundRole(QPalette::PlaceholderText);
  label->setBuddy(names_);
  names_->setObjectName(QStringLiteral("savedConditions"));
  names_->setAccessibleName(caption);
  names_->setEditable(true);
  names_->setInsertPolicy(QComboBox::NoInsert);
  names_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  names_->lineEdit()->setPlaceholderText(QStringLiteral("选一个名称，或输入新名称"));
  auto* save = textButton(QStringLiteral("saveConditions"), QStringLiteral("保存"),
                          QStringLiteral("以这个名称保存下面的条件"), this);
  auto* remove = textButton(QStringLiteral("removeConditions"), QStringLiteral("删除"),
                            QStringLiteral("删除以这个名称保存的条件"), this);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(label);
  layout->addWidget(names_, 1);
  layout->addWidget(save);
  layout->addWidget(remove);
  connect(names_, &QComboBox::activated, this, [this](int index) { Load(names_->itemText(index)); });
  connect(save, &QToolButton::clicked, this, &SavedConditionsBar::Save);
  connect(remove, &QToolButton::clicked, this, &SavedConditionsBar::Remove);
}

void SavedConditionsBar::Refresh() {
  names_->clear();
  Attempt([this] {
    for (const auto& name : store_.Names(report_)) names_->addItem(toQt(name));
  });
  names_->setCurrentIndex(-1);
}

void SavedConditionsBar::Load(const QString& name) {
  Attempt([&] { emit chosen(store_.Load(report_, fromQt(name))); });
}

void SavedConditionsBar::Save() {
  const QString name = Name();
  if (name.isEmpty()) {
    names_->setFocus();
    return;
  }
  const auto question = QStringLiteral("“%1”已经保存过，换成现在的条件吗？").arg(name);
  if (IsKept(name) && !AfxMessageBox(window(), Question{fromQt(question)})) return;
  const auto request = current_();
  if (!request || !Attempt([&] { store_.Save(report_, fromQt(name), *request); })) return;
  Refresh();
  names_->setCurrentIndex(names_->findText(name, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

void SavedConditionsBar::Remove() {
  const QString name = Name();
  if (!IsKept(name)) {
    names_->setFocus();
    return;
  }
  const auto question = QStringLiteral("删除保存的条件“%1”吗？").arg(name);
  if (!AfxMessageBox(window(), Question{fromQt(question)})) return;
  if (Attempt([&] { store_.Remove(report_, fromQt(name)); })) Refresh();
}

QString SavedConditionsBar::Name() const { return names_->currentText().trimmed(); }

bool SavedConditionsBar::IsKept(const QString& name) const {
  return names_->findText(name, Qt::MatchFixedString | Qt::MatchCaseSensitive) >= 0;
}

bool SavedConditionsBar::Attempt(const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const StoreError& error) {
    AfxMessageBox(window(), error.what(), {}, MessageIcon::warning);
    return false;
  }
}

}  // namespace tz
