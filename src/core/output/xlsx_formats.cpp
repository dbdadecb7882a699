#include "core/output/xlsx_formats.h"

#include <cmath>

#include "core/platform/sink.h"

namespace tz {
namespace {

const char* numberFormat(XlsxCell cell) {
  switch (cell) {
    case XlsxCell::date:
      return "yyyy.mm.dd";
    case XlsxCell::isoDate:
      return "yyyy-mm-dd";
    case XlsxCell::amount:
      return "#,##0.00;[Red]-#,##0.00";
    case XlsxCell::price:
      return "#,##0.00##;[Red]-#,##0.00##";
    case XlsxCell::quantity:
      return "#,##0.####;[Red]-#,##0.####";
    case XlsxCell::rate:
      return "#,##0.######;[Red]-#,##0.######";
    case XlsxCell::whole:
      return "#,##0;[Red]-#,##0";
    default:
      return nullptr;
  }
}

// Whether a number shown with this many parts of one has nothing behind the point.
bool showsWhole(double number, double parts) {
  const double rounded = std::round(number * parts) / parts;
  return rounded == std::round(rounded);
}

}  // namespace

XlsxCell XlsxFormats::CellFor(double number, ColumnKind kind) {
  const FigureForm& form = traitsOf(kind).form;
  if (!std::isfinite(number)) return XlsxCell::textRight;
  if (form.decimals == 0 || (form.kept == 0 && showsWhole(number, form.scale))) return XlsxCell::whole;
  if (form.fixed()) return XlsxCell::amount;
  if (form.kept != 0) return XlsxCell::price;
  return form.decimals == fourDecimals.decimals ? XlsxCell::quantity : XlsxCell::rate;
}

lxw_format* XlsxFormats::Get(XlsxCell cell, bool bold, Rgb ground) {
  const std::uint64_t key = std::uint64_t{ground} << 16 | static_cast<std::uint64_t>(cell) << 1 | (bold ? 1U : 0U);
  lxw_format*& format = formats_[key];
  if (format == nullptr) format = Make(cell, bold, ground);
  return format;
}

lxw_format* XlsxFormats::Make(XlsxCell cell, bool bold, Rgb ground) {
  lxw_format* format = library_.addFormat(workbook_);
  if (format == nullptr) throw OutputError("无法写入 xlsx 文件：内存不足");
  if (const char* form = numberFormat(cell)) library_.setNumberFormat(format, form);
  if (bold) library_.setBold(format);
  if (ground != noColour) library_.setGround(format, ground);
  if (cell == XlsxCell::date || cell == XlsxCell::isoDate) library_.setAlign(format, LXW_ALIGN_LEFT);
  if (cell == XlsxCell::textRight) library_.setAlign(format, LXW_ALIGN_RIGHT);
  if (cell == XlsxCell::title) library_.setFontSize(format, 16);
  if (cell == XlsxCell::title || cell == XlsxCell::caption || cell == XlsxCell::group) {
    library_.setAlign(format, LXW_ALIGN_CENTER);
  }
  if (cell == XlsxCell::group) library_.setTopBorder(format, LXW_BORDER_THIN);
  if (cell == XlsxCell::caption) library_.setBottomBorder(format, LXW_BORDER_THIN);
  return format;
}

}  // namespace tz
