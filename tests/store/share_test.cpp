// Archives that stations share over a network: the journal they are kept with, and who may read their files.
#include <doctest/doctest.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <filesystem>
#include <optional>

#include "store/books.h"
#include "store/embedded/journal.h"
#include "store/files.h"
#include "store/group.h"
#include "tools/child.h"

// Takes the C library's place for this program: whatever lies below "rete" is on another machine.
extern "C" int statfs(const char* path, struct statfs* system) noexcept {
  const auto result = static_cast<int>(::syscall(SYS_statfs, path, system));
  if (std::string_view(path).find("/rete") != std::string_view::npos) system->f_type = 0x6969;
  return result;
}

using namespace store;
using embedded::Journal;
using test::Opened;
using test::record;

namespace {

StoreOptions options(bool share) {
  StoreOptions made = test::optionsOfTests();
  made.share = share;
  return made;
}

Journal journalOf(const std::string& stem) {
  Journal journal{};
  CHECK(embedded::readJournal(stem + ".ISD", journal) == kOk);
  return journal;
}

std::string allOf(RecordStore& store, const std::string& stem) {
  Opened archive(store, stem);
  std::string keys = archive.all(1);
  CHECK(store.LastArchiveResult == kNotFound);
  return keys;
}

mode_t permissionsOf(const std::string& path) {
  struct stat info {};
  REQUIRE(::stat(path.c_str(), &info) == 0);
  return info.st_mode & 07777;
}

}  // namespace

TEST_CASE("an archive takes the journal that suits who opens it, with all its records, in both directions") {
  const test::Scratch directory;
  const std::string stem = directory / "2003ABmc";
  REQUIRE(RecordStore(options(false)).VmxCreate(stem, 8, test::kFormat) == kOk);
  CHECK(journalOf(stem) == Journal::ahead);
  std::string keys;
  for (const bool share : {false, true, true, false, true}) {
    CAPTURE(share);
    RecordStore station(options(share));
    CHECK(allOf(station, stem) == keys);
    CHECK(journalOf(stem) == (share ? Journal::rollback : Journal::ahead));
    CHECK(std::filesystem::exists(stem + ".ISD-shm") != share);
    const std::string key = std::to_string(keys.size());
    Opened mc(station, stem);
    CHECK(mc.put(key, record("a", 1), Put::add) == kOk);
    keys += key + ' ';
  }
  REQUIRE(RecordStore(options(true)).VmxCreate(directory / "2003ABpc", 8, test::kFormat) == kOk);
  CHECK(journalOf(directory / "2003ABpc") == Journal::rollback);
}

TEST_CASE("what a killed station has left in one journal is there in the other") {
  for (const bool share : {false, true}) {
    const test::Scratch directory;
    const std::string stem = directory / "2003ABmc";
    REQUIRE(RecordStore(options(share)).VmxCreate(stem, 8, test::kFormat) == kOk);
    std::optional<RecordStore> his;
    std::optional<Opened> mc;
    test::HoldingChild child([&] {
      mc.emplace(his.emplace(options(share)), stem);
      bool right = mc->put("1", record("a", 1), Put::add) == kOk;
      Group group(*his, directory / "AB--", 8, 500);
      right = right && mc->put("2", record("b", 2), Put::add) == kOk;
      return right && group.commit();
    });
    REQUIRE(child.ready());
    child.kill();
    RecordStore station(options(!share));
    CHECK(allOf(station, stem) == "1 2 ");
    CHECK(journalOf(stem) == (share ? Journal::ahead : Journal::rollback));
  }
}

TEST_CASE("while one station has an archive open, its journal stays, and both see each other's writes") {
  for (const bool share : {false, true}) {
    const test::Scratch directory;
    const std::string stem = directory / "2003ABmc";
    RecordStore first(options(share)), second(options(!share));
    REQUIRE(first.VmxCreate(stem, 8, test::kFormat) == kOk);
    Opened one(first, stem), two(second, stem);
    CHECK(journalOf(stem) == (share ? Journal::rollback : Journal::ahead));
    CHECK(one.put("1", record("a", 1)) == kOk);
    CHECK(one.bof(0) == kOk);
    CHECK(one.next(0) == kOk);
    CHECK(two.put("2", record("b", 2)) == kOk);  // seen by a scan that had read ahead
    CHECK(one.next(0) == kOk);
    CHECK(one.next(0) == kNotFound);
    CHECK(two.all(1) == "1 2 ");
  }
}

TEST_CASE("an archive on another machine is never opened with memory in common") {
  const test::Scratch directory;
  const std::string stem = directory / "rete/2003ABmc", here = directory / "2003ABmc";
  REQUIRE(makeDirectory(directory / "rete", kShared) == kOk);
  RecordStore station(options(false)), other(options(true));
  REQUIRE(station.VmxCreate(stem, 8, test::kFormat) == kOk);
  CHECK(journalOf(stem) == Journal::rollback);
  REQUIRE(station.VmxCreate(here, 8, test::kFormat) == kOk);
  REQUIRE(journalOf(here) == Journal::ahead);

  std::filesystem::create_directory_symlink(directory.path(), directory / "rete/qui");
  const Opened open(station, here);  // by a station of the machine where it lies
  Handle handle = 0;
  CHECK(other.VmxOpen(directory / "rete/qui/2003ABmc", handle) == kSystem);
  CHECK(other.VmxOpen(stem, handle) == kOk);
}

TEST_CASE("what is made is closed to strangers, or open to the group on a share, whatever the umask") {
  for (const mode_t mask : {0000, 0022, 0077}) {
    for (const bool share : {false, true}) {
      const test::Scratch scratch;
      const mode_t before = ::umask(mask);
      const std::string directory = scratch / "a/b";
      CHECK(makeDirectory(directory + "/", share ? kShared : kOwn) == kOk);
      const std::string stem = directory + "/2003ABmc";
      RecordStore station(options(share));
      CHECK(station.VmxCreate(stem, 8, test::kFormat) == kOk);
      Opened mc(station, stem);
      CHECK(mc.put("1", record("a", 1)) == kOk);
      ::umask(before);

      const mode_t file = share ? 0660 : 0600;
      for (const char* path : {"/2003ABmc.ISM", "/2003ABmc.ISD", "/2003ABmc.ISF", "/AB--.grp"})
        CHECK(permissionsOf(directory + path) == file);
      if (!share) CHECK(permissionsOf(stem + ".ISD-shm") == file);
      for (const char* path : {"a", "a/b"}) CHECK(permissionsOf(scratch / path) == (share ? 02770 : 0700));
    }
  }
  const test::Scratch scratch;
  std::filesystem::create_directory(scratch / "mine");
  const mode_t mine = permissionsOf(scratch / "mine");
  CHECK(makeDirectory(scratch / "mine", kShared) == kOk);  // it was there: nothing changes
  CHECK(permissionsOf(scratch / "mine") == mine);
  ::close(::open((scratch / "file").c_str(), O_CREAT | O_WRONLY, 0600));
  CHECK(makeDirectory(scratch / "file/a", kShared) == kSystem);
}
