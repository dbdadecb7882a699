// Draws the pictures of the manual: docs_images FOLDER; with --all every window in all its states, to look them over.
// Each is drawn in light and dark, at the scale of QT_SCALE_FACTOR.
#include <QApplication>
#include <QTextStream>
#include <stdexcept>

#include "desktop/theme/fonts.h"
#include "desktop/theme/language.h"
#include "desktop/theme/theme.h"
#include "images/images.h"

namespace {

void draw(const QString& folder, bool all) {
  tz::images::PictureBook book{QDir(folder), all};
  for (const auto& [choice, name] :
       {std::pair(tz::ThemeChoice::light, "light"), std::pair(tz::ThemeChoice::dark, "dark")}) {
    tz::images::SampleLedger ledger;
    tz::applyTheme(choice);
    book.SetTheme(QString::fromLatin1(name));
    tz::images::drawNavigator(book);
    tz::images::drawReports(book, ledger);
    tz::images::drawDialogs(book, ledger);
    tz::images::drawHost(book, ledger);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QStringList words = QApplication::arguments().mid(1);
  const bool all = words.removeOne(QStringLiteral("--all"));
  if (words.size() != 1) {
    QTextStream(stderr) << "usage: docs_images [--all] FOLDER\n";
    return 2;
  }
  tz::installFonts();
  tz::installLanguage();
  try {
    draw(words.front(), all);
  } catch (const std::exception& error) {
    QTextStream(stderr) << QString::fromUtf8(error.what()) << '\n';
    return 1;
  }
  return 0;
}
