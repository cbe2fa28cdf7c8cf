#include "ui/sheet.h"

#include <algorithm>

#include "common/amount.h"

namespace ui {
namespace {

bool beginsFormula(std::string_view text) {
  return !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
}

std::string inQuotes(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) result.append(c == '"' ? 2 : 1, c);
  return result + '"';
}

std::string csvCell(const SheetCell& cell) {
  if (cell.number) {
    std::string number = cell.shown();
    std::erase(number, '.');
    return number;
  }
  if (beginsFormula(cell.text)) return inQuotes("'" + cell.text);
  return cell.text.find_first_of(";\"\r\n") == std::string::npos ? cell.text : inQuotes(cell.text);
}

}  // namespace

std::string SheetCell::shown() const { return number ? common::toText(*number) : text; }

SheetCell textCell(std::string_view text, bool bold) { return {std::string(text), {}, bold}; }
SheetCell numberCell(double number, bool bold) { return {{}, number, bold}; }

std::string csvOf(const Sheet& sheet) {
  std::string csv = "\xEF\xBB\xBF";
  for (const auto& row : sheet.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) csv.append(i > 0 ? ";" : "") += csvCell(row[i]);
    csv += "\r\n";
  }
  return csv;
}

}  // namespace ui
