// The form of all reference windows: a modal picker, searched as one types by code, name or sound. The focus stays in
// the search line while the arrow keys move in the list and, with Alt, in the groups on its left; Enter, Ctrl+Enter or
// a double click chooses, Esc cancels. A search goes through all groups.
#pragma once

#include <QDialog>

#include "desktop/picking/name_list.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;

namespace tz {

class ReferenceModel;

class ReferenceDialog : public QDialog {
  Q_OBJECT

 public:
  // An empty caption of the groups: there are none.
  ReferenceDialog(const QString& title, const QString& groupCaption, Names names, QWidget* parent);

  // Opens on this entry, in the group first. A name that nobody has is searched for.
  void OpenAt(const MemberChoice& member, const MemberChoice& group = {});
  // Runs the window. False when the person cancelled.
  bool DoModal();
  // After DoModal() returned true.
  [[nodiscard]] const SearchEntry& ChosenEntry() const { return chosen_; }
  [[nodiscard]] MemberChoice Chosen() const { return names_->ChoiceOf(chosen_); }
  [[nodiscard]] MemberChoice ChosenGroup() const { return names_->GroupOf(chosen_); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void accept() override;

 private:
  void ShowGroups();
  void SetUpList();
  void FitCodes();
  void LayOut();
  void OnTyped(const QString& text);
  void OnGroup(int row);
  void ShowRows(const QString& text);
  void MakeCurrent(int row);

  Names names_;
  ReferenceModel* model_;
  QLineEdit* search_;
  QListWidget* groupList_;
  QTableView* list_;
  QLabel* count_;
  QPushButton* ok_;
  int group_ = -1;  // the one being looked at; -1 = all
  SearchEntry chosen_;
};

}  // namespace tz
