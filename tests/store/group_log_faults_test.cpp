// The group log on a disk that fails, under a station that is killed, and after power cuts: what was held for
// done is there, once and in order, and nothing else but the one group that was in hand.
#include <doctest/doctest.h>

#include <csignal>

#include "store/fault_place.h"
#include "store/log_station.h"

namespace {

using test::Fault;
using test::Place;
using test::Tally;

constexpr int kGroups = 7;
constexpr const char* kStation = "log_station";

// What the next start finds wrong in a directory where `done` groups were held for done.
std::string judge(const std::string& directory, long done) {
  test::LogStation next(directory);
  if (!next.recover()) return "no recovery";
  const long found = next.number();
  if (found != done && found != done + 1)
    return std::to_string(done) + " done, " + std::to_string(found) + " there";
  if (!next.commit() || next.number() != found + 1) return "no further commit";
  test::LogStation last(directory);
  return next.wrong() + last.wrong();
}

}  // namespace

TEST_CASE(
    "a station killed at any moment leaves the groups that it held for done, and the next one goes on") {
  Tally tally("kill points of the log");
  test::killEverywhere(tally, {}, kStation, kGroups, test::kLong ? 1 : 2, judge);
}

TEST_CASE("a disk that fails once costs no group and brings no refused one back") {
  Tally tally("failed operations of the log, once");
  for (const char* operations : {"write,trunc,create", "sync"}) {
    Fault counting;
    counting.operations = operations;
    const int count = Place().run(kStation, kGroups, counting).operations;
    REQUIRE(count > kGroups);
    for (int at = 1; at <= count; ++at) {
      CAPTURE(operations);
      CAPTURE(at);
      const Place place;
      Fault fault = test::failing(operations, "EIO", false);
      fault.at = at;
      const test::Outcome outcome = place.run(kStation, kGroups, fault);
      const bool done = outcome.status == 0 && place.done() == kGroups;
      tally.judge(done ? judge(place.directory, kGroups) : "not done: " + outcome.output);
    }
  }
}

TEST_CASE(
    "a disk that fails for good ends the station, and what it held for done is there once it works again") {
  Tally tally("failed operations of the log, for good");
  for (const char* error : {"EIO", "ENOSPC"}) {
    for (int at = 1; at <= 30; ++at) {
      CAPTURE(error);
      CAPTURE(at);
      const Place place;
      Fault fault = test::failing(Fault().operations, error, true);
      fault.at = at;
      const int status = place.run(kStation, kGroups, fault).status;
      tally.judge(status == 1 ? judge(place.directory, place.done()) : "ended " + std::to_string(status));
    }
  }
}

TEST_CASE("a log that could not flush takes nothing more until it is opened again") {
  const Place place;
  Fault fault = test::failing("sync", "EIO", false);
  fault.at = 6;  // three for the new log and its recovery, then one for each commit
  const test::Outcome outcome = place.run(kStation, kGroups, fault);
  CHECK(outcome.status == 0);
  CHECK(outcome.output == "refused\nrefused\n");
}

TEST_CASE("a power cut at any moment leaves the groups that were held for done") {
  Tally tally("power-cut states of the log");
  test::cutPowerEverywhere(tally, {}, kStation, kGroups, 1, 2, judge);
  CHECK(tally.tried() > 300);
}
