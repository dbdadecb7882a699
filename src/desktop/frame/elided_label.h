// A label of one line that is cut by its room, with an ellipsis, instead of widening its window; the tip holds it
// whole.
#pragma once

#include <QLabel>

namespace tz {

class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent);

  void SetShown(const QString& text);
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tz
