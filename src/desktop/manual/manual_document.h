// A page of the manual set for reading: Markdown with headings that links lead to, and tables with lines and room, in
// the colours of the theme.
#pragma once

#include <QString>

class QTextDocument;

namespace tz {

// `pixels` is the height of running text.
void setManualPageInto(QTextDocument& document, const QString& markdown, int pixels);

}  // namespace tz
