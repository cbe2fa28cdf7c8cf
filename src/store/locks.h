// Locks on bytes of a file, between stations: open-file-description locks, which fall with the process and
// keep two stations of one process apart.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "store/record_store.h"

namespace store {

// One descriptor of a lock file (O_CLOEXEC), owned by one station. The locks lie far beyond any data.
//
// A forked child shares the description and with it the locks: they fall when the last of both has closed it.
class LockFile {
 public:
  LockFile() = default;
  ~LockFile();
  LockFile(LockFile&& other) noexcept;
  LockFile& operator=(LockFile&& other) noexcept;

  // Opens for reading and writing; a file that was open before is closed. make(): where there is none, an
  // empty file is made, with those permissions whatever the umask. kOk or the code of the cause
  // (store/errors.h).
  Code open(const std::string& path);
  Code make(const std::string& path, mode_t permissions);
  void close();  // all its locks fall
  bool isOpen() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }
  bool isStillAt(const std::string& path) const;  // false when the file there was removed or replaced

  // kOk: taken; kNotFound: held by another description, nothing changed; otherwise the code of the cause.
  // Taking a byte that this description holds already changes its kind at once, and one release() frees it
  // however often it was taken.
  Code tryExclusive(std::uint64_t byte);
  Code tryShared(std::uint64_t byte);
  Code release(std::uint64_t byte);                           // harmless when not held
  Code releaseAll(std::uint64_t first, std::uint64_t bytes);  // 0 bytes: all from `first` on

 private:
  Code open(const std::string& path, int flags, mode_t permissions);
  Code change(short kind, std::uint64_t first, std::uint64_t bytes);
  int descriptor_ = -1;
};

// Where the lock of a record lies: a 62-bit hash of its key, beyond the bytes that PRESENCE and its kin use.
// The same in every release, as stations of two releases may share a directory. Two keys may, very rarely,
// share a byte: who counts his locks counts them by byte.
std::uint64_t lockByte(std::string_view key);

// Where the intent to add a record of that key lies, below the record locks. Keys that are numbers lie side
// by side in their order: the system keeps neighbours as one lock, and a group may add thousands.
std::uint64_t intentByte(std::string_view key);

inline constexpr std::uint64_t kIntentBytes = 1ULL << 61;         // the first of them, and how many
inline constexpr std::uint64_t kPresenceByte = (1ULL << 62) + 0;  // shared by each running station
inline constexpr std::uint64_t kGroupByte = (1ULL << 62) + 1;     // the mutex of groups
inline constexpr std::uint64_t kLogByte = (1ULL << 62) + 2;       // the mutex of the log file itself

// Sleeps before a lock is tried again: 50 µs doubling to 1 ms; calls onWait after 300 ms of sleep, then every
// 100 ms. Of one wait: made anew for the next. The function must outlive it.
class LockWait {
 public:
  explicit LockWait(const std::function<void()>& onWait) : onWait_(onWait) {}
  explicit LockWait(std::function<void()>&&) = delete;
  void once();

 private:
  const std::function<void()>& onWait_;
  std::int64_t waitedMicroseconds_ = 0, nextCall_ = 300'000;
  std::int64_t nap_ = 50;
};

}  // namespace store
