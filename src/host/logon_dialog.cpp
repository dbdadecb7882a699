#include "host/logon_dialog.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "host/open_ledger.h"
#include "reports/explain_error.h"
#include "suite/qt_text.h"
#include "ui/log.h"

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

LogonDialog::LogonDialog(const OpenLedger& ledger, const QString& lastOperator, QWidget* parent)
    : QDialog(parent),
      ledger_(ledger),
      names_(new QComboBox(this)),
      password_(new QLineEdit(this)),
      date_(ledger.ProposedDate(), ledger.AccountYear(), this),
      failure_(new FailureNote(this)) {
  setWindowTitle(QStringLiteral("登录 — ") + ledger.Name());
  for (const auto& record : ledger.Database().zOperator_GetInfo("lId > 0 ORDER BY lId")) {
    names_->addItem(toQt(record.sName));
  }
  names_->setCurrentText(lastOperator);
  password_->setObjectName(QStringLiteral("password"));
  password_->setEchoMode(QLineEdit::Password);

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
  layout->addWidget(buttons(this));
  setMinimumWidth(340);
  password_->setFocus();
}

void LogonDialog::accept() {
  const QString refusal = date_.Refusal();
  refusal.isEmpty() ? LogOn() : failure_->Tell({refusal});
}

void LogonDialog::LogOn() {
  std::optional<Operator> who;
  Failure failure{QStringLiteral("操作员姓名或口令不对")};
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    who = logOn(ledger_.Database(), fromQt(names_->currentText()), fromQt(password_->text()));
  } catch (const DbError& error) {
    logFailure(fromQt(windowTitle()), error.what());
    failure = {toQt(explainInWindow(error)), toQt(error.what())};
  }
  QGuiApplication::restoreOverrideCursor();
  if (who) {
    who_ = std::move(*who);
    QDialog::accept();
    return;
  }
  failure_->Tell(failure);
  password_->selectAll();
  password_->setFocus();
}

std::optional<Date> askLogonDate(QWidget* parent, Date date, std::optional<int> accountYear) {
  LogonDateDialog dialog(parent, date, accountYear);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Value();
}

}  // namespace tz
