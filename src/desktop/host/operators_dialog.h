// The window in which operators are kept: who there is, found as one types, and beside it what the current one may do,
// as a tree by area. A right that is checked or unchecked is written at once; what another has changed meanwhile stays.
// Where nothing can be written it says why and shows what is there.
#pragma once

#include <QDialog>
#include <optional>
#include <vector>

#include "core/operators/operator_book.h"
#include "desktop/host/failure_note.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTreeWidget;

namespace tz {

class OperatorsDialog : public QDialog {
  Q_OBJECT

 public:
  // Reads and writes the ledger of that address in the name of `who`.
  OperatorsDialog(const std::string& ledger, Operator who, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  [[nodiscard]] QWidget* MakeList();
  [[nodiscard]] QWidget* MakeRights();
  QPushButton* AddButton(const char* name, const QString& text, const QString& tip, void (OperatorsDialog::*act)());
  void FillRights();

  // Reads the operators anew and stands on one of them.
  void Reload(const QString& name);
  void FillList();
  void OnCurrent();
  void OnTyped();
  void OnEveryRight(bool every);
  void KeepRights();
  void ShowRights(const KeptOperator* one);
  [[nodiscard]] const KeptOperator* Current() const;
  [[nodiscard]] std::set<int> CheckedRights() const;

  void Add();
  void Rename();
  void SetPassword();
  void Remove();
  void ChangeRights(const RightsChange& change, const QString& done);
  // What was done, or why not.
  bool Tell(const OperatorBook::Answer& answer, const QString& done);
  void TellFailure(const DbError& error);

  LedgerKeeper keeper_;
  Operator who_;
  std::vector<KeptOperator> all_;
  bool filling_ = false;

  QLineEdit* search_;
  QListWidget* list_;
  QCheckBox* everyRight_;
  QTreeWidget* rights_;
  QLabel* news_;
  FailureNote* failure_;
  std::vector<QPushButton*> needOne_;
  QPushButton* add_ = nullptr;
};

}  // namespace tz
