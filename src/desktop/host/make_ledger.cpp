#include "desktop/host/make_ledger.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>

#include "core/data/create_ledger.h"
#include "core/sample/sample_company.h"
#include "desktop/frame/general_dialog.h"
#include "desktop/report/log.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// Thrown through the work that a person stopped.
struct WorkStopped {};

constexpr unsigned long momentBeforeBox = 300;  // milliseconds

// In a thread of its own: nothing here knows a window.
Failure make(const std::string& file, const FillLedger& fill, LedgerWork& work) {
  const auto stopped = [] { return Failure{QStringLiteral("已停止，没有建立帐套")}; };
  try {
    createLedger(file, [&](Connection& connection) {
      // The long statements too.
      connection.setCancelCheck([](void* context) { return static_cast<LedgerWork*>(context)->Stopped(); }, &work);
      fill(connection, work);
    });
    return {};
  } catch (const WorkStopped&) {
    return stopped();
  } catch (const DbError& error) {
    return work.Stopped() ? stopped() : failureOf(error);
  } catch (const std::exception& error) {
    return {toQt(error.what())};
  }
}

// Shows the box until the thread has ended; its end comes as an event.
void showUntilEnd(QWidget* window, QThread& thread, const QString& what, LedgerWork& work) {
  CGeneralDialog box(window);
  box.SetTextGeneral(what);
  QObject::connect(&box, &CGeneralDialog::cancelled, &box, [&work, &box] {
    work.Stop();
    box.SetTextGeneral(QStringLiteral("正在停止…"));
  });
  QTimer telling;
  QObject::connect(&telling, &QTimer::timeout, &box, [&work, &box] {
    if (work.Of() > 0) box.SetProgress(work.Done(), work.Of());
  });
  constexpr int betweenTellings = 100;  // milliseconds
  telling.start(betweenTellings);
  QEventLoop loop;
  QObject::connect(&thread, &QThread::finished, &loop, &QEventLoop::quit);
  box.Begin();
  if (!thread.isFinished()) loop.exec();
  box.End();
}

}  // namespace

void LedgerWork::Step(int done, int of) {
  done_ = done;
  of_ = of;
  if (stopped_) throw WorkStopped{};
}

Failure makeLedger(QWidget* window, const QString& file, const QString& what, const FillLedger& fill) {
  LedgerWork work;
  Failure failure;
  const std::unique_ptr<QThread> thread(
      QThread::create([&failure, &fill, &work, path = fromQt(file)] { failure = make(path, fill, work); }));
  thread->start();
  if (!thread->wait(momentBeforeBox)) showUntilEnd(window, *thread, what, work);
  thread->wait();
  if (!failure.None()) logFailure(fromQt(file), fromQt(failure.detail.isEmpty() ? failure.text : failure.detail));
  return failure;
}

void fillWithSample(Connection& connection, LedgerWork& work) {
  fillSample(connection, {.progress = [&work](int done, int of) { work.Step(done, of); }});
}

QString sampleLedgerFile() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
         QStringLiteral("/tzassistant/sample.db");
}

Failure provideSampleLedger(QWidget* window, const FillLedger& fill) {
  const QString file = sampleLedgerFile();
  if (QFileInfo::exists(file)) return {};
  const QString folder = QFileInfo(file).path();
  if (!QDir().mkpath(folder)) return {QStringLiteral("不能建立文件夹 %1").arg(QDir::toNativeSeparators(folder))};
  Failure failure = makeLedger(window, file, QStringLiteral("正在建立示例单位的帐套…"), fill);
  const bool madeByAnother = failure.kind == DbError::Kind::duplicate && QFileInfo(file).isFile();
  return madeByAnother ? Failure{} : failure;
}

}  // namespace tz
