// Whoever gave a wrong password waits: what he would try again with is pale meanwhile, and its button counts the
// seconds.
#pragma once

#include <QTimer>

#include "core/reports/logon_delays.h"

class QPushButton;

namespace tz {

class LogonWait : public QObject {
  Q_OBJECT

 public:
  // Both must outlive the wait.
  LogonWait(LogonDelays& delays, QPushButton& button);

  // As long as the delays say from now on; nothing where they say nothing.
  void Begin();
  [[nodiscard]] bool Runs() const { return ticks_.isActive(); }

 signals:
  void begun();
  void over();

 private:
  void Tick();

  LogonDelays& delays_;
  QPushButton& button_;
  QString caption_;
  QTimer ticks_;
};

}  // namespace tz
