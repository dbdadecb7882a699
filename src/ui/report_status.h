// The status line of a report: how many rows, what is selected, what failed; while work runs, how far it is and how to
// stop it. Above it stand the report's notices.
#pragma once

#include <QWidget>
#include <cstdint>
#include <vector>

#include "grid/notice.h"
#include "suite/grid_view_selection.h"

class QLabel;
class QProgressBar;
class QToolButton;

namespace tz {

// "已选 3 条分录：借方 2 笔，合计 1,020.00，平均 510.00"; a side without figures is not named.
[[nodiscard]] QString selectionText(const LineSums& sums);

class ReportStatus : public QWidget {
  Q_OBJECT

 public:
  explicit ReportStatus(QWidget* parent);

  void ShowRows(std::int64_t rows, const std::vector<Notice>& notices);
  // Which lines are selected.
  void ShowSelection(const LineSums& sums) const;
  // Instead of the number of rows, until the next report.
  void ShowMessage(const QString& text) { SetMessage(text, false); }
  void ShowFailure(const QString& text) { SetMessage(text, true); }

  void BeginWork(const QString& text);
  void ShowProgress(qint64 done, qint64 of);
  void EndWork();
  [[nodiscard]] QWidget* StopButton() const;

 signals:
  void stopClicked();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void SetMessage(const QString& text, bool failure);
  void PaintMessage();

  QLabel* notices_;
  QLabel* message_;
  QLabel* selection_;
  QProgressBar* progress_;
  QToolButton* stop_;
  QString workText_;
  QString messageBefore_;
  bool failure_ = false;
  bool failureBefore_ = false;
};

}  // namespace tz
