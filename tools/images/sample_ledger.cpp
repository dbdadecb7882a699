#include "images/sample_ledger.h"

#include "data/create_ledger.h"
#include "reports/session.h"
#include "sample/sample_company.h"
#include "suite/globals.h"

namespace tz::images {

SampleLedger::SampleLedger() : file_(folder_.filePath(QStringLiteral("sample.db")).toStdString()) {
  createLedger(file_, [](Connection& connection) { fillSample(connection, {}); });
  db_.Open(file_);
  g_pDB = &db_;
  g_lpszQnZwDBName = file_;
  g_tmLogonTime = defaultLogonDate(db_);
}

SampleLedger::~SampleLedger() { g_pDB = nullptr; }

}  // namespace tz::images
