// A range of projects.
#include <QLabel>
#include <QLineEdit>

#include "suite/query_field_parts.h"
#include "suite/query_folded_field.h"
#include "suite/useful_combox.h"

namespace tz {
namespace {

// Two ends by code; an end left empty is open.
class ProjectRangeField : public FoldedField {
 public:
  ProjectRangeField(const ControlSpec& spec, QWidget* dialog)
      : FoldedField(spec, true, dialog),
        from_(madeControl<CUsefulCombox>(spec.id, Body())),
        to_(madeControl<CUsefulCombox>(spec.companion, Body())) {
    from_->setAccessibleName(QStringLiteral("起始项目"));
    to_->setAccessibleName(QStringLiteral("终止项目"));
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
    ShowOpenEnds();
  }
  void Show(const Request& request) override {
    first_.Show(valueOf(request.text(ParameterKey::projectFrom), EntryValue::code));
    last_.Show(valueOf(request.text(ParameterKey::projectTo), EntryValue::code));
    ShowOpenEnds();
    Unfold(!request.text(ParameterKey::projectFrom).empty() || !request.text(ParameterKey::projectTo).empty());
  }
  void Take(Request& request) const override {
    setText(request, ParameterKey::projectFrom, IsFolded() ? std::string() : first_.Value());
    setText(request, ParameterKey::projectTo, IsFolded() ? std::string() : last_.Value());
  }

 private:
  void ShowOpenEnds() {
    for (const auto& [combo, end] : {std::pair(from_, &first_), std::pair(to_, &last_)}) {
      if (end->Value().empty()) combo->lineEdit()->setPlaceholderText(QStringLiteral("不限"));
    }
  }
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
  KeptChoice first_{*from_, EntryValue::code};
  KeptChoice last_{*to_, EntryValue::code};
};

}  // namespace

std::unique_ptr<QueryField> makeRangeField(const ControlSpec& spec, QWidget* dialog) {
  if (spec.kind != ControlSpec::Kind::projectRange) return nullptr;
  return std::make_unique<ProjectRangeField>(spec, dialog);
}

}  // namespace tz
