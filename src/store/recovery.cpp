// What groups have left in the logs: replayed after a crash, caught up with after another station's, written
// off when a log has grown.
#include <fcntl.h>
#include <unistd.h>

#include "store/check.h"
#include "store/group_log_bytes.h"
#include "store/station.h"

namespace store {
namespace {

constexpr int kReplacedPosition = 990, kDamagedLogPosition = 991;  // in the failure boxes

ArchiveFailure failureOf(std::string_view archive, int position) {
  ArchiveFailure failure = describeFailure(kDisk, Operation::write, 0, position);
  for (std::string* text : {&failure.message, &failure.logLine}) {
    constexpr std::string_view kArchive = "Archivio: ";
    text->insert(text->find(kArchive) + kArchive.size(), archive);
  }
  return failure;
}

bool isEmpty(const GroupLog& log) { return log.bytes() <= kLogRecords && !log.damaged(); }

// Where the log no longer tells which archives to sync, the whole file system is.
Code syncAll(const std::string& directory) {
  const int descriptor =
      ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return kSystem;
  const Code code = ::syncfs(descriptor) == 0 ? kOk : kDisk;
  ::close(descriptor);
  return code;
}

}  // namespace

Code RecordStore::Impl::enter(Company& company) {
  if (company.log.isOpen()) return kOk;
  bool alone = false;
  if (const Code code = company.log.open(LockWait(options.onWait), alone)) return code;
  if (!alone) return kOk;
  if (isEmpty(company.log)) {
    company.log.unlockLog();
    return kOk;
  }
  // Nobody else is there, so the last station may have gone with the power: then even what is marked as
  // applied may be missing in an archive.
  Code code = replay(company, true);
  if (code == kOk) code = settleUnderLog(company, nullptr);
  if (code == kOk) {
    company.log.unlockLog();
  } else {
    company.log.close();  // the next to come is alone again
  }
  return code;
}

Code RecordStore::Impl::lockLog(Company& company) {
  const Code code = company.log.lockLog(LockWait(options.onWait));
  if (code != kSystem || group) return code;
  company.log.close();  // the company was made anew, and its log with it
  if (const Code entered = enter(company)) return entered;
  return company.log.lockLog(LockWait(options.onWait));
}

Code RecordStore::Impl::catchUp(Company& company) {
  if (const Code code = enter(company)) return code;
  bool pending = false;
  if (const Code code = company.log.pending(pending)) return code;
  company.behind = company.behind && pending;
  if (!pending) return kOk;
  if (const Code code = lockLog(company)) return code;
  Code code = company.log.pending(pending);  // by now another station may have done it
  if (code == kOk && pending) code = replay(company, false);
  company.log.unlockLog();
  return code;
}

// Under LOG.
Code RecordStore::Impl::replay(Company& company, bool all) {
  std::vector<LogRecord> records;
  if (const Code code = company.log.records(all, records)) return code;
  const std::string directory = directoryOf(company.log.path());
  std::set<std::string> refused;
  for (const LogRecord& record : records)
    for (const LogEntry& entry : record.entries)
      if (const Code code = replayEntry(directory, record.mark, entry, refused)) return code;
  for (const std::string& archive : refused) tell(failureOf(archive, kReplacedPosition));
  if (const Code code = company.log.markApplied()) return code;
  company.behind = false;
  if (!company.log.damaged()) return kOk;
  tell(failureOf(nameOf(company.log.path()), kDamagedLogPosition));
  if (const Code code = syncAll(directory)) return code;
  return company.log.reset();
}

// An archive that is no longer the one the group was made on (restored from a copy, made anew, removed) is
// left as it is: a group on top of other records would be worse than a group that is missing, and told.
Code RecordStore::Impl::replayEntry(const std::string& directory, const LogMark& mark, const LogEntry& entry,
                                    std::set<std::string>& refused) {
  const std::string stem = directory + entry.archive;
  if (refused.contains(entry.archive)) return kOk;
  if (!engine->exists(stem)) {
    refused.insert(entry.archive);
    return kOk;
  }
  Member& member = memberOf(stem);
  if (const Code code = connect(member)) return code;
  LogMark has;
  if (const Code code = member.table->mark(has)) return code;
  const bool same = member.table->uuid() == entry.uuid;
  if (same && has.log == mark.log && has.seq >= mark.seq) return kOk;
  if (same && has == entry.previous) return member.table->apply(entry.operations, mark);
  refused.insert(entry.archive);
  return kOk;
}

Code RecordStore::Impl::settle(Company& company, const Member* without) {
  if (!company.log.isOpen()) {
    // Without a log there is nothing to settle, and no reason to make one.
    if (::access(company.log.path().c_str(), F_OK) != 0) return kOk;
    if (const Code code = enter(company)) return code;
  }
  if (const Code code = lockLog(company)) return code;
  bool pending = false;
  Code code = company.log.pending(pending);
  if (code == kOk && pending) code = replay(company, false);
  if (code == kOk && !isEmpty(company.log)) code = settleUnderLog(company, without);
  company.log.unlockLog();
  return code;
}

// Under LOG, with nothing pending: what the records have done to the archives is made durable there, then the
// records go. `without` is about to be removed.
Code RecordStore::Impl::settleUnderLog(Company& company, const Member* without) {
  std::vector<LogRecord> records;
  if (const Code code = company.log.records(true, records)) return code;
  if (records.empty()) return kOk;
  std::set<std::string> archives;
  for (const LogRecord& record : records)
    for (const LogEntry& entry : record.entries) archives.insert(entry.archive);
  for (const std::string& archive : archives) {
    const std::string stem = directoryOf(company.log.path()) + archive;
    if ((without && without->stem == stem) || !engine->exists(stem)) continue;
    Member& member = memberOf(stem);
    if (const Code code = connect(member)) return code;
    if (const Code code = member.table->settle()) return code;
  }
  return company.log.reset();
}

// Under LOG, so that no group comes between the first archive and the last.
Code RecordStore::Impl::copyAll(const std::vector<ArchiveCopy>& copies, std::vector<Code>& results) {
  Company& company = memberOf(copies.front().from).company;
  results.assign(copies.size(), kSystem);
  if (const Code code = settle(company)) return code;
  if (const Code code = enter(company)) return code;
  if (const Code code = lockLog(company)) return code;
  bool pending = false;
  Code code = company.log.pending(pending);
  if (code == kOk && pending) code = replay(company, false);
  for (std::size_t i = 0; i < copies.size(); ++i)
    results[i] = code == kOk ? engine->copy(copies[i].from, copies[i].to) : code;
  company.log.unlockLog();
  return code;
}

Code RecordStore::Impl::settleAll() {
  Code result = kOk;
  for (auto& [path, company] : companies) {
    if (!company.log.isOpen()) continue;
    if (const Code code = settle(company)) result = code;
  }
  return result;
}

}  // namespace store
