#include "desktop/picking/reference_dialog.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <algorithm>

#include "desktop/frame/dialog_keys.h"
#include "desktop/frame/fit_window.h"
#include "desktop/frame/manual_page.h"
#include "desktop/picking/search_model.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int besideText = 8;  // pixels of a row above and below its text

}  // namespace

// Columns: code, name, and the group's name where there are groups.
class ReferenceModel : public SearchModel {
 public:
  enum Column { code, name, group };

  ReferenceModel(QString groupCaption, QObject* parent) : SearchModel(parent), groupCaption_(std::move(groupCaption)) {}

  bool indents = true;

  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : groupCaption_.isEmpty() ? 2 : 3;
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    if (section == code) return QStringLiteral("编码");
    return section == name ? QStringLiteral("名称") : groupCaption_;
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    if (role == Qt::ForegroundRole && index.column() != name) return currentTheme().mutedText;
    if (role != Qt::DisplayRole) return {};
    const SearchEntry& entry = EntryAt(index.row());
    if (index.column() == code) return entry.code;
    if (index.column() == name) return Indent(index.row()) + entry.name;
    return GroupName(entry.group);
  }
  [[nodiscard]] QString GroupName(int place) const {
    return place < 0 ? QString() : List().groups[static_cast<std::size_t>(place)].name;
  }

 private:
  [[nodiscard]] QString Indent(int row) const {
    if (!indents || List().depths.empty()) return {};
    return QString(List().depths[PlaceOf(row)], u'　');
  }
  QString groupCaption_;
};

ReferenceDialog::ReferenceDialog(const QString& title, const QString& groupCaption, Names names, QWidget* parent)
    : QDialog(parent),
      names_(std::move(names)),
      model_(new ReferenceModel(groupCaption, this)),
      search_(new QLineEdit(this)),
      groupList_(new QListWidget(this)),
      list_(new QTableView(this)),
      count_(new QLabel(this)),
      ok_(new QPushButton(QStringLiteral("确定"), this)) {
  setWindowTitle(title);
  setManualPage(*this, QStringLiteral("conditions#输入"));
  search_->setObjectName(QStringLiteral("search"));
  search_->setPlaceholderText(QStringLiteral("输入编码、名称或拼音首字母查找"));
  search_->setAccessibleName(QStringLiteral("查找"));
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  groupList_->setObjectName(QStringLiteral("groups"));
  groupList_->setAccessibleName(groupCaption);
  groupList_->setFocusPolicy(Qt::TabFocus);
  groupList_->setVisible(!groupCaption.isEmpty());
  groupList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  groupList_->setUniformItemSizes(true);
  // Only the entry that will be taken stands out.
  QPalette colours;
  colours.setColor(QPalette::Highlight, currentTheme().selection);
  colours.setColor(QPalette::HighlightedText, currentTheme().text);
  groupList_->setPalette(colours);
  count_->setTextFormat(Qt::PlainText);
  count_->setForegroundRole(QPalette::PlaceholderText);
  ShowGroups();
  model_->SetNames(names_);
  SetUpList();
  LayOut();
  FitCodes();
  ShowRows({});
  connect(search_, &QLineEdit::textEdited, this, &ReferenceDialog::OnTyped);
  // The clear button is no typing.
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (text.isEmpty()) OnTyped(text);
  });
  connect(groupList_, &QListWidget::currentRowChanged, this, &ReferenceDialog::OnGroup);
  connect(list_, &QTableView::doubleClicked, this, &ReferenceDialog::accept);
}

void ReferenceDialog::SetUpList() {
  list_->setObjectName(QStringLiteral("entries"));
  list_->setModel(model_);
  list_->setFocusPolicy(Qt::NoFocus);
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setShowGrid(false);
  list_->setWordWrap(false);
  list_->verticalHeader()->hide();
  list_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  list_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + besideText);
  list_->horizontalHeader()->setHighlightSections(false);
  list_->horizontalHeader()->setSectionResizeMode(ReferenceModel::name, QHeaderView::Stretch);
}

void ReferenceDialog::LayOut() {
  constexpr int margin = 16;
  constexpr QSize plainSize(460, 480);
  constexpr QSize groupedSize(660, 500);
  constexpr int groupsWidth = 170;
  ok_->setObjectName(QStringLiteral("1"));
  ok_->setDefault(true);
  auto* cancel = new QPushButton(QStringLiteral("取消"), this);
  cancel->setObjectName(QStringLiteral("2"));
  cancel->setAutoDefault(false);
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  giveDialogKeys(*ok_, *cancel);
  groupList_->setFixedWidth(groupsWidth);
  auto* lists = new QHBoxLayout;
  lists->addWidget(groupList_);
  lists->addWidget(list_, 1);
  auto* foot = new QHBoxLayout;
  foot->addWidget(count_, 1);
  foot->addWidget(ok_);
  foot->addWidget(cancel);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin * 3 / 4);
  layout->addWidget(search_);
  layout->addLayout(lists, 1);
  layout->addLayout(foot);
  resize((groupList_->isHidden() ? plainSize : groupedSize).boundedTo(roomFor(*this)));
}

void ReferenceDialog::ShowGroups() {
  groupList_->addItem(QStringLiteral("全部"));
  for (const auto& group : names_->groups) groupList_->addItem(QString(group.depth, u'　') + group.name);
  for (int row = 0; row < groupList_->count(); ++row)
    groupList_->item(row)->setSizeHint({0, fontMetrics().height() + besideText});
  groupList_->setCurrentRow(0);
}

void ReferenceDialog::FitCodes() {
  const auto& entries = names_->entries;
  const auto longest = std::ranges::max_element(entries, {}, [](const auto& e) { return e.code.size(); });
  constexpr int padding = 24;
  constexpr int least = 72;
  const bool coded = longest != entries.end() && !longest->code.isEmpty();
  const int wanted = coded ? fontMetrics().horizontalAdvance(longest->code) + padding : 0;
  list_->setColumnWidth(ReferenceModel::code, std::clamp(wanted, least, 2 * least));
  list_->setColumnHidden(ReferenceModel::code, !coded && !entries.empty());
}

void ReferenceDialog::OpenAt(const MemberChoice& member, const MemberChoice& group) {
  const int place = names_->PlaceOfGroup(group);
  if (place >= 0) groupList_->setCurrentRow(place + 1);
  const QString name = toQt(member.text);
  if (name.isEmpty()) return;
  const auto isIt = [&](const SearchEntry& entry) {
    if (member.id != 0) return entry.id == member.id;
    return entry.name == name || withCode(entry) == name;
  };
  for (int row = 0; row < model_->rowCount(); ++row) {
    if (!isIt(model_->EntryAt(row))) continue;
    MakeCurrent(row);
    return;
  }
  search_->setText(name);
  OnTyped(name);
  if (model_->rowCount() == 0) search_->clear();
}

bool ReferenceDialog::DoModal() {
  search_->setFocus();
  search_->selectAll();
  return exec() == Accepted;
}

void ReferenceDialog::accept() {
  const auto current = list_->currentIndex();
  if (!current.isValid()) return;
  chosen_ = model_->EntryAt(current.row());
  QDialog::accept();
}

void ReferenceDialog::OnTyped(const QString& text) {
  const QSignalBlocker quiet(groupList_);
  groupList_->setCurrentRow(text.trimmed().isEmpty() ? group_ + 1 : 0);
  ShowRows(text);
}

void ReferenceDialog::OnGroup(int row) {
  group_ = row - 1;
  const QSignalBlocker quiet(search_);
  search_->clear();
  ShowRows({});
}

void ReferenceDialog::ShowRows(const QString& text) {
  const bool searches = !text.trimmed().isEmpty();
  model_->indents = !searches;
  MakeCurrent(model_->Search(text, searches ? -1 : group_, group_));
  const int rows = model_->rowCount();
  list_->setColumnHidden(ReferenceModel::group, group_ >= 0 && !searches);
  count_->setText(rows == 0  ? searches ? QStringLiteral("没有找到") : QStringLiteral("没有可选的内容")
                   : searches ? QStringLiteral("找到 %L1 项").arg(rows)
                             : QStringLiteral("共 %L1 项").arg(rows));
  ok_->setEnabled(rows > 0);
}

void ReferenceDialog::MakeCurrent(int row) {
  const auto index = model_->index(row, ReferenceModel::name);
  list_->setCurrentIndex(index);
  list_->scrollTo(index);
}

// The arrow keys of the search line move in the list, with Alt in the groups.
bool ReferenceDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched != search_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  const int step = key.key() == Qt::Key_Down ? 1 : key.key() == Qt::Key_Up ? -1 : 0;
  const bool pages = key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
  if (step == 0 && !pages) return QDialog::eventFilter(watched, event);
  if (key.modifiers().testFlag(Qt::AltModifier) && step != 0) {
    groupList_->setCurrentRow(std::clamp(groupList_->currentRow() + step, 0, groupList_->count() - 1));
  } else {
    QApplication::sendEvent(list_, event);
  }
  return true;
}

}  // namespace tz
