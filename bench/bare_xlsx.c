// bare_xlsx FILE ROWS: the spreadsheet library alone, writing the cells of grid_work.cpp.
#include <stdio.h>
#include <stdlib.h>
#include <xlsxwriter.h>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  lxw_workbook_options options = {.constant_memory = LXW_TRUE};
  lxw_workbook* book = workbook_new_opt(argv[1], &options);
  lxw_worksheet* sheet = workbook_add_worksheet(book, NULL);
  lxw_format* date = workbook_add_format(book);
  format_set_num_format(date, "yyyy.mm.dd");
  lxw_format* amount = workbook_add_format(book);
  format_set_num_format(amount, "#,##0.00");
  const long rows = atol(argv[2]);
  char voucher[32];
  for (long row = 0; row < rows; ++row) {
    const lxw_row_t line = (lxw_row_t)row;
    lxw_datetime day = {.year = 2025, .month = (int)(row % 12) + 1, .day = (int)(row % 28) + 1};
    snprintf(voucher, sizeof voucher, "记-%04ld", row % 10000);
    worksheet_write_datetime(sheet, line, 0, &day, date);
    worksheet_write_string(sheet, line, 1, voucher, NULL);
    worksheet_write_string(sheet, line, 2, "预借差旅费", NULL);
    if (row % 2 == 0) worksheet_write_number(sheet, line, 3, (double)row / 4, amount);
    if (row % 2 != 0) worksheet_write_number(sheet, line, 4, (double)row / 8, amount);
    worksheet_write_string(sheet, line, 5, "借", NULL);
    worksheet_write_number(sheet, line, 6, (double)row / 2, amount);
  }
  return workbook_close(book) == LXW_NO_ERROR ? 0 : 1;
}
