// What stands in a directory's window: commands, search, groups, list and status line.
#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/archives/archive_dialog.h"
#include "desktop/frame/fit_window.h"
#include "desktop/frame/manual_page.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/gridview/grid_view_header.h"
#include "desktop/report/notice_bar.h"
#include "desktop/report/report_status.h"
#include "desktop/res/pictures.h"
#include "desktop/theme/picture_icon.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr QSize directorySize(980, 620);
constexpr QSize aloneSize(640, 460);
constexpr int groupsWidth = 190;
constexpr int besideName = 8;
constexpr int typingPauseBeforeFind = 150;  // milliseconds

QString tipWithKeys(const QString& tip, const QList<QKeySequence>& keys) {
  QStringList texts;
  for (const QKeySequence& key : keys) texts.append(key.toString());
  return texts.isEmpty() ? tip : QStringLiteral("%1（%2）").arg(tip, texts.join(QStringLiteral("、")));
}

}  // namespace

void ArchiveDialog::LayOut() {
  pages_.SetStatus(*status_);
  setWindowTitle(title_);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setManualPage(*this, QStringLiteral("archives"));
  view_->setObjectName(QStringLiteral("records"));
  view_->setAccessibleName(title_);
  AddCommands();
  auto* groups = MakeGroups();
  auto* lists = new QHBoxLayout;
  if (groups != nullptr) lists->addWidget(groups);
  lists->addWidget(view_, 1);
  auto* layout = new QVBoxLayout(this);
  constexpr QMargins around(12, 6, 12, 8);
  layout->setContentsMargins(around);
  layout->setSpacing(6);
  layout->addWidget(bar_);
  layout->addWidget(notices_);
  layout->addWidget(MakeSearch());
  layout->addLayout(lists, 1);
  layout->addWidget(status_);
  resize((directory_ == nullptr ? aloneSize : directorySize).boundedTo(roomFor(*this)));
  ShowObstacle();
  connect(view_, &GridView::rowActivated, this, &ArchiveDialog::Edit);
  connect(view_, &GridView::currentChanged, this, &ArchiveDialog::UpdateCommands);
  connect(view_, &GridView::told, status_, &ReportStatus::ShowNews);
  connect(view_, &GridView::typed, this, [this](const QString& text) {
    search_->setFocus();
    search_->setText(text);
  });
  connect(view_->Header(), &GridViewHeader::columnClicked, this, [this](int column) { table_.SortBy(column); });
}

QAction* ArchiveDialog::AddCommand(int picture, const char* id, const QList<QKeySequence>& keys, const QString& tip,
                                   Action action) {
  const Picture* drawn = findPicture(picture);
  auto* made = bar_->addAction(pictureIcon(picture), QString::fromUtf8(drawn->caption), this, action);
  made->setObjectName(QLatin1String(id));
  made->setShortcuts(keys);
  made->setToolTip(tipWithKeys(tip, keys));
  bar_->widgetForAction(made)->setObjectName(QLatin1String(id));
  return made;
}

void ArchiveDialog::AddCommands() {
  bar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  bar_->setMovable(false);
  add_ = AddCommand(1501, "add", {Qt::Key_Insert, QKeySequence(Qt::CTRL | Qt::Key_N)}, QStringLiteral("新增一条"),
                    &ArchiveDialog::Add);
  edit_ = AddCommand(1502, "edit", {Qt::Key_F2}, QStringLiteral("修改当前的一条，也可以按 Enter 或双击"),
                     &ArchiveDialog::Edit);
  remove_ = AddCommand(1503, "remove", {Qt::Key_Delete}, QStringLiteral("删除当前的一条"), &ArchiveDialog::Remove);
  bar_->addSeparator();
  needRows_ = {
      AddCommand(307, "print", {QKeySequence(Qt::CTRL | Qt::Key_P)}, QStringLiteral("打印列出的内容"),
                 &ArchiveDialog::Print),
      AddCommand(306, "preview", {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)}, QStringLiteral("预览打印的页面"),
                 &ArchiveDialog::Preview),
      AddCommand(305, "export", {QKeySequence(Qt::CTRL | Qt::Key_E)}, QStringLiteral("把列出的内容输出到文件"),
                 &ArchiveDialog::Export),
  };
  bar_->addSeparator();
  AddCommand(300, "help", {}, QStringLiteral("档案的说明（F1）"), &ArchiveDialog::Help);
  AddCommand(301, "close", {QKeySequence(Qt::CTRL | Qt::Key_W)}, QStringLiteral("关闭窗口，也可以按 Esc"),
             &ArchiveDialog::Leave);
  const auto addQuiet = [this](const QString& text, const QKeySequence& key, Action action) {
    auto* made = new QAction(text, this);
    made->setShortcut(key);
    connect(made, &QAction::triggered, this, action);
    addAction(made);
    return made;
  };
  auto* sort = addQuiet(QStringLiteral("按当前列排序"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                        &ArchiveDialog::SortByCurrent);
  auto* again = addQuiet(QStringLiteral("重新读取"), Qt::Key_F5, &ArchiveDialog::Again);
  for (QAction* action : {add_, edit_, remove_, sort, again}) view_->addAction(action);
}

QWidget* ArchiveDialog::MakeSearch() {
  auto* row = new QWidget(this);
  search_->setObjectName(QStringLiteral("search"));
  search_->setPlaceholderText(QStringLiteral("输入编码、名称或拼音首字母"));
  search_->setAccessibleName(QStringLiteral("查找"));
  search_->setToolTip(QStringLiteral("Ctrl+F 到这里，Enter 或 ↓ 到列表，Esc 清除"));
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  auto* label = new QLabel(QStringLiteral("查找(&F)："), row);
  label->setBuddy(search_);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(label);
  layout->addWidget(search_, 1);
  typing_->setSingleShot(true);
  typing_->setInterval(typingPauseBeforeFind);
  connect(typing_, &QTimer::timeout, this, &ArchiveDialog::OnTyped);
  connect(search_, &QLineEdit::textChanged, typing_, qOverload<>(&QTimer::start));
  auto* find = new QAction(this);
  find->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F));
  connect(find, &QAction::triggered, this, [this] {
    search_->setFocus();
    search_->selectAll();
  });
  addAction(find);
  return row;
}

QPushButton* ArchiveDialog::AddGroupButton(QBoxLayout& row, const char* id, const QString& text, const QString& tip,
                                           Action action) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(QLatin1String(id));
  button->setAutoDefault(false);
  button->setToolTip(tip);
  button->setAccessibleDescription(tip);
  row.addWidget(button);
  connect(button, &QPushButton::clicked, this, action);
  groupButtons_.push_back(button);
  return button;
}

QWidget* ArchiveDialog::MakeGroups() {
  if (directory_ == nullptr || directory_->kind == ArchiveDirectory::Kind::departments) return nullptr;
  const bool projects = directory_->kind == ArchiveDirectory::Kind::projects;
  const bool kept = projects || directory_->kind == ArchiveDirectory::Kind::units;
  auto* panel = new QWidget(this);
  panel->setFixedWidth(groupsWidth);
  groupList_ = new QListWidget(panel);
  groupList_->setObjectName(QStringLiteral("groups"));
  groupList_->setAccessibleName(projects ? QStringLiteral("项目大类")
                                : kept   ? QStringLiteral("单位分类")
                                         : QStringLiteral("部门"));
  groupList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  groupList_->setUniformItemSizes(true);
  groupList_->installEventFilter(this);
  connect(groupList_, &QListWidget::currentRowChanged, this, &ArchiveDialog::OnGroup);
  auto* layout = new QVBoxLayout(panel);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(besideName / 2);
  layout->addWidget(groupList_, 1);
  if (!kept) return panel;
  connect(groupList_, &QListWidget::itemDoubleClicked, this, &ArchiveDialog::EditGroup);
  const QString what = projects ? QStringLiteral("项目大类") : QStringLiteral("单位分类");
  auto* row = new QHBoxLayout;
  row->setSpacing(besideName / 2);
  AddGroupButton(*row, "addGroup", QStringLiteral("新增"), QStringLiteral("新增%1").arg(what),
                 &ArchiveDialog::AddGroup);
  AddGroupButton(*row, "editGroup", QStringLiteral("修改"), QStringLiteral("修改%1").arg(what),
                 &ArchiveDialog::EditGroup);
  AddGroupButton(*row, "removeGroup", QStringLiteral("删除"), QStringLiteral("删除%1").arg(what),
                 &ArchiveDialog::RemoveGroup);
  layout->addLayout(row);
  if (!projects) return panel;
  auto* parts = new QHBoxLayout;
  parts->setSpacing(besideName / 2);
  AddGroupButton(*parts, "fields", QStringLiteral("字段(&D)…"), QStringLiteral("这个大类的项目有哪些字段"),
                 &ArchiveDialog::KeepFields);
  AddGroupButton(*parts, "accounts", QStringLiteral("科目(&A)…"), QStringLiteral("哪些科目核算这个大类的项目"),
                 &ArchiveDialog::KeepAccounts);
  layout->addLayout(parts);
  return panel;
}

void ArchiveDialog::ShowObstacle() {
  const auto& obstacle = keeper_->obstacle();
  if (!obstacle) return;
  notices_->ShowWarnings({{obstacle->text, Notice::Weight::warning}});
  notices_->setToolTip(toQt(obstacle->words));
}

}  // namespace tz
