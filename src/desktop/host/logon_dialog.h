// Who works and as of which date: operator and password where the ledger has operators, the logon date always. A date
// outside the account year is refused.
#pragma once

#include <QDialog>
#include <optional>

#include "core/reports/logon_delays.h"
#include "core/reports/operator.h"
#include "desktop/host/failure_note.h"

class QComboBox;
class QDateEdit;
class QPushButton;

namespace tz {

class LogonWait;
class OpenLedger;
class PasswordEdit;

// A date edit that knows the account year.
class LogonDateEdit {
 public:
  LogonDateEdit(Date date, std::optional<int> accountYear, QWidget* parent);

  [[nodiscard]] QDateEdit* Widget() const { return edit_; }
  [[nodiscard]] Date Value() const;
  // Why the date is refused, having taken the focus; an empty text when it is not.
  [[nodiscard]] QString Refusal() const;

 private:
  QDateEdit* edit_;
  std::optional<int> accountYear_;
};

class LogonDialog : public QDialog {
  Q_OBJECT

 public:
  // The ledger must outlive the dialog. Throws DbError when its operators cannot be read.
  LogonDialog(const OpenLedger& ledger, const QString& lastOperator, QWidget* parent,
              LogonDelays& delays = logonDelays());

  [[nodiscard]] const Operator& Who() const { return who_; }
  [[nodiscard]] Date LogonDate() const { return date_.Value(); }

 protected:
  // Checks the password beside the window, which stays alive; what follows comes later.
  void accept() override;

 private:
  void Check(const LogonQuestion& question);
  void Answer(const std::optional<Operator>& who);
  void TakeInput(bool taking);
  void Refuse(const Failure& failure);

  const OpenLedger& ledger_;
  LogonDelays& delays_;
  Operator who_;
  QComboBox* names_;
  PasswordEdit* password_;
  LogonDateEdit date_;
  FailureNote* failure_;
  QPushButton* ok_ = nullptr;
  LogonWait* wait_ = nullptr;
};

// Another logon date; nothing when the person gave up.
[[nodiscard]] std::optional<Date> askLogonDate(QWidget* parent, Date date, std::optional<int> accountYear);

}  // namespace tz
