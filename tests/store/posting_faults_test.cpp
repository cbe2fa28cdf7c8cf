// Postings on a disk that fails, by a station that is killed, and after power cuts: the books are whole, with
// all postings that were held for done and at most the one that was in hand.
#include <doctest/doctest.h>

#include <csignal>
#include <filesystem>

#include "store/postings.h"
#include "tools/faults.h"
#include "tools/power_loss.h"

namespace {

constexpr int kPostings = 4;
#ifdef TARVEX_LONG_TESTS
constexpr int kStep = 1;
#else
constexpr int kStep = 5;  // every fifth operation; which ones changes with the place in the operation
#endif

// What the next start finds wrong in books with `done` postings and perhaps one more.
std::string judge(const std::string& directory, long done, long more) {
  test::Postings books(directory);
  long count = 0;
  std::string wrong = books.judge(count);
  if (!wrong.empty()) return wrong;
  if (count < done || count > done + more)
    return std::to_string(done) + " done, " + std::to_string(count) + " there";
  if (!books.post()) return "no further posting";
  wrong = books.judge(count);
  return wrong.empty() && count <= done ? "a posting was lost" : wrong;
}

struct Place {
  test::Scratch scratch;
  std::string directory = scratch / "data", acknowledged = scratch / "acknowledged";

  Place() {
    std::filesystem::create_directory(directory);
    REQUIRE(test::Postings::create(directory));
  }
  test::Outcome run(const test::Fault& fault) const {
    const std::string station = TARVEX_BINARY_DIR "/bin/posting_station";
    return runUnderFault({station, directory, acknowledged, std::to_string(kPostings)}, directory, fault);
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
  REQUIRE(place.done() == kPostings);
  return outcome.operations;
}

}  // namespace

TEST_CASE("a station killed at any operation leaves whole books") {
  const int operations = countOperations({});
  CHECK(operations > 20 * kPostings);
  int first = 1;
  for (const char* when : {"before", "mid", "after"}) {
    for (int at = first++; at <= operations; at += kStep) {
      CAPTURE(at);
      CAPTURE(when);
      const Place place;
      test::Fault fault;
      fault.mode = test::Fault::Mode::kill;
      fault.at = at;
      fault.when = when;
      CHECK(place.run(fault).status == -SIGKILL);
      CHECK(judge(place.directory, place.done(), 1) == "");
    }
  }
}

TEST_CASE("a disk that fails once costs no posting and brings no refused one back") {
  for (const char* operations : {"write,trunc,create,unlink", "sync"}) {
    test::Fault fault;
    fault.operations = operations;
    const int count = countOperations(fault);
    fault.mode = test::Fault::Mode::fail;
    for (const char* error : {"EIO", "ENOSPC"}) {
      fault.error = error;
      for (fault.at = 1; fault.at <= count; fault.at += kStep) {
        CAPTURE(operations);
        CAPTURE(error);
        CAPTURE(fault.at);
        const Place place;
        CHECK(place.run(fault).status == 0);
        CHECK(place.done() == kPostings);
        CHECK(judge(place.directory, kPostings, 0) == "");
      }
    }
  }
}

TEST_CASE(
    "a disk that is full or broken for good ends the station, and the books are whole once it works again") {
  test::Fault fault;
  fault.mode = test::Fault::Mode::fail;
  fault.everAfter = true;
  for (const char* error : {"EIO", "ENOSPC"}) {
    for (fault.at = 1; fault.at <= 100; fault.at += 2 * kStep) {
      CAPTURE(error);
      CAPTURE(fault.at);
      fault.error = error;
      fault.operations =
          std::string(error) == "EIO" ? "write,sync,trunc,rename,unlink,create" : "extend,create";
      const Place place;
      const int status = place.run(fault).status;
      CHECK((status == 0 || status == 1));
      CHECK(judge(place.directory, place.done(), 1) == "");
    }
  }
}

TEST_CASE("a power cut at any operation leaves whole books") {
  const Place place;
  const test::Scratch base;
  std::filesystem::copy(place.directory, base / "data", std::filesystem::copy_options::recursive);
  test::Fault fault;
  fault.trace = place.scratch / "trace";
  fault.acknowledged = place.acknowledged;
  REQUIRE(place.run(fault).status == 0);

  test::PowerLoss plan;
  plan.base = base / "data";
  plan.trace = fault.trace;
  plan.work = place.scratch / "image";
  plan.every = kStep;
  plan.check = [](const std::string& directory, const std::string& acknowledged) {
    return judge(directory, static_cast<long>(acknowledged.size()), 1);
  };
  const test::PowerLossResult result = cutPower(plan);
  CHECK(result.images > 200);
  for (const std::string& failure : result.failures) FAIL_CHECK(failure);
}
