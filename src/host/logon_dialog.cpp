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

#include "reports/explain_error.h"
#include "suite/qt_text.h"
#include "suite/theme.h"

namespace tz {
namespace {

constexpr int margin = 24;

QDate toQDate(Date date) { return {date.year, date.month, date.day}; }

Date toDate(QDate date) {
  return {static_cast<std::int16_t>(date.year()), static_cast<std::uint8_t>(date.month()),
          static_cast<std::uint8_t>(date.day())};
}

QDateEdit* dateEdit(Date date, QWidget* parent) {
  auto* edit = new QDateEdit(toQDate(date), parent);
  edit->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
  edit->setCalendarPopup(true);
  return edit;
}

QDialogButtonBox* buttons(QDialog* dialog) {
  auto* box = new QDialogButtonBox(dialog);
  box->addButton(QStringLiteral("确定"), QDialogButtonBox::AcceptRole);
  box->addButton(QStringLiteral("取消"), QDialogButtonBox::RejectRole);
  QObject::connect(box, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
  QObject::connect(box, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  return box;
}

}  // namespace

LogonDialog::LogonDialog(const CQnCwDB& db, const QString& ledger, const QString& lastOperator, Date date)
    : db_(db),
      names_(new QComboBox(this)),
      password_(new QLineEdit(this)),
      date_(dateEdit(date, this)),
      failure_(new QLabel(this)) {
  setWindowTitle(QStringLiteral("登录 — ") + ledger);
  for (const auto& record : db.zOperator_GetInfo("lId > 0 ORDER BY lId")) names_->addItem(toQt(record.sName));
  names_->setCurrentText(lastOperator);
  password_->setObjectName(QStringLiteral("password"));
  password_->setEchoMode(QLineEdit::Password);
  QPalette palette;
  palette.setColor(QPalette::WindowText, currentTheme().negative);
  failure_->setPalette(palette);
  failure_->setWordWrap(true);
  failure_->hide();

  auto* form = new QFormLayout;
  form->setLabelAlignment(Qt::AlignRight);
  form->addRow(QStringLiteral("操作员"), names_);
  form->addRow(QStringLiteral("口令"), password_);
  form->addRow(QStringLiteral("登录日期"), date_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin / 2);
  layout->addLayout(form);
  layout->addWidget(failure_);
  layout->addWidget(buttons(this));
  setMinimumWidth(340);
  password_->setFocus();
}

Date LogonDialog::LogonDate() const { return toDate(date_->date()); }

void LogonDialog::accept() {
  QString failure;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    if (auto who = logOn(db_, fromQt(names_->currentText()), fromQt(password_->text()))) {
      who_ = std::move(*who);
    } else {
      failure = QStringLiteral("操作员姓名或口令不对");
    }
  } catch (const DbError& error) {
    failure = toQt(explain(error));
  }
  QGuiApplication::restoreOverrideCursor();
  if (failure.isEmpty()) {
    QDialog::accept();
    return;
  }
  failure_->setText(failure);
  failure_->show();
  password_->selectAll();
  password_->setFocus();
}

std::optional<Date> askLogonDate(QWidget* parent, Date date) {
  QDialog dialog(parent);
  dialog.setWindowTitle(QStringLiteral("登录日期"));
  auto* edit = dateEdit(date, &dialog);
  auto* layout = new QVBoxLayout(&dialog);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin / 2);
  layout->addWidget(new QLabel(QStringLiteral("登录日期的年份是会计年度，月份是各报表条件的缺省月份。"), &dialog));
  layout->addWidget(edit);
  layout->addWidget(buttons(&dialog));
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return toDate(edit->date());
}

}  // namespace tz
