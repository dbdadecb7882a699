#include "desktop/host/settings.h"

#include <QFileInfo>
#include <QSize>

#include "core/data/connection.h"
#include "desktop/host/open_ledger.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr qsizetype mostRecent = 10;
const auto recentKey = QStringLiteral("recent");
const auto titlesKey = QStringLiteral("recentTitles");
const auto serverKey = QStringLiteral("server");
const auto themeKey = QStringLiteral("theme");
const auto textSizeKey = QStringLiteral("textSize");
const auto exportFolderKey = QStringLiteral("exportFolder");
const auto operatorKey = QStringLiteral("operator");
const auto operatorsKey = QStringLiteral("operators");

QString sizeKey(int command) { return QStringLiteral("window/%1").arg(command); }
QString maximizedKey(int command) { return QStringLiteral("maximized/%1").arg(command); }
QString widthsKey(int command) { return QStringLiteral("columns/%1").arg(command); }
QString movedKey(int command) { return QStringLiteral("movedColumns/%1").arg(command); }
QString hiddenKey(int command) { return QStringLiteral("hiddenColumns/%1").arg(command); }
QString paperKey(int command) { return QStringLiteral("paper/%1").arg(command); }
QString carriedKey(int command) { return QStringLiteral("carriedLines/%1").arg(command); }

}  // namespace

HostSettings::HostSettings()
    : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("tzassistant"), QStringLiteral("desktop")) {}

// What an earlier version kept may hold passwords.
QStringList HostSettings::RecentLedgers() const {
  QStringList recent;
  for (const auto& address : settings_.value(recentKey).toStringList()) recent.append(shownAddress(address));
  return recent;
}

LedgerTitle HostSettings::TitleOf(const QString& address) const {
  const QStringList kept = settings_.value(titlesKey).toMap().value(address).toStringList();
  return kept.size() == 2 ? LedgerTitle{kept[0], kept[1].toInt()} : LedgerTitle{};
}

void HostSettings::RememberLedger(const QString& opened, const LedgerTitle& title) {
  // Found again from whatever folder the program starts in.
  const bool server = isServerAddress(fromQt(opened));
  const QString address = server ? shownAddress(opened) : QFileInfo(opened).absoluteFilePath();
  QStringList recent = RecentLedgers();
  recent.removeAll(address);
  recent.prepend(address);
  recent = recent.mid(0, mostRecent);
  settings_.setValue(recentKey, recent);
  QVariantMap titles = settings_.value(titlesKey).toMap();
  titles[address] = QStringList{title.name, QString::number(title.year)};
  for (const QString& known : titles.keys()) {
    if (!recent.contains(known)) titles.remove(known);
  }
  settings_.setValue(titlesKey, titles);
}

void HostSettings::ForgetLedger(const QString& address) {
  QStringList recent = RecentLedgers();
  recent.removeAll(address);
  settings_.setValue(recentKey, recent);
}

QString HostSettings::LastServer() const { return shownAddress(settings_.value(serverKey).toString()); }
void HostSettings::SetLastServer(const QString& address) { settings_.setValue(serverKey, shownAddress(address)); }

ThemeChoice HostSettings::Theme() const {
  const QString name = settings_.value(themeKey).toString();
  if (name == QLatin1String("light")) return ThemeChoice::light;
  return name == QLatin1String("dark") ? ThemeChoice::dark : ThemeChoice::system;
}

void HostSettings::SetTheme(ThemeChoice choice) {
  const char* name = choice == ThemeChoice::light ? "light" : choice == ThemeChoice::dark ? "dark" : "system";
  settings_.setValue(themeKey, QString::fromLatin1(name));
}

int HostSettings::TextSize() const { return settings_.value(textSizeKey, usualTextSize).toInt(); }
void HostSettings::SetTextSize(int percent) { settings_.setValue(textSizeKey, percent); }

QString HostSettings::LastOperator(const QString& address) const {
  const QString anywhere = settings_.value(operatorKey).toString();
  return settings_.value(operatorsKey).toMap().value(address, anywhere).toString();
}

void HostSettings::SetLastOperator(const QString& address, const QString& name) {
  settings_.setValue(operatorKey, name);
  QVariantMap operators = settings_.value(operatorsKey).toMap();
  const QStringList recent = RecentLedgers();
  for (const QString& known : operators.keys()) {
    if (!recent.contains(known)) operators.remove(known);
  }
  operators[address] = name;
  settings_.setValue(operatorsKey, operators);
}

QString HostSettings::ExportFolder() const { return settings_.value(exportFolderKey).toString(); }
void HostSettings::SetExportFolder(const QString& folder) { settings_.setValue(exportFolderKey, folder); }

QSize HostSettings::WindowSize(int command) const { return settings_.value(sizeKey(command)).toSize(); }
void HostSettings::SetWindowSize(int command, QSize size) { settings_.setValue(sizeKey(command), size); }

bool HostSettings::Maximized(int command) const { return settings_.value(maximizedKey(command)).toBool(); }
void HostSettings::SetMaximized(int command, bool maximized) { settings_.setValue(maximizedKey(command), maximized); }

ColumnArrangement HostSettings::Columns(int command) const {
  ColumnArrangement arrangement;
  const QVariantMap widths = settings_.value(widthsKey(command)).toMap();
  for (auto it = widths.begin(); it != widths.end(); ++it) arrangement.widths.insert(it.key(), it.value().toInt());
  // Each column, then the one behind which it stands.
  const QStringList moved = settings_.value(movedKey(command)).toStringList();
  for (qsizetype place = 0; place + 1 < moved.size(); place += 2) {
    arrangement.moved.append({moved[place], moved[place + 1]});
  }
  for (const QString& key : settings_.value(hiddenKey(command)).toStringList()) arrangement.hidden.insert(key);
  return arrangement;
}

PageOptions HostSettings::Pages(int command) const {
  PageOptions options;
  const int kept = settings_.value(paperKey(command)).toInt();
  if (kept > 0 && kept <= static_cast<int>(Orientation::landscape))
    options.orientation = static_cast<Orientation>(kept);
  options.carriedLines = settings_.value(carriedKey(command), true).toBool();
  return options;
}

void HostSettings::SetPages(int command, const PageOptions& options) {
  settings_.setValue(paperKey(command), static_cast<int>(options.orientation));
  settings_.setValue(carriedKey(command), options.carriedLines);
}

void HostSettings::SetColumns(int command, const ColumnArrangement& arrangement) {
  QVariantMap widths;
  for (auto it = arrangement.widths.begin(); it != arrangement.widths.end(); ++it) widths.insert(it.key(), it.value());
  QStringList moved;
  for (const auto& [key, after] : arrangement.moved) moved << key << after;
  QStringList hidden(arrangement.hidden.begin(), arrangement.hidden.end());
  hidden.sort();
  settings_.setValue(widthsKey(command), widths);
  settings_.setValue(movedKey(command), moved);
  settings_.setValue(hiddenKey(command), hidden);
}

std::filesystem::path HostSettings::ConditionFile() const {
  const QString folder = QFileInfo(settings_.fileName()).path();
  return std::filesystem::path(folder.toStdU16String()) / "conditions.json";
}

}  // namespace tz
