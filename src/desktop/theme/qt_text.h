// Between the core's UTF-8 texts and the toolkit's, and how windows write counts.
#pragma once

#include <QLocale>
#include <QString>
#include <string>
#include <string_view>

namespace tz {

[[nodiscard]] inline QString toQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string fromQt(const QString& text) { return text.toStdString(); }
// "1,345".
[[nodiscard]] inline QString grouped(qint64 number) { return QLocale(QLocale::Chinese).toString(number); }

}  // namespace tz
