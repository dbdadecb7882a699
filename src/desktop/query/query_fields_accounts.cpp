// A pick of accounts.
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <tuple>

#include "desktop/picking/search_model.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_field_parts.h"
#include "desktop/query/query_folded_field.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int titleGap = 4;

struct MoveButton {
  const char* name;
  QString caption;
  QString means;
};

// The lists that a button shows have plain signs; those that always show have arrows.
std::vector<MoveButton> moveButtons(bool folds) {
  return {{"add", folds ? QStringLiteral(">") : QStringLiteral("->"), QStringLiteral("加入所选科目")},
          {"addAll", QStringLiteral(">>"), QStringLiteral("加入全部科目")},
          {"remove", folds ? QStringLiteral("<") : QStringLiteral("<-"), QStringLiteral("移出所选科目")},
          {"removeAll", QStringLiteral("<<"), QStringLiteral("移出全部科目")}};
}

// Letters that are typed find an account by code, part of the name or its sound.
class FindingList : public QListWidget {
 public:
  using QListWidget::QListWidget;

 protected:
  void keyboardSearch(const QString& letters) override {
    constexpr int together = 1000;  // milliseconds from one letter to the next
    if (!typing_.isValid() || typing_.elapsed() > together) typed_.clear();
    typing_.start();
    typed_ += letters;
    const Typed typed(typed_);
    int best = -1;
    auto bestFound = Found::no;
    for (int row = 0; row < count(); ++row) {
      const auto found = typed.find(entryOf({fromQt(item(row)->text())}));
      if (found > bestFound) std::tie(best, bestFound) = std::pair(row, found);
    }
    if (best >= 0) setCurrentRow(best);
  }

 private:
  QElapsedTimer typing_;
  QString typed_;
};

// Accounts offered on the left, picked on the right; both in the order of the chart of accounts. One that was picked
// once and is not offered any more stays among the picked, to be refused or taken out.
class AccountListsField : public FoldedField {
 public:
  AccountListsField(const ControlSpec& spec, QWidget* dialog)
      : FoldedField(spec, !spec.unfoldedCaption.empty(), dialog),
        offered_(MadeList(spec.id, QStringLiteral("可选科目"))),
        picked_(MadeList(spec.companion, QStringLiteral("已选科目"))) {
    auto* layout = rowLayout(Body());
    layout->addLayout(Titled(offered_), 1);
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(3);
    // In the middle of the lists, below their titles.
    buttons->addSpacing(Body()->fontMetrics().height() + titleGap);
    buttons->addStretch();
    for (const MoveButton& button : moveButtons(!spec.unfoldedCaption.empty())) buttons->addWidget(Made(button));
    buttons->addStretch();
    layout->addLayout(buttons);
    layout->addLayout(Titled(picked_), 1);
    QWidget::setTabOrder(Body()->findChild<QPushButton*>(QStringLiteral("removeAll")), picked_);
    connect(offered_, &QListWidget::itemDoubleClicked, this, [this] { Move(true, false); });
    connect(picked_, &QListWidget::itemDoubleClicked, this, [this] { Move(false, false); });
  }
  std::vector<QWidget*> Stops() override { return {offered_, picked_}; }
  // The lists have titles of their own.
  [[nodiscard]] bool HasLabel() const override { return false; }
  void Fill(const DialogSpec& dialog, Session& session) override {
    accounts_.clear();
    Fold();
    for (const auto& entry : offered(dialog, Spec().key, {}, session.db)) accounts_.push_back({entry.text});
  }
  void Show(const Request& request) override {
    const auto wanted = request.list(Spec().key);
    const auto isWanted = [&](const std::string& account) {
      return std::ranges::any_of(
          wanted, [&](const std::string& one) { return valueOf(Spec().key, one) == valueOf(Spec().key, account); });
    };
    std::erase_if(accounts_, &Account::gone);
    for (Account& account : accounts_) account.picked = isWanted(account.text);
    for (const auto& one : wanted) {
      const auto code = valueOf(Spec().key, one);
      const auto isIt = [&](const Account& account) { return valueOf(Spec().key, account.text) == code; };
      if (std::ranges::none_of(accounts_, isIt)) accounts_.push_back({code, true, true});
    }
    ShowLists();
    UnfoldFor(!wanted.empty());
  }
  void Take(Request& request) const override {
    std::string codes;
    for (const Account& account : accounts_) {
      if (!account.picked || IsFolded()) continue;
      if (!codes.empty()) codes += '\n';
      codes += valueOf(Spec().key, account.text);
    }
    setText(request, Spec().key, codes);
  }

 private:
  struct Account {
    std::string text;
    bool picked = false;
    bool gone = false;  // no longer offered
  };

  QListWidget* MadeList(int id, const QString& name) {
    // No higher than the buttons between the lists: on a small screen the dialog unfolds without scrolling.
    constexpr QSize smallest(180, 122);
    auto* list = madeControl<FindingList>(id, Body());
    list->setAccessibleName(name);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setUniformItemSizes(true);
    list->setMinimumSize(smallest);
    return list;
  }
  [[nodiscard]] QVBoxLayout* Titled(QListWidget* list) const {
    auto* column = new QVBoxLayout;
    column->setSpacing(titleGap);
    auto* title = new QLabel(list->accessibleName(), Body());
    title->setBuddy(list);
    column->addWidget(title);
    column->addWidget(list, 1);
    return column;
  }
  QPushButton* Made(const MoveButton& move) {
    constexpr int width = 44;
    const QString name = QString::fromLatin1(move.name);
    auto* button = new QPushButton(move.caption, Body());
    button->setObjectName(name);
    button->setAccessibleName(move.means);
    button->setToolTip(move.means);
    button->setFixedWidth(width);
    button->setAutoDefault(false);
    const bool picks = name.startsWith(QStringLiteral("add"));
    const bool all = name.endsWith(QStringLiteral("All"));
    connect(button, &QPushButton::clicked, this, [this, picks, all] { Move(picks, all); });
    return button;
  }

  // Moves the selected accounts, or all, from one list to the other.
  void Move(bool picks, bool all) {
    auto& source = picks ? *offered_ : *picked_;
    const int row = source.currentRow();
    for (int i = 0; i < source.count(); ++i) {
      if (!all && !source.item(i)->isSelected()) continue;
      accounts_[static_cast<std::size_t>(source.item(i)->data(Qt::UserRole).toInt())].picked = picks;
    }
    std::erase_if(accounts_, [](const Account& account) { return account.gone && !account.picked; });
    ShowLists();
    source.setCurrentRow(std::min(row, source.count() - 1));
  }
  void ShowLists() {
    offered_->clear();
    picked_->clear();
    for (std::size_t i = 0; i < accounts_.size(); ++i) {
      auto* item = new QListWidgetItem(toQt(accounts_[i].text), accounts_[i].picked ? picked_ : offered_);
      item->setData(Qt::UserRole, static_cast<int>(i));
      if (!accounts_[i].gone) continue;
      item->setForeground(currentTheme().negative);
      item->setToolTip(QStringLiteral("没有这个科目"));
    }
  }

  std::vector<Account> accounts_;
  QListWidget* offered_;
  QListWidget* picked_;
};

}  // namespace

std::unique_ptr<QueryField> makeAccountListsField(const ControlSpec& spec, QWidget* dialog) {
  if (spec.kind != ControlSpec::Kind::accountLists) return nullptr;
  return std::make_unique<AccountListsField>(spec, dialog);
}

}  // namespace tz
