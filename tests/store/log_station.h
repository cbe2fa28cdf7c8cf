// A station of the fault tests: commits groups that are numbered 1, 2, 3 ... and applies them to an archive
// that is one number. It uses the log as the store does, so that what the log promises is judged by what an
// archive gets.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <string>

#include "store/group_log.h"

namespace test {

class LogStation {
 public:
  explicit LogStation(const std::string& directory)
      : archivePath_(directory + "/archive"), log_(directory + "/--.grp") {}
  ~LogStation() { ::close(archive_); }
  LogStation(const LogStation&) = delete;
  LogStation& operator=(const LogStation&) = delete;

  // The last group that the archive has.
  long number() const { return number_; }
  // What the log did that it must never do.
  const std::string& wrong() const { return wrong_; }

  // Opens the log, once more if it was open, and replays it all.
  bool recover() {
    bool alone = false;
    if (archive_ < 0) archive_ = ::open(archivePath_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    number_ = readArchive();
    return log_.open(wait(), alone) == store::kOk && alone && replay(true) && (log_.unlockLog(), true);
  }

  // Commits the group that follows; false: it was refused. From every third on the log is emptied.
  bool commit() {
    const std::string next = std::to_string(number_ + 1);
    store::LogRecord record{{}, {{"archive", "uuid", {}, {{false, "1", next}}}}};
    const bool committed = log_.lockGroup(wait()) == store::kOk && log_.lockLog(wait()) == store::kOk &&
                           settled() && log_.append(record) == store::kOk;
    if (committed) {
      number_ += 1;
      const bool applied = writeArchive(number_) && log_.markApplied() == store::kOk;
      if (applied && number_ % 3 == 0 && ::fdatasync(archive_) == 0) log_.reset();
    }
    log_.unlockLog();
    log_.unlockGroup();
    return committed;
  }

 private:
  store::LockWait wait() const { return store::LockWait(nobody_); }

  bool settled() {
    bool pending = false;
    return log_.pending(pending) == store::kOk && (!pending || replay(false));
  }

  bool replay(bool all) {
    std::vector<store::LogRecord> records;
    if (log_.records(all, records) != store::kOk) return false;
    if (log_.damaged()) wrong_ = "takes a cut for damage";
    long before = 0;
    for (const store::LogRecord& record : records) {
      const long next = std::stol(record.entries.at(0).operations.at(0).record);
      if (before != 0 && next != before + 1) wrong_ = "a group twice, or one missing in the log";
      before = next;
      if (next > number_ + 1) wrong_ = "the archive misses a group";
      number_ = std::max(number_, next);
    }
    return writeArchive(number_) && log_.markApplied() == store::kOk;
  }

  // Two places in turn, each with a check: as an archive is, the number is always the old or the new one.
  bool writeArchive(long number) {
    const long value[2] = {number, ~number};
    return ::pwrite(archive_, value, sizeof value, number % 2 * 512) == sizeof value;
  }
  long readArchive() const {
    long newest = 0;
    for (const int place : {0, 512}) {
      long value[2] = {};
      const bool whole =
          ::pread(archive_, value, sizeof value, place) == sizeof value && value[1] == ~value[0];
      if (whole) newest = std::max(newest, value[0]);
    }
    return newest;
  }

  const std::function<void()> nobody_;
  const std::string archivePath_;
  store::GroupLog log_;
  int archive_ = -1;
  long number_ = 0;
  std::string wrong_;
};

}  // namespace test
