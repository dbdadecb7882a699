#include "core/output/xlsx_output.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "core/grid/figures.h"
#include "core/output/sheet_name.h"
#include "core/output/text_layout.h"
#include "core/output/xlsx_formats.h"
#include "core/output/xlsx_text.h"
#include "core/platform/libraries.h"
#include "core/platform/sink.h"

namespace tz {
namespace {

constexpr std::int64_t sheetRowsPerProgress = 4096;
constexpr int portraitPixels = 660;  // what fits beside each other on an upright page without shrinking
constexpr std::uint8_t paperA4 = 9;
constexpr Rgb warningGround = 0xFFF0CC;

// Whether spreadsheets know the date: their calendar begins with 1900 and has years of four digits.
bool inSheetCalendar(Date date) {
  return date.year >= 1900 && date.year <= 9999 && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
         date.day <= daysInMonth(date.year, date.month);
}

class XlsxWriter {
 public:
  XlsxWriter(const ComputedReport& report, const std::string& path, const XlsxOptions& options)
      : report_(report),
        grid_(report.grid),
        options_(options),
        layout_(report.grid),
        library_(xlsxLibrary()),
        workbook_(Open(path), library_.freeWorkbook),
        formats_(library_, workbook_.get()) {}

  bool Write() {
    StartSheet();
    for (std::int64_t row = 0; row < grid_.GetRows(); ++row) {
      if (options_.progress && row % sheetRowsPerProgress == 0 && !options_.progress(row, grid_.GetRows()))
        return false;
      MakeRoom();
      WriteRow(row);
    }
    WriteFoot();
    CheckSheet();
    const platform::SilentErrors silent;
    library_.check(library_.closeWorkbook(workbook_.release()));
    return true;
  }

 private:
  lxw_workbook* Open(const std::string& path) const {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    lxw_workbook* workbook = library_.newWorkbook(path.c_str(), &options);
    if (workbook == nullptr) throw OutputError("无法写入“" + path + "”：内存不足");
    return workbook;
  }

  [[nodiscard]] lxw_row_t Row() const { return static_cast<lxw_row_t>(row_); }
  [[nodiscard]] lxw_col_t LastColumn() const { return static_cast<lxw_col_t>(std::max(grid_.GetCols(), 1) - 1); }

  void StartSheet() {
    {
      const platform::SilentErrors silent;
      sheet_ = library_.addWorksheet(workbook_.get(), sheetName(report_.title, ++sheets_).c_str());
    }
    if (sheet_ == nullptr) throw OutputError("无法写入 xlsx 文件：内存不足");
    row_ = 0;
    SetUpPage();
    for (const HeadLine& line : headLines(report_)) WriteWide(line.text, HeadFormat(line.kind));
    const lxw_row_t firstHeader = Row();
    WriteHeader();
    library_.freezePanes(sheet_, Row(), 0);
    library_.check(library_.repeatRows(sheet_, firstHeader, Row() - 1));
    firstRow_ = row_;
  }

  void SetUpPage() {
    int pixels = 0;
    for (std::size_t i = 0; i < layout_.columns.size(); ++i) {
      // A column too narrow for its figures would show them as "####".
      const int width = std::max(grid_.Columns()[i].width, layout_.columns[i].width * 7 + 12);
      const auto column = static_cast<lxw_col_t>(i);
      library_.check(library_.setColumnPixels(sheet_, column, column, static_cast<std::uint32_t>(width), nullptr));
      pixels += width;
    }
    library_.setPaper(sheet_, paperA4);
    if (pixels > portraitPixels) library_.setLandscape(sheet_);
    library_.fitToPages(sheet_, 1, 0);
    library_.check(library_.setFooter(sheet_, "&C第 &P 页 共 &N 页"));
  }

  // A sheet that is full goes on in a new one, with its head again.
  void MakeRoom() {
    if (row_ < options_.rowsPerSheet || row_ == firstRow_) return;
    CheckSheet();
    StartSheet();
  }

  // The library does not look whether the rows that it has put aside found room.
  void CheckSheet() const {
    if (std::fflush(sheet_->optimize_tmpfile) != 0 || std::ferror(sheet_->optimize_tmpfile) != 0) {
      throw OutputError("无法写入 xlsx 文件：临时文件夹空间不足");
    }
  }

  // One line across all columns.
  void WriteWide(std::string_view text, lxw_format* format) {
    xlsxTextInto(text_, text);
    if (LastColumn() > 0) {
      library_.check(library_.mergeRange(sheet_, Row(), 0, Row(), LastColumn(), text_.c_str(), format));
    } else {
      library_.check(library_.writeString(sheet_, Row(), 0, text_.c_str(), format));
    }
    ++row_;
  }

  lxw_format* HeadFormat(HeadLine::Kind kind) {
    if (kind == HeadLine::Kind::title) return formats_.Get(XlsxCell::title, true, noColour);
    const bool warns = kind == HeadLine::Kind::warning;
    return formats_.Get(XlsxCell::text, warns, warns ? warningGround : noColour);
  }

  void WriteHeader() {
    if (!layout_.groups.empty()) {
      for (const TextGroup& group : layout_.groups) WriteGroup(group);
      ++row_;
    }
    lxw_format* format = formats_.Get(XlsxCell::caption, true, noColour);
    for (int column = 0; column < grid_.GetCols(); ++column) {
      WriteText(column, grid_.Columns()[static_cast<std::size_t>(column)].caption, format);
    }
    ++row_;
  }

  void WriteGroup(const TextGroup& group) {
    lxw_format* format = formats_.Get(XlsxCell::group, true, noColour);
    const std::string& caption = grid_.Columns()[static_cast<std::size_t>(group.first)].group;
    if (group.first == group.last) return WriteText(group.first, caption, format);
    xlsxTextInto(text_, caption);
    library_.check(library_.mergeRange(sheet_, Row(), static_cast<lxw_col_t>(group.first), Row(),
                                       static_cast<lxw_col_t>(group.last), text_.c_str(), format));
  }

  void WriteText(int column, std::string_view text, lxw_format* format) {
    xlsxTextInto(text_, text);
    library_.check(library_.writeString(sheet_, Row(), static_cast<lxw_col_t>(column), text_.c_str(), format));
  }

  void WriteRow(std::int64_t row) {
    const RowKind kind = grid_.RowKindAt(row);
    const bool bold = kind == RowKind::heading || addsUp(kind);
    const Rgb ground = grid_.BackgroundAt(row);
    for (int column = 0; column < grid_.GetCols(); ++column) {
      switch (grid_.TypeAt(row, column)) {
        case CTzGrid::CellType::text:
          WriteText(column, grid_.TextAt(row, column), formats_.Get(XlsxCell::text, bold, ground));
          break;
        case CTzGrid::CellType::date:
          WriteDateCell(column, grid_.DateAt(row, column), bold, ground);
          break;
        case CTzGrid::CellType::number:
          WriteNumberCell(column, grid_.NumberAt(row, column), bold, ground);
          break;
        case CTzGrid::CellType::empty:
          WriteEmptyCell(column, ground);
          break;
      }
    }
    ++row_;
  }

  void WriteDateCell(int column, Date date, bool bold, Rgb ground) {
    const ColumnKind kind = grid_.Columns()[static_cast<std::size_t>(column)].kind;
    if (inSheetCalendar(date)) {
      lxw_datetime cell{date.year, date.month, date.day, 0, 0, 0};
      lxw_format* format = formats_.Get(kind == ColumnKind::isoDate ? XlsxCell::isoDate : XlsxCell::date, bold, ground);
      library_.check(library_.writeDate(sheet_, Row(), static_cast<lxw_col_t>(column), &cell, format));
    } else {
      std::string text;
      appendDate(text, date, kind);
      WriteText(column, text, formats_.Get(XlsxCell::text, bold, ground));
    }
  }

  void WriteNumberCell(int column, double number, bool bold, Rgb ground) {
    const ColumnKind kind = grid_.Columns()[static_cast<std::size_t>(column)].kind;
    lxw_format* format = formats_.Get(XlsxFormats::CellFor(number, kind), bold, ground);
    if (!std::isfinite(number)) return WriteText(column, figureText(number, kind), format);
    library_.check(library_.writeNumber(sheet_, Row(), static_cast<lxw_col_t>(column), number, format));
  }

  void WriteEmptyCell(int column, Rgb ground) {
    if (ground == noColour) return;
    lxw_format* format = formats_.Get(XlsxCell::text, false, ground);
    library_.check(library_.writeBlank(sheet_, Row(), static_cast<lxw_col_t>(column), format));
  }

  void WriteFoot() {
    if (layout_.marked && !report_.highlightMeaning.empty()) {
      MakeRoom();
      WriteWide(report_.highlightMeaning, formats_.Get(XlsxCell::text, false, lightGreen));
    }
    for (const std::string& remark : remarks(grid_)) {
      MakeRoom();
      WriteWide(remark, formats_.Get(XlsxCell::text, false, noColour));
    }
  }

  const ComputedReport& report_;
  const CTzGrid& grid_;
  const XlsxOptions& options_;
  const TextLayout layout_;
  const XlsxLibrary& library_;
  std::unique_ptr<lxw_workbook, decltype(&::lxw_workbook_free)> workbook_;
  XlsxFormats formats_;
  lxw_worksheet* sheet_ = nullptr;
  int sheets_ = 0;
  std::int64_t row_ = 0;       // the next one of the sheet
  std::int64_t firstRow_ = 0;  // below the header
  std::string text_;
};

}  // namespace

bool writeXlsx(const ComputedReport& report, const std::string& path, const XlsxOptions& options) {
  return XlsxWriter(report, path, options).Write();
}

}  // namespace tz
