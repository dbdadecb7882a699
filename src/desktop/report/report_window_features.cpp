// What a report's window does for its feature: work beside the computation, news, other names of buttons.
#include <QAction>
#include <QScrollBar>

#include "desktop/gridview/grid_view.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_status.h"
#include "desktop/report/report_window.h"
#include "desktop/report/window_commands.h"
#include "desktop/report/work_display.h"
#include "desktop/theme/qt_text.h"

namespace tz {

void ReportWindow::Work(const QString& words, const QString& boxWords,
                        const std::function<void(Session&, LongWork&)>& work) {
  if (LongWork::Running()) return;
  LongWork running(*this);
  const WorkDisplay display(running, *status_, this, words, boxWords);
  auto session = windowSession(running, this);
  work(session, running);
}

void ReportWindow::RecomputeInPlace() {
  const GridCell current = view_->Current();
  const int scrolled = view_->verticalScrollBar()->value();
  const auto line = shown_ && current.valid() ? shown_->report.subjects.line(current.row) : std::nullopt;
  Recompute();
  if (!shown_ || !line) return;
  const auto& subjects = shown_->report.subjects;
  for (std::int64_t row = 0; row < subjects.size(); ++row) {
    if (subjects.line(row) != line) continue;
    view_->verticalScrollBar()->setValue(scrolled);
    view_->SetCurrent(row, current.column);
    return;
  }
}

void ReportWindow::TellNews(const QString& text) { status_->ShowNews(text); }

void ReportWindow::GoTo(qint64 row, int column) {
  view_->Reveal(row);
  if (view_->Rows().Shows(row)) {
    view_->SetCurrent(row, column);
    view_->setFocus();
  } else {
    status_->ShowNews(
        QStringLiteral("找到了，在第 %1 行，但筛选把它隐藏着：按 Esc 清除筛选，再查找一次").arg(grouped(row + 1)));
  }
}

void ReportWindow::Rename(WindowCommand command, const QString& caption, const QString& tip) {
  QAction* action = ActionOf(static_cast<int>(command));
  if (action == nullptr) return;
  action->setText(caption);
  const QString key = action->shortcut().toString();
  action->setProperty(commandTip, key.isEmpty() ? tip : QStringLiteral("%1（%2）").arg(tip, key));
  EnableCommands();
}

}  // namespace tz
