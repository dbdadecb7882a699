// Keeps the windows alive while a database server is waited for outside a computation: opening a ledger, filling a
// dialog. They repaint and move, nothing else begins, and Esc gives the waiting up.
#pragma once

#include <QObject>
#include <chrono>

namespace tz {

class ServerWait : public QObject {
  Q_OBJECT

 public:
  // For as long as it lives; one in a program.
  ServerWait();
  ServerWait(const ServerWait&) = delete;
  ServerWait& operator=(const ServerWait&) = delete;
  ~ServerWait() override;

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  // True when the person has had enough of the wait that has taken so long by now.
  [[nodiscard]] bool GiveUp(std::chrono::milliseconds waited);

  std::chrono::milliseconds waited_{0};
  bool stopped_ = false;
  bool pumping_ = false;
};

}  // namespace tz
