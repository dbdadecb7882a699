#include "desktop/host/operators_dialog.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "core/operators/right_table.h"
#include "desktop/frame/announce.h"
#include "desktop/frame/manual_page.h"
#include "desktop/frame/message_box.h"
#include "desktop/host/operator_form.h"
#include "desktop/picking/search_model.h"
#include "desktop/report/log.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int numberRole = Qt::UserRole;
constexpr int dialogMargin = 16;
constexpr QSize dialogSize(760, 560);

QString listed(const KeptOperator& one) {
  const QString name = toQt(one.who.name);
  if (!one.hasPassword) return name + QStringLiteral("（没有口令）");
  return one.who.everyRight ? name + QStringLiteral("（全部权限）") : name;
}

}  // namespace

OperatorsDialog::OperatorsDialog(const std::string& ledger, Operator who, QWidget* parent)
    : QDialog(parent),
      keeper_(ledger, operatorTables()),
      who_(std::move(who)),
      search_(new QLineEdit(this)),
      list_(new QListWidget(this)),
      everyRight_(new QCheckBox(QStringLiteral("全部权限(&T)"), this)),
      rights_(new QTreeWidget(this)),
      news_(new QLabel(this)),
      failure_(new FailureNote(this)) {
  setWindowTitle(QStringLiteral("操作员"));
  setManualPage(*this, QStringLiteral("operators"));
  LayOut();
  FillRights();
  if (const auto& obstacle = keeper_.obstacle()) {
    failure_->Tell({toQt(obstacle->text), toQt(obstacle->words)});
    add_->setEnabled(false);
  } else {
    Reload(toQt(who_.name));
  }
  OnCurrent();
  search_->setFocus();
}

void OperatorsDialog::LayOut() {
  news_->setObjectName(QStringLiteral("news"));
  news_->setForegroundRole(QPalette::PlaceholderText);
  auto* close = new QPushButton(QStringLiteral("关闭"), this);
  close->setObjectName(QStringLiteral("2"));
  close->setAutoDefault(false);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(dialogMargin);
  columns->addWidget(MakeList(), 2);
  columns->addWidget(MakeRights(), 3);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(news_, 1);
  bottom->addWidget(close);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(dialogMargin, dialogMargin, dialogMargin, dialogMargin);
  layout->addLayout(columns, 1);
  layout->addWidget(failure_);
  layout->addLayout(bottom);
  resize(dialogSize);
}

QWidget* OperatorsDialog::MakeList() {
  auto* side = new QWidget(this);
  auto* label = new QLabel(QStringLiteral("查找(&F)："), side);
  label->setBuddy(search_);
  search_->setObjectName(QStringLiteral("search"));
  search_->setAccessibleName(QStringLiteral("查找操作员"));
  search_->setPlaceholderText(QStringLiteral("姓名的一部分或拼音首字母"));
  search_->setClearButtonEnabled(true);
  list_->setObjectName(QStringLiteral("operators"));
  list_->setAccessibleName(QStringLiteral("操作员"));
  connect(search_, &QLineEdit::textChanged, this, &OperatorsDialog::OnTyped);
  connect(list_, &QListWidget::currentRowChanged, this, &OperatorsDialog::OnCurrent);
  connect(list_, &QListWidget::itemActivated, this, &OperatorsDialog::Rename);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(search_, 1);
  auto* buttons = new QGridLayout;
  add_ = AddButton("add", QStringLiteral("增加(&A)…"), QStringLiteral("增加一个操作员（Ins）"), &OperatorsDialog::Add);
  auto* rename =
      AddButton("rename", QStringLiteral("改名(&N)…"), QStringLiteral("更改姓名（F2）"), &OperatorsDialog::Rename);
  auto* password = AddButton("password", QStringLiteral("口令(&P)…"), QStringLiteral("给他一个新口令"),
                             &OperatorsDialog::SetPassword);
  auto* remove = AddButton("remove", QStringLiteral("删除(&D)…"), QStringLiteral("删除这个操作员（Del）"),
                           &OperatorsDialog::Remove);
  needOne_ = {rename, password, remove};
  buttons->addWidget(add_, 0, 0);
  buttons->addWidget(rename, 0, 1);
  buttons->addWidget(password, 1, 0);
  buttons->addWidget(remove, 1, 1);
  auto* layout = new QVBoxLayout(side);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(row);
  layout->addWidget(list_, 1);
  layout->addLayout(buttons);
  return side;
}

QWidget* OperatorsDialog::MakeRights() {
  auto* side = new QWidget(this);
  everyRight_->setObjectName(QStringLiteral("everyRight"));
  everyRight_->setToolTip(QStringLiteral("可以打开一切，并管理操作员"));
  connect(everyRight_, &QCheckBox::clicked, this, &OperatorsDialog::OnEveryRight);
  rights_->setObjectName(QStringLiteral("rights"));
  rights_->setAccessibleName(QStringLiteral("权限"));
  rights_->setHeaderHidden(true);
  rights_->setUniformRowHeights(true);
  auto* layout = new QVBoxLayout(side);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(everyRight_);
  layout->addWidget(rights_, 1);
  return side;
}

QPushButton* OperatorsDialog::AddButton(const char* name, const QString& text, const QString& tip,
                                        void (OperatorsDialog::*act)()) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(QLatin1String(name));
  button->setToolTip(tip);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, act);
  return button;
}

void OperatorsDialog::FillRights() {
  QTreeWidgetItem* area = nullptr;
  for (const auto& right : rightTable()) {
    if (area == nullptr || area->text(0) != toQt(std::string(right.area))) {
      area = new QTreeWidgetItem(rights_, {toQt(std::string(right.area))});
      area->setFlags(area->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate);
      area->setCheckState(0, Qt::Unchecked);
    }
    auto* item = new QTreeWidgetItem(area, {toQt(rightText(right.number))});
    item->setData(0, numberRole, right.number);
    item->setFlags((item->flags() | Qt::ItemIsUserCheckable) & ~Qt::ItemIsAutoTristate);
    item->setCheckState(0, Qt::Unchecked);
    const QString reports = toQt(reportsOfRight(right.number));
    if (!reports.isEmpty()) item->setToolTip(0, reports);
    item->setData(0, Qt::AccessibleDescriptionRole, reports);
  }
  rights_->expandAll();
  // An area that is checked changes several: they are written together.
  connect(rights_, &QTreeWidget::itemChanged, this, [this] {
    if (!filling_) QTimer::singleShot(0, this, &OperatorsDialog::KeepRights);
  });
}

void OperatorsDialog::Reload(const QString& name) {
  try {
    all_ = readOperators(keeper_.connection());
  } catch (const DbError& error) {
    all_.clear();
    TellFailure(error);
  }
  FillList();
  for (int row = 0; row < list_->count(); ++row) {
    if (list_->item(row)->data(numberRole).toString() == name) list_->setCurrentRow(row);
  }
  if (list_->currentRow() < 0 && list_->count() > 0) list_->setCurrentRow(0);
  if (all_.empty()) news_->setText(QStringLiteral("没有操作员：谁都不用登录，并有全部权限"));
  OnCurrent();
}

void OperatorsDialog::FillList() {
  const QSignalBlocker quiet(list_);
  const Typed typed(search_->text().trimmed());
  list_->clear();
  for (const auto& one : all_) {
    const QString name = toQt(one.who.name);
    if (!typed.isEmpty() && typed.find({.code = {}, .name = name}) == Found::no) continue;
    auto* item = new QListWidgetItem(listed(one), list_);
    item->setData(numberRole, name);
  }
}

void OperatorsDialog::OnTyped() {
  const auto* current = Current();
  const QString name = current == nullptr ? QString() : toQt(current->who.name);
  FillList();
  const auto found = list_->findItems(QStringLiteral("*"), Qt::MatchWildcard);
  const auto same = std::ranges::find_if(found, [&](auto* item) { return item->data(numberRole).toString() == name; });
  list_->setCurrentRow(same == found.end() ? 0 : list_->row(*same));
  news_->setText(QStringLiteral("找到 %1 个操作员").arg(list_->count()));
  OnCurrent();
}

const KeptOperator* OperatorsDialog::Current() const {
  const auto* item = list_->currentItem();
  if (item == nullptr) return nullptr;
  const auto name = fromQt(item->data(numberRole).toString());
  const auto found = std::ranges::find(all_, name, [](const KeptOperator& one) { return one.who.name; });
  return found == all_.end() ? nullptr : &*found;
}

void OperatorsDialog::OnCurrent() {
  const auto* one = Current();
  for (auto* button : needOne_) button->setEnabled(one != nullptr);
  ShowRights(one);
}

void OperatorsDialog::ShowRights(const KeptOperator* one) {
  filling_ = true;
  everyRight_->setEnabled(one != nullptr);
  everyRight_->setChecked(one != nullptr && one->who.everyRight);
  rights_->setEnabled(one != nullptr && !one->who.everyRight);
  for (QTreeWidgetItemIterator place(rights_, QTreeWidgetItemIterator::NoChildren); *place != nullptr; ++place) {
    const bool may = one != nullptr && one->who.may((*place)->data(0, numberRole).toInt());
    (*place)->setCheckState(0, may ? Qt::Checked : Qt::Unchecked);
  }
  filling_ = false;
}

std::set<int> OperatorsDialog::CheckedRights() const {
  std::set<int> checked;
  for (QTreeWidgetItemIterator place(rights_, QTreeWidgetItemIterator::NoChildren); *place != nullptr; ++place) {
    if ((*place)->checkState(0) == Qt::Checked) checked.insert((*place)->data(0, numberRole).toInt());
  }
  return checked;
}

void OperatorsDialog::KeepRights() {
  const auto* one = Current();
  if (one == nullptr || one->who.everyRight) return;
  const auto checked = CheckedRights();
  RightsChange change;
  for (const auto& right : rightTable()) {
    const bool had = one->who.rights.contains(right.number);
    const bool has = checked.contains(right.number);
    if (has && !had) change.give.insert(right.number);
    if (had && !has) change.take.insert(right.number);
  }
  if (change.give.empty() && change.take.empty()) return;
  const auto words = [](const std::set<int>& numbers) {
    QStringList names;
    for (const int number : numbers) names << toQt(rightText(number));
    return names.join(QStringLiteral("、"));
  };
  QStringList done;
  if (!change.give.empty()) done << QStringLiteral("已给 ") + words(change.give);
  if (!change.take.empty()) done << QStringLiteral("已收回 ") + words(change.take);
  ChangeRights(change, done.join(QStringLiteral("，")));
}

void OperatorsDialog::OnEveryRight(bool every) {
  ChangeRights({.everyRight = every}, every ? QStringLiteral("已给全部权限") : QStringLiteral("已收回“全部权限”"));
}

void OperatorsDialog::ChangeRights(const RightsChange& change, const QString& done) {
  const auto* one = Current();
  if (one == nullptr) return;
  const std::string name = one->who.name;
  try {
    const auto answer = OperatorBook(keeper_, who_).changeRights(name, change);
    Tell(answer, QStringLiteral("%1：%2").arg(toQt(name), done));
  } catch (const DbError& error) {
    TellFailure(error);
  }
  Reload(toQt(name));
}

void OperatorsDialog::Add() {
  const bool first = all_.empty();
  QString added;
  const auto keep = [&](const OperatorInput& input) -> Failure {
    const NewOperator wanted{input.name, input.password, {.everyRight = input.everyRight}};
    if (const auto no = OperatorBook(keeper_, who_).add(wanted)) return {toQt(no->text)};
    added = toQt(operatorName(input.name));
    return {};
  };
  OperatorForm form(QStringLiteral("增加操作员"), keep, this);
  form.AddName({});
  form.AddNewPassword(toQt(passwordRule()));
  form.AddEveryRight(first, first);
  if (form.exec() != Accepted) return;
  Tell(std::nullopt, QStringLiteral("已增加操作员“%1”").arg(added));
  search_->clear();
  // Who has added the first one goes on in his name, until the ledger asks for a logon.
  if (first) who_ = readOperators(keeper_.connection()).front().who;
  Reload(added);
}

void OperatorsDialog::Rename() {
  const auto* one = Current();
  if (one == nullptr) return;
  const std::string before = one->who.name;
  QString after;
  const auto keep = [&](const OperatorInput& input) -> Failure {
    if (const auto no = OperatorBook(keeper_, who_).rename(before, input.name)) return {toQt(no->text)};
    after = toQt(operatorName(input.name));
    return {};
  };
  OperatorForm form(QStringLiteral("更改姓名"), keep, this);
  form.AddName(toQt(before));
  if (form.exec() != Accepted) return;
  Tell(std::nullopt, QStringLiteral("“%1”现在叫“%2”").arg(toQt(before), after));
  Reload(after);
}

void OperatorsDialog::SetPassword() {
  const auto* one = Current();
  if (one == nullptr) return;
  const std::string name = one->who.name;
  const auto keep = [&](const OperatorInput& input) -> Failure {
    const auto no = OperatorBook(keeper_, who_).setPassword(name, input.password);
    return no ? Failure{toQt(no->text)} : Failure{};
  };
  OperatorForm form(QStringLiteral("口令 — ") + toQt(name), keep, this);
  form.AddNewPassword(toQt(passwordRule()));
  if (form.exec() != Accepted) return;
  Tell(std::nullopt, QStringLiteral("已更改操作员“%1”的口令").arg(toQt(name)));
  Reload(toQt(name));
}

void OperatorsDialog::Remove() {
  const auto* one = Current();
  if (one == nullptr) return;
  const std::string name = one->who.name;
  const bool last = all_.size() == 1;
  if (!AfxMessageBox(this, removalQuestion(all_, name))) return;
  try {
    if (Tell(OperatorBook(keeper_, who_).remove(name, last), QStringLiteral("已删除操作员“%1”").arg(toQt(name))) &&
        last) {
      who_ = everybody();
    }
  } catch (const DbError& error) {
    TellFailure(error);
  }
  Reload({});
}

bool OperatorsDialog::Tell(const OperatorBook::Answer& answer, const QString& done) {
  if (answer) {
    news_->clear();
    failure_->Tell({toQt(answer->text)});
    return false;
  }
  failure_->Clear();
  news_->setText(done);
  announce(news_);
  return true;
}

void OperatorsDialog::TellFailure(const DbError& error) {
  logFailure("操作员", error.what());
  news_->clear();
  failure_->Tell(failureOf(error));
}

void OperatorsDialog::keyPressEvent(QKeyEvent* event) {
  const bool inList = list_->hasFocus();
  if (event->key() == Qt::Key_Insert && add_->isEnabled()) return Add();
  if (event->key() == Qt::Key_F2) return Rename();
  if (event->key() == Qt::Key_Delete && inList) return Remove();
  if (event->matches(QKeySequence::Find)) return search_->setFocus();
  // Enter in the search field chooses who was found.
  if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Down) && search_->hasFocus()) return list_->setFocus();
  QDialog::keyPressEvent(event);
}

}  // namespace tz
