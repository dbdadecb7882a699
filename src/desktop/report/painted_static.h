// A static text of a report window, painted on the window's background: the title, the labels of conditions, the period
// line. It keeps its control id as its name and takes the place that its text needs.
#pragma once

#include <QLabel>

#include "desktop/frame/need_bitmap.h"

namespace tz {

class PaintedStatic : public QLabel {
  Q_OBJECT

 public:
  enum class Look { title, label };

  PaintedStatic(int id, Look look, QWidget* parent);

 protected:
  bool eventFilter(QObject* window, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  Look look_;
};

}  // namespace tz
