#include "desktop/manual/manual_document.h"

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>
#include <array>
#include <vector>

#include "desktop/manual/manual_pages.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int lineHeight = 118;  // percent of what the face asks for
constexpr int denseLines = 100;

struct Typography {
  int pixels;

  [[nodiscard]] int Em(double parts) const { return qRound(pixels * parts); }
};

void setHeading(QTextCursor& cursor, int level, const Typography& type) {
  static constexpr std::array sizes = {1.7, 1.3, 1.1};
  static constexpr std::array above = {0.2, 1.4, 1.0};
  const auto place = static_cast<std::size_t>(std::min(level, 3) - 1);
  QTextBlockFormat block;
  block.setTopMargin(type.Em(above[place]));
  block.setBottomMargin(type.Em(0.4));
  cursor.mergeBlockFormat(block);
  // In place of what the reader set: its sizes follow the text's.
  QTextCharFormat text;
  text.setFont(uiFont(type.Em(sizes[place]), QFont::DemiBold));
  text.setForeground(level == 1 ? currentTheme().accent : currentTheme().text);
  text.setAnchor(true);
  text.setAnchorNames({anchorOf(cursor.block().text())});
  cursor.setCharFormat(text);
}

void setText(QTextCursor& cursor, const Typography& type) {
  const bool inTable = cursor.currentTable() != nullptr;
  QTextBlockFormat block;
  block.setLineHeight(inTable ? denseLines : lineHeight, QTextBlockFormat::ProportionalHeight);
  block.setTopMargin(0);
  block.setBottomMargin(inTable ? 0 : type.Em(cursor.currentList() != nullptr ? 0.25 : 0.6));
  cursor.mergeBlockFormat(block);
}

void setTable(QTextTable& table, const Typography& type) {
  QTextTableFormat format = table.format();
  format.setBorderCollapse(true);
  format.setBorder(1);
  format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setBorderBrush(currentTheme().rule);
  format.setCellPadding(type.Em(0.35));
  format.setCellSpacing(0);
  format.setTopMargin(type.Em(0.2));
  format.setBottomMargin(type.Em(1));
  table.setFormat(format);
  for (int column = 0; column < table.columns(); ++column) {
    QTextTableCell cell = table.cellAt(0, column);
    QTextCharFormat head = cell.format();
    head.setBackground(currentTheme().header);
    cell.setFormat(head);
    QTextCursor words = cell.firstCursorPosition();
    words.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::DemiBold);
    words.mergeCharFormat(bold);
  }
}

// Links in the accent, what is typed in a terminal on a ground of its own.
void setParts(const QTextBlock& block, QTextDocument& document, const Typography& type) {
  std::vector<std::pair<QTextFragment, QTextCharFormat>> parts;
  for (auto part = block.begin(); !part.atEnd(); ++part) {
    const QTextFragment fragment = part.fragment();
    QTextCharFormat text;
    if (!fragment.charFormat().anchorHref().isEmpty()) {
      text.setForeground(currentTheme().accent);
      text.setFontUnderline(false);
    }
    if (fragment.charFormat().fontFixedPitch()) {
      text.setBackground(currentTheme().header);
      text.setProperty(QTextFormat::FontPixelSize, type.Em(0.9));
    }
    if (text.propertyCount() > 0) parts.emplace_back(fragment, text);
  }
  for (const auto& [fragment, text] : parts) {
    QTextCursor cursor(&document);
    cursor.setPosition(fragment.position());
    cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(text);
  }
}

// The reader gives an empty cell to its neighbour; one with a blank that does not break stays.
QString withFilledCells(QString markdown) {
  static const QRegularExpression emptyCell(QStringLiteral(R"(\|[ ]*(?=\|))"));
  return markdown.replace(emptyCell, QStringLiteral("| \u00A0 "));
}

}  // namespace

QTextDocument* manualDocument(const QString& markdown, int pixels, QObject* parent) {
  const Typography type{pixels};
  auto* made = new QTextDocument(parent);
  QTextDocument& document = *made;
  document.setUndoRedoEnabled(false);
  document.setDefaultFont(uiFont(pixels));
  document.setMarkdown(withFilledCells(markdown));
  document.setDocumentMargin(type.Em(1.6));
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    cursor.setPosition(block.position());
    cursor.setPosition(block.position() + block.length() - 1, QTextCursor::KeepAnchor);
    const int level = block.blockFormat().headingLevel();
    level > 0 ? setHeading(cursor, level, type) : setText(cursor, type);
    setParts(block, document, type);
  }
  for (QTextFrame* frame : document.rootFrame()->childFrames()) {
    if (auto* table = qobject_cast<QTextTable*>(frame)) setTable(*table, type);
  }
  cursor.endEditBlock();
  return made;
}

}  // namespace tz
