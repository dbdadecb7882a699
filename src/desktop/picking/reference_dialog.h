// The form of all reference windows: a modal picker, searched as one types by code, name or sound. The focus stays in
// the search line while the arrow keys move in the list and, with Alt, in the groups on its left; Enter or a double
// click chooses, Esc cancels. A search goes through all groups.
#pragma once

#include <QDialog>
#include <vector>

#include "core/reports/request.h"
#include "desktop/picking/search_model.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;

namespace tz {

class ReferenceModel;

// A group of entries as the list on the left shows it: a department over its persons, a class over its units.
struct ReferenceGroup {
  QString name;
  int depth = 0;
  Id id = 0;
};

class ReferenceDialog : public QDialog {
  Q_OBJECT

 public:
  // Runs the window. False when the person cancelled.
  bool DoModal();

 protected:
  // An empty caption of the groups: there are none.
  ReferenceDialog(const QString& title, const QString& groupCaption, QWidget* parent);

  void SetGroups(std::vector<ReferenceGroup> groups);
  // `depths` indents names; empty for a plain list.
  void SetEntries(std::vector<SearchEntry> entries, std::vector<int> depths = {});
  // Opens on this entry, in the group first. A name that nobody has is searched for.
  void OpenAt(const MemberChoice& member, const MemberChoice& group = {});
  // After DoModal() returned true. Several of one name are told apart by their codes: of the whole archive, or of one
  // group where names are looked up there.
  enum class NamesOf { archive, group };
  [[nodiscard]] MemberChoice Chosen(NamesOf range = NamesOf::archive) const;
  [[nodiscard]] MemberChoice ChosenGroup() const;

  bool eventFilter(QObject* watched, QEvent* event) override;
  void accept() override;

 private:
  void SetUpList();
  void LayOut();
  void OnTyped(const QString& text);
  void OnGroup(int row);
  void ShowRows(const QString& text);
  void MakeCurrent(int row);

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
