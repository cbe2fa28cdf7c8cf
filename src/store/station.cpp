#include "store/station.h"

#include "common/text.h"

namespace store {
namespace {

// A key as its index holds it: no longer than the index is wide.
std::string_view cutTo(std::string_view key, int width, std::string& room) {
  if (key.size() <= static_cast<std::size_t>(width)) return key;
  room = common::cut(key, static_cast<std::size_t>(width));
  return room;
}

int widthOf(const Table& table, int index) {
  const std::vector<FieldFormat>& fields = table.format().fields;
  if (index == 0) return table.keyLength();
  return index < 1 || index > static_cast<int>(fields.size())
             ? 0
             : fields[static_cast<std::size_t>(index) - 1].keyWidth;
}

}  // namespace

RecordStore::Impl::Impl(StoreOptions given)
    : options(std::move(given)), engine(makeEmbeddedEngine(options.onWait)) {}

Member& RecordStore::Impl::memberOf(const std::string& stem) {
  return members.try_emplace(stem, stem).first->second;
}

OpenArchive* RecordStore::Impl::find(Handle handle) {
  const auto found = handles.find(handle);
  return found == handles.end() || !found->second.member->table ? nullptr : &found->second;
}

// Makes the member's table usable: it is opened when it is not, and anew when another station has replaced
// the files or a flush has failed.
Code RecordStore::Impl::connect(Member& member) {
  if (member.table && (member.table->stale() || member.table->broken())) {
    member.table.reset();
    if (!member.locks.any()) member.locks.close();
  }
  if (member.table) return kOk;
  ++member.epoch;
  return engine->open(member.stem, member.table);
}

Code RecordStore::Impl::open(const std::string& stem, Handle& handle) {
  handle = 0;
  Member& member = memberOf(stem);
  if (const Code code = connect(member)) return code;
  ++member.handles;
  handle = ++lastHandle;
  handles[handle].member = &member;
  return kOk;
}

Code RecordStore::Impl::close(Handle handle) {
  const auto found = handles.find(handle);
  if (found == handles.end()) return kSystem;
  Member& member = *found->second.member;
  handles.erase(found);
  --member.handles;
  return member.table ? member.table->flush() : kSystem;
}

Code RecordStore::Impl::kill(const std::string& stem) {
  const auto found = members.find(stem);
  if (found != members.end()) {
    if (found->second.handles) return kSystem;
    members.erase(found);
  }
  return engine->kill(stem);
}

Code RecordStore::Impl::get(Handle handle, int index, Get mode, std::string_view key, Found& found) {
  OpenArchive* archive = find(handle);
  if (!archive) return kSystem;
  Member& member = *archive->member;
  const Source source{*member.table, nullptr, member.epoch};
  Cursor& cursor = archive->cursors[index];
  if (mode == Get::next) return cursor.step(source, index, Way::forward, found);
  if (mode == Get::previous) return cursor.step(source, index, Way::backward, found);
  std::string room;
  return cursor.search(source, index, cutTo(key, widthOf(*member.table, index), room), found);
}

Code RecordStore::Impl::stand(Handle handle, int index, void (Cursor::*where)()) {
  OpenArchive* archive = find(handle);
  if (!archive) return kSystem;
  (archive->cursors[index].*where)();
  return kOk;
}

Code RecordStore::Impl::put(Handle handle, std::string_view primaryKey, std::string_view record, Put mode) {
  const OpenArchive* archive = find(handle);
  if (!archive) return kSystem;
  Table& table = *archive->member->table;
  std::string room;
  return table.put(cutTo(primaryKey, table.keyLength(), room), record, mode);
}

Code RecordStore::Impl::erase(Handle handle, std::string_view primaryKey) {
  const OpenArchive* archive = find(handle);
  if (!archive) return kSystem;
  Table& table = *archive->member->table;
  std::string room;
  return table.erase(cutTo(primaryKey, table.keyLength(), room));
}

Code RecordStore::Impl::lock(Handle handle, std::string_view primaryKey) {
  const OpenArchive* archive = find(handle);
  if (!archive) return kSystem;
  const Code code = archive->member->locks.lock(primaryKey);
  if (code != kNotFound) {
    lockWait.reset();
    return code;
  }
  if (!lockWait) lockWait.emplace(options.onWait);
  lockWait->once();
  return code;
}

Code RecordStore::Impl::unlock(Handle handle, std::string_view primaryKey) {
  const OpenArchive* archive = find(handle);
  return archive ? archive->member->locks.unlock(primaryKey) : kSystem;
}

Code RecordStore::Impl::flush(Handle handle) {
  const OpenArchive* archive = find(handle);
  return archive ? archive->member->table->flush() : kSystem;
}

}  // namespace store
