// What a directory's window does with its list besides showing it: files, paper, help.
#include "desktop/archives/archive_dialog.h"
#include "desktop/manual/manual.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_status.h"

namespace tz {

void ArchiveDialog::Export() {
  if (table_.Found() == 0 || LongWork::Running()) return;
  status_->EndFailure();
  const auto report = table_.Report(title_);
  if (const auto target = askExportTarget(this, report, pages_.Folder())) pages_.WriteFile(report, *target);
}

void ArchiveDialog::Print() {
  if (LongWork::Running()) return;
  status_->EndFailure();
  pages_.Print(table_.Report(title_), *this);
}

void ArchiveDialog::Preview() {
  if (LongWork::Running()) return;
  status_->EndFailure();
  pages_.Preview(table_.Report(title_), *this);
}

void ArchiveDialog::Help() { showManual(this, QStringLiteral("archives")); }

}  // namespace tz
