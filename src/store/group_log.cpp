#include "store/group_log.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <limits>
#include <string_view>
#include <utility>

#include "store/errors.h"
#include "store/files.h"
#include "store/group_log_bytes.h"

namespace store {
namespace {

// Fewer bytes than asked for are no failure: the file ends there.
Code readAt(int descriptor, std::uint64_t offset, char* bytes, std::size_t size, std::size_t& got) {
  got = 0;
  while (got < size) {
    const ssize_t n = ::pread(descriptor, bytes + got, size - got, static_cast<off_t>(offset + got));
    if (n == 0) return kOk;
    if (n > 0) got += static_cast<std::size_t>(n);
    if (n < 0 && errno != EINTR) return codeOfErrno(errno);
  }
  return kOk;
}

Code writeAt(int descriptor, std::uint64_t offset, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = ::pwrite(descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return n < 0 ? codeOfErrno(errno) : kDisk;
    bytes.remove_prefix(static_cast<std::size_t>(n));
    offset += static_cast<std::uint64_t>(n);
  }
  return kOk;
}

Code truncateAt(int descriptor, std::uint64_t size) {
  int result = 0;
  do {
    result = ::ftruncate(descriptor, static_cast<off_t>(size));
  } while (result < 0 && errno == EINTR);
  return result < 0 ? codeOfErrno(errno) : kOk;
}

Code drawLogId(std::uint64_t& id) {
  id = 0;
  while (id == 0)  // 0 is the mark of an archive that no log has touched
    if (::getrandom(&id, sizeof id, 0) < 0 && errno != EINTR) return codeOfErrno(errno);
  return kOk;
}

}  // namespace

struct GroupLog::Head {
  LogSlot slot;
  LogMark applied;
  std::size_t at = 0;      // which of the two slots this is
  std::uint64_t step = 1;  // to the next seq; 2 where the slot that is not readable may have used one
  bool blank = false;      // neither slot can be read

  // The slot that replaces this one: written over the other, so that this one counts until that is whole.
  Head next() const {
    Head next = *this;
    next.slot.mark.seq += step;
    next.at = 1 - at;
    return next;
  }
};

struct GroupLog::Walk {
  std::vector<LogRecord> records;
  std::uint64_t seq = 0;                                // of the last record that is whole
  std::uint64_t last = kLogRecords, end = kLogRecords;  // where it begins and ends
  bool damaged = false;
};

Code GroupLog::open(LockWait wait, bool& alone) {
  Code code = kSystem;
  // Whoever held LOG may have removed the file in the meantime: then this is the wrong one.
  for (int tries = 0; tries < 5; ++tries) {
    close();
    if (code = file_.make(path_, permissions_); code != kOk) return code;
    code = lock(kLogByte, wait);
    if (code == kOk || file_.isStillAt(path_)) break;
  }
  if (code == kOk) code = enter(alone);
  if (code != kOk) {
    close();
  } else if (!alone) {
    unlockLog();
  }
  return code;
}

void GroupLog::close() {
  file_.close();
  failed_ = false;
  damaged_ = false;
}

// Under LOG: takes PRESENCE and sees to a head. The exclusive lock is given up at once, for LOG guards what
// follows.
Code GroupLog::enter(bool& alone) {
  const Code first = file_.tryExclusive(kPresenceByte);
  if (first != kOk && first != kNotFound) return first;
  alone = first == kOk;
  if (const Code code = file_.tryShared(kPresenceByte); code != kOk)
    return code == kNotFound ? kSystem : code;
  Head head;
  const Code code = readHead(head);
  return head.blank ? initialise() : code;
}

Code GroupLog::lock(std::uint64_t byte, LockWait& wait) {
  Code code = file_.tryExclusive(byte);
  for (; code == kNotFound; code = file_.tryExclusive(byte)) wait.once();
  if (code != kOk || file_.isStillAt(path_)) return code;
  file_.release(byte);
  return kSystem;
}

Code GroupLog::lockGroup(LockWait wait) { return lock(kGroupByte, wait); }
void GroupLog::unlockGroup() { file_.release(kGroupByte); }
Code GroupLog::lockLog(LockWait wait) { return lock(kLogByte, wait); }
void GroupLog::unlockLog() { file_.release(kLogByte); }

Code GroupLog::readHead(Head& head) {
  std::array<char, kLogNote + kLogNoteSize> bytes{};
  std::size_t got = 0;
  if (const Code code = readAt(file_.descriptor(), 0, bytes.data(), bytes.size(), got); code != kOk)
    return code;
  const std::string_view view(bytes.data(), bytes.size());

  std::array<LogSlot, 2> slots;
  const bool first = decodeLogSlot(view.substr(kLogSlots[0]), slots[0]);
  const bool second = decodeLogSlot(view.substr(kLogSlots[1]), slots[1]);
  head.blank = !first && !second;
  if (head.blank) return kDisk;
  head.at = second && (!first || slots[1].mark.seq > slots[0].mark.seq) ? 1 : 0;
  head.step = first && second ? 1 : 2;
  head.slot = slots[head.at];
  if (!decodeLogNote(view.substr(kLogNote), head.applied) || head.applied.log != head.slot.mark.log)
    head.applied = {head.slot.mark.log, 0};
  tail_ = head.slot.tail;
  return kOk;
}

// A file without a readable head: new, or left by a station that died while it made it, or damaged. In the
// last case the records tell what they can: to lose them would be worse than to replay one too many.
Code GroupLog::initialise() {
  struct stat status {};
  if (::fstat(file_.descriptor(), &status) != 0) return codeOfErrno(errno);
  Head head;
  Walk found;
  head.slot.tail = std::max<std::uint64_t>(status.st_size, kLogRecords);
  damaged_ = head.slot.tail > kLogRecords;
  if (damaged_) {
    std::array<char, kLogRecordHead> bytes{};
    std::size_t got = 0;
    const Code code = readAt(file_.descriptor(), kLogRecords, bytes.data(), bytes.size(), got);
    if (code != kOk) return code;
    std::uint64_t size = 0;
    decodeLogRecordHead({bytes.data(), bytes.size()}, head.slot.mark, size);
    constexpr std::uint64_t kAny = std::numeric_limits<std::uint64_t>::max();
    head.slot.mark.seq = kAny;
    if (const Code walked = walk(head, kAny, found); walked != kOk) return walked;
  }
  if (found.seq == 0) {
    if (const Code code = drawLogId(head.slot.mark.log); code != kOk) return code;
  }
  head.slot.mark.seq = found.seq + 2;  // the lost slots may have used one that no record shows
  head.slot.last = found.last;
  head.slot.tail = found.end;

  std::string bytes = encodeLogSlot(head.slot);
  bytes.resize(kLogRecords, '\0');
  if (found.seq == 0)
    bytes.replace(kLogNote, kLogNoteSize, encodeLogNote(head.slot.mark));  // nothing to apply
  if (const Code code = writeAt(file_.descriptor(), 0, bytes); code != kOk) return code;
  if (const Code code = sync(); code != kOk) return code;
  tail_ = head.slot.tail;
  return syncDirectoryOf(path_);
}

Code GroupLog::pending(bool& yes) {
  if (failed_) return kDisk;
  Head head;
  if (const Code code = readHead(head); code != kOk) return code;
  yes = head.applied != head.slot.mark;
  return kOk;
}

Code GroupLog::append(LogRecord& record) {
  if (failed_) return kDisk;
  Head head;
  if (const Code code = readHead(head); code != kOk) return code;
  Head next = head.next();
  const std::string bytes = encodeLogRecord(next.slot.mark, record.entries);
  next.slot.last = head.slot.tail;
  next.slot.tail = head.slot.tail + bytes.size();

  if (const Code code = writeAt(file_.descriptor(), head.slot.tail, bytes); code != kOk) {
    truncateAt(file_.descriptor(), head.slot.tail);
    return code;
  }
  if (const Code code = commitSlot(next); code != kOk) {
    undo(head, next);
    return code;
  }
  record.mark = next.slot.mark;
  return kOk;
}

Code GroupLog::commitSlot(const Head& head) {
  const Code code = writeAt(file_.descriptor(), kLogSlots[head.at], encodeLogSlot(head.slot));
  if (code != kOk) return code;
  tail_ = head.slot.tail;
  return sync();
}

// A commit that failed must not be found by a recovery after all. What was before is written over the slot of
// the failed one, the record is cut off; more cannot be done on a disk that refuses to write.
void GroupLog::undo(const Head& before, const Head& failed) {
  Head again = before;
  again.at = failed.at;
  again.slot.mark.seq = failed.slot.mark.seq + 1;
  commitSlot(again);
  truncateAt(file_.descriptor(), before.slot.tail);
  failed_ = true;
}

Code GroupLog::markApplied() {
  if (failed_) return kDisk;
  Head head;
  if (const Code code = readHead(head); code != kOk) return code;
  return writeAt(file_.descriptor(), kLogNote, encodeLogNote(head.slot.mark));
}

Code GroupLog::walk(const Head& head, std::uint64_t behind, Walk& found) {
  std::string bytes(head.slot.tail - kLogRecords, '\0');
  std::size_t got = 0;
  const Code code = readAt(file_.descriptor(), kLogRecords, bytes.data(), bytes.size(), got);
  if (code != kOk) return code;

  for (std::uint64_t offset = kLogRecords; offset < head.slot.tail;) {
    const std::string_view rest = std::string_view(bytes).substr(offset - kLogRecords);
    LogRecord record;
    LogMark mark;
    std::uint64_t size = 0;
    const bool whole = decodeLogRecordHead(rest, mark, size) && size <= rest.size() &&
                       mark.log == head.slot.mark.log && mark.seq > found.seq &&
                       mark.seq <= head.slot.mark.seq && decodeLogRecord(rest.substr(0, size), record);
    if (!whole && offset >= head.slot.last) break;
    if (!whole) {
      found.damaged = true;
      offset = head.slot.last;
      continue;
    }
    if (mark.seq > behind) found.records.push_back(std::move(record));
    found.seq = mark.seq;
    found.last = offset;
    found.end = offset += size;
  }
  return kOk;
}

Code GroupLog::records(bool all, std::vector<LogRecord>& records) {
  if (failed_) return kDisk;
  if (const Code code = sync(); code != kOk) return code;
  Head head;
  if (const Code code = readHead(head); code != kOk) return code;
  Walk found;
  if (const Code code = walk(head, all ? 0 : head.applied.seq, found); code != kOk) return code;
  const bool shortened = found.end < head.slot.tail;
  // What was applied had been committed: it cannot be missing by a commit cut short.
  const std::uint64_t seq = head.slot.mark.seq;
  damaged_ = found.damaged || head.applied.seq > seq || (shortened && head.applied.seq == seq);
  records = std::move(found.records);
  if (!shortened) return kOk;
  Head next = head.next();
  next.slot.last = found.last;
  next.slot.tail = found.end;
  return commitSlot(next);
}

Code GroupLog::reset() {
  if (failed_) return kDisk;
  Head head;
  if (const Code code = readHead(head); code != kOk) return code;
  Head next = head.next();
  if (const Code code = drawLogId(next.slot.mark.log); code != kOk) return code;
  next.slot.last = next.slot.tail = kLogRecords;
  if (const Code code = commitSlot(next); code != kOk) return code;
  damaged_ = false;
  if (const Code code = markApplied(); code != kOk) return code;
  return truncateAt(file_.descriptor(), kLogRecords);
}

Code GroupLog::sync() {
  int result = 0;
  do {
    result = ::fdatasync(file_.descriptor());
  } while (result < 0 && errno == EINTR);
  if (result == 0) return kOk;
  failed_ = true;
  return codeOfErrno(errno);
}

}  // namespace store
