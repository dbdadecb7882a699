#include "desktop/archives/archive_dialog.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>

#include "core/reports/explain_error.h"
#include "desktop/archives/record_form.h"
#include "desktop/frame/fit_window.h"
#include "desktop/frame/message_box.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/picking/search_popup.h"
#include "desktop/report/log.h"
#include "desktop/report/notice_bar.h"
#include "desktop/report/report_status.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int besideGroup = 8;  // pixels of a row above and below its text

std::vector<std::string_view> tablesOf(ArchiveDirectory::Kind kind) {
  switch (kind) {
    case ArchiveDirectory::Kind::persons:
      return personArchive().tables;
    case ArchiveDirectory::Kind::projects:
      return projectClassArchive().tables;
    case ArchiveDirectory::Kind::units:
      return unitArchive().tables;
    case ArchiveDirectory::Kind::departments:
      break;
  }
  return departmentArchive().tables;
}

std::shared_ptr<LedgerKeeper> openKeeper(const std::string& ledger, ArchiveDirectory::Kind kind) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  auto keeper = std::make_shared<LedgerKeeper>(ledger, tablesOf(kind));
  QApplication::restoreOverrideCursor();
  return keeper;
}

}  // namespace

ArchiveDialog::ArchiveDialog(const ArchiveDirectory& directory, const CQnCwDB& db, const std::string& ledger,
                             QWidget* parent)
    : QDialog(parent),
      directory_(&directory),
      db_(db),
      keeper_(openKeeper(ledger, directory.kind)),
      title_(toQt(directory.title)),
      bar_(new QToolBar(this)),
      notices_(new NoticeBar(this)),
      search_(new QLineEdit(this)),
      typing_(new QTimer(this)),
      view_(new GridView(this)),
      status_(new ReportStatus(this)),
      table_(*view_) {
  LayOut();
  Reload(0, std::nullopt);
}

ArchiveDialog::ArchiveDialog(Archive archive, const CQnCwDB& db, std::shared_ptr<LedgerKeeper> keeper, QWidget* parent)
    : QDialog(parent),
      alone_(std::move(archive)),
      db_(db),
      keeper_(std::move(keeper)),
      title_(toQt(alone_->title)),
      bar_(new QToolBar(this)),
      notices_(new NoticeBar(this)),
      search_(new QLineEdit(this)),
      typing_(new QTimer(this)),
      view_(new GridView(this)),
      status_(new ReportStatus(this)),
      table_(*view_) {
  LayOut();
  Reload(0, std::nullopt);
}

ArchiveDialog::~ArchiveDialog() = default;

void ArchiveDialog::DoModal() {
  view_->setFocus();
  exec();
}

void ArchiveDialog::Reload(Id record, std::optional<Id> group) {
  try {
    ReadGroups(group);
    ReadRecords(record);
  } catch (const DbError& error) {
    TellFailure(error);
  }
  UpdateCommands();
}

void ArchiveDialog::ReadGroups(std::optional<Id> stand) {
  if (directory_ == nullptr || groupList_ == nullptr) return;
  groups_ = archiveGroups(db_, directory_->kind);
  const QSignalBlocker quiet(groupList_);
  groupList_->clear();
  int row = 0;
  for (const auto& group : groups_.groups) {
    groupList_->addItem(QString(group.depth, u'　') + group.name);
    groupList_->item(groupList_->count() - 1)->setSizeHint({0, fontMetrics().height() + besideGroup});
    if (group.id == stand) row = groupList_->count() - 1;
  }
  if (groupList_->count() > 0) groupList_->setCurrentRow(row);
}

// Nothing where no class is there whose items could be shown.
std::optional<Archive> ArchiveDialog::ArchiveToShow() const {
  if (alone_) return alone_;
  switch (directory_->kind) {
    case ArchiveDirectory::Kind::persons:
      return personArchive();
    case ArchiveDirectory::Kind::units:
      return unitArchive();
    case ArchiveDirectory::Kind::departments:
      return departmentArchive();
    case ArchiveDirectory::Kind::projects:
      break;
  }
  const auto projectClass = CurrentClass();
  if (!projectClass) return std::nullopt;
  return itemArchive(db_, *projectClass);
}

void ArchiveDialog::ReadRecords(Id stand) {
  const auto archive = ArchiveToShow();
  if (!archive) {
    table_.ShowNone(QStringLiteral("还没有项目大类。按左下的“新增”建立一个。"));
    return ShowCount();
  }
  ArchiveReferences references(db_, *archive);
  auto records = readArchive(db_, *archive);
  table_.Show(*archive, std::move(records), std::move(references));
  OnTyped();
  table_.StandOn(stand);
}

const ArchiveGroup* ArchiveDialog::CurrentGroup() const {
  const int row = groupList_ == nullptr ? -1 : groupList_->currentRow();
  if (row < 0 || row >= static_cast<int>(groups_.groups.size())) return nullptr;
  return &groups_.groups[static_cast<std::size_t>(row)];
}

std::optional<ProjClassInfo> ArchiveDialog::CurrentClass() const {
  const auto* group = CurrentGroup();
  if (group == nullptr || !group->id) return std::nullopt;
  auto found = db_.ProjClass_GetInfo(Sql("lId = ?", *group->id));
  if (found.empty()) return std::nullopt;
  return std::move(found.front());
}

// A list that could not be read is no empty list.
void ArchiveDialog::TellFailure(const DbError& error) {
  logFailure(fromQt(title_), error.what());
  table_.ShowNone(QStringLiteral("没有读到档案：原因见下面的状态栏。按 F5 再读一次。"));
  status_->ShowFailure(toQt(explainInWindow(error)), toQt(wordsOf(error)));
}

void ArchiveDialog::ShowCount() {
  const auto all = static_cast<qint64>(table_.Count());
  const auto found = static_cast<qint64>(table_.Found());
  status_->ShowMessage(found == all ? QStringLiteral("共 %1 条").arg(grouped(all))
                                    : QStringLiteral("找到 %1 条，共 %2 条").arg(grouped(found), grouped(all)));
  if (all > 0) view_->SetEmptyText(QStringLiteral("没有找到。可以只写编码或名称的一部分，或拼音首字母。"));
  if (all == 0 && ArchiveToShow()) view_->SetEmptyText(QStringLiteral("还没有记录。按 Insert 新增。"));
}

void ArchiveDialog::OnTyped() {
  typing_->stop();
  const auto* group = CurrentGroup();
  const bool parts = directory_ != nullptr && directory_->kind != ArchiveDirectory::Kind::projects && group != nullptr;
  table_.Find(search_->text(), parts ? group->id : std::nullopt);
  ShowCount();
  UpdateCommands();
}

void ArchiveDialog::OnGroup() {
  status_->EndFailure();
  if (directory_->kind != ArchiveDirectory::Kind::projects) return OnTyped();
  try {
    ReadRecords(0);
  } catch (const DbError& error) {
    TellFailure(error);
  }
  UpdateCommands();
}

void ArchiveDialog::UpdateCommands() {
  const bool writes = !keeper_->obstacle();
  const bool stands = table_.Current() != nullptr;
  const bool inGroups = groups_.kept && groupList_->hasFocus();
  const auto* group = CurrentGroup();
  const bool standsInGroups = group != nullptr && group->id.value_or(0) != 0;
  const bool listed = alone_ || directory_->kind != ArchiveDirectory::Kind::projects || standsInGroups;
  add_->setEnabled(writes && (inGroups || listed));
  edit_->setEnabled(writes && (inGroups ? standsInGroups : stands && table_.Shown().changes));
  remove_->setEnabled(writes && (inGroups ? standsInGroups : stands));
  for (QAction* action : needRows_) action->setEnabled(table_.Found() > 0);
  for (QPushButton* button : groupButtons_) {
    const bool adds = button->objectName() == QStringLiteral("addGroup");
    const bool shows = button->objectName() == QStringLiteral("fields") ||  //
                       button->objectName() == QStringLiteral("accounts");
    button->setEnabled((writes || shows) && (adds || standsInGroups));
  }
}

bool ArchiveDialog::RunForm(const Archive& archive, ArchiveRecord record, Id& written) {
  status_->EndFailure();
  try {
    RecordForm form(archive, *keeper_, db_, std::move(record), this);
    form.exec();
    written = form.Written();
    return form.ListIsOld();
  } catch (const DbError& error) {
    logFailure(archive.title, error.what());
    AfxMessageBox(this, error);
    return false;
  }
}

void ArchiveDialog::Add() {
  if (groups_.kept && groupList_->hasFocus()) return AddGroup();
  const auto& archive = table_.Shown();
  // It begins in the department or class that is looked at.
  ArchiveRecord begun;
  for (const auto& field : archive.fields) {
    begun.values.push_back(field.refers()     ? Value(std::int64_t{0})
                           : field.isFigure() ? Value(0.0)
                                              : Value(std::string()));
  }
  const auto* group = CurrentGroup();
  if (archive.group && group != nullptr && group->id) begun.values[*archive.group] = Value(*group->id);
  Id written = 0;
  if (RunForm(Archive(archive), std::move(begun), written)) {
    Reload(written, group == nullptr ? std::nullopt : group->id);
    if (written != 0) ShowNew(written);
  }
}

// Whatever hides it gives way.
void ArchiveDialog::ShowNew(Id written) {
  const auto* current = table_.Current();
  if (current == nullptr || current->lId != written) {
    search_->clear();
    if (groupList_ != nullptr && directory_->kind != ArchiveDirectory::Kind::projects) groupList_->setCurrentRow(0);
    OnTyped();
    table_.StandOn(written);
  }
  status_->ShowNews(QStringLiteral("已经新增"));
}

void ArchiveDialog::Edit() {
  if (groups_.kept && groupList_->hasFocus()) return EditGroup();
  const auto* current = table_.Current();
  if (current == nullptr || !edit_->isEnabled()) return;
  const Id lId = current->lId;
  Id written = 0;
  if (!RunForm(Archive(table_.Shown()), *current, written)) return;
  const auto* group = CurrentGroup();
  Reload(lId, group == nullptr ? std::nullopt : group->id);
  if (written != 0) status_->ShowNews(QStringLiteral("已经保存"));
}

bool ArchiveDialog::AskRemoval(const Archive& archive, const ArchiveRecord& record) {
  const ArchiveReferences references(db_, archive);
  auto text = "要删除" + calledRecord(archive, record, references) + "吗？";
  const auto loss = archive.loss ? archive.loss(db_, record) : std::string();
  if (!loss.empty()) text = loss + "\n" + text;
  if (!AfxMessageBox(this, Question{.text = text, .yes = "删除", .no = "取消", .defaultsToNo = true})) return false;
  const auto answer = removeRecord(*keeper_, archive, record);
  if (answer.refused) AfxMessageBox(this, answer.refused->refusal);
  if (!answer.refused) status_->ShowNews(QStringLiteral("已经删除"));
  return !answer.refused || answer.changedMeanwhile;
}

void ArchiveDialog::Remove() {
  if (groups_.kept && groupList_->hasFocus()) return RemoveGroup();
  const auto* current = table_.Current();
  if (current == nullptr || !remove_->isEnabled()) return;
  status_->EndFailure();
  const auto record = *current;
  // What stands below it is looked at next.
  const auto place = view_->PlaceOf(view_->Current()).row;
  const auto* group = CurrentGroup();
  try {
    if (!AskRemoval(Archive(table_.Shown()), record)) return;
    Reload(record.lId, group == nullptr ? std::nullopt : group->id);
    const auto rows = view_->Rows().Count();
    if (rows > 0) view_->SetCurrent(view_->Rows().RowAt(std::min(place, rows - 1)), 0);
  } catch (const DbError& error) {
    logFailure(fromQt(title_), error.what());
    AfxMessageBox(this, error);
  }
}

std::optional<ArchiveRecord> ArchiveDialog::GroupRecord() const {
  const auto* group = CurrentGroup();
  if (group == nullptr || group->id.value_or(0) == 0) return std::nullopt;
  for (auto& record : readArchive(db_, *groups_.kept)) {
    if (record.lId == *group->id) return record;
  }
  return std::nullopt;
}

void ArchiveDialog::AddGroup() {
  Id written = 0;
  ArchiveRecord begun;
  begun.values.resize(groups_.kept->fields.size(), Value(std::string()));
  if (RunForm(Archive(*groups_.kept), std::move(begun), written)) Reload(0, written);
}

void ArchiveDialog::EditGroup() {
  try {
    auto record = GroupRecord();
    if (!record) return;
    const Id lId = record->lId;
    Id written = 0;
    if (RunForm(Archive(*groups_.kept), std::move(*record), written)) Reload(0, lId);
  } catch (const DbError& error) {
    TellFailure(error);
  }
}

void ArchiveDialog::RemoveGroup() {
  try {
    const auto record = GroupRecord();
    if (record && AskRemoval(Archive(*groups_.kept), *record)) Reload(0, std::nullopt);
  } catch (const DbError& error) {
    logFailure(fromQt(title_), error.what());
    AfxMessageBox(this, error);
  }
}

void ArchiveDialog::KeepOfClass(Archive archive) {
  const auto* group = CurrentGroup();
  ArchiveDialog window(std::move(archive), db_, keeper_, this);
  window.KeepFolder(pages_.Folder());
  window.DoModal();
  Reload(0, group->id);
}

void ArchiveDialog::KeepFields() {
  if (const auto projectClass = CurrentClass()) KeepOfClass(classFieldArchive(*projectClass));
}

void ArchiveDialog::KeepAccounts() {
  if (const auto projectClass = CurrentClass()) KeepOfClass(classAccountArchive(*projectClass));
}

void ArchiveDialog::Again() {
  status_->EndFailure();
  const auto* current = table_.Current();
  const auto* group = CurrentGroup();
  Reload(current == nullptr ? 0 : current->lId, group == nullptr ? std::nullopt : group->id);
}

void ArchiveDialog::SortByCurrent() { table_.SortBy(view_->Current().column); }

// Esc first takes back the search.
void ArchiveDialog::reject() {
  if (!search_->text().isEmpty()) {
    search_->clear();
    OnTyped();
    view_->setFocus();
  } else {
    QDialog::reject();
  }
}

void ArchiveDialog::keyPressEvent(QKeyEvent* event) {
  // There is no button that Enter could mean.
  if (isEnterKey(event->key())) return event->ignore();
  QDialog::keyPressEvent(event);
}

// The arrow keys and Enter lead from the search to the list.
bool ArchiveDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == groupList_ && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
    QMetaObject::invokeMethod(
        this, [this] { UpdateCommands(); }, Qt::QueuedConnection);
  }
  if (watched == search_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (isEnterKey(key) || key == Qt::Key_Down || key == Qt::Key_PageDown) {
      OnTyped();
      view_->setFocus();
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace tz
