#include "store/locks.h"

#include <doctest/doctest.h>
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <utility>

#include "store/errors.h"
#include "tools/child.h"
#include "tools/scratch.h"

using store::LockFile;

TEST_CASE("a lock file opens with the code of the cause, and never leaks into a program that is started") {
  const test::Scratch scratch;
  LockFile file;
  CHECK(file.open(scratch / "none") == store::kSystem);
  CHECK_FALSE(file.isOpen());
  CHECK(file.open(scratch.path().string()) == store::kDisk);
  REQUIRE(file.make(scratch / "lock", 0600) == store::kOk);
  CHECK((::fcntl(file.descriptor(), F_GETFD) & FD_CLOEXEC) != 0);
  const auto permissions = std::filesystem::status(scratch / "lock").permissions();
  CHECK(permissions == (std::filesystem::perms::owner_read | std::filesystem::perms::owner_write));
}

TEST_CASE("two stations of one process exclude each other") {
  const test::Scratch scratch;
  const std::uint64_t byte = store::lockByte("00012");
  LockFile one, two;
  REQUIRE(one.make(scratch / "lock", 0600) == store::kOk);
  REQUIRE(two.open(scratch / "lock") == store::kOk);

  CHECK(one.tryExclusive(byte) == store::kOk);
  CHECK(one.tryExclusive(byte) == store::kOk);  // again by its holder
  CHECK(two.tryExclusive(byte) == store::kNotFound);
  CHECK(two.tryShared(byte) == store::kNotFound);
  CHECK(two.release(byte) == store::kOk);  // not his: nothing happens
  CHECK(two.tryExclusive(byte) == store::kNotFound);
  CHECK(two.tryExclusive(byte + 1) == store::kOk);

  CHECK(one.tryShared(byte) == store::kOk);  // exclusive to shared at once
  CHECK(two.tryShared(byte) == store::kOk);
  CHECK(one.tryExclusive(byte) == store::kNotFound);  // refused, and still shared
  CHECK(two.release(byte) == store::kOk);
  CHECK(two.tryExclusive(byte) == store::kNotFound);

  one.close();
  CHECK(two.tryExclusive(byte) == store::kOk);
  CHECK(one.tryExclusive(byte) == store::kDisk);  // closed
}

TEST_CASE("locks go along with the object that is moved, and fall with the one that is replaced") {
  const test::Scratch scratch;
  LockFile one, other, probe;
  REQUIRE(one.make(scratch / "a", 0600) == store::kOk);
  REQUIRE(other.make(scratch / "b", 0600) == store::kOk);
  REQUIRE(one.tryExclusive(7) == store::kOk);
  REQUIRE(other.tryExclusive(7) == store::kOk);

  one = std::move(other);
  REQUIRE(probe.open(scratch / "a") == store::kOk);
  CHECK(probe.tryExclusive(7) == store::kOk);
  REQUIRE(probe.open(scratch / "b") == store::kOk);
  CHECK(probe.tryExclusive(7) == store::kNotFound);

  { const LockFile last(std::move(one)); }
  CHECK(probe.tryExclusive(7) == store::kOk);
}

TEST_CASE("the locks of a killed station are free once it is gone") {
  const test::Scratch scratch;
  const std::uint64_t byte = store::lockByte("conto");
  LockFile file;
  REQUIRE(file.make(scratch / "lock", 0600) == store::kOk);
  LockFile his;
  test::HoldingChild child(
      [&] { return his.open(scratch / "lock") == store::kOk && his.tryExclusive(byte) == store::kOk; });
  REQUIRE(child.ready());
  CHECK(file.tryExclusive(byte) == store::kNotFound);
  child.kill();
  CHECK(file.tryExclusive(byte) == store::kOk);
}

TEST_CASE("record locks lie where every release puts them, clear of the locks of the log") {
  CHECK(store::lockByte("") == 0x4BF29CE44FD0C001ULL);
  for (const char* key : {"", "a", "conto", "0100012"}) {
    CHECK(store::lockByte(key) > store::kLogByte);
    CHECK(store::lockByte(key) < 1ULL << 63);
  }
  CHECK(store::lockByte("00012") != store::lockByte("00021"));
}

TEST_CASE("a wait sleeps little at first, and tells the host after a third of a second") {
  int calls = 0;
  const std::function<void()> onWait = [&] { ++calls; };
  // A busy machine stretches each nap as it likes, so the calls are judged by the time that was slept.
  store::LockWait wait(onWait);
  double slept = 0;
  const auto nap = [&slept](store::LockWait& one) {
    const auto start = std::chrono::steady_clock::now();
    one.once();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    slept += took.count();
    return took.count();
  };
  for (int naps = 0; naps < 1000 && slept < 900; ++naps) {
    nap(wait);
    CHECK(calls <= std::max(0.0, (slept - 200) / 100));
    if (naps > 320) CHECK(calls >= 1);  // by then it has slept for 300 ms at least
  }
  CHECK(calls >= 1);
  double shortest = 1000;
  for (int first = 0; first < 20; ++first) {
    store::LockWait fresh(onWait);
    shortest = std::min(shortest, nap(fresh));
  }
  CHECK(shortest < 50);

  const std::function<void()> nobody;
  store::LockWait silent(nobody);
  for (int naps = 0; naps < 400; ++naps) silent.once();  // beyond the first call: nothing to call
}

TEST_CASE("no failure of the system is taken for a missing record") {
  CHECK(store::codeOfErrno(ENOSPC) == store::kDiskFull);
  CHECK(store::codeOfErrno(EDQUOT) == store::kDiskFull);
  CHECK(store::codeOfErrno(EFBIG) == store::kDiskFull);
  CHECK(store::codeOfErrno(ENOMEM) == store::kNoMemory);
  CHECK(store::codeOfErrno(EMFILE) == store::kTooManyFiles);
  for (const int error : {ENOENT, EACCES, EPERM, EROFS, ENOTDIR, ESTALE, ENOLCK})
    CHECK(store::codeOfErrno(error) == store::kSystem);
  for (int error = 0; error < 200; ++error) CHECK(store::codeOfErrno(error) >= store::kDiskFull);
}
