#include "desktop/frame/open_path.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace tz {

// The toolkit starts the same helper, but does not look how it ends: without a file manager nothing would happen, and
// nothing would be said.
void openPath(const QString& path, const std::function<void()>& failed) {
  const QString helper = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
  if (helper.isEmpty()) {
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) failed();
    return;
  }
  // It may run as long as the program that it opens: it belongs to no window, whose end would be its own.
  auto* process = new QProcess;
  process->setStandardOutputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  QObject::connect(process, &QProcess::finished, [process, failed](int code, QProcess::ExitStatus status) {
    if (code != 0 && status == QProcess::NormalExit) failed();
    process->deleteLater();
  });
  QObject::connect(process, &QProcess::errorOccurred, [process, failed](QProcess::ProcessError error) {
    if (error != QProcess::FailedToStart) return;
    failed();
    process->deleteLater();
  });
  process->start(helper, {path});
}

}  // namespace tz
