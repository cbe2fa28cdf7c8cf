#include "store/record_store.h"

#include <doctest/doctest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "store/books.h"

using namespace store;
using test::amountOf;
using test::Opened;
using test::record;

namespace {

struct Books {
  test::Scratch directory;
  RecordStore store{test::optionsOfTests()};
  std::string stem = directory / "2003ABmc";
  Books() { REQUIRE(store.VmxCreate(stem, 8, test::kFormat) == kOk); }

  std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory.path()))
      if (entry.path().extension() != ".grp") names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
};

}  // namespace

TEST_CASE("an archive is three files closed to strangers, made once, removed as a whole") {
  Books books;
  const std::vector<std::string> family{"2003ABmc.ISD", "2003ABmc.ISF", "2003ABmc.ISM"};
  CHECK(books.files() == family);
  CHECK(books.store.VmxCreate(books.stem, 8, test::kFormat) == kSystem);
  {
    Opened mc(books.store, books.stem);
    CHECK(mc.put("1", record("00001", 1)) == kOk);
    CHECK(books.store.VmxKill(books.stem) == kSystem);  // in use
    for (const auto& entry : std::filesystem::directory_iterator(books.directory.path()))
      CHECK((entry.status().permissions() & std::filesystem::perms(test::onShare() ? 0007 : 0077)) ==
            std::filesystem::perms::none);
  }
  CHECK(books.store.VmxKill(books.stem) == kOk);
  CHECK(books.files().empty());
  CHECK(books.store.VmxKill(books.stem) == kSystem);
  Handle handle = 7;
  CHECK(books.store.VmxOpen(books.stem, handle) == kSystem);
  CHECK(handle == 0);
  CHECK(books.store.VmxCreate(books.directory / "none/x", 8, "$") == kSystem);
  CHECK_THROWS_AS(books.store.VmxCreate(books.stem, 8, "%x"), std::invalid_argument);
  CHECK(books.files().empty());
}

TEST_CASE("an archive without one of its files, or half made, is not there") {
  for (const char* lost : {".ISM", ".ISD", ".ISF"}) {
    Books books;
    std::filesystem::remove(books.stem + lost);
    Handle handle = 0;
    CHECK(books.store.VmxOpen(books.stem, handle) == kSystem);
  }
  Books books;
  std::filesystem::resize_file(books.stem + ".ISM", 0);  // a creation that was cut short
  Handle handle = 0;
  CHECK(books.store.VmxOpen(books.stem, handle) == kSystem);
  CHECK(books.store.VmxCreate(books.stem, 8, test::kFormat) == kOk);
  CHECK(books.store.VmxOpen(books.stem, handle) == kOk);
}

TEST_CASE("bytes that are no archive give a disk error, never an end") {
  Books books;
  std::filesystem::resize_file(books.stem + ".ISD", 5000);
  Handle handle = 0;
  CHECK(books.store.VmxOpen(books.stem, handle) >= kDiskFull);
  CHECK(handle == 0);
}

TEST_CASE("operations on a handle that is not open fail, and spinLock does not wait for it") {
  Books books;
  Found found;
  for (const Handle handle : {0, 99}) {
    CHECK(books.store.VmxGet(handle, 0, Get::next, "", found) == kSystem);
    CHECK(books.store.VmxPut(handle, "1", record("1", 1), Put::add) == kSystem);
    CHECK(books.store.VmxUnlock(handle, "1") == kSystem);
    CHECK(books.store.VmxClose(handle) == kSystem);
    books.store.spinLock(handle, "1");
    CHECK(books.store.LastArchiveResult == kSystem);
  }
}

TEST_CASE("an empty archive has no next and no previous record") {
  Books books;
  Opened mc(books.store, books.stem);
  for (const int index : {0, 1, 3}) {
    CHECK(mc.next(index) == kNotFound);
    CHECK(mc.bof(index) == kOk);
    CHECK(mc.next(index) == kNotFound);
    CHECK(mc.eof(index) == kOk);
    CHECK(mc.previous(index) == kNotFound);
    CHECK(mc.search(index, "") == kNotFound);
  }
  CHECK(books.store.LastArchiveResult == kNotFound);
}

TEST_CASE("the three ways to put") {
  Books books;
  Opened mc(books.store, books.stem);
  CHECK(mc.put("1", record("a", 1), Put::rewrite) == kNotFound);
  CHECK(mc.put("1", record("a", 1), Put::add) == kOk);
  CHECK(mc.put("1", record("b", 2), Put::add) == kExists);
  REQUIRE(mc.search(0, "1") == kOk);
  CHECK(mc.found.record == record("a", 1));
  CHECK(mc.put("1", record("b", 3), Put::rewrite) == kOk);
  CHECK(mc.put("2", record("b", 4), Put::write) == kOk);
  CHECK(mc.search(1, "a") == kNotFound);
  CHECK(mc.all(1) == "1 2 ");
  CHECK(mc.erase("1") == kOk);
  CHECK(mc.erase("1") == kNotFound);
  CHECK(mc.all(1) == "2 ");
  CHECK(mc.put("3", "no such record") == kDisk);
  CHECK(mc.all(0) == "2 ");
}

TEST_CASE("a search that misses stands where the key would be") {
  Books books;
  Opened mc(books.store, books.stem);
  for (const char* key : {"10", "20", "30"}) mc.put(key, record(key, 1));
  for (const int index : {0, 1}) {
    CHECK(mc.search(index, "2") == kNotFound);  // the beginning of a key is less than the key
    CHECK(mc.next(index) == kOk);
    CHECK(mc.found.primaryKey == "20");
    CHECK(mc.search(index, "25") == kNotFound);
    CHECK(mc.previous(index) == kOk);
    CHECK(mc.found.primaryKey == "20");
    CHECK(mc.search(index, "9") == kNotFound);
    CHECK(mc.next(index) == kNotFound);
    CHECK(mc.previous(index) == kOk);
    CHECK(mc.found.primaryKey == "30");
    CHECK(mc.search(index, "20") == kOk);
    CHECK(mc.previous(index) == kOk);
    CHECK(mc.previous(index) == kNotFound);
    CHECK(mc.next(index) == kOk);
    CHECK(mc.found.primaryKey == "10");
  }
  const std::string kept = mc.found.record;
  CHECK(mc.search(0, "none") == kNotFound);
  CHECK(mc.found.record == kept);
}

TEST_CASE("records of one value come one by one, each with its own primary key, in both directions") {
  Books books;
  Opened mc(books.store, books.stem);
  for (int i = 100; i < 1000; ++i) mc.put(std::to_string(i), record(i % 2 ? "odd" : "even", i));
  CHECK(mc.search(1, "odd") == kOk);
  int expected = 101;
  do {
    CHECK(mc.found.primaryKey == std::to_string(expected));
    CHECK(mc.found.indexKey == "odd");
    expected += 2;
  } while (mc.next(1) == kOk && mc.found.indexKey == "odd");
  CHECK(expected == 1001);
  CHECK(mc.search(1, "odd") == kOk);
  CHECK(mc.previous(1) == kOk);
  CHECK(mc.found.primaryKey == "998");
  std::string reversed = mc.backwards(1), forwards = mc.all(1);
  CHECK(std::count(forwards.begin(), forwards.end(), ' ') == 900);
  std::reverse(reversed.begin(), reversed.end());
  CHECK(reversed.size() == forwards.size());
}

TEST_CASE("keys are cut to their index, by characters") {
  Books books;
  Opened mc(books.store, books.stem);
  CHECK(mc.put("12345678è", record("cittàno", 1)) == kOk);
  CHECK(mc.search(0, "12345678") == kOk);
  CHECK(mc.search(0, "123456789") == kOk);
  CHECK(mc.search(1, "cittàxyz") == kOk);
  CHECK(mc.search(1, "cittano") == kNotFound);
  CHECK(mc.put("2", record("èèèèèèè", 1)) == kOk);
  CHECK(mc.search(1, "èèèèè") == kOk);
  CHECK(mc.search(1, "èèèèèXX") == kOk);
  CHECK(mc.found.indexKey == "èèèèè");
  const std::string single = books.directory / "2003ABsi";
  REQUIRE(books.store.VmxCreate(single, 0, "#") == kOk);
  Opened si(books.store, single);
  CHECK(si.put("", std::string(8, '\0')) == kOk);
  CHECK(si.search(0, "") == kOk);
  CHECK(si.bof(0) == kOk);
  CHECK(si.next(0) == kOk);
  CHECK(si.next(0) == kNotFound);
}

TEST_CASE("a scan goes on when its records are rewritten, moved or removed under it") {
  Books books;
  Opened mc(books.store, books.stem), other(books.store, books.stem);
  for (int i = 100; i < 400; ++i) mc.put(std::to_string(i), record("aa", i));
  int seen = 0;
  for (mc.bof(1); mc.next(1) == kOk; ++seen) {
    const std::string key = mc.found.primaryKey;
    CHECK(key == std::to_string(100 + seen));
    if (seen % 3 == 0) CHECK(mc.put(key, record("aa", -1), Put::rewrite) == kOk);
    if (seen % 3 == 1) CHECK(other.erase(key) == kOk);
    if (seen % 3 == 2) CHECK(other.put(key, record("Aa", -2), Put::rewrite) == kOk);  // behind the scan
  }
  CHECK(seen == 300);
  other.eof(1);
  CHECK(other.previous(1) == kOk);
  CHECK(other.found.primaryKey == "397");
  CHECK(mc.previous(1) == kOk);  // each handle has positions of its own, each index of a handle one
  CHECK(mc.previous(0) == kNotFound);
}

TEST_CASE("two stations see each other's writes in the middle of a scan") {
  Books books;
  RecordStore second{test::optionsOfTests()};
  Opened mine(books.store, books.stem), his(second, books.stem);
  for (int i = 0; i < 9; ++i) mine.put(std::to_string(i), record("a", i));
  CHECK(his.all(0) == "0 1 2 3 4 5 6 7 8 ");
  his.bof(0);
  CHECK(his.next(0) == kOk);
  CHECK(mine.erase("1") == kOk);
  CHECK(mine.put("15", record("a", 15)) == kOk);
  CHECK(his.next(0) == kOk);
  CHECK(his.found.primaryKey == "15");
  CHECK(his.put("15", record("a", 0), Put::add) == kExists);
  CHECK(his.put("2", record("z", 2), Put::rewrite) == kOk);
  CHECK(mine.flush() == kOk);
  CHECK(mine.search(1, "z") == kOk);
}

TEST_CASE("record locks exclude stations, not the station that holds them") {
  Books books;
  RecordStore second{test::optionsOfTests()};
  Opened mine(books.store, books.stem), again(books.store, books.stem), his(second, books.stem);
  CHECK(mine.lock("mc") == kOk);
  CHECK(again.lock("mc") == kOk);
  CHECK(his.lock("mc") == kNotFound);
  CHECK(his.lock("mm") == kOk);
  CHECK(mine.unlock("mc") == kOk);
  CHECK(his.lock("mc") == kNotFound);  // it was taken twice
  CHECK(his.unlock("mc") == kOk);      // harmless
  CHECK(mine.unlock("mc") == kOk);
  CHECK(mine.unlock("mc") == kOk);
  CHECK(his.lock("mc") == kOk);
}

TEST_CASE("the host is told of a wait that lasts") {
  test::Scratch directory;
  int calls = 0;
  StoreOptions options = test::optionsOfTests();
  options.onWait = [&] { ++calls; };
  RecordStore holder{test::optionsOfTests()}, waiting{options};
  REQUIRE(holder.VmxCreate(directory / "x", 2, "$") == kOk);
  Opened held(holder, directory / "x"), wanted(waiting, directory / "x");
  REQUIRE(held.lock("a") == kOk);
  for (int i = 0; i < 100; ++i) CHECK(wanted.lock("a") == kNotFound);
  CHECK(calls == 0);
  for (int i = 0; i < 400; ++i) CHECK(wanted.lock("a") == kNotFound);
  CHECK(calls > 0);
}

TEST_CASE("failures are reported once, with their words, and success not at all") {
  test::Scratch directory;
  std::vector<ArchiveFailure> told;
  StoreOptions options = test::optionsOfTests();
  options.onFailure = [&](const ArchiveFailure& failure) { told.push_back(failure); };
  RecordStore store(options);
  store.CheckArchiveResult(Operation::open, 4, 10);
  CHECK(told.empty());
  Handle handle = 0;
  store.VmxOpen(directory / "2003ABpr", handle);
  store.CheckArchiveResult(Operation::open, 4, 11);
  REQUIRE(told.size() == 1);
  CHECK(told[0].cause == "ERRORE DOS");
  CHECK(told[0].message == "Errore:  13\rOperazione: apertura file\rArchivio: progressivi\rPosizione:  11");
  CHECK(store.LastArchiveResult == kSystem);
  CHECK(std::filesystem::is_empty(directory.path()));  // a question for an archive leaves nothing behind
}

TEST_CASE("an archive that another station has replaced is opened anew") {
  Books books;
  RecordStore second{test::optionsOfTests()};
  {
    Opened mc(books.store, books.stem);
    CHECK(mc.put("old", record("a", 1)) == kOk);
  }
  { Opened his(second, books.stem); }
  CHECK(second.VmxKill(books.stem) == kOk);
  Handle handle = 0;
  CHECK(books.store.VmxOpen(books.stem, handle) == kSystem);
  CHECK(second.VmxCreate(books.stem, 8, test::kFormat) == kOk);
  Opened mc(books.store, books.stem);
  CHECK(mc.all(0).empty());
  CHECK(mc.put("new", record("a", 1), Put::add) == kOk);
}

TEST_CASE("two processes draw different numbers") {
  Books books;
  constexpr int kDraws = 300;
  {
    Opened mc(books.store, books.stem);
    REQUIRE(mc.put("counter", record("", 0)) == kOk);
  }
  const auto draw = [&](std::string_view who) {
    RecordStore store{test::optionsOfTests()};
    Opened mc(store, books.stem);
    for (int i = 0; i < kDraws; ++i) {
      store.spinLock(mc.handle, "counter");
      if (mc.search(0, "counter") != kOk) return 1;
      const double number = amountOf(mc.found.record) + 1;
      if (mc.put("counter", record("", number), Put::write) != kOk) return 2;
      mc.unlock("counter");
      if (mc.put(std::to_string(static_cast<int>(number)), record(who, number), Put::add) != kOk) return 3;
    }
    return 0;
  };
  std::vector<pid_t> children;
  for (const char* who : {"a", "b"}) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(draw(who));
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = -1;
    ::waitpid(child, &status, 0);
    CHECK(status == 0);
  }
  RecordStore store{test::optionsOfTests()};
  Opened mc(store, books.stem);
  REQUIRE(mc.search(0, "counter") == kOk);
  CHECK(amountOf(mc.found.record) == 2 * kDraws);
  const std::string all = mc.all(0);
  CHECK(std::count(all.begin(), all.end(), ' ') == 2 * kDraws + 1);
}
