// Archives that are proved, rebuilt and repaired: what is damaged is noticed, what is whole comes back.
#include <doctest/doctest.h>
#include <sys/stat.h>

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <set>

#include "store/books.h"
#include "store/embedded/table.h"
#include "store/fault_place.h"
#include "store/group.h"
#include "tools/child.h"
#include "tools/damage.h"

using namespace store;
using test::kLong;
using test::Opened;
using test::record;
using test::Scratch;

namespace {

using Records = std::map<std::string, std::string>;
constexpr const char* kArchive = "/2003ABmc";

std::string keyOf(int i) {
  std::string digits = std::to_string(i);
  return std::string(8 - digits.size(), '0') + digits;
}

// Some of them too long for a page; the second index scatters them.
std::string recordOf(int i, int version) {
  const std::string digits = std::to_string(i);
  const std::size_t length = i % 40 == 0 ? 5000 + static_cast<std::size_t>(i) * 20 : 20 + i % 90;
  std::string text;
  for (int part = 0; text.size() < length; ++part)
    text +=
        "riga " + digits + " versione " + std::to_string(version) + " parte " + std::to_string(part) + ' ';
  return record(std::to_string(10000 + i % 17), i + version * 0.25,
                std::to_string(20030000 + i * 7919 % 9999), text);
}

// The archive's records as this station reads them; nothing when it cannot read them all.
std::optional<Records> readAll(const std::string& directory, int index = 0) {
  RecordStore station(test::optionsOfTests());
  Opened archive(station, directory + kArchive);
  Records records;
  if (archive.opened != kOk) return std::nullopt;
  archive.bof(index);
  while (archive.next(index) == kOk) records[archive.found.primaryKey] = archive.found.record;
  if (station.LastArchiveResult != kNotFound) return std::nullopt;
  return records;
}

// Writes them in an order in which pages are split and rows move, rewrites some and removes others.
void fill(RecordStore& station, const std::string& directory, int count) {
  Opened mc(station, directory + kArchive);
  REQUIRE(mc.opened == kOk);
  for (int i = 0; i < count; ++i) mc.put(keyOf(i * 7919 % count), recordOf(i * 7919 % count, 0), Put::add);
  for (int i = 0; i < count; i += 5) mc.put(keyOf(i), recordOf(i, 1), Put::rewrite);
  for (int i = 3; i < count; i += 11) mc.erase(keyOf(i));
  REQUIRE(mc.flush() == kOk);
}

// An archive at rest; or, `inUse`, as a station leaves it that dies with much of it in the journal.
void makeBase(const std::string& directory, bool inUse) {
  RecordStore station(test::optionsOfTests());
  REQUIRE(station.VmxCreate(directory + kArchive, 8, test::kFormat) == kOk);
  const Scratch copy;
  fill(station, directory, 401);
  if (!inUse) return;
  Opened mc(station, directory + kArchive);
  for (int i = 0; i < 401; i += 9) mc.put(keyOf(i), recordOf(i, 2), Put::rewrite);
  Group group(station, directory + "/AB--", 8, 1);
  for (int i = 500; i < 540; ++i) mc.put(keyOf(i), recordOf(i, 0), Put::add);
  REQUIRE(group.commit());
  std::filesystem::copy(directory, copy.path() / "left");  // before the station goes in peace
  std::filesystem::rename(copy.path() / "left", directory + "/left");
}

const std::string& base(bool inUse) {
  static std::map<bool, Scratch> made;
  static std::map<bool, std::string> paths;
  if (!paths.contains(inUse)) {
    const std::string directory = made[inUse].path().string();
    makeBase(directory, inUse);
    paths[inUse] = inUse ? directory + "/left" : directory;
    std::filesystem::remove(paths[inUse] + kArchive + ".ISD-shm");  // as after a power cut
  }
  return paths[inUse];
}

struct Copy {
  Scratch scratch;
  std::string directory = scratch / "data", stem = directory + kArchive;
  explicit Copy(const std::string& from) { std::filesystem::copy(from, directory); }
};

StoreOptions withCatalogue() {
  StoreOptions options = test::optionsOfTests();
  options.shapeOf = [](std::string_view archive) -> std::optional<Shape> {
    if (archive == "2003ABmc") return Shape{8, test::kFormat};
    return std::nullopt;
  };
  return options;
}

Code validate(const std::string& directory) {
  return RecordStore(withCatalogue()).VTVal(directory + kArchive);
}

std::size_t keptOf(const std::string& report) {
  return report.starts_with("Grp=") ? std::stoul(report.substr(4)) : std::string::npos;
}

std::string varint(std::uint64_t value) {
  std::string bytes(1, static_cast<char>(value & 0x7F));
  while (value >>= 7) bytes.insert(bytes.begin(), static_cast<char>((value & 0x7F) | 0x80));
  return bytes;
}

// Which records a repair owes: those whose every byte still stands, in one piece where they fit a page, and
// where they were where they go on in others.
class Owed {
 public:
  Owed(const std::string& stem, const Records& records)
      : database_(test::bytesOf(stem + ".ISD")), journal_(test::bytesOf(stem + ".ISF")) {
    if (journal_.empty() || journal_[0] == 0) journal_.clear();  // the rest of one that is done with
    const Format format = parseFormat(test::kFormat);
    for (const auto& [key, packed] : records) places_[key] = find(payloadOf(format, key, packed));
  }

  std::set<std::string> in(const std::string& stem) const {
    const std::string database = test::bytesOf(stem + ".ISD"), journal = test::bytesOf(stem + ".ISF");
    std::set<std::string> owed;
    for (const auto& place : places_) {
      const std::vector<Piece>& pieces = place.second;
      const bool whole = std::all_of(pieces.begin(), pieces.end(), [&](const Piece& piece) {
        const std::string& file = piece.inJournal ? journal : database;
        return file.compare(std::min(piece.at, file.size()), piece.bytes.size(), piece.bytes) == 0 ||
               (pieces.size() == 1 && !piece.inJournal && file.find(piece.bytes) != std::string::npos);
      });
      if (whole) owed.insert(place.first);
    }
    return owed;
  }

 private:
  struct Piece {
    bool inJournal;
    std::size_t at;
    std::string bytes;
  };

  static std::string payloadOf(const Format& format, const std::string& key, const std::string& packed) {
    std::vector<std::string> columns;
    indexKeys(format, packed, columns);
    columns.insert(columns.begin(), key);
    std::string sealed, types = varint(0), contents;
    embedded::seal(key, packed, sealed);
    columns.push_back(sealed);
    for (const std::string& column : columns) {
      types += varint(12 + 2 * column.size());
      contents += column;
    }
    return static_cast<char>(types.size() + 1) + types + contents;
  }

  Piece last(const std::string& bytes) const {
    const std::size_t at = journal_.rfind(bytes);
    if (at != std::string::npos) return {true, at, bytes};
    return {false, database_.rfind(bytes), bytes};
  }
  // With the bytes in front of it: the numbers of a cell, or of the next page.
  Piece widened(Piece piece, std::size_t before, std::size_t behind) const {
    REQUIRE(piece.at != std::string::npos);
    const std::string& file = piece.inJournal ? journal_ : database_;
    piece.at -= before;
    piece.bytes = file.substr(piece.at, before + piece.bytes.size() + behind);
    return piece;
  }

  std::vector<Piece> find(const std::string& payload) const {
    constexpr std::size_t kLocal = 4061, kChain = 4092;
    std::size_t local = payload.size();
    if (local > kLocal) {
      local = 489 + (payload.size() - 489) % kChain;
      if (local > kLocal) local = 489;
    }
    const Piece first = last(payload.substr(0, local));
    const std::string& file = first.inJournal ? journal_ : database_;
    const std::size_t row = (file.at(first.at - 2) & 0x80) ? 2 : 1;
    const std::size_t numbers = row + varint(payload.size()).size();
    std::vector<Piece> pieces{widened(first, numbers, local < payload.size() ? 4 : 0)};
    for (std::size_t at = local; at < payload.size(); at += kChain)
      pieces.push_back(widened(last(payload.substr(at, kChain)), 4, 0));
    return pieces;
  }

  std::string database_, journal_;
  std::map<std::string, std::vector<Piece>> places_;
};

bool everWritten(const std::string& key, const std::string& packed) {
  for (const int version : {0, 1, 2})
    if (recordOf(std::stoi(key), version) == packed) return true;
  return false;
}

struct Trial {
  const Records& records;
  const Owed& owed;
  std::string file;  // that was damaged
};

// What is wrong with a repair of the damaged archive in `directory`.
std::string judge(const Trial& trial, const std::string& directory) {
  const Code noticed = validate(Copy(directory).directory);
  const bool journal = trial.file == ".ISF";
  if (noticed == kOk && !journal) {
    for (const int index : {0, 1, 3})
      if (readAll(Copy(directory).directory, index) != trial.records) return "held for sound";
  }
  const std::set<std::string> owed = trial.owed.in(directory + kArchive);
  std::string report;
  {
    RecordStore station(withCatalogue());
    const Code code = station.VTRepair(directory + kArchive, report);
    if (code != kOk) return "repair: " + std::to_string(code);
  }
  if (const Code code = validate(directory)) return "not sound after the repair: " + std::to_string(code);
  const std::optional<Records> left = readAll(directory);
  if (!left) return "cannot be read after the repair";
  for (const auto& [key, packed] : *left) {
    const auto found = trial.records.find(key);
    if (journal ? !everWritten(key, packed) : found == trial.records.end() || found->second != packed)
      return "altered: " + key;
  }
  for (const std::string& key : owed)
    if (!left->contains(key)) return "lost: " + key;
  return keptOf(report) <= left->size() ? "" : "another count: " + report;
}

void damageEach(bool inUse) {
  test::Tally tally(inUse ? "damages of an archive that was in use" : "damages of an archive at rest");
  const std::string& from = base(inUse);
  const Records records = *readAll(Copy(from).directory);
  REQUIRE(records.size() == (inUse ? 404 : 364));
  const Owed owed(from + kArchive, records);
  REQUIRE(owed.in(from + kArchive).size() == records.size());
  std::mt19937 random(inUse ? 7 : 5);
  for (const char* file : {".ISD", ".ISM", ".ISF"})
    for (const char* kind : test::kDamages)
      for (int round = 0; round < (kLong ? 20 : 2); ++round) {
        CAPTURE(std::string(file));
        CAPTURE(std::string(kind));
        CAPTURE(round);
        const Copy damaged(from);
        test::damage(damaged.stem + file, kind, random);
        tally.judge(judge({records, owed, file}, damaged.directory));
      }
}

}  // namespace

TEST_CASE("a sound archive is proved, rebuilt and repaired without a change") {
  for (const bool inUse : {false, true}) {
    const Copy copy(base(inUse));
    const auto records = readAll(Copy(base(inUse)).directory);
    RecordStore station(test::optionsOfTests());
    double part = 0;
    const Progress progress = [&](double done) {
      CHECK(done >= part);
      CHECK(done <= 1);
      part = done;
    };
    CHECK(station.VTVal(copy.stem, progress) == kOk);
    part = 0;
    CHECK(station.VTRebuild(copy.stem, progress) == kOk);
    CHECK(station.VTVal(copy.stem) == kOk);
    for (const int index : {0, 1, 3}) CHECK(readAll(copy.directory, index) == records);
    std::string report;
    CHECK(station.VTRepair(copy.stem, report) == kOk);
    CHECK(report == "Grp=" + std::to_string(records->size()) + "\n");
    CHECK(station.VTVal(copy.stem) == kOk);
    CHECK(readAll(copy.directory) == records);
    CHECK_FALSE(std::filesystem::exists(copy.stem + ".ISD~"));
    struct stat info {};
    REQUIRE(::stat((copy.stem + ".ISD").c_str(), &info) == 0);
    CHECK((info.st_mode & 07777) == (test::onShare() ? 0660 : 0600));
  }
}

TEST_CASE("an index that disagrees with its records is noticed, and a rebuild mends it") {
  const Copy copy(base(false));
  const auto records = readAll(Copy(base(false)).directory);
  std::string bytes = test::bytesOf(copy.stem + ".ISD");
  // An entry of the index on field 1: the key, the primary key, the number of the row.
  const std::size_t entry = bytes.find("1000200000002");
  REQUIRE(entry != std::string::npos);
  bytes[entry + 4] = '3';
  test::writeBytes(copy.stem + ".ISD", bytes);
  const bool ofRecord = bytes.substr(entry + 13, 40).find("riga") != std::string::npos;
  CAPTURE(ofRecord);
  RecordStore station(test::optionsOfTests());
  CHECK(station.VTVal(copy.stem) == kDisk);
  CHECK(station.VTRebuild(copy.stem) == kOk);
  CHECK(station.VTVal(copy.stem) == kOk);
  CHECK(readAll(copy.directory, 1) == records);
}

TEST_CASE("a rebuild loses nothing: it refuses an archive with a record that is not whole") {
  const Copy copy(base(false));
  std::string bytes = test::bytesOf(copy.stem + ".ISD");
  bytes[bytes.find("riga 77 ") + 2] ^= 1;
  test::writeBytes(copy.stem + ".ISD", bytes);
  RecordStore station(test::optionsOfTests());
  CHECK(station.VTVal(copy.stem) == kDisk);
  CHECK(station.VTRebuild(copy.stem) == kDisk);
  CHECK(test::bytesOf(copy.stem + ".ISD") == bytes);
  std::string report;
  CHECK(station.VTRepair(copy.stem, report) == kOk);
  CHECK(report == "Grp=363\nPerso=00000077\n");
  CHECK(station.VTVal(copy.stem) == kOk);
}

TEST_CASE("what is no closed archive is refused, and changed by nobody") {
  const Copy copy(base(false));
  RecordStore station(test::optionsOfTests());
  std::string report;
  CHECK(station.VTVal(copy.directory + "/2003ABpc") == kSystem);
  CHECK(station.VTRebuild(copy.directory + "/2003ABpc") == kSystem);
  CHECK(station.VTRepair(copy.directory + "/2003ABpc", report) == kSystem);
  CHECK_FALSE(std::filesystem::exists(copy.directory + "/2003ABpc.ISM"));
  {
    const Opened mc(station, copy.stem);
    CHECK(station.VTVal(copy.stem) == kSystem);
    CHECK(station.VTRebuild(copy.stem) == kSystem);
  }
  test::HoldingChild other([&] {
    static std::optional<RecordStore> his;
    static std::optional<Opened> mc;
    mc.emplace(his.emplace(test::optionsOfTests()), copy.stem);
    return mc->opened == kOk;
  });
  REQUIRE(other.ready());
  CHECK(station.VTVal(copy.stem) == kOk);  // which only reads
  CHECK(station.VTRebuild(copy.stem) == kSystem);
  CHECK(station.VTRepair(copy.stem, report) == kSystem);
  other.kill();
  CHECK(station.VTRebuild(copy.stem) == kOk);
}

TEST_CASE("each of the three files is missed, and the catalogue replaces what no file tells") {
  StoreOptions options = withCatalogue();
  for (const char* file : {".ISM", ".ISD", ".ISF"}) {
    const Copy copy(base(false));
    std::filesystem::remove(copy.stem + file);
    RecordStore station(options);
    CHECK(station.VTVal(copy.stem) == kSystem);
    std::string report;
    CHECK(station.VTRepair(copy.stem, report) == kOk);
    CHECK(keptOf(report) == (file == std::string_view(".ISD") ? 0 : 364));
    CHECK(station.VTVal(copy.stem) == kOk);
  }
  const Copy copy(base(false));
  RecordStore station(options);
  test::writeBytes(copy.stem + ".ISM", "Archivio, non modificare\n9\n$\n");
  CHECK(station.VTVal(copy.stem) == kDisk);
  options.shapeOf = [](std::string_view) { return Shape{9, "$"}; };
  CHECK(RecordStore(options).VTVal(copy.stem) == kDisk);  // the descriptor is right, the database is not
}

TEST_CASE(
    "damage in the middle of a journal is told; a last change cut short is none, the log has its group") {
  if (test::onShare()) return;  // there a journal holds nothing between two changes
  const auto records = readAll(Copy(base(true)).directory);
  const std::string journal = test::bytesOf(base(true) + kArchive + ".ISF");
  constexpr std::size_t kChange = 24 + 4096;
  REQUIRE(journal.size() > 32 + 20 * kChange);
  const Copy damaged(base(true)), cut(base(true));
  std::string bytes = journal;
  bytes[32 + 3 * kChange + 500] ^= 1;
  test::writeBytes(damaged.stem + ".ISF", bytes);
  CHECK(validate(damaged.directory) == kDisk);
  test::writeBytes(cut.stem + ".ISF", journal.substr(0, journal.size() - 100));
  CHECK(validate(cut.directory) == kOk);
  CHECK(readAll(cut.directory) == records);
}

TEST_CASE("a repair brings back each record whose bytes are whole, and none that was altered") {
  damageEach(false);
}

TEST_CASE("a repair finds what a station has left in the journal, around its damage") { damageEach(true); }
