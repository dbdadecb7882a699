#include "desktop/theme/language.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace tz {

void installLanguage() {
  const QLocale chinese(QLocale::Chinese, QLocale::China);
  QLocale::setDefault(chinese);
  auto* words = new QTranslator(qApp);
  // Where the toolkit came without its translations, its few windows stay English.
  if (words->load(QStringLiteral("qtbase_zh_CN"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(words);
  }
}

}  // namespace tz
