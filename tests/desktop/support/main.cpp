// The tests of the windows run inside one application, with the fonts and the theme of the program.
#include <QApplication>
#include <gtest/gtest.h>

#include "desktop/manual/manual.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/language.h"
#include "desktop/theme/theme.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  tz::installFonts();
  tz::installLanguage();
  tz::installManualKey();
  tz::applyTheme(tz::ThemeChoice::light);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
