// The first window of the desktop when no ledger is named: recent ledgers, a file, a server. What could not be opened
// is said here, and the person tries again.
#pragma once

#include <QDialog>
#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;

namespace tz {

class HostSettings;

class StartWindow : public QDialog {
  Q_OBJECT

 public:
  // `open` returns an empty text when it opened the ledger, else why it could not.
  using Open = std::function<QString(const QString& address)>;
  StartWindow(HostSettings& settings, Open open);

  void ShowFailure(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  void FillRecent();
  void OpenChosen();
  void OpenFile();
  void OpenServer();
  void TryOpen(const QString& address);

  HostSettings& settings_;
  Open open_;
  QListWidget* recent_;
  QLineEdit* server_;
  QLabel* failure_;
};

}  // namespace tz
