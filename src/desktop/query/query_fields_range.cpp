// A range of projects or of accounts.
#include <QLabel>
#include <QLineEdit>

#include "desktop/frame/combo_name.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_field_parts.h"
#include "desktop/query/query_folded_field.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// Two ends by code; an end left empty is open.
class RangeField : public FoldedField {
 public:
  RangeField(const ControlSpec& spec, QWidget* dialog)
      : FoldedField(spec, !spec.unfoldedCaption.empty(), dialog),
        from_(madeCombo(spec.id, Body())),
        to_(madeCombo(spec.companion, Body())),
        fromKey_(keysOf(spec).front()),
        toKey_(keysOf(spec).back()) {
    nameCombo(*from_, toQt(parameter(fromKey_).label));
    nameCombo(*to_, toQt(parameter(toKey_).label));
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
    auto ends = offered(*dialog_, Spec().key, request, session.db);
    ends.insert(ends.begin(), {"", 0});
    first_.Refill(ends);
    last_.Refill(ends);
  }
  void Show(const Request& request) override {
    first_.Show(request.text(fromKey_));
    last_.Show(request.text(toKey_));
    UnfoldFor(!request.text(fromKey_).empty() || !request.text(toKey_).empty());
  }
  void Take(Request& request) const override {
    // An end is a code: whichever record bears it, the range ends there.
    setText(request, fromKey_, IsFolded() ? std::string() : first_.Value().text);
    setText(request, toKey_, IsFolded() ? std::string() : last_.Value().text);
  }
  bool Refer(Request& request, Session& /*session*/) override {
    if (IsFolded()) return false;
    const bool accounts = Spec().kind == ControlSpec::Kind::accountRange;
    const QString caption = accounts ? QStringLiteral("科目") : QStringLiteral("项目");
    if (!pickFromList(to_->hasFocus() ? *to_ : *from_, caption, accounts, Row()->window())) return false;
    Take(request);
    return true;
  }

 private:
  CUsefulCombox* from_;
  CUsefulCombox* to_;
  ParameterKey fromKey_;
  ParameterKey toKey_;
  ListValue first_{*from_, fromKey_};
  ListValue last_{*to_, toKey_};
  const DialogSpec* dialog_ = nullptr;
};

}  // namespace

std::unique_ptr<QueryField> makeRangeField(const ControlSpec& spec, QWidget* dialog) {
  using enum ControlSpec::Kind;
  if (spec.kind != projectRange && spec.kind != accountRange) return nullptr;
  return std::make_unique<RangeField>(spec, dialog);
}

}  // namespace tz
