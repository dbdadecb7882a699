// A ledger as the host opens it, settings of its own, and operators with their passwords.
#pragma once

#include <QSettings>
#include <QTemporaryDir>
#include <array>
#include <sodium.h>

#include "desktop/report/report_ledger.h"

namespace tz::test {

// A password's hash, made with the least work the library allows.
inline std::string hashOf(const std::string& password) {
  std::array<char, crypto_pwhash_STRBYTES> hash{};
  if (sodium_init() < 0 || crypto_pwhash_str(hash.data(), password.data(), password.size(), crypto_pwhash_OPSLIMIT_MIN,
                                             crypto_pwhash_MEMLIMIT_MIN) != 0) {
    throw std::runtime_error("no hash");
  }
  return hash.data();
}

// 王会计 with the password 秘密, who may open the person details.
inline void addOperator(TestLedger& ledger) {
  ledger.fill("zOperator", "lId | sName | sPassHash | bAll\n 1 | 王会计 | " + hashOf("秘密") + " | 0");
  ledger.fill("zRight", "lOperatorId | nRight\n 1 | 4");
}

class HostTest : public ::testing::Test {
 protected:
  HostTest() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home_.path());
    ledger_.ledger().fill("zAccountM", R"(
        lId | sName    | nYear
        7   | 华源机械 | 2006 )");
  }
  QString address() { return toQt(ledger_.ledger().address()); }

  QTemporaryDir home_;
  ReportLedger ledger_;
};

}  // namespace tz::test
