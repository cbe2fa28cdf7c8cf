// A position on one index of an archive, with the rows that were read ahead of it.
#pragma once

#include <string_view>

#include "store/engine.h"
#include "store/overlay.h"

namespace store {

// What a cursor moves over: the archive, and what the group of this station has written to it.
struct Source {
  Table& table;
  const Overlay* overlay = nullptr;  // nullptr outside a group
  std::uint64_t epoch = 0;           // changes when the overlay is dropped or the table replaced
};

// A position is a value, (key, primary key) or an end: a row that goes or changes does not disturb it.
class Cursor {
 public:
  void toStart() { moveTo(Place::At::start, {}); }
  void toEnd() { moveTo(Place::At::end, {}); }

  // kOk: on the first row with exactly that key. kNotFound: just before where it would be.
  Code search(const Source& source, int index, std::string_view key, Found& found);

  // One row on. kNotFound: none is left, and the position is that end.
  Code step(const Source& source, int index, Way way, Found& found);

 private:
  void moveTo(Place::At at, std::string_view key);
  Code peek(const Source& source, int index, Way way, Row*& row);
  void standOn(const Row& row);

  Place place_;
  RowBatch rows_;
  std::size_t next_ = 0, limit_ = 0;
  Place ahead_;  // where the next batch begins
  bool lastBatch_ = false;
  Way way_ = Way::forward;
  std::uint64_t token_ = 0, epoch_ = 0;
  bool filled_ = false;
  Row written_;      // scratch: the nearest row of the group
  Found candidate_;  // scratch: what a search met
};

}  // namespace store
