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

// How much a text darkens its ground.
double inkOf(const QFont& font) {
  QImage image(400, 20, QImage::Format_Grayscale8);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setFont(font);
  painter.drawText(image.rect(), Qt::AlignVCenter, QStringLiteral("科目：部门：月份: 2006.1--2006.12 单位：元"));
  painter.end();
  double ink = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ink += 255 - qGray(image.pixel(x, y));
  }
  return ink;
}

// A light cut, thin and broken at the size of labels, has half the ink of the windows' face.
TEST(Fonts, LabelsAreNoThinnerThanTheTextsBesideThem) {
  constexpr int labelPixels = 13;
  EXPECT_GT(inkOf(songFont(labelPixels)), 0.65 * inkOf(uiFont(labelPixels)));
}

}  // namespace
}  // namespace tz
