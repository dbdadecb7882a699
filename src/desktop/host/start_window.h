// The first window of the desktop when no ledger is named: recent ledgers, a file, a server. What could not be opened
// is said below the row where it was chosen, and the person tries again.
#pragma once

#include <QDialog>
#include <functional>

#include "desktop/host/failure_note.h"

class QLineEdit;
class QListWidget;

namespace tz {

class HostSettings;

class StartWindow : public QDialog {
  Q_OBJECT

 public:
  // `open` answers with an empty text when it opened the ledger, else with why it could not. What it asks the person
  // stands over `window`.
  using Open = std::function<Failure(const QString& address, QWidget* window)>;
  StartWindow(HostSettings& settings, Open open, QWidget* parent);

  // Why an address that was given elsewhere could not be opened.
  void ShowFailure(const QString& address, const Failure& failure);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  void FillRecent();
  void OpenChosen();
  void OpenFile();
  void OpenServer();
  // The failure stands in `note`, and the focus goes back to where the address came from.
  void TryOpen(const QString& address, FailureNote& note, QWidget* from);

  HostSettings& settings_;
  Open open_;
  QListWidget* recent_;
  QLineEdit* server_;
  FailureNote* fileFailure_;
  FailureNote* serverFailure_;
};

}  // namespace tz
