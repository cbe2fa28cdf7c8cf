#include "store/record_locks.h"

#include <algorithm>

namespace store {
Code RecordLocks::open() { return file_.isOpen() ? kOk : file_.open(path_); }

void RecordLocks::close() {
  held_.clear();
  file_.close();
}

Code RecordLocks::lock(std::string_view key) {
  const auto found = held_.find(key);
  if (found != held_.end()) {
    ++found->second.count;
    return kOk;
  }
  if (const Code code = open()) return code;
  const std::uint64_t byte = lockByte(key);
  if (const Code code = file_.tryExclusive(byte)) return code;
  held_.emplace(std::string(key), Held{1, 0, byte});
  return kOk;
}

Code RecordLocks::unlock(std::string_view key) {
  const auto found = held_.find(key);
  if (found == held_.end() || found->second.count == 0) return kOk;
  if (--found->second.count == 0 && !inGroup_) letGo(found);
  return kOk;
}

// Frees the byte, but for the rare case that another key held here lies on the same one.
RecordLocks::Map::iterator RecordLocks::letGo(Map::iterator held) {
  const std::uint64_t byte = held->second.byte;
  const auto next = held_.erase(held);
  const bool shared =
      std::any_of(held_.begin(), held_.end(), [&](const auto& other) { return other.second.byte == byte; });
  if (!shared) file_.release(byte);
  return next;
}

void RecordLocks::beginGroup() {
  inGroup_ = true;
  for (auto& [key, held] : held_) held.before = held.count;
}

void RecordLocks::endGroup(bool committed) {
  inGroup_ = false;
  bool keeps = false;
  for (auto& [key, held] : held_) {
    if (!committed) held.count = std::min(held.count, held.before);
    keeps = keeps || held.count != 0;
  }
  if (!keeps && (intends_ || !held_.empty())) {
    file_.releaseAll(kIntentBytes, 0);  // at one go: the record locks lie behind the intents
    held_.clear();
  } else if (intends_) {
    file_.releaseAll(kIntentBytes, kIntentBytes);
  }
  intends_ = false;
  for (auto at = held_.begin(); at != held_.end();) at = at->second.count == 0 ? letGo(at) : std::next(at);
}

Code RecordLocks::takeIntent(std::string_view key) {
  if (const Code code = open()) return code;
  const Code code = file_.tryExclusive(intentByte(key));
  if (code == kOk && inGroup_) intends_ = true;
  return code;
}

void RecordLocks::dropIntent(std::string_view key) { file_.release(intentByte(key)); }

}  // namespace store
