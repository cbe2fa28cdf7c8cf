// Rebuilds and repairs by a station that is killed, on a disk that fails, and at power cuts: at each moment
// the books are whole, whatever of it was done. Half of them stand in the log when the work begins.
#include <doctest/doctest.h>

#include <csignal>
#include <map>
#include <memory>

#include "store/fault_place.h"
#include "store/postings.h"
#include "tools/damage.h"

namespace {

using test::Fault;
using test::kLong;
using test::Outcome;
using test::Place;
using test::Tally;

constexpr const char* kStation = "mending_station";
constexpr int kPostings = 3;

// Books whose station was killed behind the flush that commits its last posting.
const std::string& books() {
  static std::unique_ptr<Place> made;
  if (made) return made->directory;
  Place empty;
  REQUIRE(test::Postings::create(empty.directory));
  for (int flush = 1; !made; ++flush) {
    Fault fault = test::killedAt(flush, "after");
    fault.operations = "sync";
    fault.files = "*.grp";
    auto place = std::make_unique<Place>(empty.directory);
    REQUIRE(place->run("posting_station", kPostings, fault).status == -SIGKILL);
    if (place->done() == kPostings - 1 &&
        test::Postings(Place(place->directory).directory).number() == kPostings)
      made = std::move(place);
  }
  return made->directory;
}

std::string judge(const std::string& directory, long) {
  long count = 0;
  {
    test::Postings next(directory);
    const std::string wrong = next.judge(count);
    if (!wrong.empty()) return wrong;
    if (count != kPostings) return std::to_string(count) + " postings";
    if (!next.post()) return "no further posting";
  }
  store::RecordStore station(test::optionsOfTests());
  for (const char* archive : {"/2003ABmc", "/2003ABpc"})
    if (station.VTVal(directory + archive) != store::kOk) return std::string("not sound: ") + archive;
  return "";
}

}  // namespace

TEST_CASE("an archive that is damaged before its last group came to it is repaired with that group") {
  // The company does not open, since the group in the log cannot be brought to its end.
  const Place place(books());
  const std::string path = place.directory + "/2003ABmc.ISD";
  std::string bytes = test::bytesOf(path);
  bytes[20] = '\x55';  // in the head of the database: reserved space at the end of each page
  test::writeBytes(path, bytes);
  CHECK_FALSE(test::Postings(Place(place.directory).directory).isOpen());
  store::RecordStore station(test::optionsOfTests());
  CHECK(station.VTVal(place.directory + "/2003ABmc") == store::kDisk);
  CHECK(station.VTRebuild(place.directory + "/2003ABmc") != store::kOk);
  std::string report;
  CHECK(station.VTRepair(place.directory + "/2003ABmc", report) == store::kOk);
  CHECK(report == "Grp=" + std::to_string(2 * (kPostings - 1)) + "\n");  // before the log is read
  CHECK(station.VTVal(place.directory + "/2003ABmc") == store::kOk);
  CHECK(judge(place.directory, 0) == "");
}

TEST_CASE("a station killed while it rebuilds or repairs leaves whole books") {
  for (const std::string what : {"rebuild", "repair"}) {
    Tally tally("kill points of a " + what);
    test::killEverywhere(tally, books(), kStation, 1, kLong ? 1 : 6, judge, what);
  }
}

TEST_CASE("a disk that fails during a rebuild or a repair leaves whole books, and is told") {
  Tally tally("failed operations of rebuilds and repairs");
  int shift = 0;
  for (const std::string what : {"rebuild", "repair"}) {
    for (const char* operations : {"write,sync,trunc,rename,unlink,create", "open,read,lock"}) {
      Fault counting;
      counting.operations = operations;
      const int count = Place(books()).run(kStation, 1, counting, what).operations;
      REQUIRE(count > 20);
      for (const char* error : {"EIO", "ENOSPC", "EMFILE", "EACCES", "ENOMEM"}) {
        for (const bool everAfter : {false, true}) {
          // Locks that fail for good are those of a station that waits for another, a minute long.
          if (everAfter && operations == std::string("open,read,lock")) operations = "open,read";
          for (int at = 1 + shift++ % 5; at <= count; at += kLong ? 2 : 25) {
            CAPTURE(what);
            CAPTURE(operations);
            CAPTURE(std::string(error));
            CAPTURE(everAfter);
            CAPTURE(at);
            const Place place(books());
            Fault fault = test::failing(operations, error, everAfter);
            fault.at = at;
            const Outcome outcome = place.run(kStation, 1, fault, what);
            tally.judge(outcome.status == 0 ? judge(place.directory, 0)
                                            : "ended " + std::to_string(outcome.status) + outcome.output);
          }
        }
      }
    }
  }
}

TEST_CASE("a power cut during a rebuild or a repair leaves whole books") {
  for (const std::string what : {"rebuild", "repair"}) {
    Tally tally("power-cut states of a " + what);
    test::cutPowerEverywhere(tally, books(), kStation, 1, kLong ? 2 : 12, kLong ? 2 : 1, judge, what);
  }
}
