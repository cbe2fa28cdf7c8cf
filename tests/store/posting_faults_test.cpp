// Postings by a station that is killed, on a disk that fails, and after power cuts: the books are whole, with
// all postings that were held for done and at most the one that was in hand. The same for the recovery of
// what a killed station has left, and for the change from one kind of journal to the other.
#include <doctest/doctest.h>

#include <csignal>
#include <map>
#include <memory>
#include <set>
#include <sstream>

#include "store/fault_place.h"
#include "store/postings.h"

namespace {

using test::Fault;
using test::kLong;
using test::Outcome;
using test::Place;
using test::Tally;

constexpr int kPostings = 4;
constexpr const char* kStation = "posting_station";

// Books with that many postings, made once.
const std::string& books(int postings) {
  static std::map<int, Place> made;
  const auto [place, isNew] = made.try_emplace(postings);
  if (isNew) {
    REQUIRE(test::Postings::create(place->second.directory));
    test::Postings station(place->second.directory);
    for (int n = 0; n < postings; ++n) REQUIRE(station.post());
  }
  return place->second.directory;
}

// What the next start finds wrong in books with `done` postings and perhaps `more`.
std::string judge(const std::string& directory, long done, long more) {
  test::Postings next(directory);
  long count = 0;
  std::string wrong = next.judge(count);
  if (!wrong.empty()) return wrong;
  if (count < done || count > done + more)
    return std::to_string(done) + " done, " + std::to_string(count) + " there";
  if (!next.post()) return "no further posting";
  const long before = count;
  wrong = next.judge(count);
  return wrong.empty() && count != before + 1 ? "a posting was lost" : wrong;
}

std::string judgeKilled(const std::string& directory, long done) { return judge(directory, done, 1); }

// Books that a station has left behind the flush that commits its `nth` posting: no archive has that one yet.
std::unique_ptr<Place> torn(int nth) {
  for (int flush = 1;; ++flush) {
    Fault fault = test::killedAt(flush, "after");
    fault.operations = "sync";
    fault.files = "*.grp";
    auto place = std::make_unique<Place>(books(0));
    REQUIRE(place->run(kStation, nth, fault).status == -SIGKILL);
    if (place->done() == nth - 1 && test::Postings(Place(place->directory).directory).number() == nth)
      return place;
  }
}

struct Cause {
  const char* error;
  store::Code code;
};
constexpr Cause kCauses[] = {
    {"EIO", store::kDisk},      {"ENOSPC", store::kDiskFull}, {"EMFILE", store::kTooManyFiles},
    {"EACCES", store::kSystem}, {"ENOMEM", store::kNoMemory}, {"EFBIG", store::kDiskFull},
};

// The codes of the failures that a station has shown.
std::set<int> codesIn(const std::string& output) {
  std::set<int> codes;
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    constexpr std::string_view kError = "Errore: ";
    if (const auto at = line.find(kError); at != std::string::npos)
      codes.insert(std::stoi(line.substr(at + kError.size())));
  }
  return codes;
}

// What a user would miss: a refusal or a short list without its box, or a box that blames another cause. (A
// file that could not be flushed answers "disk" until it is opened again, and one that is not there is the
// system's.)
std::string judgeBoxes(const std::string& output, const Cause& cause, bool refused) {
  std::set<int> codes = codesIn(output);
  if (refused && codes.empty()) return "refused without a box: " + output;
  for (const int code : codes)
    if (code != cause.code && code != store::kDisk && code != store::kSystem)
      return "another cause: " + output;
  return output.find("come back") == std::string::npos ? "" : output;
}

int countOf(const char* operations, const std::string& from, int postings) {
  Fault fault;
  fault.operations = operations;
  const Outcome outcome = Place(from).run(kStation, postings, fault);
  REQUIRE(outcome.status == 0);
  return outcome.operations;
}

}  // namespace

TEST_CASE("a posting costs one flush") {
  // The second one ends with a settling, the first write to an archive flushes the head of its journal. On a
  // share each of the five archives keeps itself safe, too.
  CHECK(countOf("sync", books(0), 7) - countOf("sync", books(0), 6) == (test::onShare() ? 21 : 1));
}

TEST_CASE("a station killed at any operation leaves whole books") {
  Tally tally("kill points of postings");
  test::killEverywhere(tally, books(0), kStation, kPostings, kLong ? 1 : 12, judgeKilled);
}

TEST_CASE("a station killed while it mends what another has left leaves whole books") {
  Tally tally("kill points of recovery");
  for (int nth = 1; nth <= (kLong ? 2 : 1); ++nth) {
    const auto left = torn(nth);
    const auto judgeNext = [&](const std::string& directory, long done) {
      return judge(directory, nth + done, 1);
    };
    test::killEverywhere(tally, left->directory, kStation, 1, kLong ? 1 : 12, judgeNext);
  }
}

TEST_CASE("a station killed while it changes the journals leaves whole books") {
  Tally tally("kill points of the change of journals");
  const auto left = torn(3);
  const auto judgeNext = [](const std::string& directory, long done) {
    return judge(directory, 3 + done, 1);
  };
  test::killEverywhere(tally, left->directory, kStation, 1, kLong ? 1 : 14, judgeNext,
                       test::onShare() ? "own" : "share");
}

TEST_CASE("a disk that fails once costs no posting, brings no refused one back, and is told with its cause") {
  Tally tally("failed operations of postings, once");
  constexpr const char* kEach[] = {"write,trunc,create,unlink,rename", "sync", "open,read,lock"};
  int shift = 0;
  for (const char* operations : kEach) {
    const int count = countOf(operations, books(0), kPostings);
    for (const Cause& cause : kCauses) {
      for (int at = 1 + shift++ % 5; at <= count; at += kLong ? 3 : 60) {
        CAPTURE(operations);
        CAPTURE(cause.error);
        CAPTURE(at);
        const Place place(books(0));
        Fault fault = test::failing(operations, cause.error, false);
        fault.at = at;
        const Outcome outcome = place.run(kStation, kPostings, fault);
        std::string wrong =
            outcome.status == 0
                ? judgeBoxes(outcome.output, cause, outcome.output.find("refused") != std::string::npos)
                : "ended " + std::to_string(outcome.status) + outcome.output;
        tally.judge(wrong.empty() ? judge(place.directory, kPostings, 0) : wrong);
      }
    }
  }
}

TEST_CASE("a disk that fails for good ends the station, and the books are whole once it works again") {
  Tally tally("failed operations of postings, for good");
  int shift = 0;
  for (const char* operations : {"write,sync,trunc,rename,unlink,create", "extend,create", "open,read"}) {
    const int count = countOf(operations, books(0), kPostings);
    for (const Cause& cause : kCauses) {
      for (int at = 1 + shift++ % 5; at <= count; at += kLong ? 6 : 70) {
        CAPTURE(operations);
        CAPTURE(cause.error);
        CAPTURE(at);
        const Place place(books(0));
        Fault fault = test::failing(operations, cause.error, true);
        fault.at = at;
        const Outcome outcome = place.run(kStation, kPostings, fault);
        std::string wrong = judgeBoxes(outcome.output, cause, outcome.status == 1);
        if (outcome.status != 0 && outcome.status != 1) wrong = "ended " + std::to_string(outcome.status);
        tally.judge(wrong.empty() ? judge(place.directory, place.done(), 1) : wrong);
      }
    }
  }
}

TEST_CASE("what cannot be read makes no list shorter without a box") {
  Tally tally("failed operations of lists");
  constexpr const char* kReading = "open,read,lock";
  Fault counting;
  counting.operations = kReading;
  const int count = Place(books(60)).run(kStation, 0, counting).operations;
  CHECK(count > 50);
  int shift = 0;
  for (const Cause& cause : kCauses) {
    for (int at = 1 + shift++ % 5; at <= count; at += kLong ? 3 : 20) {
      CAPTURE(cause.error);
      CAPTURE(at);
      const Place place(books(60));
      Fault fault = test::failing(kReading, cause.error, false);
      fault.at = at;
      const Outcome outcome = place.run(kStation, 0, fault);
      const bool whole = outcome.output == "\n";
      tally.judge(outcome.status == 0 ? judgeBoxes(outcome.output, cause, !whole)
                                      : "ended " + std::to_string(outcome.status));
    }
  }
}

TEST_CASE("a cause is told in its own words") {
  struct Row {
    const char *operations, *error, *words;
  };
  for (const Row& row :
       {Row{"extend,create", "ENOSPC", "DISCO PIENO|Errore:  11"},
        Row{"extend,create", "EFBIG", "DISCO PIENO|Errore:  11"},
        Row{"open", "EMFILE", "TROPPI FILE APERTI|Errore:  18"},
        Row{"open", "ENFILE", "TROPPI FILE APERTI|Errore:  18"},
        Row{"open", "EACCES", "ERRORE DOS|Errore:  13"}, Row{"read", "ENOMEM", "OUT OF MEMORY|Errore:  12"},
        Row{"read", "ESTALE", "ERRORE DOS|Errore:  13"}, Row{"read", "EIO", "ERRORE DISCO|Errore:  14"},
        Row{"sync", "EIO", "ERRORE DISCO|Errore:  14"}}) {
    CAPTURE(row.operations);
    CAPTURE(row.error);
    const Place place(books(0));
    Fault fault = test::failing(row.operations, row.error, true);
    fault.at = countOf(row.operations, books(0), 1) / 2 + 1;
    const Outcome outcome = place.run(kStation, kPostings, fault);
    CHECK(outcome.status == 1);
    CHECK(outcome.output.find(row.words) != std::string::npos);
  }
}

TEST_CASE("a power cut at any operation leaves whole books") {
  Tally tally("power-cut states of postings");
  test::cutPowerEverywhere(tally, books(0), kStation, kPostings, kLong ? 1 : 8, kLong ? 2 : 1, judgeKilled);
  CHECK(tally.tried() > 100);
}

TEST_CASE("a power cut during the recovery, or during the change of journals, leaves whole books") {
  const auto left = torn(3);
  const auto judgeNext = [](const std::string& directory, long done) {
    return judge(directory, 3 + done, 1);
  };
  for (const char* mode : {test::onShare() ? "share" : "own", test::onShare() ? "own" : "share"}) {
    Tally tally("power-cut states of recovery");
    test::cutPowerEverywhere(tally, left->directory, kStation, 1, kLong ? 2 : 12, kLong ? 2 : 1, judgeNext,
                             mode);
    CHECK(tally.tried() > 50);
  }
}
