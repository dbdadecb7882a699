// A report as printed pages: which rows stand on each, below which head and header, and what is carried from one to the
// next. The desktop paints it, on paper, into a PDF and in the preview alike. Lengths are points.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/output/page_columns.h"
#include "core/output/page_head.h"
#include "core/output/report_output.h"

namespace tz {

// A line of the table.
struct PageLine {
  enum class Kind : std::uint8_t { row, broughtForward, carriedForward };
  Kind kind = Kind::row;
  std::int64_t row = 0;  // of the grid; of a carried line the one whose balance it repeats
  double top = 0;        // from the top margin
  double height = 0;
};

// The rows [first, end) of the grid, on one sheet for each strip of columns.
struct Page {
  std::int64_t first = 0;
  std::int64_t end = 0;
  bool brought = false;        // begins with "承前页"
  bool carried = false;        // ends with "过次页"
  std::vector<double> sums;    // per column, of the month so far; with `carried`
  std::vector<double> before;  // those of the page before; with `brought`
};

class ReportPages {
 public:
  // The report must outlive it.
  ReportPages(const ComputedReport& report, const PageOptions& options, PageStamp stamp = {});

  [[nodiscard]] const PageColumns& Columns() const { return columns_; }
  [[nodiscard]] const PageHead& Head() const { return head_; }
  // Of the table's header: one line of captions, or two where columns stand in groups.
  [[nodiscard]] double HeaderHeight() const { return headerLines_ * columns_.rowHeight(1); }
  [[nodiscard]] bool HasGroups() const { return headerLines_ > 1; }

  [[nodiscard]] const std::vector<Page>& Pages() const { return pages_; }
  // Sheets of paper: each page once for every strip.
  [[nodiscard]] std::size_t Sheets() const { return pages_.size() * columns_.strips.size(); }

  [[nodiscard]] std::vector<PageLine> LinesOf(const Page& page) const;
  // What a line shows in a column of the grid, on one line or several; empty for nothing.
  [[nodiscard]] std::vector<std::string> TextOf(const Page& page, const PageLine& line, const PageColumn& column) const;
  static constexpr double remarkSize = 9;  // of a remark's letters
  static constexpr double remarkHeight = remarkSize * 1.4;
  // Remarks below the table of the last page, and where they begin.
  [[nodiscard]] const std::vector<std::string>& Remarks() const { return remarks_; }
  [[nodiscard]] double RemarksTop(const Page& last) const;
  // What stands below each sheet, counted from 1: who printed, which page of how many, when; and what coloured rows
  // mean, where the sheet has such.
  struct Foot {
    std::string left, centre, right, colour;
  };
  [[nodiscard]] Foot FootOf(std::size_t sheet) const;
  [[nodiscard]] const ComputedReport& Report() const { return report_; }

 private:
  void Divide(bool carriedLines);
  [[nodiscard]] std::int64_t EndOf(const Page& page, bool carriedLines) const;
  [[nodiscard]] double RowHeight(std::int64_t row) const;
  [[nodiscard]] double TableTop() const { return head_.height + HeaderHeight(); }
  [[nodiscard]] double RemarksHeight() const;
  [[nodiscard]] bool HasColour(const Page& page) const;
  // Whether the first row of a page may be this one.
  [[nodiscard]] bool MayBegin(std::int64_t row) const;
  // Whether what stands before a row is carried over to it.
  [[nodiscard]] bool CarriesInto(std::int64_t row) const;
  void AddMoved(std::vector<double>& sums, std::int64_t row) const;

  const ComputedReport& report_;
  const CTzGrid& grid_;
  PageStamp stamp_;
  PageColumns columns_;
  PageHead head_;
  int headerLines_ = 1;
  std::vector<std::string> remarks_;
  std::vector<Page> pages_;
};

}  // namespace tz
