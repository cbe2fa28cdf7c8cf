// What the embedded engine promises beyond the face of the store: plans, journals, damage.
#include "store/embedded/table.h"

#include <doctest/doctest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>

#include "store/books.h"
#include "store/embedded/vfs.h"

using namespace store;
using test::Opened;
using test::record;

namespace {

// Works on the database of an archive behind the store's back.
void tamper(const std::string& stem, const char* sql) {
  sqlite3* connection = nullptr;
  embedded::Journal journal{};
  REQUIRE(embedded::readJournal(stem + ".ISD", journal) == kOk);
  REQUIRE(sqlite3_open_v2((stem + ".ISD").c_str(), &connection, SQLITE_OPEN_READWRITE,
                          embedded::fileLayer(journal)) == SQLITE_OK);
  CHECK(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr) == SQLITE_OK);
  sqlite3_close(connection);
}

}  // namespace

TEST_CASE("every scan is a search in its index, without a walk over the table or a sort") {
  const test::Scratch directory;
  const auto engine = makeEmbeddedEngine({}, test::onShare());
  REQUIRE(engine->create(directory / "x", 8, test::kFormat) == kOk);
  std::unique_ptr<Table> opened;
  REQUIRE(engine->open(directory / "x", opened) == kOk);
  auto& table = dynamic_cast<embedded::EmbeddedTable&>(*opened);
  for (const int index : {0, 1, 3}) {
    const std::string name = index == 0 ? "sqlite_autoindex_r_1" : "i" + std::to_string(index);
    const std::string bound = index == 0 ? "(pk" : "((k" + std::to_string(index) + ",pk)";
    for (const Way way : {Way::forward, Way::backward}) {
      for (const Place::At at : {Place::At::before, Place::At::on})
        CHECK(table.planOf(index, at, way).starts_with("SEARCH r USING INDEX " + name + " " + bound));
    }
    CHECK(table.planOf(index, Place::At::start, Way::forward) == "SCAN r USING INDEX " + name + "\n");
    CHECK(table.planOf(index, Place::At::end, Way::backward) == "SCAN r USING INDEX " + name + "\n");
  }
}

TEST_CASE("the journal lies in the .ISF, and nothing stands beside a closed archive") {
  const test::Scratch directory;
  const std::string stem = directory / "2003ABmc";
  {
    RecordStore store{test::optionsOfTests()};
    REQUIRE(store.VmxCreate(stem, 8, test::kFormat) == kOk);
    Opened mc(store, stem);
    CHECK(mc.put("1", record("a", 1)) == kOk);
    CHECK(std::filesystem::file_size(stem + ".ISF") > 512);
    CHECK(std::filesystem::exists(stem + ".ISD-shm") != test::onShare());
    CHECK_FALSE(std::filesystem::exists(stem + ".ISD-wal"));
    CHECK_FALSE(std::filesystem::exists(stem + ".ISD-journal"));
  }
  CHECK((std::filesystem::file_size(stem + ".ISF") == 0) != test::onShare());
  CHECK_FALSE(std::filesystem::exists(stem + ".ISD-shm"));
}

TEST_CASE("a journal never grows without bound, though nobody flushes") {
  const test::Scratch directory;
  const std::string stem = directory / "2003ABmc";
  RecordStore store{test::optionsOfTests()};
  REQUIRE(store.VmxCreate(stem, 8, test::kFormat) == kOk);
  Opened mc(store, stem);
  const std::string text(60'000, 'x');  // some fifteen pages each
  std::uintmax_t longest = 0;
  for (int i = 0; i < 3000; ++i) {
    REQUIRE(mc.put(std::to_string(i), record("a", 1, "", text)) == kOk);
    longest = std::max(longest, std::filesystem::file_size(stem + ".ISF"));
  }
  CHECK(longest < 140'000'000);
  CHECK(mc.search(0, "2999") == kOk);
}

TEST_CASE("an altered record is a disk error where it is read, and nowhere else") {
  const test::Scratch directory;
  const std::string stem = directory / "2003ABmc";
  RecordStore store{test::optionsOfTests()};
  REQUIRE(store.VmxCreate(stem, 8, test::kFormat) == kOk);
  {
    Opened mc(store, stem);
    for (const char* key : {"1", "2", "3"}) CHECK(mc.put(key, record("a", 1, "", "testo")) == kOk);
  }
  tamper(stem, "UPDATE r SET rec=replace(rec,'testo','tesco') WHERE pk=x'32'");
  Opened mc(store, stem);
  CHECK(mc.search(0, "1") == kOk);
  CHECK(mc.search(0, "2") == kDisk);
  CHECK(mc.search(0, "3") == kOk);
  CHECK(mc.bof(1) == kOk);
  CHECK(mc.next(1) == kOk);
  CHECK(mc.next(1) == kDisk);  // no scan takes it for its end
  CHECK(mc.next(1) == kDisk);
  CHECK(mc.eof(0) == kOk);
  CHECK(mc.previous(0) == kOk);
  CHECK(mc.previous(0) == kDisk);
  CHECK(mc.put("2", record("a", 2)) == kOk);
  CHECK(mc.all(1) == "1 2 3 ");
}

TEST_CASE("an archive of another make is refused") {
  const test::Scratch directory;
  RecordStore store{test::optionsOfTests()};
  for (const char* sql :
       {"UPDATE meta SET codec=2", "UPDATE meta SET format='?'", "DELETE FROM meta", "DROP TABLE meta"}) {
    const std::string stem = directory / "x";
    REQUIRE(store.VmxCreate(stem, 8, test::kFormat) == kOk);
    tamper(stem, sql);
    Handle handle = 0;
    CHECK(store.VmxOpen(stem, handle) == kDisk);
    CHECK(store.VmxKill(stem) == kOk);
  }
}

TEST_CASE("bytes that are no database, or half of one, are a failure and no crash") {
  const test::Scratch directory;
  RecordStore store{test::optionsOfTests()};
  const std::string stem = directory / "2003ABmc";
  REQUIRE(store.VmxCreate(stem, 8, test::kFormat) == kOk);
  const auto size = std::filesystem::file_size(stem + ".ISD");
  for (std::uintmax_t cut = 0; cut < size; cut += 2048) {
    const std::string copy = directory / "2003AC" + std::to_string(cut);
    for (const char* extension : {".ISM", ".ISD", ".ISF"})
      std::filesystem::copy_file(stem + extension, copy + extension);
    std::filesystem::resize_file(copy + ".ISD", cut);
    CAPTURE(cut);
    Handle handle = 0;
    const Code code = store.VmxOpen(copy, handle);
    CHECK((code >= kDiskFull || cut >= 4096));
    if (code != kOk) continue;
    Opened archive(store, copy);
    archive.bof(0);
    CHECK(archive.next(0) != kOk);
    CHECK(archive.put("1", record("a", 1)) >= kOk);
  }
}
