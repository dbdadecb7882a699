#include "desktop/query/saved_conditions_bar.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/frame/announce.h"
#include "desktop/frame/combo_name.h"
#include "desktop/frame/elided_label.h"
#include "desktop/frame/message_box.h"
#include "desktop/frame/narrow_button.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

QString lastName() { return QStringLiteral("上次条件"); }

// The tip says what it does and with which key.
QPushButton* namedButton(const char* name, const QString& text, const char* key, const QString& means,
                         QWidget* parent) {
  auto* button = new NarrowButton(text, parent);
  const QString tip = QStringLiteral("%1 (%2)").arg(means, QLatin1String(key));
  button->setObjectName(QString::fromLatin1(name));
  button->setShortcut(QKeySequence(QLatin1String(key)));
  button->setToolTip(tip);
  button->setAccessibleDescription(tip);
  return button;
}

}  // namespace

SavedConditionsBar::SavedConditionsBar(ConditionStore& store, int report, Current current, QWidget* parent)
    : QWidget(parent),
      store_(store),
      report_(report),
      current_(std::move(current)),
      names_(new QComboBox(this)),
      takeLast_(namedButton("lastConditions", QStringLiteral("上次"), "Alt+L", QStringLiteral("填入这张帐表上次的条件"),
                            this)),
      told_(new ElidedLabel(this)) {
  names_->setObjectName(QStringLiteral("savedConditions"));
  names_->setEditable(true);
  nameCombo(*names_, QStringLiteral("保存的条件"));
  names_->setInsertPolicy(QComboBox::NoInsert);
  names_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  names_->lineEdit()->setPlaceholderText(QStringLiteral("选择或输入名称"));
  takeLast_->setAccessibleName(lastName());
  told_->setObjectName(QStringLiteral("conditionsTold"));
  told_->setForegroundRole(QPalette::PlaceholderText);
  LayOut();
  names_->installEventFilter(this);
  names_->lineEdit()->installEventFilter(this);
  connect(names_, &QComboBox::activated, this, &SavedConditionsBar::OnActivated);
  connect(takeLast_, &QPushButton::clicked, this, &SavedConditionsBar::TakeLast);
}

void SavedConditionsBar::LayOut() {
  auto* label = new QLabel(names_->accessibleName(), this);
  label->setForegroundRole(QPalette::PlaceholderText);
  label->setBuddy(names_);
  auto* save =
      namedButton("saveConditions", QStringLiteral("保存"), "Alt+S", QStringLiteral("以这个名称保存下面的条件"), this);
  auto* remove = namedButton("removeConditions", QStringLiteral("删除"), "Alt+D",
                             QStringLiteral("删除以这个名称保存的条件"), this);
  connect(save, &QPushButton::clicked, this, &SavedConditionsBar::Save);
  connect(remove, &QPushButton::clicked, this, &SavedConditionsBar::Remove);
  auto* row = new QHBoxLayout;
  row->setSpacing(6);
  row->addWidget(label);
  row->addWidget(names_, 1);
  for (QPushButton* button : {takeLast_, save, remove}) row->addWidget(button);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(2);
  rows->addLayout(row);
  rows->addWidget(told_);  // its line is always there: nothing moves when it speaks
}

void SavedConditionsBar::Refresh() {
  told_->clear();
  ReadNames();
}

void SavedConditionsBar::ReadNames() {
  names_->clear();
  ReadLast();
  if (last_) names_->addItem(lastName());
  takeLast_->setEnabled(last_.has_value());
  Attempt([this] {
    for (const auto& name : store_.Names(report_)) names_->addItem(toQt(name));
  });
  names_->setCurrentIndex(-1);
}

// Conditions that cannot be read are none to offer; the next query puts others in their place.
void SavedConditionsBar::ReadLast() {
  last_.reset();
  try {
    last_ = store_.Last(report_);
  } catch (const StoreError& error) {
    Tell(toQt(error.what()));
  }
}

void SavedConditionsBar::OnActivated(int index) {
  if (IsLast(index)) return TakeLast();
  const QString name = names_->itemText(index);
  Attempt([&] { Take(store_.Load(report_, fromQt(name)), name); });
}

void SavedConditionsBar::TakeLast() {
  if (!last_) return;
  names_->setCurrentIndex(0);
  Take(*last_, lastName());
}

void SavedConditionsBar::Take(const Request& request, const QString& name) {
  emit chosen(request);
  Tell(QStringLiteral("已填入“%1”").arg(name));
}

// What is typed takes the place of the name that stands there, also behind a click.
bool SavedConditionsBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == names_ && event->type() == QEvent::FocusIn) {
    clickedInto_ = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
  } else if (watched == names_->lineEdit() && event->type() == QEvent::MouseButtonRelease) {
    if (std::exchange(clickedInto_, false) && !names_->lineEdit()->hasSelectedText()) {
      QMetaObject::invokeMethod(names_->lineEdit(), &QLineEdit::selectAll, Qt::QueuedConnection);
    }
  }
  return QWidget::eventFilter(watched, event);
}

void SavedConditionsBar::Save() {
  const QString name = Name();
  if (name.isEmpty() || name == lastName()) {
    Tell(name.isEmpty() ? QStringLiteral("请输入要保存的名称")
                        : QStringLiteral("“%1”不能用作名称，请输入另一个名称").arg(name));
    names_->setFocus();
    names_->lineEdit()->selectAll();
    return;
  }
  const auto question = QStringLiteral("“%1”已经保存过，换成现在的条件吗？").arg(name);
  if (PlaceOf(name) >= 0 && !AfxMessageBox(window(), Question{fromQt(question)})) return;
  const auto request = current_();
  if (!request || !Attempt([&] { store_.Save(report_, fromQt(name), *request); })) return;
  ReadNames();
  names_->setCurrentIndex(PlaceOf(name));
  Tell(QStringLiteral("已保存为“%1”").arg(name));
}

void SavedConditionsBar::Remove() {
  const QString name = Name();
  if (PlaceOf(name) < 0) {
    Tell(QStringLiteral("请选择要删除的名称"));
    names_->setFocus();
    return;
  }
  const auto question = QStringLiteral("删除保存的条件“%1”吗？").arg(name);
  if (!AfxMessageBox(window(), Question{.text = fromQt(question), .defaultsToNo = true})) return;
  if (!Attempt([&] { store_.Remove(report_, fromQt(name)); })) return;
  ReadNames();
  Tell(QStringLiteral("已删除“%1”").arg(name));
}

void SavedConditionsBar::Tell(const QString& what) {
  told_->SetShown(what);
  announce(told_);
}

QString SavedConditionsBar::Name() const { return names_->currentText().trimmed(); }

int SavedConditionsBar::PlaceOf(const QString& name) const {
  for (int i = last_ ? 1 : 0; i < names_->count(); ++i) {
    if (names_->itemText(i) == name) return i;
  }
  return -1;
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
