// The writes of a group to one archive, kept in memory until the commit.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/engine.h"

namespace store {

class Overlay {
 public:
  explicit Overlay(Format format) : format_(std::move(format)) {}

  struct Change {
    bool erase = false;
    std::string record;
    std::vector<std::string> keys;  // of the record, in the order of Format::indexed
    std::size_t order = 0;          // of the first write to this key
  };

  bool empty() const { return changes_.empty(); }
  const Change* find(std::string_view primaryKey) const;  // nullptr: the archive's own record counts

  bool put(std::string_view primaryKey, std::string_view record);  // false: it does not fit the format
  void erase(std::string_view primaryKey);

  // The nearest row of the group beyond `place` in that direction; false when there is none.
  bool read(int index, const Place& place, Way way, Row& row) const;

  // What is to be done to the archive: the last state of each key, in the order of their first writes.
  std::vector<LogOperation> operations() const;

 private:
  using Key = std::pair<std::string, std::string>;  // index key, primary key
  Change& changeOf(std::string_view primaryKey);

  Format format_;  // a copy: the table may be opened anew
  std::map<std::string, Change, std::less<>> changes_;
  std::map<int, std::set<Key>> keys_;  // by index, of the records that the group has put
};

}  // namespace store
