#include "desktop/theme/fonts.h"

#include <QApplication>
#include <QFontDatabase>

namespace tz {
namespace {

constexpr int uiPixels = 13;

const QStringList& uiFamilies() {
  static const QStringList families{QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Microsoft YaHei UI"),
                                    QStringLiteral("PingFang SC"), QStringLiteral("WenQuanYi Micro Hei")};
  return families;
}

QFont fontOf(const QString& family, int pixels) {
  QFont font(family);
  font.setPixelSize(pixels);
  return font;
}

}  // namespace

void installFonts() {
  const QStringList song{QStringLiteral("AR PL UMing CN"), QStringLiteral("Noto Serif CJK SC")};
  const QStringList kai{QStringLiteral("AR PL UKai CN"), QStringLiteral("Noto Serif CJK SC")};
  for (const char* name : {"宋体", "SimSun", "NSimSun"}) QFont::insertSubstitutions(QString::fromUtf8(name), song);
  for (const char* name : {"楷体_GB2312", "楷体", "KaiTi"}) QFont::insertSubstitutions(QString::fromUtf8(name), kai);
  QApplication::setFont(uiFont(uiPixels));
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
