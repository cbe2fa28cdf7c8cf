// Tables of comma-parted values, as a new installation's contents are kept.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace common {

struct CsvTable {
  std::vector<std::string> header;
  std::vector<std::vector<std::string>> rows;  // each as long as the header

  // Position of a column by its name; nothing when there is none.
  std::optional<std::size_t> column(std::string_view name) const;
};

// UTF-8, the first row names the columns. A cell in double quotes may hold commas, line ends and, doubled,
// quotes; blanks belong to the cell. Lines end with LF or CR LF; empty lines are passed over, and a byte
// order mark at the start. Nothing for a text that is no such table: no header, a row of another length, a
// quote left open or followed by text, bytes that are no UTF-8.
std::optional<CsvTable> parseCsv(std::string_view text);

std::optional<CsvTable> readCsv(const std::string& path);  // nothing, too, for a file that cannot be read

}  // namespace common
