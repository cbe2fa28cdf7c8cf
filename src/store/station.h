// What a RecordStore holds: the archives it has open, their handles and locks, the group logs of their
// companies and the group that stands.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/cursor.h"
#include "store/engine.h"
#include "store/group_log.h"
#include "store/overlay.h"
#include "store/record_locks.h"
#include "store/record_store.h"

namespace store {

// The archives that share a group log. (Those of the installation are a company of their own here.)
struct Company {
  Company(const std::string& path, mode_t permissions) : log(path, permissions) {}

  GroupLog log;
  bool behind = false;  // a committed group is not yet in all its archives: nothing is read or written before
};

// One archive as this station knows it. It outlives its handles: the next VmxOpen finds the connection open.
struct Member {
  Member(const std::string& path, Company& owner) : stem(path), company(owner), locks(path + ".ISM") {}

  std::string stem;
  Company& company;
  std::unique_ptr<Table> table;
  std::unique_ptr<Overlay> overlay;  // what the group has written
  RecordLocks locks;
  int handles = 0;
  std::uint64_t epoch = 0;  // a new one when the table was opened anew or the overlay has gone
  std::uint64_t lastUse = 0;
};

struct OpenArchive {
  Member* member = nullptr;
  std::map<int, Cursor> cursors;  // by index
};

struct StandingGroup {
  Company& company;
  int archive, position;             // of the report
  Code spoiled = kOk;                // the first failure of 11 or more
  std::vector<ArchiveFailure> told;  // lesser ones, kept until no lock is held
};

struct RecordStore::Impl {
  explicit Impl(StoreOptions given);
  ~Impl();

  // The operations behind RecordStore's, by handle. (station.cpp)
  Code create(const std::string& stem, int keyLength, const std::string& format);
  Code open(const std::string& stem, Handle& handle);
  Code close(Handle handle);
  Code kill(const std::string& stem);
  bool isOpenElsewhere(const std::string& stem);
  Code copyAll(const std::vector<ArchiveCopy>& copies, std::vector<Code>& results);
  Code get(Handle handle, int index, Get mode, std::string_view key, Found& found);
  Code put(Handle handle, std::string_view primaryKey, std::string_view record, Put mode);
  Code erase(Handle handle, std::string_view primaryKey);
  Code lock(Handle handle, std::string_view primaryKey);
  Code unlock(Handle handle, std::string_view primaryKey);
  Code flush(Handle handle);
  Code begin(Member& member);
  Code stand(Handle handle, int index, void (Cursor::*where)());  // toStart, toEnd
  void check(Code code, Operation operation, int archive, int position);

  // Maintenance. (maintenance.cpp)
  Code validate(const std::string& stem, const Progress& progress);
  Code rebuild(const std::string& stem, const Progress& progress);
  Code repair(const std::string& stem, std::string& report, const Progress& progress);
  Code letGo(const std::string& stem, Member*& member);
  std::optional<Shape> shapeOf(const std::string& stem) const;

  Company& companyOf(const std::string& logPath);
  Member& memberOf(const std::string& stem);
  Code connect(Member& member);
  void closeIdle();
  OpenArchive* find(Handle handle);  // nullptr for a handle that is not open
  Code reach(Handle handle, OpenArchive*& archive);
  Source sourceOf(Member& member) const { return {*member.table, member.overlay.get(), member.epoch}; }
  void tell(const ArchiveFailure& failure);  // at once, or after the group

  // Writing. (writing.cpp)
  Code write(Member& member, std::string_view primaryKey, std::string_view record, Put mode);
  Code remove(Member& member, std::string_view primaryKey);
  template <class Work>
  Code single(Member& member, std::string_view primaryKey, Work work);
  Code takeIntent(Member& member, std::string_view primaryKey);
  Code isThere(Member& member, std::string_view primaryKey);
  Overlay& overlayOf(Member& member);

  // The group that stands. (group.cpp)
  bool inGroup(const Member& member) const { return group && &group->company == &member.company; }
  Code noted(Code code);  // a failure of 11 or more spoils the group
  void beginGroup(const std::string& logPath, int archive, int position);
  Code lockGroup(Company& company);
  Code commitGroup();
  Code applyGroup(Company& company, const LogRecord& record);
  void endGroup(bool committed);

  // What groups have left in the logs. (recovery.cpp)
  Code enter(Company& company);  // opens the log; the first station there replays all of it
  Code lockLog(Company& company);
  Code catchUp(Company& company);  // applies what another station has committed and left behind
  Code replay(Company& company, bool all);
  Code replayEntry(const std::string& directory, const LogMark& mark, const LogEntry& entry,
                   std::set<std::string>& refused);
  Code settle(Company& company, const Member* without = nullptr);
  Code settleUnderLog(Company& company, const Member* without);
  Code settleAll();

  StoreOptions options;
  std::unique_ptr<Engine> engine;
  std::map<std::string, Company> companies;  // by the path of the log
  std::map<std::string, Member> members;     // by stem
  std::unordered_map<Handle, OpenArchive> handles;
  Handle lastHandle = 0;  // none is used twice
  std::uint64_t uses = 0;
  std::optional<LockWait> lockWait;  // of the record lock that is being tried
  std::optional<StandingGroup> group;
};

// The directory of a stem with its slash, and the archive's name.
std::string directoryOf(const std::string& stem);
std::string nameOf(const std::string& stem);

}  // namespace store
