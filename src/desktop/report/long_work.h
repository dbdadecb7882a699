// A computation that runs on the user-interface thread while its window stays alive. Whoever computes calls Pump now
// and then; at most twenty times a second that lets events through, but only those that repaint, move or stop: no
// second computation can begin inside this one, and no window goes away under it.
//
// Esc, the stop button and closing the working window stop the work; a window closed meanwhile closes afterwards.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <cstdint>
#include <vector>

class QWidget;

namespace tz {

class LongWork : public QObject {
  Q_OBJECT

 public:
  // One at a time; see Running.
  explicit LongWork(QWidget& window);
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;
  ~LongWork() override;

  // Whether any work runs: nothing that reads the ledger may begin.
  [[nodiscard]] static bool Running();

  // A button that takes clicks while the work runs, beside those of modal boxes.
  void Allow(QWidget* button) { allowed_.emplace_back(button); }
  // So many of so many steps; 0 of 0 when unknown.
  void Pump(std::int64_t done, std::int64_t of);
  // Between two steps that take long.
  void Pump() { Pump(done_, of_); }
  void Cancel() { cancelled_ = true; }
  [[nodiscard]] bool Cancelled() const { return cancelled_; }

 signals:
  // Not for work that is over in a moment.
  void progressed(qint64 done, qint64 of);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  [[nodiscard]] bool Takes(const QWidget* widget) const;
  // Whether closing that window ends the working one: itself or the window it belongs to.
  [[nodiscard]] bool Carries(const QWidget* window) const;

  QWidget& window_;
  std::vector<QPointer<QWidget>> allowed_;
  std::vector<QPointer<QWidget>> closeLater_;
  QElapsedTimer sinceStart_;
  QElapsedTimer sincePump_;
  std::int64_t done_ = 0;
  std::int64_t of_ = 0;
  bool cancelled_ = false;
};

}  // namespace tz
