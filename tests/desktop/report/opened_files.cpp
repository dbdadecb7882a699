#include "desktop/report/opened_files.h"

#include <QDesktopServices>
#include <QUrl>

namespace tz::test {

OpenedFiles::OpenedFiles() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Take"); }

OpenedFiles::~OpenedFiles() { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

void OpenedFiles::Take(const QUrl& url) { paths.append(url.toLocalFile()); }

}  // namespace tz::test
