// The record locks that one station holds on one archive.
//
// A lock is one byte of the archive's .ISM, far beyond its end. It is counted by full key: a station may lock
// again what it holds, and gives it back with the last unlock. While a group stands, what is given back
// stays locked until the group's end.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "store/locks.h"

namespace store {

class RecordLocks {
 public:
  explicit RecordLocks(std::string path) : path_(std::move(path)) {}

  // kNotFound: another station holds it.
  Code lock(std::string_view key);
  Code unlock(std::string_view key);  // harmless when it is not held
  bool any() const { return !held_.empty(); }
  void close();  // the files are about to be replaced: every lock falls

  void beginGroup();
  // Gives back what was unlocked in the group; when the group was dropped, what was locked in it, too.
  void endGroup(bool committed);

  // An intent says that a record of this key is about to be added or changed. kNotFound: another station's
  // stands.
  Code takeIntent(std::string_view key);
  void dropIntent(std::string_view key);

 private:
  struct Held {
    int count = 0;
    int before = 0;  // when the group began
    std::uint64_t byte = 0;
  };
  using Map = std::map<std::string, Held, std::less<>>;

  Code open();
  Map::iterator letGo(Map::iterator held);

  std::string path_;
  LockFile file_;
  Map held_;
  bool inGroup_ = false, intends_ = false;  // intends_: in this group
};

}  // namespace store
