#include "desktop/manual/manual_document.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>

#include "desktop/manual/manual_pages.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int lineHeight = 150;  // percent
constexpr int denseLines = 130;

struct Typography {
  int pixels;

  [[nodiscard]] int Em(double parts) const { return static_cast<int>(pixels * parts + 0.5); }
};

void setHeading(QTextCursor& cursor, int level, const Typography& type) {
  static constexpr double sizes[] = {1.7, 1.3, 1.1};
  static constexpr double above[] = {0.2, 1.4, 1.0};
  const int place = std::min(level, 3) - 1;
  QTextBlockFormat block;
  block.setTopMargin(type.Em(above[place]));
  block.setBottomMargin(type.Em(0.4));
  cursor.mergeBlockFormat(block);
  QTextCharFormat text;
  text.setFont(uiFont(type.Em(sizes[place]), QFont::DemiBold), QTextCharFormat::FontPropertiesSpecifiedOnly);
  text.setFontPointSize(0);
  text.setProperty(QTextFormat::FontPixelSize, type.Em(sizes[place]));
  text.clearProperty(QTextFormat::FontSizeAdjustment);
  text.setForeground(level == 1 ? currentTheme().accent : currentTheme().text);
  text.setAnchor(true);
  text.setAnchorNames({anchorOf(cursor.block().text())});
  cursor.mergeCharFormat(text);
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
  format.setCellPadding(type.Em(0.45));
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

void colourLinks(const QTextBlock& block, const QTextCursor& whole) {
  std::vector<std::pair<int, int>> links;
  for (auto part = block.begin(); !part.atEnd(); ++part) {
    const QTextFragment fragment = part.fragment();
    if (!fragment.charFormat().anchorHref().isEmpty()) links.emplace_back(fragment.position(), fragment.length());
  }
  for (const auto& [from, length] : links) {
    QTextCursor cursor(whole);
    cursor.setPosition(from);
    cursor.setPosition(from + length, QTextCursor::KeepAnchor);
    QTextCharFormat text;
    text.setForeground(currentTheme().accent);
    text.setFontUnderline(false);
    cursor.mergeCharFormat(text);
  }
}

}  // namespace

void setManualPageInto(QTextDocument& document, const QString& markdown, int pixels) {
  const Typography type{pixels};
  document.setUndoRedoEnabled(false);
  document.setDefaultFont(uiFont(pixels));
  document.setMarkdown(markdown);
  document.setDocumentMargin(type.Em(1.6));
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    cursor.setPosition(block.position());
    cursor.setPosition(block.position() + block.length() - 1, QTextCursor::KeepAnchor);
    const int level = block.blockFormat().headingLevel();
    level > 0 ? setHeading(cursor, level, type) : setText(cursor, type);
    colourLinks(block, cursor);
  }
  for (QTextFrame* frame : document.rootFrame()->childFrames()) {
    if (auto* table = qobject_cast<QTextTable*>(frame)) setTable(*table, type);
  }
  cursor.endEditBlock();
}

}  // namespace tz
