// A directory of the archives: a searchable list with add, edit and delete, one window for all of them. Left of it
// stand what parts the list: departments, classes of units, classes of projects with their fields and accounts. It
// writes as the ledger's keeper; where that is not allowed it says so and shows what is there.
#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "core/archives/archive_store.h"
#include "desktop/archives/archive_groups.h"
#include "desktop/archives/archive_table.h"
#include "desktop/report/page_output.h"

class QAction;
class QBoxLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTimer;
class QToolBar;

namespace tz {

class GridView;
class NoticeBar;
class ReportStatus;

class ArchiveDialog : public QDialog {
  Q_OBJECT

 public:
  // Reads through the windows' connection, writes through a keeper of its own.
  ArchiveDialog(const ArchiveDirectory& directory, const CQnCwDB& db, const std::string& ledger, QWidget* parent);
  // One archive of a project class, with the keeper of the directory that it belongs to.
  ArchiveDialog(Archive archive, const CQnCwDB& db, std::shared_ptr<LedgerKeeper> keeper, QWidget* parent);
  ~ArchiveDialog() override;

  void KeepFolder(ExportFolder folder) { pages_.KeepFolder(std::move(folder)); }
  void DoModal();

  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  using Action = void (ArchiveDialog::*)();

  void LayOut();
  void AddCommands();
  QAction* AddCommand(int picture, const char* id, const QList<QKeySequence>& keys, const QString& tip, Action action);
  [[nodiscard]] QWidget* MakeSearch();
  [[nodiscard]] QWidget* MakeGroups();
  QPushButton* AddGroupButton(QBoxLayout& row, const char* id, const QString& text, const QString& tip, Action action);
  void ShowObstacle();

  // Reads the groups and the list anew, and stands on these where they are still there.
  void Reload(Id record, std::optional<Id> group);
  void ReadGroups(std::optional<Id> stand);
  void ReadRecords(Id stand);
  [[nodiscard]] std::optional<Archive> ArchiveToShow() const;
  [[nodiscard]] const ArchiveGroup* CurrentGroup() const;
  // The class that is chosen in the directory of projects.
  [[nodiscard]] std::optional<ProjClassInfo> CurrentClass() const;
  void TellFailure(const DbError& error);
  void ShowCount();
  void OnGroup();
  void OnTyped();
  void UpdateCommands();

  void Add();
  void ShowNew(Id written);
  void Edit();
  void Remove();
  void AddGroup();
  void EditGroup();
  void RemoveGroup();
  void KeepFields();
  void KeepAccounts();
  void KeepOfClass(Archive archive);
  // Whether the list is to be read anew.
  bool RunForm(const Archive& archive, ArchiveRecord record, Id& written);
  bool AskRemoval(const Archive& archive, const ArchiveRecord& record);
  [[nodiscard]] std::optional<ArchiveRecord> GroupRecord() const;

  void Export();
  void Print();
  void Preview();
  void Help();
  void Leave() { QDialog::reject(); }
  void SortByCurrent();
  void Again();

  const ArchiveDirectory* directory_ = nullptr;
  std::optional<Archive> alone_;  // where it is no directory of the navigator
  const CQnCwDB& db_;
  std::shared_ptr<LedgerKeeper> keeper_;
  ArchiveGroups groups_;
  QString title_;

  QToolBar* bar_;
  NoticeBar* notices_;
  QLineEdit* search_;
  QTimer* typing_;
  QListWidget* groupList_ = nullptr;
  std::vector<QPushButton*> groupButtons_;
  GridView* view_;
  ReportStatus* status_;
  ArchiveTable table_;
  QAction* add_ = nullptr;
  QAction* edit_ = nullptr;
  QAction* remove_ = nullptr;
  std::vector<QAction*> needRows_;
  PageOutput pages_{*this};
};

}  // namespace tz
