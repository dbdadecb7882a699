// Asks for a new, empty ledger: company, account year and file, makes it and opens it. A file that is there already is
// never touched.
#pragma once

#include <QDialog>
#include <functional>

#include "desktop/host/failure_note.h"

class QLineEdit;
class QSpinBox;

namespace tz {

class NewLedgerDialog : public QDialog {
  Q_OBJECT

 public:
  using Open = std::function<Failure(const QString& address, QWidget* window)>;
  // `year` is proposed.
  NewLedgerDialog(Open open, int year, QWidget* parent);

 protected:
  void accept() override;

 private:
  void LayOut(int year);
  void FollowName();
  void Browse();
  [[nodiscard]] QString File() const;
  void Refuse(FailureNote& note, QLineEdit& field, const Failure& failure);

  Open open_;
  QLineEdit* name_;
  QSpinBox* year_;
  QLineEdit* file_;
  FailureNote* nameFailure_;
  FailureNote* fileFailure_;
  bool fileChosen_ = false;
};

}  // namespace tz
