#include "desktop/theme/fonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <algorithm>
#include <cstdlib>

namespace tz {
namespace {

constexpr int uiPixels = 13;

const QStringList& uiFamilies() {
  static const QStringList families{QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Microsoft YaHei UI"),
                                    QStringLiteral("PingFang SC"), QStringLiteral("WenQuanYi Micro Hei")};
  return families;
}

int presentSize = usualTextSize;

int scaled(int pixels) { return (pixels * presentSize + 50) / 100; }

QFont fontOf(const QString& family, int pixels) {
  QFont font(family);
  font.setPixelSize(scaled(pixels));
  return font;
}

}  // namespace

void installFonts() {
  // UMing comes in a light cut alone, whose strokes break up at the size of labels.
  const QStringList song{QStringLiteral("Noto Serif CJK SC"), QStringLiteral("AR PL UMing CN")};
  const QStringList kai{QStringLiteral("AR PL UKai CN"), QStringLiteral("Noto Serif CJK SC")};
  for (const char* name : {"宋体", "SimSun", "NSimSun"}) QFont::insertSubstitutions(QString::fromUtf8(name), song);
  for (const char* name : {"楷体_GB2312", "楷体", "KaiTi"}) QFont::insertSubstitutions(QString::fromUtf8(name), kai);
  QApplication::setFont(uiFont(scaled(uiPixels)));
}

int textSize() { return presentSize; }

void setTextSize(int percent) {
  presentSize = *std::ranges::min_element(textSizes, {}, [percent](int size) { return std::abs(size - percent); });
  QApplication::setFont(uiFont(scaled(uiPixels)));
}

QFont songFont(int pixels) { return fontOf(QStringLiteral("宋体"), pixels); }
QFont kaiFont(int pixels) { return fontOf(QStringLiteral("楷体_GB2312"), pixels); }

QFont uiFont(int pixels, QFont::Weight weight) {
  QFont font;
  font.setFamilies(uiFamilies());
  font.setPixelSize(pixels);
  font.setWeight(weight);
  return font;
}

}  // namespace tz
