#include "desktop/query/query_folded_field.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/frame/fit_window.h"
#include "desktop/theme/qt_text.h"

namespace tz {

FoldedField::FoldedField(const ControlSpec& spec, bool folds, QWidget* dialog)
    : QueryField(spec), row_(new QWidget(dialog)), body_(new QWidget(row_)) {
  auto* layout = new QVBoxLayout(row_);
  layout->setContentsMargins(0, 0, 0, 0);
  if (folds) {
    button_ = new QPushButton(toQt(spec.caption), row_);
    button_->setObjectName(QStringLiteral("unfold"));
    button_->setCheckable(true);
    button_->setAutoDefault(false);
    layout->addWidget(button_, 0, Qt::AlignLeft);
    connect(button_, &QPushButton::clicked, this, &FoldedField::OnButton);
  }
  layout->addWidget(body_);
  body_->setVisible(!folds);
}

bool FoldedField::IsFolded() const { return body_->isHidden(); }

void FoldedField::UnfoldFor(bool holdsSomething) {
  if (holdsSomething && IsFolded()) ShowBody(true, Spec().caption);
}

void FoldedField::ShowBody(bool unfolded, std::string_view foldedCaption) {
  if (button_ == nullptr) return;
  button_->setChecked(unfolded);
  button_->setText(toQt(!unfolded                        ? foldedCaption
                        : Spec().unfoldedCaption.empty() ? Spec().caption
                                                         : Spec().unfoldedCaption));
  body_->setVisible(unfolded);
}

void FoldedField::OnButton(bool unfolded) {
  ShowBody(unfolded, Spec().foldedCaption.empty() ? Spec().caption : Spec().foldedCaption);
  fitToContents(*row_);
  if (unfolded) Stops().front()->setFocus(Qt::TabFocusReason);
}

}  // namespace tz
