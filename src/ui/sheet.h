// Cells for the spreadsheet: what a print loads into it, shown in a window of its own, copied, sorted,
// searched and saved as .xlsx or .csv.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

struct SheetCell {
  std::string text = {};
  std::optional<double> number = {};  // then `text` is empty
  bool bold = false;

  std::string shown() const;  // numbers as "1.234,50"
};

struct Sheet {
  std::string title;
  std::vector<int> widths;  // of the columns, in characters; a row may be shorter
  std::vector<std::vector<SheetCell>> rows;
};

SheetCell textCell(std::string_view text, bool bold = false);
SheetCell numberCell(double number, bool bold = false);

// Lines of cells parted by semicolons, numbers with a decimal comma, in UTF-8 with a byte order mark, as the
// office programs of the country read them. A text that would begin a formula there gets an apostrophe in
// front.
std::string csvOf(const Sheet& sheet);

}  // namespace ui
