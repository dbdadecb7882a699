// A range of projects.
#include <QLabel>
#include <QLineEdit>

#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_field_parts.h"
#include "desktop/query/query_folded_field.h"

namespace tz {
namespace {

// Two ends by code; an end left empty is open.
class ProjectRangeField : public FoldedField {
 public:
  ProjectRangeField(const ControlSpec& spec, QWidget* dialog)
      : FoldedField(spec, true, dialog), from_(madeCombo(spec.id, Body())), to_(madeCombo(spec.companion, Body())) {
    from_->setAccessibleName(QStringLiteral("起始项目"));
    to_->setAccessibleName(QStringLiteral("终止项目"));
    for (CUsefulCombox* end : {from_, to_}) end->lineEdit()->setPlaceholderText(QStringLiteral("不限"));
    auto* layout = rowLayout(Body());
    layout->addWidget(from_, 1);
    layout->addWidget(new QLabel(QStringLiteral("至"), Body()));
    layout->addWidget(to_, 1);
  }
  std::vector<QWidget*> Stops() override { return {from_, to_}; }
  void Fill(const DialogSpec& dialog, Session& /*session*/) override {
    dialog_ = &dialog;
    Fold();
  }
  void Follow(const Request& request, Session& session) override {
    auto projects = offered(*dialog_, Spec().key, request, session.db);
    projects.insert(projects.begin(), {"", 0});
    first_.Refill(projects);
    last_.Refill(projects);
  }
  void Show(const Request& request) override {
    first_.Show(request.text(ParameterKey::projectFrom));
    last_.Show(request.text(ParameterKey::projectTo));
    UnfoldFor(!request.text(ParameterKey::projectFrom).empty() || !request.text(ParameterKey::projectTo).empty());
  }
  void Take(Request& request) const override {
    // An end is a code: whichever item bears it, the range ends there.
    setText(request, ParameterKey::projectFrom, IsFolded() ? std::string() : first_.Value().text);
    setText(request, ParameterKey::projectTo, IsFolded() ? std::string() : last_.Value().text);
  }
  bool Refer(Request& request, Session& /*session*/) override {
    if (IsFolded()) return false;
    if (!pickFromList(to_->hasFocus() ? *to_ : *from_, QStringLiteral("项目"), false, Row()->window())) return false;
    Take(request);
    return true;
  }

 private:
  CUsefulCombox* from_;
  CUsefulCombox* to_;
  ListValue first_{*from_, ParameterKey::projectFrom};
  ListValue last_{*to_, ParameterKey::projectTo};
  const DialogSpec* dialog_ = nullptr;
};

}  // namespace

std::unique_ptr<QueryField> makeRangeField(const ControlSpec& spec, QWidget* dialog) {
  if (spec.kind != ControlSpec::Kind::projectRange) return nullptr;
  return std::make_unique<ProjectRangeField>(spec, dialog);
}

}  // namespace tz
