// Several stations on one directory, some of which die.
#include <doctest/doctest.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

#include "store/postings.h"
#include "tools/child.h"

namespace {

using Clock = std::chrono::steady_clock;

// A process that posts until it is killed; returns when it has posted once.
pid_t startPosting(const std::string& directory) {
  int ends[2];
  REQUIRE(::pipe(ends) == 0);
  const pid_t child = ::fork();
  if (child == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::close(ends[0]);
    test::Postings books(directory);
    if (books.post() && ::write(ends[1], "", 1) == 1)
      while (books.post()) continue;
    ::_exit(1);
  }
  char posted = 0;
  ::close(ends[1]);
  CHECK(::read(ends[0], &posted, 1) == 1);
  ::close(ends[0]);
  return child;
}

long countOf(const std::string& directory) {
  long count = -1;
  const std::string wrong = test::Postings(directory).judge(count);
  CHECK(wrong == "");
  return count;
}

}  // namespace

TEST_CASE("stations that post at once draw unbroken, different numbers") {
  const test::Scratch scratch;
  const std::string directory = scratch.path().string();
  REQUIRE(test::Postings::create(directory));
  constexpr int kStations = 3, kPostings = 40;
  std::vector<pid_t> children;
  for (int n = 0; n < kStations; ++n) {
    children.push_back(::fork());
    if (children.back() != 0) continue;
    int left = kPostings;
    {
      test::Postings books(directory);
      while (left > 0 && books.post()) --left;
    }
    ::_exit(left);
  }
  for (const pid_t child : children) {
    int status = -1;
    ::waitpid(child, &status, 0);
    CHECK(status == 0);
  }
  CHECK(countOf(directory) == kStations * kPostings);
}

TEST_CASE("a station killed with a record lock in its hand stops no other") {
  const test::Scratch scratch;
  const std::string directory = scratch.path().string();
  REQUIRE(test::Postings::create(directory));
  test::Postings books(directory);
  std::vector<Clock::duration> waits;
  for (int n = 0; n < 15; ++n) {
    std::optional<test::Postings> his;
    test::HoldingChild child([&] { return his.emplace(directory).lockCounter(); });
    REQUIRE(child.ready());
    CHECK_FALSE(books.lockCounter());
    const Clock::time_point start = Clock::now();
    child.kill();
    REQUIRE(books.post());
    waits.push_back(Clock::now() - start);
  }
  std::nth_element(waits.begin(), waits.begin() + 7, waits.end());
  CHECK(waits[7] < std::chrono::milliseconds(100));
  CHECK(countOf(directory) == 15);
}

TEST_CASE(
    "stations that are killed in the middle of their postings leave whole books to the one that goes on") {
  const test::Scratch scratch;
  const std::string directory = scratch.path().string();
  REQUIRE(test::Postings::create(directory));
  test::Postings survivor(directory);
  long posted = 0;
  for (int n = 0; n < 25; ++n) {
    const pid_t victims[] = {startPosting(directory), startPosting(directory)};
    std::this_thread::sleep_for(std::chrono::microseconds(1700 * n % 9000));
    for (const pid_t victim : victims) {
      ::kill(victim, SIGKILL);
      REQUIRE(survivor.post());
      ::waitpid(victim, nullptr, 0);
      ++posted;
    }
  }
  long count = 0;
  CHECK(survivor.judge(count) == "");
  CHECK(count >= 2 * posted);  // each victim has posted, too
  CHECK(countOf(directory) == count);
}
