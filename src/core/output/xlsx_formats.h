// The cell formats of one workbook, each made when first needed.
#pragma once

#include <map>

#include "core/grid/tz_grid.h"
#include "core/output/xlsx_library.h"

namespace tz {

// What a cell holds, as far as it decides how the cell is written. Whole quantities have a form of their own, since
// "#,##0.####" would leave them with a point at the end.
enum class XlsxCell : std::uint8_t {
  text,
  textRight,
  date,
  isoDate,
  amount,
  price,
  quantity,
  rate,
  whole,
  title,
  caption,
  group
};

class XlsxFormats {
 public:
  XlsxFormats(const XlsxLibrary& library, lxw_workbook* workbook) : library_(library), workbook_(workbook) {}

  // Bold for totals; `ground` noColour for none.
  [[nodiscard]] lxw_format* Get(XlsxCell cell, bool bold, Rgb ground);
  // The form of a number in a column of this kind.
  [[nodiscard]] static XlsxCell CellFor(double number, ColumnKind kind);

 private:
  [[nodiscard]] lxw_format* Make(XlsxCell cell, bool bold, Rgb ground);

  const XlsxLibrary& library_;
  lxw_workbook* workbook_;
  std::map<std::uint64_t, lxw_format*> formats_;
};

}  // namespace tz
