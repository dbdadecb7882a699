#include "desktop/report/opened_files.h"

#include <QFile>

namespace tz::test {

OpenedFiles::OpenedFiles(int code) : searched_(qgetenv("PATH")) {
  const QString folder = QString::fromStdString(folder_.path().string());
  QFile helper(folder + QStringLiteral("/xdg-open"));
  if (!helper.open(QIODevice::WriteOnly)) throw std::runtime_error("no helper");
  helper.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >>'" + folder.toUtf8() + "/opened'\nexit " + QByteArray::number(code) +
               "\n");
  helper.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  qputenv("PATH", folder.toUtf8() + ':' + searched_);
}

OpenedFiles::~OpenedFiles() { qputenv("PATH", searched_); }

QStringList OpenedFiles::Paths() const {
  QFile opened(QString::fromStdString(folder_.file("opened")));
  if (!opened.open(QIODevice::ReadOnly)) return {};
  return QString::fromUtf8(opened.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace tz::test
