// What a page of a database holds, read with every doubt: page heads, cells and their values.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/embedded/pages.h"

namespace store::embedded {

enum class PageKind : unsigned char { rows = 0x0D, branch = 0x05, keys = 0x0A, keyBranch = 0x02 };

// The head of a page. `cells` are the places that its pointers name, as far as they lie in the page.
struct PageHead {
  PageKind kind{};
  std::size_t count = 0, contents = 0;  // how many cells; where they begin
  std::uint32_t last = 0;               // of a branch: the page behind its last cell
  std::vector<std::size_t> cells;
  std::size_t end = 0;  // of the pointers

  bool isLeaf() const { return kind == PageKind::rows || kind == PageKind::keys; }
  // All pointers lie where cells may.
  bool isPlausible() const {
    return count == cells.size() && contents >= end && contents <= kPageBytes && count > 0;
  }
};
PageHead headOf(std::uint32_t page, std::string_view bytes);

// One value of a row: a text, bytes, or a number.
struct CellValue {
  enum class Type { null, number, bytes, text, other } type = Type::null;
  std::int64_t number = 0;
  std::string_view bytes;
};

// A cell of rows (with its row's number) or of keys. The values point into `payload`.
struct Cell {
  std::int64_t row = 0;
  std::size_t size = 0;  // in its page
  std::string payload;
  std::vector<CellValue> values;
};

// The bytes of a number of 7 bits each at `at`, which is moved behind it; false at the end of the page.
bool readVarint(std::string_view bytes, std::size_t& at, std::uint64_t& value);

// False for what is no cell. Follows the chain of pages that a long one goes on in.
bool readRowCell(const Pages& pages, std::string_view page, std::size_t at, Cell& cell);
bool readKeyCell(const Pages& pages, std::string_view page, std::size_t at, Cell& cell);

}  // namespace store::embedded
