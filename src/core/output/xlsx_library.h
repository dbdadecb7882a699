// The spreadsheet file library, loaded when the first such file is written: only its header is needed to build. Its
// calls give an error code or null; `check` turns them into OutputError.
#pragma once

#include <memory>
#include <xlsxwriter.h>

namespace tz {

struct XlsxLibrary {
  decltype(&::workbook_new_opt) newWorkbook;
  decltype(&::workbook_add_worksheet) addWorksheet;
  decltype(&::workbook_add_format) addFormat;
  decltype(&::workbook_close) closeWorkbook;
  decltype(&::lxw_workbook_free) freeWorkbook;
  decltype(&::worksheet_write_string) writeString;
  decltype(&::worksheet_write_number) writeNumber;
  decltype(&::worksheet_write_datetime) writeDate;
  decltype(&::worksheet_write_blank) writeBlank;
  decltype(&::worksheet_merge_range) mergeRange;
  decltype(&::worksheet_set_column_pixels) setColumnPixels;
  decltype(&::worksheet_freeze_panes) freezePanes;
  decltype(&::worksheet_repeat_rows) repeatRows;
  decltype(&::worksheet_fit_to_pages) fitToPages;
  decltype(&::worksheet_set_landscape) setLandscape;
  decltype(&::worksheet_set_paper) setPaper;
  decltype(&::worksheet_set_footer) setFooter;
  decltype(&::format_set_num_format) setNumberFormat;
  decltype(&::format_set_bold) setBold;
  decltype(&::format_set_font_size) setFontSize;
  decltype(&::format_set_bg_color) setGround;
  decltype(&::format_set_align) setAlign;
  decltype(&::format_set_top) setTopBorder;
  decltype(&::format_set_bottom) setBottomBorder;

  void check(lxw_error error) const;
};

// Loads the library once; throws OutputError when this machine has none.
[[nodiscard]] const XlsxLibrary& xlsxLibrary();

}  // namespace tz
