// The status line of a report: what it is about, how many rows, what is selected, what failed or was exported; while
// work runs, how far it is and how to stop it. Above it stand the report's remarks.
#pragma once

#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <string>
#include <vector>

#include "core/grid/notice.h"
#include "desktop/gridview/grid_view_selection.h"

class QLabel;
class QProgressBar;
class QToolButton;

namespace tz {

class ElidedLabel;

// "已选 3 条分录：借方 2 笔，合计 1,020.00，平均 510.00"; a side without figures is not named. Of rows of a
// table "已选 3 行：借方合计 1,020.00".
[[nodiscard]] QString selectionText(const LineSums& sums);

class ReportStatus : public QWidget {
  Q_OBJECT

 public:
  explicit ReportStatus(QWidget* parent);

  void ShowRows(std::int64_t rows, const std::vector<Notice>& notices);
  // How many of them a filter and folding leave; stands wherever the number of rows does.
  void ShowShown(std::int64_t shown, std::int64_t rows);
  // What the report is about.
  void ShowSubject(const QString& text) const;
  // Which lines are selected.
  void ShowSelection(const LineSums& sums) const;
  // Puts what it says of them on the clipboard.
  void CopySelection();
  // Instead of the number of rows, until the next report.
  void ShowMessage(const QString& text);
  // Told at once to a screen reader; gives way to what stood there for good after some seconds, or when it is passed.
  void ShowNews(const QString& text);
  void EndNews();
  // Stays until the next command or report. The tip also holds the database's own words.
  void ShowFailure(const QString& text, const QString& detail = {});
  void EndFailure();
  // A file that was written, with the buttons that open it and its folder.
  void ShowExported(const QString& path);

  // `unit` is what its steps are called.
  void BeginWork(const QString& text, const QString& unit);
  void ShowProgress(qint64 done, qint64 of);
  void EndWork();
  [[nodiscard]] QWidget* StopButton() const;

 signals:
  void stopClicked();

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetMessage(const QString& text, bool failure);
  // Back to what stands for good.
  void Rest();
  void PaintMessage();
  void KeepHeight();
  void ShareRoom() const;
  void Open(const QString& path);
  void TellNoProgram(const QString& path);

  QLabel* remarks_;
  ElidedLabel* subject_;
  ElidedLabel* message_;
  QToolButton* openFile_;
  QToolButton* openFolder_;
  ElidedLabel* selection_;
  QProgressBar* progress_;
  QToolButton* stop_;
  QString exported_;
  QString workText_;
  QString workUnit_;
  QString messageBefore_;
  QString lasting_;
  QTimer* news_;
  bool rests_ = true;
  bool failure_ = false;
  bool restedBefore_ = true;
  bool failureBefore_ = false;
};

}  // namespace tz
