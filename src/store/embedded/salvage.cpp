#include "store/embedded/salvage.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>

#include "store/embedded/table.h"

namespace store::embedded {
namespace {

using Type = CellValue::Type;

bool isRow(const Cell& cell) {
  const auto& values = cell.values;
  return values.size() >= 3 && values[0].type == Type::null &&
         std::all_of(values.begin() + 1, values.end(),
                     [](const CellValue& value) { return value.type == Type::bytes; });
}

bool isMark(const Cell& cell) {
  const auto& values = cell.values;
  return cell.row == 1 && values.size() == 2 && values[0].type == Type::number &&
         values[1].type == Type::number;
}

bool isFormat(std::string_view text) {
  try {
    parseFormat(text);
    return true;
  } catch (const std::invalid_argument&) {
    return false;
  }
}

}  // namespace

void Salvager::run(const Progress& progress) {
  std::string bytes;
  for (std::uint32_t page = 1; page <= pages_.count(); ++page) {
    if (progress && page % 512 == 0) progress(page / (1.0 + pages_.count()));
    if (pages_.read(page, bytes) && bytes.find_first_not_of('\0') != std::string::npos) readPage(page, bytes);
  }
  narrow();
  for (const std::uint32_t page : doubtful_)
    if (pages_.read(page, bytes)) search(page, bytes);
  readMark();
}

void Salvager::readPage(std::uint32_t page, const std::string& bytes) {
  const PageHead head = headOf(page, bytes);
  if (head.kind == PageKind::branch && readBranch(page, bytes, head)) return;
  const bool keys = head.kind == PageKind::keys || head.kind == PageKind::keyBranch;
  if (keys) keys_.push_back(page);
  if (keys && hasKeys(bytes, head)) return;
  readRows(page, bytes, head);
}

void Salvager::readRows(std::uint32_t page, const std::string& bytes, const PageHead& head) {
  bool whole = head.kind == PageKind::rows && head.count == head.cells.size();
  for (const std::size_t at : head.cells) {
    if (!readRowCell(pages_, bytes, at, cell_)) {
      whole = false;
    } else if (isRow(cell_)) {
      whole = take(page, at, cell_, false) && whole;
    } else if (isMark(cell_) && head.count == 1) {
      marks_.push_back(page);
    } else {
      takeIdentity(cell_);
    }
  }
  if (!whole) doubtful_.push_back(page);
}

// Notes which rows stand under each of the pages below. False for what is no branch after all.
bool Salvager::readBranch(std::uint32_t page, const std::string& bytes, const PageHead& head) {
  if (head.count != head.cells.size() || head.last == 0 || head.last > pages_.count()) return false;
  std::vector<std::pair<std::uint32_t, Range>> below;
  Range range;
  for (std::size_t at : head.cells) {
    const std::uint32_t child = bigEndian(bytes.data() + at, 4);
    std::uint64_t row = 0;
    at += 4;
    if (!readVarint(bytes, at, row) || child == 0 || child > pages_.count()) return false;
    range.upTo = static_cast<std::int64_t>(row);
    if (range.upTo <= range.above) return false;
    below.emplace_back(child, range);
    range = {range.upTo, INT64_MAX};
  }
  below.emplace_back(head.last, range);
  for (const auto& [child, rows] : below) {
    ranges_[child] = rows;
    under_[page].push_back(child);
  }
  return true;
}

bool Salvager::hasKeys(const std::string& bytes, const PageHead& head) {
  const std::size_t child = head.kind == PageKind::keyBranch ? 4 : 0;
  if (head.count != head.cells.size() || head.count == 0) return false;
  return std::all_of(head.cells.begin(), head.cells.end(), [&](std::size_t at) {
    return readKeyCell(pages_, bytes, at + child, cell_) && cell_.values.size() >= 2;
  });
}

// What stands under a branch is bound by what the branch itself is bound by.
void Salvager::narrow() {
  for (int depth = 0; depth < 8; ++depth)
    for (const auto& [branch, children] : under_) {
      const auto own = ranges_.find(branch);
      if (own == ranges_.end()) continue;
      for (const std::uint32_t child : children) {
        Range& range = ranges_[child];
        range.above = std::max(range.above, own->second.above);
        range.upTo = std::min(range.upTo, own->second.upTo);
      }
    }
}

// Every place of the page may be the beginning of a row. Rows are never found below the place where the page
// says that they begin, unless a row that its pointers name stands there.
void Salvager::search(std::uint32_t page, const std::string& bytes) {
  const PageHead head = headOf(page, bytes);
  std::set<std::size_t> known;
  std::size_t lowest = kPageBytes;
  for (const std::size_t at : head.cells) {
    if (!readRowCell(pages_, bytes, at, cell_) || !isRow(cell_)) continue;
    known.insert(at);
    lowest = std::min(lowest, at);
  }
  std::size_t from = 8;
  if (head.kind == PageKind::rows && head.isPlausible()) from = std::min(head.contents, lowest);
  const auto range = ranges_.find(page);
  for (std::size_t at = from; at + 4 < kPageBytes;) {
    const bool row = readRowCell(pages_, bytes, at, cell_) && isRow(cell_);
    const bool outside =
        row && range != ranges_.end() && (cell_.row <= range->second.above || cell_.row > range->second.upTo);
    const bool taken = row && (known.contains(at) || (!outside && take(page, at, cell_, true)));
    at += taken ? cell_.size : 1;
  }
}

// False when the row's checksum does not hold.
bool Salvager::take(std::uint32_t page, std::size_t at, const Cell& cell, bool searched) {
  const std::string_view key = cell.values[1].bytes;
  if (!unseal(key, cell.values.back().bytes, record_)) return false;
  const Place place{page, at, pages_.age(page), cell.row, searched};
  const auto [found, isNew] = found_.try_emplace(std::string(key), place);
  if (isNew) return true;
  const auto rank = [](const Place& p) { return std::tuple(!p.searched, p.age, p.row); };
  if (rank(place) > rank(found->second)) found->second = place;
  return true;
}

void Salvager::takeIdentity(const Cell& cell) {
  const auto& values = cell.values;
  if (values.size() != 4 || values[0].type != Type::text || values[1].type != Type::number ||
      values[2].type != Type::text || values[2].bytes.size() != 32 || values[3].type != Type::number ||
      values[3].number != kCodec || !isFormat(values[0].bytes))
    return;
  identity_ = {{static_cast<int>(values[1].number), std::string(values[0].bytes)},
               std::string(values[2].bytes)};
}

// The mark as of before the first damage of the journal: a group behind it is applied once more.
void Salvager::readMark() {
  std::string bytes;
  for (const std::uint32_t page : marks_) {
    if (!pages_.readSound(page, bytes)) continue;
    const PageHead head = headOf(page, bytes);
    if (head.cells.size() != 1 || !readRowCell(pages_, bytes, head.cells[0], cell_) || !isMark(cell_))
      continue;
    mark_ = {static_cast<std::uint64_t>(cell_.values[0].number),
             static_cast<std::uint64_t>(cell_.values[1].number)};
  }
}

std::vector<Salvager::Place> Salvager::inOrder() const {
  std::vector<Place> places;
  places.reserve(found_.size());
  for (const auto& [key, place] : found_) places.push_back(place);
  std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) {
    return std::tie(a.row, a.page, a.at) < std::tie(b.row, b.page, b.at);
  });
  return places;
}

bool Salvager::recordAt(const Place& place, std::string& bytes, Cell& cell, std::string& record) const {
  return readRowCell(pages_, bytes, place.at, cell) && isRow(cell) &&
         unseal(cell.values[1].bytes, cell.values.back().bytes, record);
}

std::vector<std::string> Salvager::lost(int keyLength) const {
  std::set<std::string> lost;
  std::string bytes;
  Cell cell;
  for (const std::uint32_t page : keys_) {
    if (!pages_.read(page, bytes)) continue;
    const PageHead head = headOf(page, bytes);
    const std::size_t child = head.kind == PageKind::keyBranch ? 4 : 0;
    for (const std::size_t at : head.cells) {
      // The entries of the primary key: the key, the number of the row.
      if (!readKeyCell(pages_, bytes, at + child, cell) || cell.values.size() != 2 ||
          cell.values[0].type != Type::bytes)
        continue;
      std::string key(cell.values[0].bytes);
      if (key.size() <= 4 * static_cast<std::size_t>(keyLength) && !found_.contains(key))
        lost.insert(std::move(key));
    }
  }
  return {lost.begin(), lost.end()};
}

std::size_t countRows(const Pages& pages) {
  std::size_t rows = 0;
  std::string bytes;
  Cell cell;
  for (std::uint32_t page = 1; page <= pages.count(); ++page) {
    if (!pages.read(page, bytes)) continue;
    const PageHead head = headOf(page, bytes);
    if (head.kind != PageKind::rows || head.cells.empty()) continue;
    if (readRowCell(pages, bytes, head.cells[0], cell) && isRow(cell)) rows += head.count;
  }
  return rows;
}

}  // namespace store::embedded
