#include "desktop/page/page_painter.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>

#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// Fonts come in whole pixels and are hinted to them; letters are set in twentieths of a point, where neither shows.
constexpr double grain = 20;
constexpr double padding = 0.45;  // beside a cell's text, in sizes of its letters
constexpr double stroke = 0.035;  // by which bold letters are thicker, in sizes of them
constexpr double thinRule = 0.4;
constexpr double boldRule = 0.9;
const QColor ink(0x14, 0x14, 0x14);
const QColor redInk(0xB0, 0x14, 0x14);
const QColor ruleInk(0x8C, 0x8C, 0x8C);
const QColor headerGround(0xEE, 0xF1, 0xF4);
const QColor headingGround(0xF1, 0xF5, 0xFA);
constexpr double rowBarWidth = 2.5;  // of the bar beside a coloured row, which is seen without colours too
constexpr int rowBarDepth = 160;     // percent, against the row's ground

struct PrintedRow {
  QColor ground;     // none: white
  bool strong;       // bold letters
  double ruleAbove;  // 0: that of the row before
};

// As far apart on paper as on a screen, also without colours.
PrintedRow printedRow(RowKind kind) {
  switch (kind) {
    case RowKind::line:
    case RowKind::opening:
      return {{}, false, 0};
    case RowKind::heading:
      return {headingGround, true, 0};
    case RowKind::monthTotal:
    case RowKind::yearTotal:
      return {QColor(0xF7, 0xF7, 0xF7), true, 0};
    case RowKind::subtotal:
      return {QColor(0xEF, 0xEF, 0xEF), true, 0.7};
    case RowKind::total:
      return {QColor(0xE7, 0xE7, 0xE7), true, 1.2};
  }
  return {};
}

QColor rowBarOf(Rgb ground) { return QColor::fromRgb(ground).darker(rowBarDepth); }

QFont faceOf(const char* family, double points, bool bold = false) {
  QFont font(QString::fromUtf8(family));
  font.setPixelSize(std::max(1, qRound(points * grain)));
  font.setBold(bold);
  return font;
}

// A Song face whose glyphs stand for one character each: of others, texts that are copied from a PDF come out as the
// radicals that look alike.
QFont textFace(double points, bool bold = false) { return faceOf("AR PL UMing CN", points, bold); }

QFont faceOf(const HeadPiece& piece) {
  if (piece.face == HeadPiece::Face::title) return faceOf("楷体_GB2312", piece.size, true);
  return textFace(piece.size, piece.face == HeadPiece::Face::warning);
}

enum class Align { left, centre, right };

}  // namespace

// One sheet being painted, in points from the corner of what the margins leave.
struct PagePainter::Sheet {
  QPainter& painter;
  const Page& page;
  const PageStrip& strip;
  double width;
  double height;

  // A line of text in a box; gives where it ends. What is wider than its box is squeezed into it: nothing is cut.
  double text(const QRectF& box, Align align, const QString& words, const QFont& font,
              const QColor& colour = ink) const {
    if (words.isEmpty()) return box.left();
    const QFontMetricsF metrics(font);
    const double natural = metrics.horizontalAdvance(words) / grain;
    const double squeeze = natural > box.width() && natural > 0 ? box.width() / natural : 1;
    const double slack = box.width() - natural * squeeze;
    const double left = box.left() + (align == Align::right ? slack : align == Align::centre ? slack / 2 : 0);
    const double base = box.center().y() + (metrics.ascent() - metrics.descent()) / grain / 2;
    painter.save();
    painter.translate(left, base);
    painter.scale(squeeze / grain, 1 / grain);
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(QPointF(0, 0), words);
    // A face without a bold cut is made bold on paper, but not where letters are painted as pixels.
    const bool pixels = painter.paintEngine()->type() == QPaintEngine::Raster;
    if (pixels && font.bold()) painter.drawText(QPointF(font.pixelSize() * stroke, 0), words);
    painter.restore();
    return left + natural * squeeze;
  }
  void rule(double x1, double y1, double x2, double y2, double thickness) const {
    painter.setPen(QPen(ruleInk, thickness));
    painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
  }
};

double pageColumnEm() {
  const QFontMetricsF metrics(textFace(10));
  const double em = metrics.horizontalAdvance(QStringLiteral("汉"));
  return std::max(em / 2, metrics.horizontalAdvance(QStringLiteral("0123456789")) / 10) / (10 * grain);
}

PagePainter::PagePainter(const ReportPages& pages)
    : pages_(pages), text_(textFace(pages.Columns().letterSize)), strong_(textFace(pages.Columns().letterSize, true)) {}

void PagePainter::Paint(QPainter& painter, std::size_t sheet, double scale) const {
  const auto& columns = pages_.Columns();
  const auto strips = columns.strips.size();
  const Sheet on{painter, pages_.Pages()[sheet / strips], columns.strips[sheet % strips], columns.paper.innerWidth(),
                 columns.paper.innerHeight()};
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  painter.translate(columns.paper.left, columns.paper.top);
  PaintHead(on);
  const auto lines = pages_.LinesOf(on.page);
  for (const auto& line : lines) PaintGround(on, line);
  for (const auto& line : lines) PaintLine(on, line);
  PaintHeader(on);
  PaintRules(on, lines.empty() ? pages_.Head().height + pages_.HeaderHeight() : lines.back().top + lines.back().height);
  if (&on.page == &pages_.Pages().back()) PaintRemarks(on);
  PaintFoot(on, sheet + 1);
  painter.restore();
}

void PagePainter::PaintHead(const Sheet& sheet) const {
  for (const auto& piece : pages_.Head().pieces) {
    const auto align = piece.place == HeadPiece::Place::left     ? Align::left
                       : piece.place == HeadPiece::Place::centre ? Align::centre
                                                                 : Align::right;
    sheet.text(QRectF(0, piece.top, sheet.width, piece.size * 1.3), align, toQt(piece.text), faceOf(piece));
  }
}

void PagePainter::PaintHeader(const Sheet& sheet) const {
  const auto& grid = pages_.Report().grid;
  const double top = pages_.Head().height;
  const double height = pages_.HeaderHeight();
  const double line = pages_.HasGroups() ? height / 2 : height;
  sheet.painter.fillRect(QRectF(0, top, sheet.width, height), headerGround);
  for (const auto& column : sheet.strip) {
    const auto& about = grid.Columns()[static_cast<std::size_t>(column.column)];
    const bool below = pages_.HasGroups() && !about.group.empty();
    const QRectF box(column.left + 1, below ? top + line : top, column.width - 2, below ? line : height);
    sheet.text(box, Align::centre, toQt(about.caption), strong_);
  }
  if (pages_.HasGroups()) PaintGroups(sheet);
}

void PagePainter::PaintGroups(const Sheet& sheet) const {
  const auto& columns = pages_.Report().grid.Columns();
  const auto groupOf = [&](const PageColumn& one) { return columns[static_cast<std::size_t>(one.column)].group; };
  const double top = pages_.Head().height;
  const double line = pages_.HeaderHeight() / 2;
  for (auto first = sheet.strip.begin(); first != sheet.strip.end();) {
    const auto group = groupOf(*first);
    const auto end =
        std::find_if(first, sheet.strip.end(), [&](const PageColumn& one) { return groupOf(one) != group; });
    const auto& last = *(end - 1);
    if (!group.empty()) {
      const QRectF box(first->left, top, last.left + last.width - first->left, line);
      sheet.text(box, Align::centre, toQt(group), strong_);
      sheet.rule(box.left(), box.bottom(), box.right(), box.bottom(), thinRule);
    }
    first = end;
  }
}

// Grounds lie below the rules of their neighbours.
void PagePainter::PaintGround(const Sheet& sheet, const PageLine& line) const {
  const auto& grid = pages_.Report().grid;
  const bool row = line.kind == PageLine::Kind::row;
  if (!row) return;
  const QRectF box(0, line.top, sheet.width, line.height);
  const auto colour = grid.BackgroundAt(line.row);
  const auto ground = colour == noColour ? printedRow(grid.RowKindAt(line.row)).ground : QColor::fromRgb(colour);
  if (ground.isValid()) sheet.painter.fillRect(box, ground);
  if (colour != noColour) sheet.painter.fillRect(QRectF(0, line.top, rowBarWidth, line.height), rowBarOf(colour));
}

void PagePainter::PaintLine(const Sheet& sheet, const PageLine& line) const {
  for (const auto& column : sheet.strip) PaintCell(sheet, line, column);
  const auto kind = pages_.Report().grid.RowKindAt(line.row);
  const double above = line.kind == PageLine::Kind::row ? printedRow(kind).ruleAbove : 0;
  if (above > 0) sheet.rule(0, line.top, sheet.width, line.top, above);
  const double bottom = line.top + line.height;
  sheet.rule(0, bottom, sheet.width, bottom, thinRule);
}

void PagePainter::PaintCell(const Sheet& sheet, const PageLine& line, const PageColumn& column) const {
  const auto lines = pages_.TextOf(sheet.page, line, column);
  if (lines.empty()) return;
  const auto& grid = pages_.Report().grid;
  const auto& columns = pages_.Columns();
  const auto kind = grid.Columns()[static_cast<std::size_t>(column.column)].kind;
  const bool figures = traitsOf(kind).alignsRight();
  const bool strong = line.kind == PageLine::Kind::row && printedRow(grid.RowKindAt(line.row)).strong;
  const auto& font = strong ? strong_ : text_;
  const auto align = figures ? Align::right : column.centred ? Align::centre : Align::left;
  const double inset = columns.letterSize * padding;
  const double each = columns.lineHeight();
  double top = line.top + (line.height - each * static_cast<double>(lines.size())) / 2;
  for (const auto& text : lines) {
    const QRectF box(column.left + inset, top, column.width - 2 * inset, each);
    const bool red = figures && text.starts_with('-');
    sheet.text(box, align, toQt(text), font, red ? redInk : ink);
    top += each;
  }
}

void PagePainter::PaintRules(const Sheet& sheet, double bottom) const {
  const double top = pages_.Head().height;
  const double header = top + pages_.HeaderHeight();
  const auto& columns = pages_.Report().grid.Columns();
  std::string before;
  for (const auto& column : sheet.strip) {
    const auto& group = columns[static_cast<std::size_t>(column.column)].group;
    // Inside a group only the lower line of the header is parted.
    const bool inside = !group.empty() && group == before && column.left > 0;
    const double from = inside ? (top + header) / 2 : top;
    if (column.left > 0) sheet.rule(column.left, from, column.left, bottom, thinRule);
    before = group;
  }
  for (const double x : {0.0, sheet.width}) sheet.rule(x, top, x, bottom, boldRule);
  for (const double y : {top, header, bottom}) sheet.rule(0, y, sheet.width, y, boldRule);
}

void PagePainter::PaintRemarks(const Sheet& sheet) const {
  double top = pages_.RemarksTop(sheet.page);
  for (const auto& remark : pages_.Remarks()) {
    sheet.text(QRectF(0, top, sheet.width, ReportPages::remarkHeight), Align::left, toQt(remark),
               textFace(ReportPages::remarkSize));
    top += ReportPages::remarkHeight;
  }
}

void PagePainter::PaintFoot(const Sheet& sheet, std::size_t number) const {
  constexpr double size = 8;
  constexpr double sides = 0.36;  // of the width, beside the number of the page
  const auto foot = pages_.FootOf(number);
  const QRectF line(0, sheet.height + 6, sheet.width, size * 1.4);
  const double side = sheet.width * sides;
  const QFont font = textFace(size);
  const QRectF left(line.left(), line.top(), side, line.height());
  const double after = sheet.text(left, Align::left, toQt(foot.left).simplified(), font);
  sheet.text(line, Align::centre, toQt(foot.centre), font);
  sheet.text({line.right() - side, line.top(), side, line.height()}, Align::right, toQt(foot.right), font);
  if (foot.colour.empty()) return;
  // A piece of such a row, and what it means.
  const QRectF swatch(after + (foot.left.empty() ? 0 : size), line.top() + 1, 3 * size, line.height() - 2);
  sheet.painter.fillRect(swatch, QColor::fromRgb(lightGreen));
  sheet.painter.fillRect(QRectF(swatch.topLeft(), QSizeF(rowBarWidth, swatch.height())), rowBarOf(lightGreen));
  const QRectF words(swatch.right() + size / 2, line.top(), left.right() - swatch.right() - size / 2, line.height());
  sheet.text(words, Align::left, toQt(foot.colour), font);
}

}  // namespace tz
