// A small form about one operator: a name, every right or not, a new password typed twice, for one's own the present
// one before it. What is refused is said in it, and everything that was typed stays.
#pragma once

#include <QDialog>
#include <functional>

#include "core/reports/operator.h"
#include "desktop/host/failure_note.h"

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

namespace tz {

class LogonWait;
class PasswordEdit;

struct OperatorInput {
  std::string name;
  std::string password;
  bool everyRight = false;
};

class OperatorForm : public QDialog {
  Q_OBJECT

 public:
  // Does what the form asks for; empty when it was done.
  using Keep = std::function<Failure(const OperatorInput& input)>;
  OperatorForm(const QString& title, Keep keep, QWidget* parent);

  // The parts of the form, in this order.
  void AddName(const QString& name);
  void AddEveryRight(bool checked, bool fixed);
  // Of whoever has to say his present password first; asked anew each time.
  void AddOldPassword(std::function<LogonQuestion()> question);
  void AddNewPassword(const QString& hint);

  void accept() override;

 private:
  void AddField(const QString& caption, QWidget* field, QWidget* stop);
  [[nodiscard]] bool NewPasswordFits();
  [[nodiscard]] bool OldPasswordFits();
  void Refuse(const Failure& failure, QWidget* field);

  Keep keep_;
  std::function<LogonQuestion()> question_;
  QFormLayout* form_;
  QLineEdit* name_ = nullptr;
  QCheckBox* everyRight_ = nullptr;
  PasswordEdit* old_ = nullptr;
  PasswordEdit* new_ = nullptr;
  PasswordEdit* again_ = nullptr;
  FailureNote* failure_;
  QPushButton* ok_;
  QPushButton* cancel_;
  LogonWait* wait_;
};

// One's own password, of whoever has logged on. True when it was changed.
bool changeOwnPassword(QWidget* parent);

}  // namespace tz
