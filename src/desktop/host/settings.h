// What the desktop remembers between two starts: recent ledgers, the theme, the places of windows and what was made of
// their columns. The module itself keeps nothing.
#pragma once

#include <QSettings>
#include <QStringList>
#include <filesystem>

#include "core/output/page_paper.h"
#include "desktop/gridview/column_arrangement.h"
#include "desktop/theme/theme.h"

namespace tz {

// The company and its account year; empty and 0 where they are not known.
struct LedgerTitle {
  QString name;
  int year = 0;
};

class HostSettings {
 public:
  HostSettings();

  // The latest first.
  [[nodiscard]] QStringList RecentLedgers() const;
  // What a recent ledger said of itself when it was last open.
  [[nodiscard]] LedgerTitle TitleOf(const QString& address) const;
  void RememberLedger(const QString& opened, const LedgerTitle& title = {});
  void ForgetLedger(const QString& address);

  // The address of the server that was asked last, without a password; empty before.
  [[nodiscard]] QString LastServer() const;
  void SetLastServer(const QString& address);

  [[nodiscard]] ThemeChoice Theme() const;
  void SetTheme(ThemeChoice choice);

  // Percent of the usual size.
  [[nodiscard]] int TextSize() const;
  void SetTextSize(int percent);

  // Who logged on last to a ledger; to any other where nobody did.
  [[nodiscard]] QString LastOperator(const QString& address) const;
  void SetLastOperator(const QString& address, const QString& name);

  // Where the last export went; empty before the first one.
  [[nodiscard]] QString ExportFolder() const;
  void SetExportFolder(const QString& folder);

  // The size that a person gave a report's window; empty when nobody did. And whether it was maximised when it closed.
  [[nodiscard]] QSize WindowSize(int command) const;
  void SetWindowSize(int command, QSize size);
  [[nodiscard]] bool Maximized(int command) const;
  void SetMaximized(int command, bool maximized);

  // What was made of the columns of a report.
  [[nodiscard]] ColumnArrangement Columns(int command) const;
  void SetColumns(int command, const ColumnArrangement& arrangement);

  // How the pages of a window were made last.
  [[nodiscard]] PageOptions Pages(int command) const;
  void SetPages(int command, const PageOptions& options);

  // Where conditions are kept under names.
  [[nodiscard]] std::filesystem::path ConditionFile() const;

 private:
  QSettings settings_;
};

}  // namespace tz
