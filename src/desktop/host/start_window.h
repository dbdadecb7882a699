// The first window of the desktop when no ledger is named: the ledgers that were open lately, and beside them the
// sample company, a new ledger, a file, a server. What could not be opened is said below where it was chosen, and the
// person tries again.
#pragma once

#include <QDialog>
#include <functional>

#include "desktop/host/make_ledger.h"

class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace tz {

class HostSettings;
class RecentList;

class StartWindow : public QDialog {
  Q_OBJECT

 public:
  // `open` answers without a failure when it opened the ledger, else with why it could not. What it asks the person
  // stands over `window`.
  using Open = std::function<Failure(const QString& address, QWidget* window)>;
  StartWindow(HostSettings& settings, Open open, QWidget* parent);

  // Why an address that was given elsewhere could not be opened.
  void ShowFailure(const QString& address, const Failure& failure);
  // What writes the sample company, in place of the core.
  void SetSample(FillLedger fill) { sample_ = std::move(fill); }

 protected:
 private:
  void LayOut();
  void LayOutHead(QVBoxLayout& layout);
  QPushButton* AddChoice(QVBoxLayout& choices, const char* name, const QString& caption, const QString& hint);
  void EnableRecent();
  void OpenRecent();
  void OpenSample();
  void MakeNew();
  void OpenFile();
  void OpenServer(const QString& address, const Failure& failure);
  // The failure stands below `from`, which gets the focus back.
  void TryOpen(const QString& address, QWidget* from);
  void Tell(QWidget* from, const Failure& failure);
  void ClearNotes();

  HostSettings& settings_;
  Open open_;
  FillLedger sample_ = fillWithSample;
  RecentList* recent_;
  QScrollArea* choices_ = nullptr;
  QPushButton* openRecent_ = nullptr;
  QPushButton* forget_ = nullptr;
  QPushButton* sampleChoice_ = nullptr;
  QPushButton* fileChoice_ = nullptr;
  QPushButton* serverChoice_ = nullptr;
  FailureNote* recentFailure_;
  std::vector<std::pair<QPushButton*, FailureNote*>> choiceFailures_;
  QString failedServer_;
  Failure serverFailure_;
};

}  // namespace tz
