// The ledgers that were open lately: the company and its account year, below them where it is. What is no longer there
// is shown so, and can be taken from the list: by Del, or by the menu of an entry.
#pragma once

#include <QListWidget>

namespace tz {

class HostSettings;

class RecentList : public QListWidget {
  Q_OBJECT

 public:
  RecentList(HostSettings& settings, QWidget* parent);

  void Fill();
  // Empty where no entry is current.
  [[nodiscard]] QString Address() const;
  // Takes the current entry from the list; the ledger stays where it is.
  void Forget();

 signals:
  void openWanted();
  // Another number of entries.
  void changed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  HostSettings& settings_;
};

}  // namespace tz
