#include "desktop/manual/manual_pages.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>

namespace tz {
namespace {

constexpr QLatin1String root(":/manual/");
constexpr QLatin1String ending(".md");
constexpr QLatin1String indexPage("index");

// One heading and what stands below it, without marks of Markdown.
struct Section {
  ManualPlace place;
  QString title;
  QString heading;
  QStringList lines;
};

// A line break inside a paragraph is none on the screen; between Chinese signs no blank stands for it either.
QString unwrapped(const QString& markdown) {
  static const QRegularExpression begins(QStringLiteral(R"(^ {4}|^\s*([#|>]|[-*]\s|\d+\.\s|```|$))"));
  QStringList lines;
  bool fenced = false;
  for (const QString& line : markdown.split(QLatin1Char('\n'))) {
    const bool fence = line.startsWith(QStringLiteral("```"));
    const bool goesOn = !fenced && !lines.empty() && !lines.back().startsWith(QStringLiteral("```")) &&
                        !lines.back().isEmpty() && !begins.match(line).hasMatch() &&
                        !lines.back().startsWith(QLatin1Char('#')) && !lines.back().startsWith(QLatin1Char('|'));
    if (fence) fenced = !fenced;
    if (!goesOn) {
      lines << line;
      continue;
    }
    const QString more = line.trimmed();
    const auto latin = [](QChar sign) { return sign.unicode() < 0x100; };
    if (latin(lines.back().back()) && latin(more.front())) lines.back() += QLatin1Char(' ');
    lines.back() += more;
  }
  return lines.join(QLatin1Char('\n'));
}

QString withoutMarks(QString line) {
  static const QRegularExpression link(QStringLiteral(R"(\[([^\]]*)\]\([^)]*\))"));
  static const QRegularExpression marks(QStringLiteral(R"(^\s*([-*]|\d+\.)\s+|\*\*|`|\\(?=[^\w\s]))"));
  line.replace(link, QStringLiteral("\\1"));
  line.remove(marks);
  line.replace(QStringLiteral(" | "), QStringLiteral("　"));
  return line.remove(QLatin1Char('|')).trimmed();
}

void addSections(const QString& page, std::vector<Section>& sections) {
  QString title;
  for (const QString& line : manualText(page).split(QLatin1Char('\n'))) {
    const auto level = std::ranges::find_if(line, [](QChar sign) { return sign != QLatin1Char('#'); }) - line.begin();
    if (level > 0) {
      const QString heading = withoutMarks(line.mid(level));
      if (title.isEmpty()) title = heading;
      sections.push_back({{page, level == 1 ? QString() : anchorOf(heading)}, title, heading, {}});
    } else if (!sections.empty() && !line.startsWith(QStringLiteral("|---"))) {
      if (const QString text = withoutMarks(line); !text.isEmpty()) sections.back().lines << text;
    }
  }
}

const std::vector<Section>& allSections() {
  static const auto sections = [] {
    std::vector<Section> all;
    for (const QString& page : manualPages()) addSections(page, all);
    return all;
  }();
  return sections;
}

bool holdsAll(const QString& text, const QStringList& words) {
  return std::ranges::all_of(words, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

// The line that says most of it, from a little before the first word on.
QString sentenceOf(const Section& section, const QStringList& words) {
  const auto count = [&](const QString& line) {
    return std::ranges::count_if(words, [&](const QString& word) { return line.contains(word, Qt::CaseInsensitive); });
  };
  const auto best = std::ranges::max_element(section.lines, {}, count);
  if (best == section.lines.end()) return {};
  constexpr int before = 12;
  constexpr int longest = 60;
  const auto at = best->indexOf(words.front(), 0, Qt::CaseInsensitive);
  const auto start = at > before ? at - before : 0;
  QString sentence = best->mid(start, longest);
  if (start > 0) sentence.prepend(QStringLiteral("…"));
  if (start + longest < best->size()) sentence.append(QStringLiteral("…"));
  return sentence;
}

}  // namespace

QString manualText(const QString& page) {
  QFile file(root + page + ending);
  return file.open(QIODevice::ReadOnly) ? unwrapped(QString::fromUtf8(file.readAll())) : QString();
}

const std::vector<QString>& manualPages() {
  static const auto pages = [] {
    std::vector<QString> all;
    QDirIterator files(root, {QStringLiteral("*.md")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) all.push_back(files.next().mid(root.size()).chopped(ending.size()));
    std::ranges::sort(all, {}, [](const QString& page) { return std::pair(page != indexPage, page); });
    return all;
  }();
  return pages;
}

std::vector<ManualEntry> manualContents() {
  static const QRegularExpression link(QStringLiteral(R"(^\s*-\s+\[([^\]]*)\]\(([^)]*)\))"));
  std::vector<ManualEntry> entries;
  for (const QString& line : manualText(indexPage).split(QLatin1Char('\n'))) {
    if (line.startsWith(QStringLiteral("## "))) entries.push_back({line.mid(3).trimmed(), {}});
    if (const auto found = link.match(line); found.hasMatch()) {
      entries.push_back({found.captured(1), linkedPlace(indexPage, found.captured(2)).page});
    }
  }
  return entries;
}

ManualPlace manualPlace(const QString& target) {
  return {target.section(QLatin1Char('#'), 0, 0), target.section(QLatin1Char('#'), 1)};
}

ManualPlace linkedPlace(const QString& fromPage, const QString& link) {
  const QString scheme = QStringLiteral("manual");
  const QUrl target = QUrl(scheme + QStringLiteral(":/") + fromPage + ending).resolved(QUrl(link));
  const QString path = target.path(QUrl::FullyDecoded);
  if (target.scheme() != scheme || !path.endsWith(ending)) return {};
  return {path.mid(1).chopped(ending.size()), target.fragment(QUrl::FullyDecoded)};
}

QString anchorOf(const QString& heading) {
  QString anchor;
  for (const QChar sign : heading.toLower()) {
    if (sign.isLetterOrNumber() || sign == QLatin1Char('-') || sign == QLatin1Char('_')) anchor += sign;
    if (sign == QLatin1Char(' ')) anchor += QLatin1Char('-');
  }
  return anchor;
}

std::vector<ManualHit> searchManual(const QString& words) {
  const QStringList wanted = words.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
  if (wanted.empty()) return {};
  std::vector<ManualHit> inHeadings;
  std::vector<ManualHit> elsewhere;
  for (const Section& section : allSections()) {
    const QString headings = section.title + QLatin1Char('\n') + section.heading;
    const bool named = holdsAll(section.heading, wanted);
    if (!named && !holdsAll(headings + QLatin1Char('\n') + section.lines.join(QLatin1Char('\n')), wanted)) continue;
    (named ? inHeadings : elsewhere)
        .push_back({section.place, section.title, section.heading, sentenceOf(section, wanted)});
  }
  std::ranges::move(elsewhere, std::back_inserter(inHeadings));
  return inHeadings;
}

}  // namespace tz
