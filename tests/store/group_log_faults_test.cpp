// The group log on a disk that fails, under a station that is killed, and after power cuts: what was held for
// done is there, once and in order, and nothing else but the one group that was in hand.
#include <doctest/doctest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "store/log_station.h"
#include "tools/faults.h"
#include "tools/power_loss.h"
#include "tools/scratch.h"

namespace {

constexpr int kGroups = 7;

std::vector<std::string> station(const std::string& directory, const std::string& acknowledged) {
  return {TARVEX_BINARY_DIR "/bin/log_station", directory, acknowledged, std::to_string(kGroups)};
}

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

// A fresh directory, and the groups that a station held for done in it.
struct Place {
  test::Scratch scratch;
  std::string directory = scratch / "data", acknowledged = scratch / "acknowledged";

  Place() { std::filesystem::create_directory(directory); }
  test::Outcome run(const test::Fault& fault) const {
    return runUnderFault(station(directory, acknowledged), directory, fault);
  }
  long done() const {
    return std::filesystem::exists(acknowledged) ? static_cast<long>(std::filesystem::file_size(acknowledged))
                                                 : 0;
  }
};

int countOperations(const test::Fault& fault) {
  const Place place;
  const test::Outcome outcome = place.run(fault);
  REQUIRE(outcome.status == 0);
  REQUIRE(place.done() == kGroups);
  return outcome.operations;
}

}  // namespace

TEST_CASE(
    "a station killed at any moment leaves the groups that it held for done, and the next one goes on") {
  const int operations = countOperations({});
  CHECK(operations > 5 * kGroups);
  for (int at = 1; at <= operations; ++at) {
    for (const char* when : {"before", "mid", "after"}) {
      CAPTURE(at);
      CAPTURE(when);
      const Place place;
      test::Fault fault;
      fault.mode = test::Fault::Mode::kill;
      fault.at = at;
      fault.when = when;
      CHECK(place.run(fault).status == -SIGKILL);
      CHECK(judge(place.directory, place.done()) == "");
    }
  }
}

TEST_CASE("a disk that fails once costs no group and brings no refused one back") {
  for (const char* operations : {"write,trunc,create", "sync"}) {
    test::Fault fault;
    fault.operations = operations;
    const int count = countOperations(fault);
    fault.mode = test::Fault::Mode::fail;
    for (fault.at = 1; fault.at <= count; ++fault.at) {
      CAPTURE(operations);
      CAPTURE(fault.at);
      const Place place;
      const test::Outcome outcome = place.run(fault);
      CHECK(outcome.status == 0);
      CHECK(outcome.output.find("come back") == std::string::npos);
      CHECK(place.done() == kGroups);
      CHECK(judge(place.directory, kGroups) == "");
    }
  }
}

TEST_CASE(
    "a disk that fails for good ends the station, and what it held for done is there once it works again") {
  for (const char* error : {"EIO", "ENOSPC"}) {
    for (int at = 1; at <= 30; ++at) {
      CAPTURE(error);
      CAPTURE(at);
      const Place place;
      test::Fault fault;
      fault.mode = test::Fault::Mode::fail;
      fault.at = at;
      fault.error = error;
      fault.everAfter = true;
      CHECK(place.run(fault).status == 1);
      CHECK(judge(place.directory, place.done()) == "");
    }
  }
}

TEST_CASE("a log that could not flush takes nothing more until it is opened again") {
  const Place place;
  test::Fault fault;
  fault.mode = test::Fault::Mode::fail;
  fault.operations = "sync";
  fault.at = 6;  // three for the new log and its recovery, then one for each commit
  const test::Outcome outcome = place.run(fault);
  CHECK(outcome.status == 0);
  CHECK(outcome.output == "refused\nrefused\n");
}

TEST_CASE("a power cut at any moment leaves the groups that were held for done") {
  const Place place;
  test::Fault fault;
  fault.trace = place.scratch / "trace";
  fault.acknowledged = place.acknowledged;
  const test::Scratch base;
  REQUIRE(place.run(fault).status == 0);

  test::PowerLoss plan;
  plan.base = base.path().string();
  plan.trace = fault.trace;
  plan.work = place.scratch / "image";
  plan.check = [](const std::string& directory, const std::string& acknowledged) {
    return judge(directory, static_cast<long>(acknowledged.size()));
  };
  const test::PowerLossResult result = cutPower(plan);
  CHECK(result.images > 300);
  for (const std::string& failure : result.failures) FAIL_CHECK(failure);
}
