#include "store/embedded/cells.h"

#include <algorithm>
#include <array>

namespace store::embedded {
namespace {

constexpr std::size_t kFirstHead = 100;  // of the database, before the head of its first page
constexpr std::uint64_t kMostPayload = 1 << 28;

// How much of a payload stands in its page; the rest goes on in a chain of pages.
std::size_t localOf(std::uint64_t payload, std::size_t most) {
  if (payload <= most) return static_cast<std::size_t>(payload);
  constexpr std::size_t kLeast = (kPageBytes - 12) * 32 / 255 - 23;
  const std::size_t fitting = kLeast + static_cast<std::size_t>((payload - kLeast) % (kPageBytes - 4));
  return fitting <= most ? fitting : kLeast;
}

// The values' types stand before the values.
bool readValues(Cell& cell) {
  const std::string_view payload = cell.payload;
  std::size_t at = 0;
  std::uint64_t head = 0;
  if (!readVarint(payload, at, head) || head > payload.size() || head < at) return false;
  std::size_t value = static_cast<std::size_t>(head);
  cell.values.clear();
  while (at < head) {
    std::uint64_t type = 0;
    if (!readVarint(payload, at, type) || at > head) return false;
    constexpr std::array<std::size_t, 10> kSizes{0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
    if (type == 10 || type == 11) return false;
    const std::uint64_t size = type >= 12 ? (type - 12) / 2 : kSizes[type];
    if (size > payload.size() - value) return false;
    CellValue read;
    read.bytes = payload.substr(value, static_cast<std::size_t>(size));
    if (type >= 12) {
      read.type = type % 2 ? CellValue::Type::text : CellValue::Type::bytes;
    } else if (type == 7) {
      read.type = CellValue::Type::other;
    } else if (type != 0) {
      read.type = CellValue::Type::number;
      if (type == 9) read.number = 1;
      if (!read.bytes.empty()) read.number = static_cast<signed char>(read.bytes[0]);
      for (std::size_t i = 1; i < read.bytes.size(); ++i)
        read.number = static_cast<std::int64_t>(static_cast<std::uint64_t>(read.number) << 8 |
                                                static_cast<unsigned char>(read.bytes[i]));
    }
    cell.values.push_back(read);
    value += static_cast<std::size_t>(size);
  }
  return value == payload.size();
}

// Whether the types that stand at the beginning of a payload add up to its size: what is no cell fails here,
// before its chain is followed.
bool addsUp(std::string_view local, std::uint64_t payload) {
  std::size_t at = 0;
  std::uint64_t head = 0;
  if (!readVarint(local, at, head) || head < at || head > local.size()) return false;
  std::uint64_t sum = head;
  while (at < head) {
    std::uint64_t type = 0;
    if (!readVarint(local, at, type)) return false;
    constexpr std::array<std::uint64_t, 12> kSizes{0, 1, 2, 3, 4, 6, 8, 8, 0, 0, 0, 0};
    sum += type >= 12 ? (type - 12) / 2 : kSizes[type];
  }
  return sum == payload;
}

bool readPayload(const Pages& pages, std::string_view page, std::size_t start, std::size_t at,
                 std::uint64_t payload, std::size_t most, Cell& cell) {
  if (payload == 0 || payload > kMostPayload) return false;
  const std::size_t local = localOf(payload, most);
  const bool goesOn = local < payload;
  if (at + local + (goesOn ? 4 : 0) > page.size()) return false;
  if (!addsUp(page.substr(at, local), payload)) return false;
  cell.payload.assign(page.substr(at, local));
  cell.size = at + local + (goesOn ? 4 : 0) - start;
  std::uint32_t next = goesOn ? bigEndian(page.data() + at + local, 4) : 0;
  std::string more;
  while (cell.payload.size() < payload) {
    if (next == 0 || next > pages.count() || !pages.read(next, more)) return false;
    next = bigEndian(more.data(), 4);
    const std::size_t rest = static_cast<std::size_t>(payload) - cell.payload.size();
    cell.payload.append(more, 4, std::min(rest, kPageBytes - 4));
  }
  return readValues(cell);
}

}  // namespace

PageHead headOf(std::uint32_t page, std::string_view bytes) {
  const std::size_t at = page == 1 ? kFirstHead : 0;
  PageHead head;
  head.kind = static_cast<PageKind>(bytes[at]);
  head.count = bigEndian(bytes.data() + at + 3, 2);
  head.contents = bigEndian(bytes.data() + at + 5, 2);
  if (head.contents == 0) head.contents = 65536;
  const bool branch = head.kind == PageKind::branch || head.kind == PageKind::keyBranch;
  if (branch) head.last = bigEndian(bytes.data() + at + 8, 4);
  const std::size_t pointers = at + (branch ? 12 : 8);
  head.end = pointers + 2 * head.count;
  const std::size_t readable = std::min(head.count, (kPageBytes - pointers) / 2);
  for (std::size_t i = 0; i < readable; ++i) {
    const std::size_t cell = bigEndian(bytes.data() + pointers + 2 * i, 2);
    if (cell >= pointers && cell < kPageBytes - 3) head.cells.push_back(cell);
  }
  return head;
}

bool readVarint(std::string_view bytes, std::size_t& at, std::uint64_t& value) {
  value = 0;
  for (int i = 0; i < 9; ++i) {
    if (at >= bytes.size()) return false;
    const auto byte = static_cast<unsigned char>(bytes[at++]);
    if (i == 8) {
      value = value << 8 | byte;
      return true;
    }
    value = value << 7 | (byte & 0x7FU);
    if (byte < 0x80) return true;
  }
  return true;
}

bool readRowCell(const Pages& pages, std::string_view page, std::size_t at, Cell& cell) {
  const std::size_t start = at;
  std::uint64_t payload = 0, row = 0;
  if (!readVarint(page, at, payload) || !readVarint(page, at, row)) return false;
  cell.row = static_cast<std::int64_t>(row);
  return readPayload(pages, page, start, at, payload, kPageBytes - 35, cell);
}

bool readKeyCell(const Pages& pages, std::string_view page, std::size_t at, Cell& cell) {
  const std::size_t start = at;
  std::uint64_t payload = 0;
  if (!readVarint(page, at, payload)) return false;
  return readPayload(pages, page, start, at, payload, (kPageBytes - 12) * 64 / 255 - 23, cell);
}

}  // namespace store::embedded
