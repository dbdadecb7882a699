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
    refill(*from_, projects);
    refill(*to_, projects);
  }
  void Show(const Request& request) override {
    ShowEnd(*from_, request.text(ParameterKey::projectFrom));
    ShowEnd(*to_, request.text(ParameterKey::projectTo));
    Unfold(!request.text(ParameterKey::projectFrom).empty() || !request.text(ParameterKey::projectTo).empty());
  }
  void Take(Request& request) const override {
    const auto end = [this](const CUsefulCombox& combo) {
      return IsFolded() ? std::string() : valueOf(combo.CurrentText(), EntryValue::code);
    };
    setText(request, ParameterKey::projectFrom, end(*from_));
    setText(request, ParameterKey::projectTo, end(*to_));
  }

 private:
  static void ShowEnd(CUsefulCombox& combo, const std::string& code) {
    chooseValue(combo, valueOf(code, EntryValue::code), EntryValue::code);
    if (code.empty()) combo.lineEdit()->setPlaceholderText(QStringLiteral("不限"));
  }
  // The projects of the class chosen, else of the account's; of all classes where neither is asked for.
  static ComboList Offered(const Request& request, Session& session) {
    CGetData data(session.db);
    const auto classId = valueOf(request.text(ParameterKey::projectClass), EntryValue::code);
    if (!classId.empty()) return offeredProjects(data, classId);
    const auto account = request.text(ParameterKey::account);
    if (!account.empty()) {
      const auto own = classOfAccount(account, session);
      return own.empty() ? ComboList() : offeredProjects(data, own);
    }
    ComboList all;
    for (const auto& projectClass : session.db.ProjClass_GetInfo("sItemId <> '' ORDER BY lId")) {
      const auto projects = offeredProjects(data, projectClass.sItemId);
      all.insert(all.end(), projects.begin(), projects.end());
    }
    return all;
  }

  CUsefulCombox* from_;
  CUsefulCombox* to_;
};

}  // namespace

std::unique_ptr<QueryField> makeRangeField(const ControlSpec& spec, QWidget* dialog) {
  if (spec.kind != ControlSpec::Kind::projectRange) return nullptr;
  return std::make_unique<ProjectRangeField>(spec, dialog);
}

}  // namespace tz
