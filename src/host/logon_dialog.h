// Who works and as of which date: operator and password where the ledger has operators, the logon date always.
#pragma once

#include <QDialog>
#include <optional>

#include "reports/operator.h"

class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;

namespace tz {

class LogonDialog : public QDialog {
  Q_OBJECT

 public:
  LogonDialog(const CQnCwDB& db, const QString& ledger, const QString& lastOperator, Date date);

  [[nodiscard]] const Operator& Who() const { return who_; }
  [[nodiscard]] Date LogonDate() const;

 protected:
  void accept() override;

 private:
  const CQnCwDB& db_;
  Operator who_;
  QComboBox* names_;
  QLineEdit* password_;
  QDateEdit* date_;
  QLabel* failure_;
};

// Another logon date; nothing when the person gave up.
[[nodiscard]] std::optional<Date> askLogonDate(QWidget* parent, Date date);

}  // namespace tz
