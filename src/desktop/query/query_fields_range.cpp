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
  void Follow(const Request& request, Session& session) override {
    auto projects = Offered(request, session);
    projects.insert(projects.begin(), {"", 0});
    first_.Refill(projects);
    last_.Refill(projects);
  }
  void Show(const Request& request) override {
    first_.Show(valueOf(request.text(ParameterKey::projectFrom), EntryValue::code));
    last_.Show(valueOf(request.text(ParameterKey::projectTo), EntryValue::code));
    Unfold(!request.text(ParameterKey::projectFrom).empty() || !request.text(ParameterKey::projectTo).empty());
  }
  void Take(Request& request) const override {
    setText(request, ParameterKey::projectFrom, IsFolded() ? std::string() : first_.Value());
    setText(request, ParameterKey::projectTo, IsFolded() ? std::string() : last_.Value());
  }

 private:
  // The projects of the class chosen, else of the account's; of all classes where neither is asked for.
  static ComboList Offered(const Request& request, Session& session) {
    CGetData data(session.db);
    const auto classId = valueOf(request.text(ParameterKey::projectClass), EntryValue::code);
    if (!classId.empty()) return offeredProjects(data, classId);
    const auto account = request.text(ParameterKey::account);
    if (!account.empty()) {
      const auto own = offeredClasses(session.db, account);
      return own.empty() ? ComboList() : offeredProjects(data, valueOf(own.front().text, EntryValue::code));
    }
    ComboList all;
    for (const auto& projectClass : data.ProjClassTable()) {
      const auto projects = offeredProjects(data, projectClass.sItemId);
      all.insert(all.end(), projects.begin(), projects.end());
    }
    return all;
  }

  CUsefulCombox* from_;
  CUsefulCombox* to_;
  ListValue first_{*from_, EntryValue::code};
  ListValue last_{*to_, EntryValue::code};
};

}  // namespace

std::unique_ptr<QueryField> makeRangeField(const ControlSpec& spec, QWidget* dialog) {
  if (spec.kind != ControlSpec::Kind::projectRange) return nullptr;
  return std::make_unique<ProjectRangeField>(spec, dialog);
}

}  // namespace tz
