// A page of the manual set for reading: Markdown with headings that links lead to, and tables with lines and room, in
// the colours of the theme.
#pragma once

#include <QString>

class QObject;
class QTextDocument;

namespace tz {

// `pixels` is the height of running text. What is not shown yet is not laid out at each change.
[[nodiscard]] QTextDocument* manualDocument(const QString& markdown, int pixels, QObject* parent);

}  // namespace tz
