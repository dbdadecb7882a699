// Paints the pages of a report: on paper, into a PDF and in the preview by the same strokes. Always dark on white,
// whatever the windows' theme.
#pragma once

#include <QFont>

#include "core/output/report_pages.h"

class QPainter;

namespace tz {

// How the letters of a page compare with their size, for ReportPages.
[[nodiscard]] double pageColumnEm();

class PagePainter {
 public:
  // The pages must outlive it.
  explicit PagePainter(const ReportPages& pages);

  // A sheet, counted from 0, with the paper's corner at the painter's origin; `scale` device units make a point.
  void Paint(QPainter& painter, std::size_t sheet, double scale) const;

 private:
  struct Sheet;

  void PaintHead(const Sheet& sheet) const;
  void PaintHeader(const Sheet& sheet) const;
  void PaintGroups(const Sheet& sheet) const;
  void PaintGround(const Sheet& sheet, const PageLine& line) const;
  void PaintLine(const Sheet& sheet, const PageLine& line) const;
  void PaintCell(const Sheet& sheet, const PageLine& line, const PageColumn& column) const;
  void PaintRules(const Sheet& sheet, double bottom) const;
  void PaintRemarks(const Sheet& sheet) const;
  void PaintFoot(const Sheet& sheet, std::size_t number) const;

  const ReportPages& pages_;
  QFont text_;    // of the table
  QFont strong_;  // of its header and totals
};

}  // namespace tz
