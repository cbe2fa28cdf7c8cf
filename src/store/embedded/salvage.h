// Finding in the pages of a damaged archive the records whose bytes are whole.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/embedded/cells.h"
#include "store/engine.h"

namespace store::embedded {

// Every page is looked at, not only those that the tree leads to: a page whose parent is gone still holds its
// records. Since what is deleted is overwritten, a row with a right checksum that a page's pointers name is a
// record that stands. Where the pointers themselves are damaged the whole page is searched; what a page has
// left behind of rows that moved elsewhere is told by their row numbers, which lie outside of what the
// page's parent gives it.
class Salvager {
 public:
  explicit Salvager(const Pages& pages) : pages_(pages) {}

  void run(const Progress& progress);

  // What the archive says of itself, where that can be read.
  struct Identity {
    Shape shape;
    std::string uuid;
  };
  const std::optional<Identity>& identity() const { return identity_; }
  const std::optional<LogMark>& mark() const { return mark_; }

  std::size_t size() const { return found_.size(); }
  // The records in the order of their rows: each(primary key, record).
  template <class Each>
  Code each(const Each& each) const;
  // The keys of records that the indexes name and that were not found; in order.
  std::vector<std::string> lost(int keyLength) const;

 private:
  struct Range {
    std::int64_t above = INT64_MIN, upTo = INT64_MAX;
  };
  struct Place {
    std::uint32_t page = 0;
    std::size_t at = 0, age = 0;
    std::int64_t row = 0;
    bool searched = false;
  };

  void readPage(std::uint32_t page, const std::string& bytes);
  void readRows(std::uint32_t page, const std::string& bytes, const PageHead& head);
  bool readBranch(std::uint32_t page, const std::string& bytes, const PageHead& head);
  bool hasKeys(const std::string& bytes, const PageHead& head);
  void search(std::uint32_t page, const std::string& bytes);
  bool take(std::uint32_t page, std::size_t at, const Cell& cell, bool searched);
  void takeIdentity(const Cell& cell);
  void readMark();
  void narrow();
  std::vector<Place> inOrder() const;
  bool recordAt(const Place& place, std::string& bytes, Cell& cell, std::string& record) const;

  const Pages& pages_;
  std::unordered_map<std::string, Place> found_;
  std::map<std::uint32_t, Range> ranges_;                      // of the rows that a page may hold
  std::map<std::uint32_t, std::vector<std::uint32_t>> under_;  // the pages under a branch
  std::vector<std::uint32_t> doubtful_, keys_, marks_;
  std::optional<Identity> identity_;
  std::optional<LogMark> mark_;
  Cell cell_;           // scratch
  std::string record_;  // scratch
};

template <class Each>
Code Salvager::each(const Each& each) const {
  std::string bytes, record;
  std::uint32_t page = 0;
  Cell cell;
  for (const Place& place : inOrder()) {
    if (place.page != page) pages_.read(page = place.page, bytes);
    if (!recordAt(place, bytes, cell, record)) return kDisk;  // it has gone since
    if (const Code code = each(cell.values[1].bytes, record)) return code;
  }
  return kOk;
}

// The rows that stand in pages of rows, by the pages' own counts; for a comparison with what the tree leads
// to.
std::size_t countRows(const Pages& pages);

}  // namespace store::embedded
