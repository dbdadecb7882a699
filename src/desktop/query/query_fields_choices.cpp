// Conditions that are ticked or one of a few: check boxes, the side of balances, the method of an analysis.
#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>
#include <algorithm>

#include "desktop/query/query_field_parts.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

class CheckField : public QueryField {
 public:
  CheckField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec), box_(madeControl<QCheckBox>(spec.id, dialog)) {
    box_->setText(toQt(spec.caption));
  }
  QWidget* Row() override { return box_; }
  std::vector<QWidget*> Stops() override { return {box_}; }
  [[nodiscard]] bool HasLabel() const override { return false; }
  void Show(const Request& request) override { box_->setChecked(request.flag(Spec().key)); }
  void Take(Request& request) const override { setText(request, Spec().key, box_->isChecked() ? "1" : ""); }

 private:
  QCheckBox* box_;
};

// One of the condition's choices, in their order; a condition left out is the first. The ids go on from the first
// one, unless the second has its own.
class RadioField : public QueryField {
 public:
  RadioField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec), row_(new QWidget(dialog)), choices_(parameter(spec.key).choices) {
    auto* layout = rowLayout(row_);
    layout->setSpacing(16);
    auto* group = new QButtonGroup(row_);
    for (const auto& choice : choices_) {
      const int place = static_cast<int>(buttons_.size());
      auto* button =
          madeControl<QRadioButton>(place > 0 && spec.companion != 0 ? spec.companion : spec.id + place, row_);
      button->setText(toQt(choice.caption));
      group->addButton(button);
      layout->addWidget(button);
      buttons_.push_back(button);
    }
    layout->addStretch();
    Check(0);
  }
  QWidget* Row() override { return row_; }
  // The group is one stop: the arrow keys move inside it.
  std::vector<QWidget*> Stops() override { return {buttons_[Place()]}; }
  [[nodiscard]] bool HasLabel() const override { return !Spec().caption.empty(); }
  void Show(const Request& request) override { Check(request.choice(Spec().key)); }
  void Take(Request& request) const override { request.set(Spec().key, choices_[Place()].value); }

 private:
  // The Tab key stops at the one that is checked, as after a click.
  void Check(std::size_t place) {
    buttons_[place]->setChecked(true);
    for (QRadioButton* button : buttons_) {
      button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
  }
  [[nodiscard]] std::size_t Place() const {
    const auto found = std::ranges::find_if(buttons_, &QRadioButton::isChecked);
    return static_cast<std::size_t>(found - buttons_.begin());
  }
  QWidget* row_;
  std::span<const ParameterChoice> choices_;
  std::vector<QRadioButton*> buttons_;
};

}  // namespace

std::unique_ptr<QueryField> makeChoiceField(const ControlSpec& spec, QWidget* dialog) {
  switch (spec.kind) {
    case ControlSpec::Kind::checkBox:
      return std::make_unique<CheckField>(spec, dialog);
    case ControlSpec::Kind::side:
    case ControlSpec::Kind::analysis:
      return std::make_unique<RadioField>(spec, dialog);
    default:
      return nullptr;
  }
}

}  // namespace tz
