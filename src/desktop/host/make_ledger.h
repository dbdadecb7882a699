// Makes a ledger file while its window stays alive: beside it, with a busy box once it takes longer than a moment, and
// to be stopped. All of it is there afterwards, or nothing.
#pragma once

#include <QString>
#include <atomic>
#include <functional>

#include "desktop/host/failure_note.h"

class QWidget;

namespace tz {

// How far the work is, told from its thread.
class LedgerWork {
 public:
  // Throws when the person has stopped the work.
  void Step(int done, int of);
  void Stop() { stopped_ = true; }
  [[nodiscard]] bool Stopped() const { return stopped_; }
  [[nodiscard]] int Done() const { return done_; }
  [[nodiscard]] int Of() const { return of_; }

 private:
  std::atomic<bool> stopped_ = false;
  std::atomic<int> done_ = 0;
  std::atomic<int> of_ = 0;
};

using FillLedger = std::function<void(Connection& connection, LedgerWork& work)>;

// `what` stands in the box. The failure is empty once the file is there; a person who stopped it is told so.
[[nodiscard]] Failure makeLedger(QWidget* window, const QString& file, const QString& what, const FillLedger& fill);

// The sample company's ledger.
void fillWithSample(Connection& connection, LedgerWork& work);
// Where it is kept, for the user.
[[nodiscard]] QString sampleLedgerFile();
// Makes it where it is not there yet; somebody else may do so at the same time.
[[nodiscard]] Failure provideSampleLedger(QWidget* window, const FillLedger& fill = fillWithSample);

}  // namespace tz
