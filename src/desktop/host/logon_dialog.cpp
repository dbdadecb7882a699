#include "desktop/host/logon_dialog.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>

#include "core/reports/explain_error.h"
#include "desktop/frame/combo_name.h"
#include "desktop/frame/manual_page.h"
#include "desktop/host/logon_wait.h"
#include "desktop/host/open_ledger.h"
#include "desktop/host/password_edit.h"
#include "desktop/report/log.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int margin = 24;

QDate toQDate(Date date) { return {date.year, date.month, date.day}; }

Date toDate(QDate date) {
  return {static_cast<std::int16_t>(date.year()), static_cast<std::uint8_t>(date.month()),
          static_cast<std::uint8_t>(date.day())};
}

QDialogButtonBox* buttons(QDialog* dialog) {
  auto* box = new QDialogButtonBox(dialog);
  box->addButton(QStringLiteral("确定"), QDialogButtonBox::AcceptRole)->setObjectName(QStringLiteral("1"));
  box->addButton(QStringLiteral("取消"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("2"));
  QObject::connect(box, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
  QObject::connect(box, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  return box;
}

// Asks for the date alone.
class LogonDateDialog : public QDialog {
 public:
  LogonDateDialog(QWidget* parent, Date date, std::optional<int> accountYear)
      : QDialog(parent), date_(date, accountYear, this), failure_(new FailureNote(this)) {
    setWindowTitle(QStringLiteral("登录日期"));
    setManualPage(*this, QStringLiteral("start#登录"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin / 2);
    layout->addWidget(new QLabel(QStringLiteral("登录日期的年份是会计年度，月份是各报表条件的缺省月份。"), this));
    layout->addWidget(date_.Widget());
    layout->addWidget(failure_);
    layout->addWidget(buttons(this));
    date_.Widget()->setFocus();
  }
  [[nodiscard]] Date Value() const { return date_.Value(); }

 protected:
  void accept() override {
    const QString refusal = date_.Refusal();
    refusal.isEmpty() ? QDialog::accept() : failure_->Tell({refusal});
  }

 private:
  LogonDateEdit date_;
  FailureNote* failure_;
};

}  // namespace

LogonDateEdit::LogonDateEdit(Date date, std::optional<int> accountYear, QWidget* parent)
    : edit_(new QDateEdit(toQDate(date), parent)), accountYear_(accountYear) {
  edit_->setObjectName(QStringLiteral("logonDate"));
  edit_->setAccessibleName(QStringLiteral("登录日期"));
  edit_->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
  edit_->setCalendarPopup(true);
}

Date LogonDateEdit::Value() const { return toDate(edit_->date()); }

QString LogonDateEdit::Refusal() const {
  if (!accountYear_ || edit_->date().year() == *accountYear_) return {};
  edit_->setFocus();
  edit_->setSelectedSection(QDateTimeEdit::YearSection);
  return QStringLiteral("登录日期不在会计年度内，请改为 %1 年的日期").arg(*accountYear_);
}

LogonDialog::LogonDialog(const OpenLedger& ledger, const QString& lastOperator, QWidget* parent, LogonDelays& delays)
    : QDialog(parent),
      ledger_(ledger),
      delays_(delays),
      names_(new QComboBox(this)),
      password_(new PasswordEdit(QStringLiteral("password"), QStringLiteral("口令"), this)),
      date_(ledger.ProposedDate(), ledger.AccountYear(), this),
      failure_(new FailureNote(this)) {
  setWindowTitle(QStringLiteral("登录 — ") + ledger.Name());
  setManualPage(*this, QStringLiteral("start#登录"));
  for (const auto& record : ledger.Database().zOperator_GetInfo("lId > 0 ORDER BY lId")) {
    names_->addItem(toQt(record.sName));
  }
  names_->setCurrentText(lastOperator);
  nameCombo(*names_, QStringLiteral("操作员"));

  auto* form = new QFormLayout;
  form->setLabelAlignment(Qt::AlignRight);
  form->addRow(QStringLiteral("操作员"), names_);
  form->addRow(QStringLiteral("口令"), password_);
  form->addRow(QStringLiteral("登录日期"), date_.Widget());
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin / 2);
  layout->addLayout(form);
  layout->addWidget(failure_);
  auto* box = buttons(this);
  for (auto* button : box->buttons()) {
    if (box->buttonRole(button) == QDialogButtonBox::AcceptRole) ok_ = qobject_cast<QPushButton*>(button);
  }
  layout->addWidget(box);
  setMinimumWidth(340);
  password_->setFocus();
  wait_ = new LogonWait(delays_, *ok_);  // NOLINT(cppcoreguidelines-prefer-member-initializer): ok_ is made above
  connect(wait_, &LogonWait::begun, this, [this] { TakeInput(false); });
  connect(wait_, &LogonWait::over, this, [this] {
    TakeInput(true);
    if (failure_->isVisible()) Refuse({QStringLiteral("操作员姓名或口令不对")});
  });
  wait_->Begin();  // what is left of an earlier one
}

void LogonDialog::TakeInput(bool taking) {
  for (QWidget* widget :
       {static_cast<QWidget*>(names_), static_cast<QWidget*>(password_), static_cast<QWidget*>(ok_)}) {
    widget->setEnabled(taking);
  }
}

void LogonDialog::Refuse(const Failure& failure) {
  failure_->Tell(failure);
  password_->Line()->selectAll();
  password_->setFocus();
}

void LogonDialog::accept() {
  if (!ok_->isEnabled()) return;  // Enter while a password is checked or a wait goes on
  if (const QString refusal = date_.Refusal(); !refusal.isEmpty()) {
    failure_->Tell({refusal});
    return;
  }
  try {
    Check(logonQuestion(ledger_.Database(), fromQt(names_->currentText())));
  } catch (const DbError& error) {
    logFailure(fromQt(windowTitle()), error.what());
    Refuse({toQt(explainInWindow(error)), toQt(wordsOf(error))});
  } catch (const std::exception& error) {
    Refuse({toQt(error.what())});
  }
}

// The check takes seconds and much memory by design.
void LogonDialog::Check(const LogonQuestion& question) {
  TakeInput(false);
  failure_->hide();
  setCursor(Qt::BusyCursor);
  const auto who = std::make_shared<std::optional<Operator>>();
  auto* thread = QThread::create(
      [who, question, password = fromQt(password_->Line()->text())] { *who = logOn(question, password); });
  connect(thread, &QThread::finished, this, [this, who] { Answer(*who); });
  connect(thread, &QThread::finished, thread, &QObject::deleteLater);
  thread->start();
}

void LogonDialog::Answer(const std::optional<Operator>& who) {
  unsetCursor();
  const std::string name = fromQt(names_->currentText());
  using Kind = AccessEvent::Kind;
  tellAccess({who ? Kind::loggedOn : Kind::logonRefused, name, fromQt(ledger_.Name())});
  if (who) {
    who_ = *who;
    delays_.Succeeded(name);
    QDialog::accept();
    return;
  }
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(delays_.Failed(name)).count();
  failure_->Tell({QStringLiteral("操作员姓名或口令不对，%1 秒后可以再试").arg(seconds)});
  wait_->Begin();
}

std::optional<Date> askLogonDate(QWidget* parent, Date date, std::optional<int> accountYear) {
  LogonDateDialog dialog(parent, date, accountYear);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Value();
}

}  // namespace tz
