#include "store/cursor.h"

#include <algorithm>
#include <tuple>

namespace store {
namespace {

// A short scan must not pay for a long one: the batches grow.
constexpr std::size_t kFirstBatch = 8, kGrowth = 4, kLargestBatch = 256;

bool comesFirst(const Row& a, const Row& b, Way way) {
  const auto left = std::tie(a.indexKey, a.primaryKey), right = std::tie(b.indexKey, b.primaryKey);
  return way == Way::forward ? left < right : right < left;
}

// The row is done with: its record is handed over, its keys stay.
void deliver(Row& row, Found& found) {
  found.indexKey = row.indexKey;
  found.primaryKey = row.primaryKey;
  std::swap(found.record, row.record);
}

}  // namespace

void Cursor::moveTo(Place::At at, std::string_view key) {
  place_.at = at;
  place_.key = key;
  place_.primaryKey.clear();
  filled_ = false;
}

void Cursor::standOn(const Row& row) {
  place_.at = Place::At::on;
  place_.key = row.indexKey;
  place_.primaryKey = row.primaryKey;
}

// The next row of the archive itself that the group has not touched; nullptr at the end.
Code Cursor::peek(const Source& source, int index, Way way, Row*& row) {
  row = nullptr;
  for (;;) {
    for (; next_ < rows_.size(); ++next_) {
      if (source.overlay && source.overlay->find(rows_[next_].primaryKey)) continue;
      row = &rows_[next_];
      return kOk;
    }
    if (lastBatch_) return kOk;
    if (rows_.size())
      ahead_ = {Place::At::on, rows_[rows_.size() - 1].indexKey, rows_[rows_.size() - 1].primaryKey};
    next_ = 0;
    if (const Code code = source.table.read(index, ahead_, way, limit_, rows_, lastBatch_)) {
      filled_ = false;
      return code;
    }
    limit_ = limit_ == 1 ? kFirstBatch : std::min(limit_ * kGrowth, kLargestBatch);
  }
}

Code Cursor::step(const Source& source, int index, Way way, Found& found) {
  std::uint64_t token = 0;
  if (const Code code = source.table.token(token)) return code;
  if (!filled_ || way != way_ || token != token_ || source.epoch != epoch_) {
    if (limit_ != 1) limit_ = kFirstBatch;
    rows_.clear();
    next_ = 0;
    ahead_ = place_;
    lastBatch_ = false;
    way_ = way;
    token_ = token;
    epoch_ = source.epoch;
    filled_ = true;
  }
  Row* row = nullptr;
  if (const Code code = peek(source, index, way, row)) return code;
  if (source.overlay && source.overlay->read(index, place_, way, written_) &&
      (!row || comesFirst(written_, *row, way))) {
    standOn(written_);
    deliver(written_, found);
    return kOk;
  }
  if (!row) {
    moveTo(way == Way::forward ? Place::At::end : Place::At::start, {});
    return kNotFound;
  }
  ++next_;
  standOn(*row);
  deliver(*row, found);
  return kOk;
}

Code Cursor::search(const Source& source, int index, std::string_view key, Found& found) {
  moveTo(Place::At::before, key);
  if (index == 0) {
    const Overlay::Change* change = source.overlay ? source.overlay->find(key) : nullptr;
    if (change && change->erase) return kNotFound;
    if (change) {
      found.record = change->record;
    } else if (const Code code = source.table.find(key, found.record)) {
      return code;
    }
    found.indexKey = key;
    found.primaryKey = key;
    place_.at = Place::At::on;
    place_.primaryKey = key;
    return kOk;
  }
  limit_ = 1;  // most searches want this one row
  const Code code = step(source, index, Way::forward, candidate_);
  limit_ = std::max(limit_, kFirstBatch);
  if (code != kOk || candidate_.indexKey != key) {
    moveTo(Place::At::before, key);
    return code == kOk ? kNotFound : code;
  }
  std::swap(found, candidate_);
  return kOk;
}

}  // namespace store
