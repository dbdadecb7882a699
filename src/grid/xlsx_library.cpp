#include "grid/xlsx_library.h"

#include <string>

#include "grid/platform.h"

namespace tz {
namespace {

template <class Function>
void take(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(platform::functionOf(library, name));  // NOLINT
  if (function == nullptr) throw OutputError(std::string("libxlsxwriter 缺少 ") + name);
}

XlsxLibrary load() {
  void* library = platform::loadLibrary("libxlsxwriter.so." LXW_SOVERSION);
  if (library == nullptr) throw OutputError("导出 xlsx 需要 libxlsxwriter，本机没有安装");
  XlsxLibrary result{};
  take(library, "workbook_new_opt", result.newWorkbook);
  take(library, "workbook_add_worksheet", result.addWorksheet);
  take(library, "workbook_add_format", result.addFormat);
  take(library, "workbook_close", result.closeWorkbook);
  take(library, "lxw_workbook_free", result.freeWorkbook);
  take(library, "lxw_strerror", result.errorText);
  take(library, "worksheet_write_string", result.writeString);
  take(library, "worksheet_write_number", result.writeNumber);
  take(library, "worksheet_write_datetime", result.writeDate);
  take(library, "worksheet_write_blank", result.writeBlank);
  take(library, "worksheet_merge_range", result.mergeRange);
  take(library, "worksheet_set_column_pixels", result.setColumnPixels);
  take(library, "worksheet_freeze_panes", result.freezePanes);
  take(library, "worksheet_repeat_rows", result.repeatRows);
  take(library, "worksheet_fit_to_pages", result.fitToPages);
  take(library, "worksheet_set_landscape", result.setLandscape);
  take(library, "worksheet_set_paper", result.setPaper);
  take(library, "worksheet_set_footer", result.setFooter);
  take(library, "format_set_num_format", result.setNumberFormat);
  take(library, "format_set_bold", result.setBold);
  take(library, "format_set_font_size", result.setFontSize);
  take(library, "format_set_bg_color", result.setGround);
  take(library, "format_set_align", result.setAlign);
  take(library, "format_set_top", result.setTopBorder);
  take(library, "format_set_bottom", result.setBottomBorder);
  return result;
}

}  // namespace

void XlsxLibrary::check(lxw_error error) const {
  if (error != LXW_NO_ERROR) throw OutputError(std::string("无法写入 xlsx 文件：") + errorText(error));
}

const XlsxLibrary& xlsxLibrary() {
  static const XlsxLibrary library = load();
  return library;
}

}  // namespace tz
