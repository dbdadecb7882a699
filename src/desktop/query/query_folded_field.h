// A field that a button shows and hides. Folded up, its conditions are left out: what nobody sees does not narrow the
// report.
#pragma once

#include "desktop/query/query_fields.h"

class QPushButton;

namespace tz {

class FoldedField : public QueryField {
 public:
  // Without a button the body always shows.
  FoldedField(const ControlSpec& spec, bool folds, QWidget* dialog);

  QWidget* Row() override { return row_; }
  [[nodiscard]] bool HasLabel() const override { return button_ == nullptr; }

 protected:
  [[nodiscard]] QWidget* Body() const { return body_; }
  [[nodiscard]] bool IsFolded() const;
  // As the dialog opens.
  void Fold() { ShowBody(false, Spec().caption); }
  // Shows it where it holds something; what the person has unfolded stays so.
  void UnfoldFor(bool holdsSomething);

 private:
  void OnButton(bool unfolded);
  void ShowBody(bool unfolded, std::string_view foldedCaption);

  QWidget* row_;
  QWidget* body_;
  QPushButton* button_ = nullptr;
};

}  // namespace tz
