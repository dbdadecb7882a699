#include "desktop/host/logon_wait.h"

#include <QPushButton>

namespace tz {

LogonWait::LogonWait(LogonDelays& delays, QPushButton& button)
    : QObject(&button), delays_(delays), button_(button), caption_(button.text()) {
  ticks_.setSingleShot(true);
  connect(&ticks_, &QTimer::timeout, this, &LogonWait::Tick);
}

void LogonWait::Begin() {
  if (delays_.Left().count() == 0) return;
  emit begun();
  button_.setEnabled(false);
  Tick();
}

void LogonWait::Tick() {
  const auto left = delays_.Left();
  if (left.count() == 0) {
    button_.setText(caption_);
    button_.setEnabled(true);
    emit over();
    return;
  }
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(left);
  button_.setText(QStringLiteral("请等 %1 秒").arg(seconds.count()));
  // To the moment when the next smaller number is true.
  ticks_.start(static_cast<int>((left - (seconds - std::chrono::seconds(1))).count()));
}

}  // namespace tz
