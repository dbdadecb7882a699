// What the host adds to the navigator, above and beside its exit: the ledger's name over the whole width, which drops
// the ledger's menu down, and the list of windows and the search with who has logged on and as of when. It grows with
// the navigator, and cuts a name only where there is no room for it.
#pragma once

#include <QObject>

class QMenu;
class QToolButton;

namespace tz {

class CQnCwAssistantDlg;
class ElidedLabel;

class DesktopBar : public QObject {
  Q_OBJECT

 public:
  // The menus become the bar's.
  DesktopBar(CQnCwAssistantDlg& navigator, QMenu* ledgerMenu, QMenu* windowMenu);

  void SetLedger(const QString& name);
  // "王会计 · 2025-11-25".
  void SetWho(const QString& text);

 signals:
  // The ledger is to be searched.
  void searchWanted();

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void Place();
  void PlaceLedger(const QRect& room);

  CQnCwAssistantDlg& navigator_;
  QToolButton* ledger_;
  QToolButton* windows_;
  QToolButton* search_;
  ElidedLabel* who_;
  QString name_;
};

}  // namespace tz
