#include "common/csv.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "common/text.h"

namespace common {
namespace {

class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  bool atEnd() const { return rest_.empty(); }

  // The cells of the next line, none for an empty line; false for a line that is malformed.
  bool line(std::vector<std::string>& cells) {
    cells.clear();
    if (takeLineEnd()) return true;
    do {
      if (!cell(cells.emplace_back())) return false;
    } while (take(','));
    return atEnd() || takeLineEnd();
  }

 private:
  bool take(char c) {
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool takeLineEnd() {
    if (rest_.starts_with("\r\n")) rest_.remove_prefix(1);
    return take('\n');
  }

  bool cell(std::string& value) {
    if (take('"')) return quoted(value);
    const auto end = std::min(rest_.find_first_of(",\r\n\""), rest_.size());
    value = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return true;
  }

  bool quoted(std::string& value) {
    while (true) {
      const auto quote = rest_.find('"');
      if (quote == std::string_view::npos) return false;
      value += rest_.substr(0, quote);
      rest_.remove_prefix(quote + 1);
      if (!take('"')) return true;
      value += '"';
    }
  }

  std::string_view rest_;
};

}  // namespace

std::optional<std::size_t> CsvTable::column(std::string_view name) const {
  const auto found = std::find(header.begin(), header.end(), name);
  if (found == header.end()) return std::nullopt;
  return static_cast<std::size_t>(found - header.begin());
}

std::optional<CsvTable> parseCsv(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.starts_with(mark)) text.remove_prefix(mark.size());
  if (!isUtf8(text)) return std::nullopt;
  CsvTable table;
  std::vector<std::string> cells;
  for (Reader reader(text); !reader.atEnd();) {
    if (!reader.line(cells)) return std::nullopt;
    if (cells.empty()) continue;
    if (table.header.empty())
      table.header = cells;
    else if (cells.size() == table.header.size())
      table.rows.push_back(cells);
    else
      return std::nullopt;
  }
  if (table.header.empty()) return std::nullopt;
  return table;
}

std::optional<CsvTable> readCsv(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) return std::nullopt;
  return parseCsv(text);
}

}  // namespace common
