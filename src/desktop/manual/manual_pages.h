// The pages of the user manual, which the program carries in itself: docs/manual as it was built. The contents are
// those of its first page, "index".
#pragma once

#include <QString>
#include <QUrl>
#include <vector>

namespace tz {

// The Markdown of a page; empty when there is none of that name.
[[nodiscard]] QString manualText(const QString& page);
// Every page, the first one first.
[[nodiscard]] const std::vector<QString>& manualPages();

// A chapter of the contents: a page with its title, or a heading over pages.
struct ManualEntry {
  QString title;
  QString page;  // empty for a heading
};
[[nodiscard]] std::vector<ManualEntry> manualContents();

// A page and a heading on it.
struct ManualPlace {
  QString page;
  QString anchor;

  bool operator==(const ManualPlace&) const = default;
};
[[nodiscard]] ManualPlace manualPlace(const QString& target);
// Where a link of a page leads to; no page where it leads out of the manual.
[[nodiscard]] ManualPlace linkedPlace(const QString& fromPage, const QString& link);
// The anchor of a heading, as readers of Markdown make it.
[[nodiscard]] QString anchorOf(const QString& heading);

// A section of a page in which all words stand.
struct ManualHit {
  ManualPlace place;
  QString title;    // of the page
  QString heading;  // of the section
  QString words;    // the words in their sentence
};
[[nodiscard]] std::vector<ManualHit> searchManual(const QString& words);

}  // namespace tz
