// The manual's page of keys holds what the windows' help says; a change that is meant is kept with TZ_KEEP_HELP=1.
#include "desktop/report/key_table.h"

#include <QFile>
#include <gtest/gtest.h>

#include "desktop/report/window_commands.h"
#include "desktop/theme/qt_text.h"

namespace tz::test {
namespace {

QString row(const QString& keys, const QString& does) { return QStringLiteral("| %1 | %2 |\n").arg(keys, does); }

QString pageOfKeys() {
  QString page = QStringLiteral(
      "# 按键\n\n所有操作都可以只用键盘完成。菜单里的每一项也写着它的按键。\n"
      "\n## 工具栏\n\n| 按键 | 作用 |\n|---|---|\n");
  for (const ReportCommand& command : reportCommands()) {
    if (*command.shortcut != '\0') {
      page += row(QLatin1String(command.shortcut),
                  QStringLiteral("%1：%2").arg(command.Caption(), QString::fromUtf8(command.tip)));
    }
  }
  for (const KeyGroup& group : keyTable()) {
    page += QStringLiteral("\n## %1\n\n| 按键 | 作用 |\n|---|---|\n").arg(QString::fromUtf8(group.caption));
    for (const KeyEntry& entry : group.entries)
      page += row(QString::fromUtf8(entry.keys), QString::fromUtf8(entry.does));
  }
  return page;
}

TEST(KeyTable, TheManualsPageOfKeysIsTheHelps) {
  QFile file(QStringLiteral(TZ_MANUAL "/keys.md"));
  if (qEnvironmentVariableIsSet("TZ_KEEP_HELP") && file.open(QIODevice::WriteOnly)) {
    file.write(pageOfKeys().toUtf8());
    file.close();
  }
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(fromQt(QString::fromUtf8(file.readAll())), fromQt(pageOfKeys()))
      << "when it is meant, keep it with TZ_KEEP_HELP=1";
}

}  // namespace
}  // namespace tz::test
