// The sample company, open as the desktop opens it.
#pragma once

#include <QString>
#include <QTemporaryDir>

#include "core/data/qncw_db.h"

namespace tz::images {

class SampleLedger {
 public:
  SampleLedger();
  SampleLedger(const SampleLedger&) = delete;
  SampleLedger& operator=(const SampleLedger&) = delete;
  ~SampleLedger();

  [[nodiscard]] const std::string& File() const { return file_; }
  [[nodiscard]] CQnCwDB& Database() { return db_; }

 private:
  QTemporaryDir folder_;
  std::string file_;
  CQnCwDB db_{Access::report};
};

}  // namespace tz::images
