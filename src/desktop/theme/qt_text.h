// Between the core's UTF-8 texts and the toolkit's.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tz {

[[nodiscard]] inline QString toQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string fromQt(const QString& text) { return text.toStdString(); }

}  // namespace tz
