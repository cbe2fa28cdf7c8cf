#include "store/overlay.h"

#include <algorithm>

namespace store {

const Overlay::Change* Overlay::find(std::string_view primaryKey) const {
  const auto found = changes_.find(primaryKey);
  return found == changes_.end() ? nullptr : &found->second;
}

// The change of that key, ready for a new state: what it had put before is taken out of the indexes.
Overlay::Change& Overlay::changeOf(std::string_view primaryKey) {
  const auto [place, isNew] = changes_.try_emplace(std::string(primaryKey));
  Change& change = place->second;
  if (isNew) {
    change.order = changes_.size();
  } else if (!change.erase) {
    keys_[0].erase({place->first, place->first});
    for (std::size_t i = 0; i < change.keys.size(); ++i)
      keys_[format_.indexed[i]].erase({change.keys[i], place->first});
  }
  return change;
}

bool Overlay::put(std::string_view primaryKey, std::string_view record) {
  std::vector<std::string> keys;
  if (!indexKeys(format_, record, keys)) return false;
  Change& change = changeOf(primaryKey);
  change.erase = false;
  change.record = record;
  change.keys = std::move(keys);
  const std::string key(primaryKey);
  keys_[0].emplace(key, key);
  for (std::size_t i = 0; i < change.keys.size(); ++i) keys_[format_.indexed[i]].emplace(change.keys[i], key);
  return true;
}

void Overlay::erase(std::string_view primaryKey) {
  Change& change = changeOf(primaryKey);
  change.erase = true;
  change.record.clear();
  change.keys.clear();
}

bool Overlay::read(int index, const Place& place, Way way, Row& row) const {
  const auto found = keys_.find(index);
  if (found == keys_.end()) return false;
  const std::set<Key>& keys = found->second;
  const Key key{place.key, place.at == Place::At::on ? place.primaryKey : std::string()};
  auto next = keys.end();
  if (way == Way::forward) {
    if (place.at == Place::At::start) next = keys.begin();
    if (place.at == Place::At::before) next = keys.lower_bound(key);
    if (place.at == Place::At::on) next = keys.upper_bound(key);
    if (next == keys.end()) return false;
  } else {
    if (place.at == Place::At::start) return false;
    if (place.at != Place::At::end) next = keys.lower_bound(key);
    if (next == keys.begin()) return false;
    --next;
  }
  row.indexKey = next->first;
  row.primaryKey = next->second;
  row.record = find(next->second)->record;
  return true;
}

std::vector<LogOperation> Overlay::operations() const {
  std::vector<decltype(changes_)::const_pointer> ordered;
  for (const auto& change : changes_) ordered.push_back(&change);
  std::sort(ordered.begin(), ordered.end(),
            [](const auto* a, const auto* b) { return a->second.order < b->second.order; });
  std::vector<LogOperation> operations;
  for (const auto* change : ordered)
    operations.push_back({change->second.erase, change->first, change->second.record});
  return operations;
}

}  // namespace store
