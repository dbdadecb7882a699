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
namespace {

// The column of a caption; another one where the table has none such.
int columnNamed(const GridViewColumns& columns, const QString& caption, int otherwise) {
  for (int column = 0; column < columns.Count(); ++column) {
    if (columns.FullCaptionOf(column) == caption) return column;
  }
  return std::min(otherwise, columns.Count() - 1);
}

}  // namespace

void ReportWindow::Work(const QString& words, const QString& boxWords,
                        const std::function<void(Session&, LongWork&)>& work, const QString& unit) {
  if (LongWork::Running()) return;
  LongWork running(*this);
  const WorkDisplay display(running, *status_, this, words, boxWords, unit);
  auto session = windowSession(running, this);
  work(session, running);
}

void ReportWindow::RecomputeInPlace() {
  const GridCell current = view_->Current();
  const int scrolled = view_->verticalScrollBar()->value();
  const auto line = shown_ && current.valid() ? shown_->report.subjects.line(current.row) : std::nullopt;
  const QString caption = line ? view_->Columns().FullCaptionOf(current.column) : QString();
  Recompute();
  if (!shown_ || !line) return;
  const auto& subjects = shown_->report.subjects;
  for (std::int64_t row = 0; row < subjects.size(); ++row) {
    if (subjects.line(row) != line) continue;
    view_->verticalScrollBar()->setValue(scrolled);
    view_->SetCurrent(row, columnNamed(view_->Columns(), caption, current.column));
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
