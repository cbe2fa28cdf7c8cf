// What a RecordStore holds: the archives it has open, their handles and locks, the logs of its companies.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>

#include "store/cursor.h"
#include "store/engine.h"
#include "store/record_locks.h"
#include "store/record_store.h"

namespace store {

// One archive as this station knows it. It outlives its handles: the next VmxOpen finds the connection open.
struct Member {
  explicit Member(const std::string& path) : stem(path), locks(path + ".ISM") {}

  std::string stem;
  std::unique_ptr<Table> table;
  RecordLocks locks;
  int handles = 0;
  std::uint64_t epoch = 0;  // of the table: a new one when the connection was made anew
};

struct OpenArchive {
  Member* member = nullptr;
  std::map<int, Cursor> cursors;  // by index
};

struct RecordStore::Impl {
  explicit Impl(StoreOptions given);

  Code open(const std::string& stem, Handle& handle);
  Code close(Handle handle);
  Code kill(const std::string& stem);
  Code get(Handle handle, int index, Get mode, std::string_view key, Found& found);
  Code put(Handle handle, std::string_view primaryKey, std::string_view record, Put mode);
  Code erase(Handle handle, std::string_view primaryKey);
  Code lock(Handle handle, std::string_view primaryKey);
  Code unlock(Handle handle, std::string_view primaryKey);
  Code flush(Handle handle);
  Code stand(Handle handle, int index, void (Cursor::*where)());  // toStart, toEnd

  Member& memberOf(const std::string& stem);
  Code connect(Member& member);
  OpenArchive* find(Handle handle);  // nullptr for a handle that is not open

  StoreOptions options;
  std::unique_ptr<Engine> engine;
  std::map<std::string, Member> members;  // by stem
  std::unordered_map<Handle, OpenArchive> handles;
  Handle lastHandle = 0;             // none is used twice
  std::optional<LockWait> lockWait;  // of the lock that is being tried
};

}  // namespace store
