#include "desktop/report/work_display.h"

#include "core/reports/page_stamp.h"
#include "desktop/frame/general_dialog.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/message_box.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_status.h"

namespace tz {

Session windowSession(LongWork& work, QWidget* window) {
  return {
      .db = *g_pDB,
      .ledger = g_lpszQnZwDBName,
      .logon = g_tmLogonTime,
      .who = g_operator,
      .now = g_now,
      .ask = [window](const Question& question) { return AfxMessageBox(window, question); },
      .progress = [&work](std::int64_t done, std::int64_t of) { work.Pump(done, of); },
      .cancelled =
          [&work] {
            work.Pump();
            return work.Cancelled();
          },
  };
}

PageStamp windowStamp() { return pageStamp(g_operator, g_now()); }

WorkDisplay::WorkDisplay(LongWork& work, ReportStatus& status, QWidget* window, const QString& what,
                         const QString& boxWords, const QString& unit)
    : status_(status) {
  status_.BeginWork(what, unit);
  QObject::connect(&work, &LongWork::progressed, &status_, &ReportStatus::ShowProgress);
  QObject::connect(&status_, &ReportStatus::stopClicked, &work, &LongWork::Cancel);
  work.Allow(status_.StopButton());
  if (boxWords.isEmpty()) return;
  box_ = std::make_unique<CGeneralDialog>(window);
  QObject::connect(box_.get(), &CGeneralDialog::cancelled, &work, &LongWork::Cancel);
  box_->SetTextGeneral(boxWords);
  box_->Begin();
}

WorkDisplay::~WorkDisplay() {
  if (box_ != nullptr) box_->End();
  status_.EndWork();
}

}  // namespace tz
