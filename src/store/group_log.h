// The redo log of groups: one file per company, <code>--.grp beside its archives.
//
// Its head is two slots {magic, crc, log, seq, last, tail}, written in turn by each commit, the newer valid
// one counts, and a note {magic, crc, log, seq} of what has been applied; each in a block of its own, so that
// no write that is cut short takes two of them along. Behind the head stand records {magic, crc, length, log,
// seq, entries}. All numbers are little endian. `log` is drawn at random when the log is made or reset. `seq`
// grows with each write of a slot and is never used twice under one `log`, as the archives remember it; a
// record bears the seq of the slot that committed it, so that the seqs of the records grow, with gaps. Lock
// bytes beyond the end: PRESENCE (shared by each running station), GROUP (the mutex of groups), LOG (the
// mutex of this file).
//
// Only this file's own bytes are dealt with here; what the entries mean to an archive is the store's
// business. No call waits for a lock but open(), lockLog() and lockGroup(); kNotFound is never an answer.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "store/locks.h"

namespace store {

struct LogMark {  // how far an archive has come: kept in the archive itself
  std::uint64_t log = 0, seq = 0;
  bool operator==(const LogMark&) const = default;
};

struct LogOperation {
  bool erase = false;
  std::string key, record;  // the full record; empty for erase
};

struct LogEntry {       // what a group does to one archive
  std::string archive;  // its name without directory
  std::string uuid;     // of the family; another uuid there means it was restored or made anew
  LogMark previous;     // the mark that the archive must bear before this entry
  std::vector<LogOperation> operations;
};

struct LogRecord {
  LogMark mark;
  std::vector<LogEntry> entries;  // in the order of archive names
};

class GroupLog {
 public:
  // `permissions` are those of a file that is made.
  explicit GroupLog(std::string path, mode_t permissions = 0600)
      : path_(std::move(path)), permissions_(permissions) {}

  const std::string& path() const { return path_; }
  bool isOpen() const { return file_.isOpen(); }

  // Opens the file, made with an empty, durable head when it is not there or was left without
  // one. Takes PRESENCE shared; `alone` tells whether no other station had it (asked for exclusively first,
  // under LOG), which means that the whole log must be replayed. LOG stays held when alone is true, until the
  // caller has recovered; a caller whose recovery fails closes the log instead, so that the next station is
  // alone again. After a failure the log is closed.
  Code open(LockWait wait, bool& alone);
  void close();  // gives back PRESENCE, GROUP and LOG

  // kSystem when the file at path() is no longer the one that is open (a company was removed, or made anew):
  // close and open it again.
  Code lockGroup(LockWait wait);
  void unlockGroup();
  Code lockLog(LockWait wait);
  void unlockLog();

  // One pread: whether some group was logged and not yet applied everywhere. True as well while another
  // station is about it: ask again under LOG.
  Code pending(bool& yes);

  // Under LOG, with nothing pending. Appends the record behind the tail, then a slot with the new tail, then
  // fdatasync: when it returns kOk the group is committed. The record's mark is set here. After a failure the
  // record is taken back, and where the disk itself failed everything but close() answers kDisk from then on.
  Code append(LogRecord& record);
  // Under LOG: all records up to the tail are applied. Not flushed: a replay is harmless.
  Code markApplied();
  // Under LOG: the records from the beginning of the log (`all`) or behind what was marked as applied, in
  // order, each with the right log and crc and a seq above the one before and not above the tail's. fdatasync
  // first. A last record that is not whole was a commit cut short: the tail is taken back to before it, since
  // what a later append puts behind it would never be found.
  Code records(bool all, std::vector<LogRecord>& records);
  // Whether the last records(), or open(), met more damage than a commit that was cut short: of the records
  // that follow it only the last is found, and groups that were committed may be lost to archives that
  // a power cut has thrown back. Tell the user, then sync the archives and reset the log.
  bool damaged() const { return damaged_; }
  // Under LOG, after every archive named in it has been synced: a new `log`, fdatasync, truncate, in this
  // order.
  Code reset();

  std::uint64_t bytes() const { return tail_; }  // of the file, as last seen

 private:
  struct Head;
  struct Walk;
  Code lock(std::uint64_t byte, LockWait& wait);
  Code enter(bool& alone);
  Code readHead(Head& head);
  Code initialise();
  Code walk(const Head& head, std::uint64_t behind, Walk& found);
  Code commitSlot(const Head& slot);
  void undo(const Head& before, const Head& failed);
  Code sync();

  std::string path_;
  mode_t permissions_;
  LockFile file_;
  std::uint64_t tail_ = 0;
  bool failed_ = false;  // the disk refused a flush: what it holds is not known until the log is opened again
  bool damaged_ = false;
};

}  // namespace store
