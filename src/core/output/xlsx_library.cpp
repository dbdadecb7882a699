#include "core/output/xlsx_library.h"

#include <string>

#include "core/platform/libraries.h"
#include "core/platform/sink.h"

namespace tz {
namespace {

template <class Function>
void take(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(platform::functionOf(library, name));  // NOLINT
  if (function == nullptr) throw OutputError(std::string("libxlsxwriter 缺少 ") + name);
}

// The library's failures in words for people. What is left is a mistake of this program, told by its number.
std::string reasonOf(lxw_error error) {
  switch (error) {
    case LXW_ERROR_MEMORY_MALLOC_FAILED:
      return "内存不足";
    case LXW_ERROR_CREATING_XLSX_FILE:
      return "无法建立文件，请检查权限和磁盘空间";
    case LXW_ERROR_CREATING_TMPFILE:
    case LXW_ERROR_READING_TMPFILE:
      return "无法使用临时文件夹，请检查权限和磁盘空间";
    case LXW_ERROR_ZIP_FILE_OPERATION:
    case LXW_ERROR_ZIP_PARAMETER_ERROR:
    case LXW_ERROR_ZIP_BAD_ZIP_FILE:
    case LXW_ERROR_ZIP_INTERNAL_ERROR:
    case LXW_ERROR_ZIP_FILE_ADD:
    case LXW_ERROR_ZIP_CLOSE:
      return "写入文件时出错，磁盘空间可能不足";
    default:
      return "程序内部出错（编号 " + std::to_string(static_cast<int>(error)) + "）";
  }
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
  if (error != LXW_NO_ERROR) throw OutputError("无法写入 xlsx 文件：" + reasonOf(error));
}

const XlsxLibrary& xlsxLibrary() {
  static const XlsxLibrary library = load();
  return library;
}

}  // namespace tz
