#include "desktop/host/operator_form.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>
#include <exception>

#include "core/operators/operator_book.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/manual_page.h"
#include "desktop/host/logon_wait.h"
#include "desktop/host/password_edit.h"
#include "desktop/report/log.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int formMargin = 24;
constexpr int formWidth = 380;

// Checking a password takes long by design; the window is painted meanwhile.
bool isPassword(const LogonQuestion& question, const std::string& password) {
  bool fits = false;
  std::exception_ptr failed;
  QEventLoop loop;
  auto* thread = QThread::create([&] {
    try {
      fits = logOn(question, password).has_value();
    } catch (...) {
      failed = std::current_exception();
    }
  });
  QObject::connect(thread, &QThread::finished, &loop, &QEventLoop::quit);
  thread->start();
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  thread->wait();
  delete thread;
  if (failed) std::rethrow_exception(failed);
  return fits;
}

}  // namespace

OperatorForm::OperatorForm(const QString& title, Keep keep, QWidget* parent)
    : QDialog(parent), keep_(std::move(keep)), form_(new QFormLayout), failure_(new FailureNote(this)) {
  setWindowTitle(title);
  setManualPage(*this, QStringLiteral("operators"));
  form_->setLabelAlignment(Qt::AlignRight);
  auto* box = new QDialogButtonBox(this);
  ok_ = box->addButton(QStringLiteral("确定"), QDialogButtonBox::AcceptRole);
  ok_->setObjectName(QStringLiteral("1"));
  cancel_ = box->addButton(QStringLiteral("取消"), QDialogButtonBox::RejectRole);
  cancel_->setObjectName(QStringLiteral("2"));
  connect(box, &QDialogButtonBox::accepted, this, &OperatorForm::accept);
  connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
  // NOLINTNEXTLINE(cppcoreguidelines-prefer-member-initializer): ok_ is made above
  wait_ = new LogonWait(logonDelays(), *ok_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(formMargin, formMargin, formMargin, formMargin);
  layout->setSpacing(formMargin / 2);
  layout->addLayout(form_);
  layout->addWidget(failure_);
  layout->addWidget(box);
  setMinimumWidth(formWidth);
}

// The buttons were there first, but the fields stand above them.
void OperatorForm::AddField(const QString& caption, QWidget* field, QWidget* stop) {
  form_->addRow(caption, field);
  setTabOrder(stop, ok_);
  setTabOrder(ok_, cancel_);
  if (focusWidget() == nullptr) stop->setFocus();
}

void OperatorForm::AddName(const QString& name) {
  name_ = new QLineEdit(name, this);
  name_->setObjectName(QStringLiteral("name"));
  name_->setAccessibleName(QStringLiteral("姓名"));
  name_->selectAll();
  AddField(QStringLiteral("姓名"), name_, name_);
}

void OperatorForm::AddEveryRight(bool checked, bool fixed) {
  everyRight_ = new QCheckBox(QStringLiteral("全部权限"), this);
  everyRight_->setObjectName(QStringLiteral("everyRight"));
  everyRight_->setChecked(checked);
  everyRight_->setEnabled(!fixed);
  if (fixed) everyRight_->setToolTip(QStringLiteral("第一个操作员必须有全部权限"));
  AddField(QString(), everyRight_, everyRight_);
}

void OperatorForm::AddOldPassword(std::function<LogonQuestion()> question) {
  question_ = std::move(question);
  old_ = new PasswordEdit(QStringLiteral("oldPassword"), QStringLiteral("现在的口令"), this);
  AddField(QStringLiteral("现在的口令"), old_, old_->Line());
  wait_->Begin();
}

void OperatorForm::AddNewPassword(const QString& hint) {
  new_ = new PasswordEdit(QStringLiteral("newPassword"), QStringLiteral("新口令"), this);
  again_ = new PasswordEdit(QStringLiteral("newPasswordAgain"), QStringLiteral("再输入一次"), this);
  auto* rule = new QLabel(hint, this);
  rule->setForegroundRole(QPalette::PlaceholderText);
  rule->setWordWrap(true);
  new_->Line()->setAccessibleDescription(hint);
  AddField(QStringLiteral("新口令"), new_, new_->Line());
  AddField(QStringLiteral("再输入一次"), again_, again_->Line());
  form_->addRow(QString(), rule);
}

void OperatorForm::Refuse(const Failure& failure, QWidget* field) {
  failure_->Tell(failure);
  field->setFocus();
  if (auto* line = qobject_cast<QLineEdit*>(field->focusProxy() == nullptr ? field : field->focusProxy())) {
    line->selectAll();
  }
}

bool OperatorForm::NewPasswordFits() {
  if (new_ == nullptr || new_->Line()->text() == again_->Line()->text()) return true;
  Refuse({QStringLiteral("两次输入的新口令不同")}, again_);
  return false;
}

bool OperatorForm::OldPasswordFits() {
  if (old_ == nullptr) return true;
  const auto question = question_();
  if (isPassword(question, fromQt(old_->Line()->text()))) return true;
  tellAccess({AccessEvent::Kind::logonRefused, question.who.name, "更改口令"});
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(logonDelays().Failed(question.who.name)).count();
  Refuse({QStringLiteral("现在的口令不对，%1 秒后可以再试").arg(seconds)}, old_);
  wait_->Begin();
  return false;
}

void OperatorForm::accept() {
  if (!ok_->isEnabled()) return;  // Enter while a wait goes on
  failure_->Clear();
  QWidget* first = name_ != nullptr ? static_cast<QWidget*>(name_) : new_;
  setCursor(Qt::BusyCursor);
  try {
    if (NewPasswordFits() && OldPasswordFits()) {
      const Failure failure = keep_({.name = name_ == nullptr ? std::string() : fromQt(name_->text()),
                                     .password = new_ == nullptr ? std::string() : fromQt(new_->Line()->text()),
                                     .everyRight = everyRight_ != nullptr && everyRight_->isChecked()});
      failure.None() ? QDialog::accept() : Refuse(failure, first);
    }
  } catch (const DbError& error) {
    logFailure("操作员", error.what());
    Refuse(failureOf(error), first);
  } catch (const std::exception& error) {
    Refuse({toQt(error.what())}, first);
  }
  unsetCursor();
}

bool changeOwnPassword(QWidget* parent) {
  const auto keep = [](const OperatorInput& input) -> Failure {
    LedgerKeeper keeper(g_lpszQnZwDBName, operatorTables());
    if (const auto& obstacle = keeper.obstacle()) return {toQt(obstacle->text), toQt(obstacle->words)};
    const auto refusal = OperatorBook(keeper, g_operator).setPassword(g_operator.name, input.password);
    return refusal ? Failure{toQt(refusal->text)} : Failure{};
  };
  OperatorForm form(QStringLiteral("更改口令 — ") + toQt(g_operator.name), keep, parent);
  form.AddOldPassword([] { return logonQuestion(*g_pDB, g_operator.name); });
  form.AddNewPassword(toQt(passwordRule()));
  return form.exec() == QDialog::Accepted;
}

}  // namespace tz
