// Stands for the programs of the desktop: opens nothing, but remembers which files it was asked to open.
#pragma once

#include <QObject>
#include <QStringList>

class QUrl;

namespace tz::test {

class OpenedFiles : public QObject {
  Q_OBJECT

 public:
  OpenedFiles();
  ~OpenedFiles() override;

  QStringList paths;

 public slots:
  void Take(const QUrl& url);
};

}  // namespace tz::test
