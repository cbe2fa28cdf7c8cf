// The recovery of groups over several archives, killed in its own middle, and what a group costs.
#include <doctest/doctest.h>

#include <csignal>
#include <filesystem>
#include <optional>

#include "store/post_station.h"
#include "tools/faults.h"

namespace {

using test::Fault;
namespace fs = std::filesystem;

constexpr int kEntries = 3;
#ifdef TARVEX_LONG_TESTS
constexpr int kStep = 1;
#else
constexpr int kStep = 7;  // what a minute allows
#endif

// The books before the first entry, made once.
const std::string& empty() {
  static const test::Scratch made;
  static const std::string directory = [] {
    const std::string path = made / "data";
    fs::create_directory(path);
    test::PostStation::make(path);
    return path;
  }();
  return directory;
}

// A copy of some books, and the entries that a station held for done in it.
struct Place {
  test::Scratch scratch;
  std::string directory = scratch / "data", acknowledged = scratch / "acknowledged";

  explicit Place(const std::string& from = empty()) { fs::copy(from, directory); }

  test::Outcome post(const Fault& fault, int entries = kEntries) const {
    return runUnderFault(
        {TARVEX_BINARY_DIR "/bin/post_station", directory, acknowledged, std::to_string(entries)}, directory,
        fault);
  }
  int done() const { return fs::exists(acknowledged) ? static_cast<int>(fs::file_size(acknowledged)) : 0; }
};

// What the next start finds wrong where `done` entries were held for done.
std::string judge(const std::string& directory, int done) {
  test::PostStation next(directory);
  const std::string wrong = next.judge();
  if (!wrong.empty()) return wrong;
  const int found = next.number();
  if (found != done && found != done + 1)
    return std::to_string(done) + " done, " + std::to_string(found) + " there";
  return next.post() && next.number() == found + 1 ? next.judge() : "no further entry";
}

int countOperations(const Fault& fault, int entries = kEntries) {
  const Place place;
  const test::Outcome outcome = place.post(fault, entries);
  REQUIRE(outcome.status == 0);
  return outcome.operations;
}

Fault killedAt(int operation, const std::string& when) {
  Fault fault;
  fault.mode = Fault::Mode::kill;
  fault.at = operation;
  fault.when = when;
  return fault;
}

}  // namespace

TEST_CASE("an entry costs one flush") {
  Fault fault;
  fault.operations = "sync";
  // The second entry ends with a settling, the first write to an archive flushes the head of its journal.
  // On a share each of the five archives keeps itself safe, too.
  CHECK(countOperations(fault, 7) - countOperations(fault, 6) == (test::onShare() ? 21 : 1));
}

TEST_CASE("a station killed while it mends what another has left leaves whole entries") {
  // Killed behind the flush that commits the second entry: none of its archives has it yet.
  std::optional<Place> torn;
  for (int flush = 1; !torn || torn->done() == 0; ++flush) {
    Fault fault = killedAt(flush, "after");
    fault.operations = "sync";
    torn.emplace();
    torn->post(fault);
  }
  REQUIRE(torn->done() == 1);
  const int operations = Place(torn->directory).post({}, 1).operations;
  CHECK(operations > 100);
  for (int at = 1; at <= operations; at += kStep) {
    for (const std::string when : {"before", "mid", "after"}) {
      CAPTURE(at);
      CAPTURE(when);
      const Place place(torn->directory);
      CHECK(place.post(killedAt(at, when), 1).status == -SIGKILL);
      CHECK(judge(place.directory, 2 + place.done()) == "");
    }
  }
}
