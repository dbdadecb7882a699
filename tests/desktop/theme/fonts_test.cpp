#include "desktop/theme/fonts.h"

#include <QFontInfo>
#include <QPainter>
#include <QRawFont>
#include <gtest/gtest.h>

namespace tz {
namespace {

void expectGlyphs(const QFont& font) {
  const QRawFont face = QRawFont::fromFont(font, QFontDatabase::SimplifiedChinese);
  for (const QChar sign : QStringLiteral("辅助核算余额表借贷平合计√○")) {
    EXPECT_TRUE(face.supportsCharacter(sign)) << font.family().toStdString() << ' ' << QString(sign).toStdString();
  }
}

TEST(Fonts, EveryFaceHoldsTheChineseOfTheReports) {
  expectGlyphs(songFont(12));
  expectGlyphs(kaiFont(30));
  expectGlyphs(uiFont(13));
  expectGlyphs(QFont(QStringLiteral("SimSun")));
  expectGlyphs(QFont(QStringLiteral("楷体")));
  expectGlyphs(QApplication::font());
}

// Song, Kai and the windows' own face look different: none of them fell back to another.
TEST(Fonts, SongAndKaiAreFacesOfTheirOwn) {
  const auto drawn = [](QFont font) {
    font.setPixelSize(30);
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(image.rect(), Qt::AlignCenter, QStringLiteral("额"));
    painter.end();
    return image;
  };
  EXPECT_NE(drawn(songFont(12)), drawn(kaiFont(12)));
  EXPECT_NE(drawn(songFont(12)), drawn(uiFont(12)));
}

}  // namespace
}  // namespace tz
