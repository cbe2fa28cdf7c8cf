// What the fault tests have in common: the place where a station works until it is struck, and the tally of
// what was tried.
#pragma once

#include <doctest/doctest.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tools/faults.h"
#include "tools/power_loss.h"
#include "tools/scratch.h"

namespace test {

#ifdef TARVEX_LONG_TESTS
inline constexpr bool kLong = true;
#else
inline constexpr bool kLong = false;
#endif

// A copy of a directory (an empty one without it), and what a station held for done in it.
struct Place {
  Scratch scratch;
  std::string directory = scratch / "data", acknowledged = scratch / "acknowledged";

  explicit Place(const std::string& from = {}) {
    if (from.empty()) std::filesystem::create_directory(directory);
    if (!from.empty()) std::filesystem::copy(from, directory);
  }
  // Runs a station of the tests: PROGRAM DIRECTORY ACKNOWLEDGED COUNT [MORE].
  Outcome run(const std::string& program, int count, const Fault& fault, const std::string& more = {}) const {
    std::vector<std::string> command{TARVEX_BINARY_DIR "/bin/" + program, directory, acknowledged,
                                     std::to_string(count)};
    if (!more.empty()) command.push_back(more);
    return runUnderFault(command, directory, fault);
  }
  long done() const {
    return std::filesystem::exists(acknowledged) ? static_cast<long>(std::filesystem::file_size(acknowledged))
                                                 : 0;
  }
};

inline Fault killedAt(int operation, const std::string& when) {
  Fault fault;
  fault.mode = Fault::Mode::kill;
  fault.at = operation;
  fault.when = when;
  return fault;
}

inline Fault failing(const std::string& operations, const std::string& error, bool everAfter) {
  Fault fault;
  fault.mode = Fault::Mode::fail;
  fault.operations = operations;
  fault.error = error;
  fault.everAfter = everAfter;
  return fault;
}

// Counts what was tried, and tells it at the end in a line for docs/reliability.md.
class Tally {
 public:
  explicit Tally(std::string kind) : kind_(std::move(kind)) {}
  ~Tally() {
    std::printf("figure: %s: %d tried, %d violations\n", kind_.c_str(), tried_, violations_);
    std::fflush(stdout);
  }
  Tally(const Tally&) = delete;
  Tally& operator=(const Tally&) = delete;

  // `wrong` is what the check found, or nothing.
  void judge(const std::string& wrong) {
    ++tried_;
    if (!wrong.empty()) ++violations_;
    CHECK(wrong == "");
  }
  void add(const PowerLossResult& result) {
    tried_ += result.images;
    violations_ += static_cast<int>(result.failures.size());
    for (const std::string& failure : result.failures) FAIL_CHECK(failure);
  }
  int tried() const { return tried_; }

 private:
  std::string kind_;
  int tried_ = 0, violations_ = 0;
};

// Kills a station at each `step`th operation of its run in a copy of `from`: before it, in the middle of its
// write, and behind it. `judge` tells what the next start finds wrong.
template <typename Judge>
void killEverywhere(Tally& tally, const std::string& from, const std::string& program, int count, int step,
                    Judge judge, const std::string& more = {}) {
  const Outcome whole = Place(from).run(program, count, {}, more);
  REQUIRE(whole.status == 0);
  REQUIRE(whole.operations > 5 * count);
  int first = 1;
  for (const char* when : {"before", "mid", "after"}) {
    for (int at = first++; at <= whole.operations; at += step) {
      CAPTURE(at);
      CAPTURE(when);
      const Place place(from);
      const int status = place.run(program, count, killedAt(at, when), more).status;
      tally.judge(status == -SIGKILL ? judge(place.directory, place.done())
                                     : "not killed: " + std::to_string(status));
    }
  }
}

// Cuts the power at each `step`th moment of a station's run in a copy of `from`.
template <typename Judge>
void cutPowerEverywhere(Tally& tally, const std::string& from, const std::string& program, int count,
                        int step, int seeds, Judge judge, const std::string& more = {}) {
  const Place place(from), base(from);
  Fault recording;
  recording.trace = place.scratch / "trace";
  recording.acknowledged = place.acknowledged;
  REQUIRE(place.run(program, count, recording, more).status == 0);

  PowerLoss plan;
  plan.base = base.directory;
  plan.trace = recording.trace;
  plan.work = place.scratch / "image";
  plan.every = step;
  plan.seeds = seeds;
  plan.check = [&](const std::string& directory, const std::string& acknowledged) {
    return judge(directory, static_cast<long>(acknowledged.size()));
  };
  tally.add(cutPower(plan));
}

}  // namespace test
