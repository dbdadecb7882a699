#include "desktop/host/settings.h"

#include <QFileInfo>
#include <QSize>

#include "desktop/host/open_ledger.h"

namespace tz {
namespace {

constexpr qsizetype mostRecent = 10;
const auto recentKey = QStringLiteral("recent");
const auto themeKey = QStringLiteral("theme");
const auto exportFolderKey = QStringLiteral("exportFolder");
const auto operatorKey = QStringLiteral("operator");

QString sizeKey(int command) { return QStringLiteral("window/%1").arg(command); }
QString widthsKey(int command) { return QStringLiteral("columns/%1").arg(command); }

}  // namespace

HostSettings::HostSettings()
    : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("tzassistant"), QStringLiteral("desktop")) {}

// What an earlier version kept may hold passwords.
QStringList HostSettings::RecentLedgers() const {
  QStringList recent;
  for (const auto& address : settings_.value(recentKey).toStringList()) recent.append(shownAddress(address));
  return recent;
}

void HostSettings::RememberLedger(const QString& opened) {
  const QString address = shownAddress(opened);
  QStringList recent = RecentLedgers();
  recent.removeAll(address);
  recent.prepend(address);
  settings_.setValue(recentKey, QStringList(recent.mid(0, mostRecent)));
}

void HostSettings::ForgetLedger(const QString& address) {
  QStringList recent = RecentLedgers();
  recent.removeAll(address);
  settings_.setValue(recentKey, recent);
}

ThemeChoice HostSettings::Theme() const {
  const QString name = settings_.value(themeKey).toString();
  if (name == QLatin1String("light")) return ThemeChoice::light;
  return name == QLatin1String("dark") ? ThemeChoice::dark : ThemeChoice::system;
}

void HostSettings::SetTheme(ThemeChoice choice) {
  const char* name = choice == ThemeChoice::light ? "light" : choice == ThemeChoice::dark ? "dark" : "system";
  settings_.setValue(themeKey, QString::fromLatin1(name));
}

QString HostSettings::LastOperator() const { return settings_.value(operatorKey).toString(); }
void HostSettings::SetLastOperator(const QString& name) { settings_.setValue(operatorKey, name); }

QString HostSettings::ExportFolder() const { return settings_.value(exportFolderKey).toString(); }
void HostSettings::SetExportFolder(const QString& folder) { settings_.setValue(exportFolderKey, folder); }

QSize HostSettings::WindowSize(int command) const { return settings_.value(sizeKey(command)).toSize(); }
void HostSettings::SetWindowSize(int command, QSize size) { settings_.setValue(sizeKey(command), size); }

QHash<QString, int> HostSettings::ColumnWidths(int command) const {
  QHash<QString, int> widths;
  const QVariantMap kept = settings_.value(widthsKey(command)).toMap();
  for (auto it = kept.begin(); it != kept.end(); ++it) widths.insert(it.key(), it.value().toInt());
  return widths;
}

void HostSettings::SetColumnWidths(int command, const QHash<QString, int>& widths) {
  QVariantMap kept;
  for (auto it = widths.begin(); it != widths.end(); ++it) kept.insert(it.key(), it.value());
  settings_.setValue(widthsKey(command), kept);
}

std::filesystem::path HostSettings::ConditionFile() const {
  const QString folder = QFileInfo(settings_.fileName()).path();
  return std::filesystem::path(folder.toStdU16String()) / "conditions.json";
}

}  // namespace tz
