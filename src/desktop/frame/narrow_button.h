// A button no wider than its text, for rows of several beside a field.
#pragma once

#include <QPushButton>

namespace tz {

class NarrowButton : public QPushButton {
  Q_OBJECT

 public:
  NarrowButton(const QString& text, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace tz
