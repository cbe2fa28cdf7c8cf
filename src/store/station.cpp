#include "store/station.h"

#include "common/text.h"
#include "store/check.h"
#include "store/files.h"

namespace store {
namespace {

constexpr std::size_t kIdleConnections = 48;  // more than a company's year has archives

// A key as its index holds it: no longer than the index is wide.
std::string_view cutTo(std::string_view key, int width, std::string& room) {
  if (key.size() <= static_cast<std::size_t>(width)) return key;
  room = common::cut(key, static_cast<std::size_t>(width));
  return room;
}

int widthOf(const Table& table, int index) {
  const std::vector<FieldFormat>& fields = table.format().fields;
  if (index == 0) return table.keyLength();
  if (index < 1 || index > static_cast<int>(fields.size())) return 0;
  return fields[static_cast<std::size_t>(index) - 1].keyWidth;
}

}  // namespace

std::string directoryOf(const std::string& stem) { return stem.substr(0, stem.rfind('/') + 1); }
std::string nameOf(const std::string& stem) { return stem.substr(stem.rfind('/') + 1); }

RecordStore::Impl::Impl(StoreOptions given) : options(std::move(given)) {
  if (!options.logOf) options.logOf = [](std::string_view) { return "--.grp"; };
  engine = makeEmbeddedEngine(options.onWait, options.share);
}

RecordStore::Impl::~Impl() {
  if (group) endGroup(false);
  for (auto& [stem, member] : members)
    if (member.table) member.table->flush();
  settleAll();
}

Company& RecordStore::Impl::companyOf(const std::string& logPath) {
  return companies.try_emplace(logPath, logPath, (options.share ? kShared : kOwn).file).first->second;
}

Member& RecordStore::Impl::memberOf(const std::string& stem) {
  const auto found = members.find(stem);
  if (found != members.end()) return found->second;
  Company& company = companyOf(directoryOf(stem) + options.logOf(nameOf(stem)));
  Member& member = members.try_emplace(stem, stem, company).first->second;
  if (inGroup(member)) member.locks.beginGroup();
  return member;
}

OpenArchive* RecordStore::Impl::find(Handle handle) {
  const auto found = handles.find(handle);
  return found == handles.end() || !found->second.member->table ? nullptr : &found->second;
}

// The archive of a handle, fit for use: no group of its company is left half applied.
Code RecordStore::Impl::reach(Handle handle, OpenArchive*& archive) {
  archive = find(handle);
  if (!archive) return kSystem;
  Company& company = archive->member->company;
  return company.behind ? catchUp(company) : kOk;
}

// Makes the member's table usable: it is opened when it is not, and anew when another station has replaced
// the files or a flush has failed.
Code RecordStore::Impl::connect(Member& member) {
  member.lastUse = ++uses;
  if (member.table && (member.table->stale() || member.table->broken())) {
    if (member.overlay) return kSystem;  // the group's writes were meant for the archive that has gone
    member.table.reset();
    if (!member.locks.any()) member.locks.close();
  }
  if (member.table) return kOk;
  ++member.epoch;
  return engine->open(member.stem, member.table);
}

Code RecordStore::Impl::create(const std::string& stem, int keyLength, const std::string& format) {
  return engine->create(stem, keyLength, format);
}

Code RecordStore::Impl::open(const std::string& stem, Handle& handle) {
  handle = 0;
  const auto known = members.find(stem);
  const bool pooled = known != members.end() && known->second.table && !known->second.table->stale();
  if (!pooled && !engine->exists(stem)) return kSystem;
  Member& member = memberOf(stem);
  if (const Code code = begin(member)) return code;
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
  if (!member.table) return kSystem;
  const Code code = inGroup(member) ? kOk : member.table->flush();
  if (member.handles == 0) closeIdle();
  return code;
}

// Closes the connection that has been idle longest, when there are more than a session is likely to need.
void RecordStore::Impl::closeIdle() {
  std::size_t idle = 0;
  Member* oldest = nullptr;
  for (auto& [stem, member] : members) {
    if (!member.table || member.handles || member.overlay) continue;
    ++idle;
    if (!oldest || member.lastUse < oldest->lastUse) oldest = &member;
  }
  if (idle > kIdleConnections) oldest->table.reset();
}

Code RecordStore::Impl::kill(const std::string& stem) {
  Member& member = memberOf(stem);
  if (member.handles || member.overlay) return kSystem;
  // Should that fail, a replay finds the archive gone and passes over it.
  if (engine->exists(stem)) settle(member.company, &member);
  member.table.reset();
  member.locks.close();
  return engine->kill(stem);
}

bool RecordStore::Impl::isOpenElsewhere(const std::string& stem) {
  Member& member = memberOf(stem);
  if (!member.handles && !member.overlay) member.table.reset();  // kept for the next opening
  return engine->isOpenElsewhere(stem);
}

Code RecordStore::Impl::get(Handle handle, int index, Get mode, std::string_view key, Found& found) {
  OpenArchive* archive = nullptr;
  if (const Code code = reach(handle, archive)) return code;
  const Source source = sourceOf(*archive->member);
  Cursor& cursor = archive->cursors[index];
  if (mode == Get::next) return cursor.step(source, index, Way::forward, found);
  if (mode == Get::previous) return cursor.step(source, index, Way::backward, found);
  std::string room;
  return cursor.search(source, index, cutTo(key, widthOf(source.table, index), room), found);
}

Code RecordStore::Impl::stand(Handle handle, int index, void (Cursor::*where)()) {
  OpenArchive* archive = find(handle);
  if (!archive) return kSystem;
  (archive->cursors[index].*where)();
  const Code code = begin(*archive->member);
  if (code != kOk) archive->member->company.behind = true;  // so that the scan fails, too, where that lasts
  return code;
}

// A scan begins, or the use of an archive: not with half of a group, whose station may have died over it.
Code RecordStore::Impl::begin(Member& member) {
  return inGroup(member) ? enter(member.company) : catchUp(member.company);
}

Code RecordStore::Impl::put(Handle handle, std::string_view primaryKey, std::string_view record, Put mode) {
  OpenArchive* archive = nullptr;
  if (const Code code = reach(handle, archive)) return code;
  Member& member = *archive->member;
  std::string room;
  return write(member, cutTo(primaryKey, member.table->keyLength(), room), record, mode);
}

Code RecordStore::Impl::erase(Handle handle, std::string_view primaryKey) {
  OpenArchive* archive = nullptr;
  if (const Code code = reach(handle, archive)) return code;
  Member& member = *archive->member;
  std::string room;
  return remove(member, cutTo(primaryKey, member.table->keyLength(), room));
}

Code RecordStore::Impl::lock(Handle handle, std::string_view primaryKey) {
  const OpenArchive* archive = find(handle);
  if (!archive) return kSystem;
  Member& member = *archive->member;
  const Code code = member.locks.lock(primaryKey);
  if (code == kNotFound) {
    if (!lockWait) lockWait.emplace(options.onWait);
    lockWait->once();
    return code;
  }
  lockWait.reset();
  if (code != kOk || inGroup(member)) return code;
  // Its last holder may have died behind a commit: what is read under the lock must have that in it.
  const Code caughtUp = catchUp(member.company);
  if (caughtUp != kOk) member.locks.unlock(primaryKey);
  return caughtUp;
}

Code RecordStore::Impl::unlock(Handle handle, std::string_view primaryKey) {
  const OpenArchive* archive = find(handle);
  return archive ? archive->member->locks.unlock(primaryKey) : kSystem;
}

Code RecordStore::Impl::flush(Handle handle) {
  const OpenArchive* archive = find(handle);
  if (!archive) return kSystem;
  return inGroup(*archive->member) ? kOk : archive->member->table->flush();
}

void RecordStore::Impl::check(Code code, Operation operation, int archive, int position) {
  if (code == kOk) return;
  if (group && code >= kDiskFull) {
    noted(code);
  } else {
    tell(describeFailure(code, operation, archive, position));
  }
}

void RecordStore::Impl::tell(const ArchiveFailure& failure) {
  if (group) {
    group->told.push_back(failure);
  } else if (options.onFailure) {
    options.onFailure(failure);
  }
}

}  // namespace store
