// Pictures that are kept beside those of the manual, so that a test can draw them again and compare.
#pragma once

#include <QDir>
#include <QImage>

namespace tz::images {

// Texts in the three faces, drawn without a window or a style: where it differs from the one that is kept, no picture
// of a window can be the same. It names the toolkit that drew it.
[[nodiscard]] QImage specimen();

// Copies windows and states that the manual does not show, and writes the specimen. Throws std::runtime_error.
void keepPictures(const QDir& drawn, const QDir& kept);

enum class Comparison { same, different, otherFonts };

// Holds what `drawn` has against the pictures of this scale (100, 200) in `kept`. Says on standard error what
// differs and where, and leaves NAME.difference.png beside the drawn picture.
[[nodiscard]] Comparison comparePictures(const QList<QDir>& kept, const QDir& drawn, int percent);

}  // namespace tz::images
