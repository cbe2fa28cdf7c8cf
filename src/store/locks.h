// Locks on bytes of a file, between stations: open-file-description locks, which fall with the process and
// keep two stations of one process apart.
#pragma once

#include <cstdint>
#include <string>

#include "store/record_store.h"

namespace store {

// One descriptor of a lock file (O_CLOEXEC), owned by one station. The locks lie far beyond any data.
class LockFile {
 public:
  LockFile() = default;
  ~LockFile();
  LockFile(LockFile&& other) noexcept;
  LockFile& operator=(LockFile&& other) noexcept;

  // kOk or the code of the cause (store/errors.h). The file must exist.
  Code open(const std::string& path);
  void close();
  bool isOpen() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }

  // kOk: taken; kNotFound: held by another description; otherwise the code of the cause. Taking a byte that
  // this description holds already changes its kind at once.
  Code tryExclusive(std::uint64_t byte);
  Code tryShared(std::uint64_t byte);
  Code release(std::uint64_t byte);

 private:
  int descriptor_ = -1;
};

// Where the lock of a record lies: a 62-bit hash of its key, beyond the bytes that PRESENCE and its kin use.
std::uint64_t lockByte(std::string_view key);

inline constexpr std::uint64_t kPresenceByte = (1ULL << 62) + 0;  // shared by each running station
inline constexpr std::uint64_t kGroupByte = (1ULL << 62) + 1;     // the mutex of groups
inline constexpr std::uint64_t kLogByte = (1ULL << 62) + 2;       // the mutex of the log file itself

// Sleeps before a lock is tried again: 50 µs doubling to 1 ms; calls onWait after 300 ms, then every 100 ms.
class LockWait {
 public:
  explicit LockWait(const std::function<void()>& onWait) : onWait_(onWait) {}
  void once();

 private:
  const std::function<void()>& onWait_;
  std::int64_t waitedMicroseconds_ = 0, nextCall_ = 300'000;
  std::int64_t nap_ = 50;
};

}  // namespace store
