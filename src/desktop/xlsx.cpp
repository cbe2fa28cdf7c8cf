#include "desktop/xlsx.h"

#include <xlsxwriter.h>

namespace desktop {
namespace {

struct Formats {
  lxw_format *text, *boldText, *number, *boldNumber;
};

lxw_format* format(lxw_workbook* book, bool bold, bool number) {
  lxw_format* made = workbook_add_format(book);
  format_set_font_name(made, "Arial");
  if (bold) format_set_bold(made);
  if (number) format_set_num_format(made, "#,##0.00");  // shown by the separators of the reader's country
  return made;
}

void writeCell(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, const ui::SheetCell& cell,
               const Formats& formats) {
  if (cell.number)
    worksheet_write_number(sheet, row, column, *cell.number, cell.bold ? formats.boldNumber : formats.number);
  else if (!cell.text.empty())
    worksheet_write_string(sheet, row, column, cell.text.c_str(),
                           cell.bold ? formats.boldText : formats.text);
}

}  // namespace

bool writeXlsx(const ui::Sheet& sheet, const std::string& path) {
  lxw_workbook* book = workbook_new(path.c_str());
  if (!book) return false;
  lxw_worksheet* page = workbook_add_worksheet(book, nullptr);
  const Formats formats{format(book, false, false), format(book, true, false), format(book, false, true),
                        format(book, true, true)};
  for (std::size_t i = 0; i < sheet.widths.size(); ++i)
    worksheet_set_column(page, static_cast<lxw_col_t>(i), static_cast<lxw_col_t>(i), sheet.widths[i] + 2,
                         nullptr);
  for (std::size_t row = 0; row < sheet.rows.size(); ++row)
    for (std::size_t column = 0; column < sheet.rows[row].size(); ++column)
      writeCell(page, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column), sheet.rows[row][column],
                formats);
  return workbook_close(book) == LXW_NO_ERROR;
}

}  // namespace desktop
