#include "desktop/archives/record_field.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "desktop/frame/message_box.h"
#include "desktop/picking/archive_names.h"
#include "desktop/picking/name_edit.h"
#include "desktop/picking/reference_dialog.h"
#include "desktop/report/log.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

using Kind = ArchiveField::Kind;

constexpr int recordFieldWidth = 320;

class LineField : public RecordField {
 public:
  LineField(const ArchiveField& field, QWidget* parent) : edit_(new QLineEdit(parent)) {
    edit_->setMinimumWidth(recordFieldWidth);
    if (field.kind == Kind::date) edit_->setPlaceholderText(QStringLiteral("例如 2025-01-31"));
    if (field.kind == Kind::amount) edit_->setPlaceholderText(QStringLiteral("空着是没有"));
  }
  [[nodiscard]] QWidget* Place() const override { return edit_; }
  [[nodiscard]] QWidget* Focus() const override { return edit_; }
  void Show(const MemberChoice& value, const QString& /*name*/) override {
    edit_->setText(toQt(value.text));
    edit_->setCursorPosition(0);
  }
  [[nodiscard]] MemberChoice Input() const override { return {fromQt(edit_->text())}; }
  void SelectAll() override { edit_->selectAll(); }
  void SetFixed() override {
    edit_->setReadOnly(true);
    edit_->setEnabled(false);
  }

 private:
  QLineEdit* edit_;
};

// One of a few values, each with its word.
class ChoiceField : public RecordField {
 public:
  ChoiceField(const std::vector<FieldTypeName>& choices, QWidget* parent) : combo_(new QComboBox(parent)) {
    for (const auto& [value, name] : choices) combo_->addItem(toQt(name), toQt(value));
  }
  [[nodiscard]] QWidget* Place() const override { return combo_; }
  [[nodiscard]] QWidget* Focus() const override { return combo_; }
  void Show(const MemberChoice& value, const QString& /*name*/) override {
    combo_->setCurrentIndex(std::max(0, combo_->findData(toQt(value.text))));
  }
  [[nodiscard]] MemberChoice Input() const override { return {fromQt(combo_->currentData().toString())}; }
  void SetFixed() override { combo_->setEnabled(false); }

 private:
  QComboBox* combo_;
};

Names unitClassNames(const CQnCwDB& db) {
  NameList names;
  for (const auto& unitClass : db.EnterClass_GetInfo("lId > 0 ORDER BY lId")) {
    names.entries.push_back({{}, toQt(unitClass.sName), unitClass.lId});
  }
  return std::make_shared<const NameList>(std::move(names));
}

Names projectAccountNames(const CQnCwDB& db) {
  NameList names;
  for (const auto& code : db.Code_GetInfo("sAssBook LIKE '%D%' ORDER BY sCode")) {
    names.entries.push_back({toQt(code.sCode), toQt(code.sName), code.lId});
  }
  return std::make_shared<const NameList>(std::move(names));
}

Names namesFor(Kind kind, const CQnCwDB& db) {
  if (kind == Kind::unitClass) return unitClassNames(db);
  if (kind == Kind::account) return projectAccountNames(db);
  return std::make_shared<const NameList>(deptNames(db));
}

// A record of another archive, with its reference window.
class ReferenceField : public RecordField {
 public:
  ReferenceField(const ArchiveField& field, const CQnCwDB& db, QWidget* parent)
      : place_(new QWidget(parent)), edit_(new NameEdit(place_)) {
    title_ = toQt(field.caption) + QStringLiteral("参照");
    edit_->SetReader([kind = field.kind, &db, edit = edit_]() -> Names {
      try {
        return namesFor(kind, db);
      } catch (const DbError& error) {
        logFailure("档案参照", error.what());
        AfxMessageBox(edit, error);
        return nullptr;
      }
    });
    if (field.kind == Kind::unitClass) edit_->setPlaceholderText(QStringLiteral("空着是未分类"));
    auto* view = new QPushButton(QStringLiteral("…"), place_);
    view->setAccessibleName(title_);
    view->setToolTip(title_ + QStringLiteral("（F2）"));
    view->setAutoDefault(false);
    view->setFocusPolicy(Qt::NoFocus);
    constexpr int viewWidth = 40;
    view->setFixedWidth(viewWidth);
    auto* layout = new QHBoxLayout(place_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(edit_, 1);
    layout->addWidget(view);
    auto* key = new QShortcut(QKeySequence(Qt::Key_F2), edit_, nullptr, nullptr, Qt::WidgetShortcut);
    QObject::connect(key, &QShortcut::activated, edit_, [this] { Pick(); });
    QObject::connect(view, &QPushButton::clicked, edit_, [this] { Pick(); });
  }
  [[nodiscard]] QWidget* Place() const override { return place_; }
  [[nodiscard]] QWidget* Focus() const override { return edit_; }
  void Show(const MemberChoice& value, const QString& name) override {
    edit_->ShowMember(name.isEmpty() ? MemberChoice{} : MemberChoice{fromQt(name), value.id});
  }
  [[nodiscard]] MemberChoice Input() const override {
    edit_->Settle();
    return edit_->Member();
  }
  void SelectAll() override { edit_->selectAll(); }
  void SetFixed() override { place_->setEnabled(false); }

 private:
  void Pick() {
    const Names names = edit_->List();
    if (names == nullptr) return;
    ReferenceDialog window(title_, {}, names, edit_->window());
    window.OpenAt(edit_->Member());
    if (!window.DoModal()) return;
    edit_->ShowMember(window.Chosen());
    edit_->setFocus();
  }

  QWidget* place_;
  NameEdit* edit_;
  QString title_;
};

}  // namespace

std::unique_ptr<RecordField> makeRecordField(const ArchiveField& field, const CQnCwDB& db, QWidget* parent) {
  std::unique_ptr<RecordField> made;
  if (field.refers()) {
    made = std::make_unique<ReferenceField>(field, db, parent);
  } else if (field.kind == Kind::fieldType) {
    made = std::make_unique<ChoiceField>(std::vector(fieldTypes().begin(), fieldTypes().end()), parent);
  } else if (field.kind == Kind::settled) {
    made = std::make_unique<ChoiceField>(std::vector<FieldTypeName>{{"", "否"}, {"1", "是"}}, parent);
  } else {
    made = std::make_unique<LineField>(field, parent);
  }
  made->Focus()->setObjectName(toQt(field.column));
  made->Focus()->setAccessibleName(toQt(field.caption));
  return made;
}

}  // namespace tz
