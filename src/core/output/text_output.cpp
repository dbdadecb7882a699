// A report as text. The table is kept light, since a page of seven columns reads best by its white space: one rule
// below the header; a thin rule over the figures of the first total row, as below a sum on paper, and an empty line
// behind the last, so that each month or group stands as a paragraph.
#include <algorithm>
#include <string>

#include "core/grid/figures.h"
#include "core/output/block_writer.h"
#include "core/output/display_text.h"
#include "core/output/text_layout.h"

namespace tz {
namespace {

constexpr std::string_view dim = "\x1b[2m";
constexpr std::string_view red = "\x1b[31m";
constexpr std::string_view greenGround = "\x1b[30;48;5;194m";
constexpr std::string_view black = "\x1b[30m";
constexpr std::string_view usualInk = "\x1b[39m";
// Bold and inverse: stands out on dark and light terminals alike.
constexpr std::string_view warning = "\x1b[1;7m";
constexpr std::string_view plain = "\x1b[0m";

// One line being written from the left; blanks are written only before something, so lines end without them.
class Line {
 public:
  explicit Line(std::string& out) : out_(out) {}

  void MoveTo(int column) {
    if (column <= at_) return;
    out_.append(static_cast<std::size_t>(column - at_), ' ');
    at_ = column;
  }
  // To where a text starts: at least a blank behind the one before, should that be too long for its column.
  void MoveToText(int column) {
    MoveTo(std::max(column, written_ ? at_ + 1 : 0));
    written_ = false;
  }
  void Put(int column, int width, std::string_view text, bool clean = true) {
    MoveToText(column);
    if (clean) {
      out_ += text;
    } else {
      appendShown(out_, text);
    }
    at_ += width;
    written_ = true;
  }
  void Rule(int column, int width) {
    MoveTo(column);
    for (int i = 0; i < width; ++i) out_ += "─";
    at_ += width;
  }

 private:
  std::string& out_;
  int at_ = 0;
  bool written_ = false;  // a text ends where the line ends
};

class TextWriter {
 public:
  TextWriter(const ComputedReport& report, const TextOptions& options, const Sink& sink)
      : report_(report),
        grid_(report.grid),
        options_(options),
        layout_(report.grid),
        writer_(sink),
        out_(writer_.text) {}

  bool Write() {
    WriteHead();
    WriteHeader();
    return WriteRows() && WriteFoot();
  }

 private:
  void Colour(std::string_view code) {
    if (options_.colour) out_ += code;
  }
  void EndLine() { out_ += '\n'; }

  void WriteFreeLine(std::string_view text) {
    appendShown(out_, text);
    EndLine();
  }

  void WriteHead() {
    for (const HeadLine& line : headLines(report_)) {
      if (line.kind == HeadLine::Kind::title) {
        const ShownText title = measureText(line.text);
        Line(out_).Put(std::max((layout_.width - title.width) / 2, 0), title.width, line.text, title.clean);
        EndLine();
      } else {
        const bool warns = line.kind == HeadLine::Kind::warning;
        if (warns) Colour(warning);
        appendShown(out_, line.text);
        if (warns) Colour(plain);
        EndLine();
      }
    }
    EndLine();
  }

  void WriteHeader() {
    if (!layout_.groups.empty()) {
      Line line(out_);
      for (const TextGroup& group : layout_.groups) WriteGroup(line, group);
      EndLine();
    }
    Line line(out_);
    for (std::size_t i = 0; i < layout_.columns.size(); ++i) {
      WriteText(line, layout_.columns[i], grid_.Columns()[i].caption);
    }
    EndLine();
    WriteRule(false);
  }

  // The caption in the middle of a rule that spans its columns.
  void WriteGroup(Line& line, const TextGroup& group) {
    const TextColumn& first = layout_.columns[static_cast<std::size_t>(group.first)];
    const TextColumn& last = layout_.columns[static_cast<std::size_t>(group.last)];
    const std::string& caption = grid_.Columns()[static_cast<std::size_t>(group.first)].group;
    const ShownText shown = measureText(caption);
    const int end = last.start + last.width;
    const int place = first.start + (end - first.start - shown.width) / 2;
    if (place > first.start + 1) line.Rule(first.start, place - 1 - first.start);
    line.Put(place, shown.width, caption, shown.clean);
    const int behind = place + shown.width + 1;
    if (behind < end) line.Rule(behind, end - behind);
  }

  void WriteRule(bool figuresOnly) {
    Colour(dim);
    Line line(out_);
    for (const TextColumn& column : layout_.columns) {
      if (column.figures || !figuresOnly) line.Rule(column.start, column.width);
    }
    Colour(plain);
    EndLine();
  }

  bool WriteRows() {
    RowKind previous = RowKind::heading;
    for (std::int64_t row = 0; row < grid_.GetRows(); ++row) {
      const RowKind kind = grid_.RowKindAt(row);
      const bool afterTotals = addsUp(previous) && !addsUp(kind);
      const bool newBlock = kind == RowKind::heading && previous != RowKind::heading;
      if (afterTotals || newBlock) EndLine();
      if (addsUp(kind) && !addsUp(previous) && row > 0) WriteRule(true);
      WriteRow(row);
      previous = kind;
      if (!writer_.HandOver()) return false;
    }
    if (grid_.GetRows() == 0) out_ += "（无记录）\n";
    return true;
  }

  void WriteRow(std::int64_t row) {
    const bool coloured = grid_.BackgroundAt(row) != noColour;
    if (coloured) Colour(greenGround);
    Line line(out_);
    if (coloured && !report_.highlightMeaning.empty()) line.Put(0, 1, "*");
    auto column = layout_.columns.begin();
    for (const CTzGrid::Cell& cell : grid_.CellsOf(row)) WriteCell(line, *column++, cell, coloured);
    if (coloured && options_.colour) line.MoveTo(layout_.width);
    if (coloured) Colour(plain);
    EndLine();
  }

  void WriteCell(Line& line, const TextColumn& column, const CTzGrid::Cell& cell, bool coloured) {
    switch (cell.type()) {
      case CTzGrid::CellType::text:
        WriteText(line, column, cell.text());
        break;
      case CTzGrid::CellType::number:
        figure_.clear();
        appendFigure(figure_, cell.number(), column.kind);
        WriteFigure(line, column, coloured);
        break;
      case CTzGrid::CellType::date:
        figure_.clear();
        appendDate(figure_, cell.date(), column.kind);
        Align(line, column, static_cast<int>(figure_.size()), figure_, true);
        break;
      case CTzGrid::CellType::empty:
        break;
    }
  }

  void WriteText(Line& line, const TextColumn& column, std::string_view text) {
    if (text.empty()) return;
    const ShownText shown = measureText(text);
    Align(line, column, shown.width, text, shown.clean);
  }

  static void Align(Line& line, const TextColumn& column, int width, std::string_view text, bool clean) {
    const int slack = column.figures ? std::max(column.width - width, 0) : 0;
    line.Put(column.start + slack, width, text, clean);
  }

  // The figure just made; outside its own columns as well it ends at the right.
  void WriteFigure(Line& line, const TextColumn& column, bool coloured) {
    const bool ascii = figure_.back() >= '0' && figure_.back() <= '9';
    const int width = ascii ? static_cast<int>(figure_.size()) : measureText(figure_).width;
    const int start = column.start + std::max(column.width - width, 0);
    const bool inRed = options_.colour && figure_.front() == '-';
    if (inRed) {
      line.MoveToText(start);
      out_ += red;
    }
    line.Put(start, width, figure_);
    if (inRed) out_ += coloured ? black : usualInk;
  }

  bool WriteFoot() {
    const bool legend = layout_.marked && !report_.highlightMeaning.empty();
    const auto below = remarks(grid_);
    if (legend || !below.empty()) EndLine();
    if (legend) WriteFreeLine("* " + report_.highlightMeaning);
    for (const std::string& remark : below) WriteFreeLine(remark);
    return writer_.Finish();
  }

  const ComputedReport& report_;
  const CTzGrid& grid_;
  const TextOptions& options_;
  const TextLayout layout_;
  BlockWriter writer_;
  std::string& out_;
  std::string figure_;
};

}  // namespace

bool writeText(const ComputedReport& report, const TextOptions& options, const Sink& sink) {
  return TextWriter(report, options, sink).Write();
}

}  // namespace tz
