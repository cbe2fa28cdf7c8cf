// The pages of a damaged archive as its files hold them, read without SQLite, which would stop at the first
// damage, or write over what can still be saved.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "store/embedded/family.h"
#include "store/embedded/journal.h"
#include "store/locks.h"

namespace store::embedded {

inline constexpr std::size_t kPageBytes = 4096;

// The numbers of the file format are big endian.
inline std::uint32_t bigEndian(const char* at, int bytes) {
  std::uint32_t value = 0;
  for (int i = 0; i < bytes; ++i) value = value << 8 | static_cast<unsigned char>(at[i]);
  return value;
}

class Pages {
 public:
  // Only while nobody has the archive open, in this process neither. A file that is missing is an empty one.
  Code open(const Family& family);

  std::uint32_t count() const { return count_; }  // pages are numbered from 1
  // The newest version of a page, filled up with zeros; false when nothing of it can be read.
  bool read(std::uint32_t page, std::string& bytes) const;
  // Grows with each change that the journal holds; 0 for a page of the database itself.
  std::size_t age(std::uint32_t page) const;

  // The journal that takes what the file of the old one holds for nothing.
  Journal otherJournal() const { return rollback_ ? Journal::ahead : Journal::rollback; }

  // A change that was committed stands in the journal behind one that is damaged.
  bool hasHole() const { return hole_; }
  // The page as it was before the first damage of the journal.
  bool readSound(std::uint32_t page, std::string& bytes) const;

 private:
  struct Version {
    std::int64_t at = 0;  // in the journal
    std::size_t age = 0;
  };
  using Versions = std::unordered_map<std::uint32_t, Version>;

  void readAhead(std::int64_t size);
  void readRollback(std::int64_t size);
  std::int64_t readSegment(std::int64_t header, std::int64_t size);
  bool read(std::uint32_t page, const Versions& versions, std::string& bytes) const;

  LockFile database_, journal_;
  std::uint32_t count_ = 0;
  Versions newest_, sound_;
  bool hole_ = false, rollback_ = false;
};

}  // namespace store::embedded
