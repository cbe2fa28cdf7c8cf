// A single write goes to its archive at once; a write of a group goes to memory until the commit.
#include "store/station.h"

namespace store {

// A group that stands may be about to add a record of that key, or a single write be at it: both take the
// key's intent first, so that none of them decides on what the other is about to change.
Code RecordStore::Impl::takeIntent(Member& member, std::string_view primaryKey) {
  LockWait wait(options.onWait);
  Code code = member.locks.takeIntent(primaryKey);
  for (; code == kNotFound; code = member.locks.takeIntent(primaryKey)) wait.once();
  return code;
}

template <class Work>
Code RecordStore::Impl::single(Member& member, std::string_view primaryKey, Work work) {
  if (const Code code = takeIntent(member, primaryKey)) return code;
  // Asked behind the intent: its last holder may have died behind a commit.
  Code code = catchUp(member.company);
  if (code == kOk) code = work();
  member.locks.dropIntent(primaryKey);
  return code;
}

Overlay& RecordStore::Impl::overlayOf(Member& member) {
  if (!member.overlay) member.overlay = std::make_unique<Overlay>(member.table->format());
  return *member.overlay;
}

// kOk or kNotFound, as the group sees the archive.
Code RecordStore::Impl::isThere(Member& member, std::string_view primaryKey) {
  if (const Overlay::Change* change = overlayOf(member).find(primaryKey))
    return change->erase ? kNotFound : kOk;
  std::string record;
  return member.table->find(primaryKey, record);
}

Code RecordStore::Impl::write(Member& member, std::string_view primaryKey, std::string_view record,
                              Put mode) {
  if (!inGroup(member))
    return single(member, primaryKey, [&] { return member.table->put(primaryKey, record, mode); });
  if (mode == Put::add) {
    if (const Code code = takeIntent(member, primaryKey)) return code;
  }
  if (mode != Put::write) {
    const Code there = isThere(member, primaryKey);
    if (there != kOk && there != kNotFound) return there;
    if (mode == Put::add && there == kOk) return kExists;
    if (mode == Put::rewrite && there == kNotFound) return kNotFound;
  }
  return overlayOf(member).put(primaryKey, record) ? kOk : kDisk;
}

Code RecordStore::Impl::remove(Member& member, std::string_view primaryKey) {
  if (!inGroup(member)) return single(member, primaryKey, [&] { return member.table->erase(primaryKey); });
  if (const Code there = isThere(member, primaryKey)) return there;
  overlayOf(member).erase(primaryKey);
  return kOk;
}

}  // namespace store
