// Draws the pictures of the manual: docs_images FOLDER; with --all every window in all its states, to look them over.
// Each is drawn in light and dark, at the scale of QT_SCALE_FACTOR, with texts of --text-size percent. Then, with
// --against KEPT, they are held against those of a folder (exit status 1 when they differ, 77 when the fonts do); with
// --keep KEPT, those that the test wants beside the manual's are put there.
#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>
#include <stdexcept>

#include "desktop/theme/fonts.h"
#include "desktop/theme/language.h"
#include "desktop/theme/theme.h"
#include "images/images.h"
#include "images/kept_pictures.h"

namespace {

void draw(const QDir& folder, bool all) {
  tz::images::PictureBook book{folder, all};
  for (const auto& [choice, name] :
       {std::pair(tz::ThemeChoice::light, "light"), std::pair(tz::ThemeChoice::dark, "dark")}) {
    tz::images::SampleLedger ledger;
    tz::applyTheme(choice);
    book.SetTheme(QString::fromLatin1(name));
    tz::images::drawNavigator(book);
    tz::images::drawReports(book, ledger);
    tz::images::drawClearing(book, ledger);
    tz::images::drawWayToVouchers(book);
    // Paper knows neither theme nor scale.
    if (choice == tz::ThemeChoice::light && qApp->devicePixelRatio() == 1) tz::images::drawPages(book, ledger);
    tz::images::drawDialogs(book, ledger);
    tz::images::drawHost(book, ledger);
    if (all) tz::images::drawControls(book);
  }
}

QList<QDir> foldersOf(const QStringList& paths) {
  QList<QDir> folders;
  for (const QString& path : paths) folders.append(QDir(path));
  return folders;
}

int compare(const QList<QDir>& kept, const QDir& drawn) {
  constexpr int otherFonts = 77;
  switch (tz::images::comparePictures(kept, drawn, qRound(qApp->devicePixelRatio() * 100))) {
    case tz::images::Comparison::same:
      return 0;
    case tz::images::Comparison::different:
      return 1;
    case tz::images::Comparison::otherFonts:
      return otherFonts;
  }
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setCursorFlashTime(0);  // in no picture by chance
  qputenv("TZ", "UTC0");                // nor the clock of this place
  QCommandLineParser words;
  const QCommandLineOption all(QStringLiteral("all"));
  const QCommandLineOption against(QStringLiteral("against"), {}, QStringLiteral("KEPT"));
  const QCommandLineOption keep(QStringLiteral("keep"), {}, QStringLiteral("KEPT"));
  const QCommandLineOption textSize(QStringLiteral("text-size"), {}, QStringLiteral("PERCENT"),
                                    QString::number(tz::usualTextSize));
  words.addOptions({all, against, keep, textSize});
  if (!words.parse(QApplication::arguments()) || words.positionalArguments().size() != 1) {
    QTextStream(stderr)
        << "usage: docs_images [--all] [--text-size PERCENT] [--against KEPT]... [--keep KEPT] FOLDER\n";
    return 2;
  }
  tz::installFonts();
  tz::setTextSize(words.value(textSize).toInt());
  tz::installLanguage();
  const QDir folder(words.positionalArguments().front());
  try {
    if (!folder.mkpath(QStringLiteral("."))) throw std::runtime_error("no folder for the pictures");
    draw(folder, words.isSet(all));
    if (words.isSet(keep)) tz::images::keepPictures(folder, QDir(words.value(keep)));
  } catch (const std::exception& error) {
    QTextStream(stderr) << QString::fromUtf8(error.what()) << '\n';
    return 1;
  }
  return words.isSet(against) ? compare(foldersOf(words.values(against)), folder) : 0;
}
