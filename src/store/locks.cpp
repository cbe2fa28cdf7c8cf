#include "store/locks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <thread>
#include <utility>

#include "store/errors.h"
#include "store/files.h"

namespace store {
namespace {

std::uint64_t hashOf(std::string_view key) {
  std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a, 64 bits
  for (const char byte : key) {
    hash ^= static_cast<unsigned char>(byte);
    hash *= 0x100000001B3;
  }
  return hash ^ (hash >> 32);
}

}  // namespace

LockFile::~LockFile() { close(); }

LockFile::LockFile(LockFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

LockFile& LockFile::operator=(LockFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  if (this != &other) other.close();
  return *this;
}

Code LockFile::open(const std::string& path, int flags, mode_t permissions) {
  close();
  do {
    descriptor_ = ::open(path.c_str(), O_RDWR | O_CLOEXEC | flags, permissions);
  } while (descriptor_ < 0 && errno == EINTR);
  return descriptor_ < 0 ? codeOfErrno(errno) : kOk;
}

Code LockFile::open(const std::string& path) { return open(path, 0, 0); }

Code LockFile::make(const std::string& path, mode_t permissions) {
  for (;;) {
    const Code code = open(path, 0, 0);
    if (code == kOk || errno != ENOENT) return code;
    const Code made = open(path, O_CREAT | O_EXCL, permissions);
    if (made == kOk) return setPermissions(descriptor_, permissions);
    if (errno != EEXIST) return made;  // there by now: another station was faster
  }
}

bool LockFile::isStillAt(const std::string& path) const {
  struct stat open {
  }, named{};
  return ::fstat(descriptor_, &open) == 0 && ::stat(path.c_str(), &named) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

void LockFile::close() {
  if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

Code LockFile::change(short kind, std::uint64_t first, std::uint64_t bytes) {
  struct flock lock {};
  lock.l_type = kind;
  lock.l_whence = SEEK_SET;
  lock.l_start = static_cast<off_t>(first);
  lock.l_len = static_cast<off_t>(bytes);
  int result = 0;
  do {
    result = ::fcntl(descriptor_, F_OFD_SETLK, &lock);
  } while (result < 0 && errno == EINTR);
  if (result == 0) return kOk;
  // Some network file systems answer EACCES for a lock that another one holds.
  if (kind != F_UNLCK && (errno == EAGAIN || errno == EACCES)) return kNotFound;
  return codeOfErrno(errno);
}

Code LockFile::tryExclusive(std::uint64_t byte) { return change(F_WRLCK, byte, 1); }
Code LockFile::tryShared(std::uint64_t byte) { return change(F_RDLCK, byte, 1); }
Code LockFile::release(std::uint64_t byte) { return change(F_UNLCK, byte, 1); }

Code LockFile::releaseAll(std::uint64_t first, std::uint64_t bytes) { return change(F_UNLCK, first, bytes); }

std::uint64_t lockByte(std::string_view key) {
  constexpr std::uint64_t kReserved = 16;  // the bytes of PRESENCE and its kin
  constexpr std::uint64_t kRoom = (1ULL << 62) - kReserved;
  return (1ULL << 62) + kReserved + hashOf(key) % kRoom;
}

std::uint64_t intentByte(std::string_view key) {
  constexpr std::uint64_t kNumbers = 1ULL << 60;
  std::uint64_t value = 0;
  const std::string_view digits = key.substr(std::min(key.find_first_not_of(' '), key.size()));
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  const bool isNumber = error == std::errc() && end == digits.data() + digits.size() && value < kNumbers;
  return kIntentBytes + (isNumber ? value : kNumbers + hashOf(key) % kNumbers);
}

void LockWait::once() {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point start = Clock::now();
  std::this_thread::sleep_for(std::chrono::microseconds(nap_));
  waitedMicroseconds_ += std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count();
  nap_ = std::min<std::int64_t>(nap_ * 2, 1000);
  if (waitedMicroseconds_ < nextCall_) return;
  nextCall_ = waitedMicroseconds_ + 100'000;
  if (onWait_) onWait_();
}

}  // namespace store
