#include "images/sample_ledger.h"

#include "core/data/create_ledger.h"
#include "core/reports/session.h"
#include "core/sample/sample_company.h"
#include "desktop/frame/globals.h"

namespace tz::images {

SampleLedger::SampleLedger() : file_(folder_.filePath(QStringLiteral("sample.db")).toStdString()) {
  createLedger(file_, [](Connection& connection) { fillSample(connection, {}); });
  db_.Open(file_);
  g_pDB = &db_;
  g_lpszQnZwDBName = file_;
  g_tmLogonTime = defaultLogonDate(db_);
  // A day at work after the year that the pictures show.
  const std::chrono::sys_days day = std::chrono::year(g_tmLogonTime.year + 1) / std::chrono::January / 5;
  g_now = [day] { return day + std::chrono::hours(9) + std::chrono::minutes(30); };
}

SampleLedger::~SampleLedger() { g_pDB = nullptr; }

}  // namespace tz::images
