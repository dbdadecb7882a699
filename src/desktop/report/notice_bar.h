// What a reader of a report must not miss, above its grid: the warnings among its notices, on a ground of their own and
// behind a sign. Without warnings it is not there.
#pragma once

#include <QWidget>
#include <vector>

#include "core/grid/notice.h"

class QLabel;

namespace tz {

class NoticeBar : public QWidget {
  Q_OBJECT

 public:
  explicit NoticeBar(QWidget* parent);

  void ShowWarnings(const std::vector<Notice>& notices);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Colour();

  QLabel* text_;
};

}  // namespace tz
