// The redo log of groups: one file per company, <code>--.grp beside its archives.
//
// A header of two checked slots {magic, logid, tail_seq, applied_seq, tail_off}, written in turn, the newer valid
// one counts; behind it records {magic, length, logid, seq, crc, entries}. Lock bytes beyond the end:
// PRESENCE (shared by each running station), GROUP (the mutex of groups), LOG (the mutex of this file).
//
// Only this file's own bytes are dealt with here; what the entries mean to an archive is the store's business,
// which passes an `Apply` for them. No call waits for a lock but lockLog() and lockGroup().
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "store/locks.h"

namespace store {

struct LogMark {                    // how far an archive has come: kept in the archive itself
  std::uint64_t log = 0, seq = 0;
  bool operator==(const LogMark&) const = default;
};

struct LogOperation {
  bool erase = false;
  std::string key, record;          // the full record; empty for erase
};

struct LogEntry {                   // what a group does to one archive
  std::string archive;              // its name without directory
  std::string uuid;                 // of the family; another uuid there means it was restored or made anew
  LogMark previous;                 // the mark that the archive must bear before this entry
  std::vector<LogOperation> operations;
};

struct LogRecord {
  LogMark mark;
  std::vector<LogEntry> entries;    // in the order of archive names
};

class GroupLog {
 public:
  explicit GroupLog(std::string path) : path_(std::move(path)) {}

  const std::string& path() const { return path_; }
  bool isOpen() const { return file_.isOpen(); }

  // Opens the file, made with an empty, durable header when it is not there (mode 0600). Takes PRESENCE shared;
  // `alone` tells whether no other station had it (asked for exclusively first, under LOG), which means that
  // the whole log must be replayed. LOG stays held when alone is true, until the caller has recovered.
  Code open(bool& alone);
  void close();

  Code lockGroup(LockWait wait);
  void unlockGroup();
  Code lockLog(LockWait wait);
  void unlockLog();

  // One pread: whether some group was logged and not yet applied everywhere.
  Code pending(bool& yes);

  // Under LOG. Appends the record behind the tail, then the header with the new tail, then fdatasync: when it
  // returns kOk the group is committed. The record's mark is set here: this log's id, the next seq.
  Code append(LogRecord& record);
  // Under LOG: all records up to the tail are applied. Not flushed: a replay is harmless.
  Code markApplied();
  // Under LOG: the records from the beginning of the log (`all`) or behind applied_seq, in order, each with the right
  // logid and crc and a seq not above tail_seq; stops at the first that is not. fdatasync first.
  Code records(bool all, std::vector<LogRecord>& records);
  // Under LOG, after every archive named in it has been synced: a new logid, fdatasync, truncate, in this order.
  Code reset();

  std::uint64_t bytes() const { return tailOffset_; }  // of the log as last seen

 private:
  struct Header;
  Code readHeader(Header& header);
  Code writeHeader(const Header& header);
  std::string path_;
  LockFile file_;
  std::uint64_t tailOffset_ = 0;
};

}  // namespace store
