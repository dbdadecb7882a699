#include "images/kept_pictures.h"

#include <QPainter>
#include <QStringList>
#include <QTextStream>
#include <array>
#include <stdexcept>

namespace tz::images {
namespace {

// How far a channel of a pixel may be off; the same packages draw the same bytes.
constexpr int tolerance = 3;
constexpr const char* toolkitKey = "Toolkit";
constexpr const char* specimenName = "specimen.png";

// Without theme and scale.
QStringList keptNames() {
  return {
      QStringLiteral("controls"),
      QStringLiteral("controls-first"),
      QStringLiteral("message-short"),
      QStringLiteral("message-long"),
      QStringLiteral("message-question"),
      QStringLiteral("conditions-kinds"),
      QStringLiteral("combo-list"),
      QStringLiteral("calendar"),
      QStringLiteral("logon"),
      QStringLiteral("host-menu"),
      QStringLiteral("navigator-states"),
      QStringLiteral("navigator-archive"),
      QStringLiteral("navigator-department"),
      QStringLiteral("navigator-plan"),
      QStringLiteral("navigator-project"),
      QStringLiteral("report-state-empty"),
      QStringLiteral("report-state-failed"),
      QStringLiteral("report-state-warned"),
  };
}

void say(const QString& line) { QTextStream(stderr) << line << '\n'; }

bool differ(QRgb one, QRgb other) {
  return std::abs(qRed(one) - qRed(other)) > tolerance || std::abs(qGreen(one) - qGreen(other)) > tolerance ||
         std::abs(qBlue(one) - qBlue(other)) > tolerance || std::abs(qAlpha(one) - qAlpha(other)) > tolerance;
}

struct Difference {
  int pixels = 0;
  QRect place;
};

// Marks in `shown` what differs: the rest of it turns pale.
Difference differenceOf(const QImage& kept, const QImage& drawn, QImage& shown) {
  Difference found;
  shown = drawn;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) {
      const QRgb pixel = drawn.pixel(x, y);
      if (!differ(kept.pixel(x, y), pixel)) {
        shown.setPixel(x, y, qRgb((qRed(pixel) + 765) / 4, (qGreen(pixel) + 765) / 4, (qBlue(pixel) + 765) / 4));
        continue;
      }
      ++found.pixels;
      found.place |= QRect(x, y, 1, 1);
      shown.setPixel(x, y, qRgb(255, 0, 0));
    }
  }
  return found;
}

QImage read(const QString& path) { return QImage(path).convertToFormat(QImage::Format_ARGB32); }

// Whether the picture is the one that is kept; says what is not.
bool isSame(const QString& keptPath, const QDir& folder, const QString& name) {
  const QImage kept = read(keptPath);
  const QImage drawn = read(folder.filePath(name));
  if (drawn.isNull()) {
    say(name + QStringLiteral(": is kept, but not drawn any more"));
    return false;
  }
  if (kept.size() != drawn.size()) {
    say(QStringLiteral("%1: %2 × %3 pixels, kept with %4 × %5")
            .arg(name)
            .arg(drawn.width())
            .arg(drawn.height())
            .arg(kept.width())
            .arg(kept.height()));
    return false;
  }
  QImage shown;
  const Difference found = differenceOf(kept, drawn, shown);
  if (found.pixels == 0) return true;
  const QString difference =
      folder.filePath(QString(name).replace(QStringLiteral(".png"), QStringLiteral(".difference.png")));
  shown.save(difference);
  say(QStringLiteral("%1: %2 pixels differ, in %3 × %4 at (%5, %6); shown in red in %7")
          .arg(name)
          .arg(found.pixels)
          .arg(found.place.width())
          .arg(found.place.height())
          .arg(found.place.x())
          .arg(found.place.y())
          .arg(difference));
  return false;
}

// The specimen lies in one of the folders.
bool fontsAreThoseOf(const QList<QDir>& kept) {
  for (const QDir& folder : kept) {
    const QImage theirs(folder.filePath(QString::fromLatin1(specimenName)));
    if (theirs.isNull()) continue;
    const QImage ours = specimen();
    if (ours == theirs.convertToFormat(ours.format())) return true;
    say(QStringLiteral(
            "The fonts or the toolkit here draw texts another way than those of the kept pictures, so nothing "
            "was compared.\nKept with %1, here %2. With the packages of scripts/packages-desktop.txt on "
            "Debian 12 they are the same.")
            .arg(theirs.text(QString::fromLatin1(toolkitKey)), ours.text(QString::fromLatin1(toolkitKey))));
    return false;
  }
  say(QStringLiteral("no specimen of the fonts is kept"));
  return true;
}

}  // namespace

QImage specimen() {
  constexpr std::array faces = {"AR PL UMing CN", "AR PL UKai CN", "Noto Sans CJK SC"};
  constexpr int line = 34;
  QImage image(420, line * static_cast<int>(faces.size()), QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setText(QString::fromLatin1(toolkitKey), QStringLiteral("Qt ") + QString::fromLatin1(qVersion()));
  QPainter painter(&image);
  for (std::size_t i = 0; i < faces.size(); ++i) {
    QFont font(QString::fromLatin1(faces[i]));
    font.setPixelSize(16);
    font.setHintingPreference(QFont::PreferNoHinting);  // which the toolkit takes at 200 % in any case
    painter.setFont(font);
    painter.drawText(8, line * static_cast<int>(i) + 24, QStringLiteral("三栏式明细帐 借方 贷方 1,234,567.80 Ag"));
  }
  return image;
}

void keepPictures(const QDir& drawn, const QDir& kept) {
  bool done = kept.mkpath(QStringLiteral(".")) && specimen().save(kept.filePath(QString::fromLatin1(specimenName)));
  for (const QString& name : keptNames()) {
    const QStringList files =
        drawn.entryList({name + QStringLiteral("-light-*.png"), name + QStringLiteral("-dark-*.png")});
    done = done && !files.isEmpty();
    for (const QString& file : files) {
      QFile::remove(kept.filePath(file));
      done = QFile::copy(drawn.filePath(file), kept.filePath(file)) && done;
    }
  }
  if (!done) throw std::runtime_error("the pictures for the test could not be kept");
}

Comparison comparePictures(const QList<QDir>& kept, const QDir& drawn, int percent) {
  if (!fontsAreThoseOf(kept)) return Comparison::otherFonts;
  int compared = 0;
  int wrong = 0;
  for (const QDir& folder : kept) {
    const QStringList names = folder.entryList({QStringLiteral("*-%1.png").arg(percent)}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
      ++compared;
      if (!isSame(folder.filePath(name), drawn, name)) ++wrong;
    }
  }
  if (wrong == 0 && compared > 0) return Comparison::same;
  say(QStringLiteral(
          "%1 of %2 kept pictures are drawn otherwise. When that is meant, look at them and keep the new ones: "
          "scripts/screenshots")
          .arg(wrong)
          .arg(compared));
  return Comparison::different;
}

}  // namespace tz::images
