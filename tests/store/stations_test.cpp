// Several stations on one directory, some of which die or stand still for a while.
#include <doctest/doctest.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <random>
#include <thread>
#include <vector>

#include "store/fault_place.h"
#include "store/postings.h"
#include "tools/child.h"

namespace {

using Clock = std::chrono::steady_clock;
using test::kLong;

// A process that posts until it is killed, from its first posting on.
class PostingStation {
 public:
  explicit PostingStation(const std::string& directory) {
    int ends[2];
    REQUIRE(::pipe(ends) == 0);
    process_ = ::fork();
    if (process_ == 0) {
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
  }
  ~PostingStation() { kill(); }
  PostingStation(PostingStation&& other) noexcept : process_(std::exchange(other.process_, -1)) {}
  PostingStation& operator=(PostingStation&& other) noexcept {
    std::swap(process_, other.process_);
    return *this;
  }

  void stop() const { ::kill(process_, SIGSTOP); }
  void goOn() const { ::kill(process_, SIGCONT); }
  void kill() {
    const pid_t process = std::exchange(process_, -1);
    if (process <= 0) return;
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
  }

 private:
  pid_t process_ = -1;
};

struct Books {
  test::Scratch scratch;
  std::string directory = scratch.path().string();

  Books() { REQUIRE(test::Postings::create(directory)); }
  long count() const {  // as a station finds it that comes to those at work
    long count = -1;
    CHECK(test::Postings(directory).judge(count) == "");
    return count;
  }
};

}  // namespace

TEST_CASE("stations that post at once draw unbroken, different numbers") {
  const Books books;
  constexpr int kStations = 3, kPostings = 40;
  std::vector<pid_t> children;
  for (int n = 0; n < kStations; ++n) {
    children.push_back(::fork());
    if (children.back() != 0) continue;
    int left = kPostings;
    {
      test::Postings his(books.directory);
      while (left > 0 && his.post()) --left;
    }
    ::_exit(left);
  }
  for (const pid_t child : children) {
    int status = -1;
    ::waitpid(child, &status, 0);
    CHECK(status == 0);
  }
  CHECK(books.count() == kStations * kPostings);
}

TEST_CASE("a station killed with a record lock in its hand stops no other") {
  constexpr int kDead = kLong ? 300 : 15;
  const Books books;
  test::Postings survivor(books.directory);
  std::vector<double> waits;
  for (int n = 0; n < kDead; ++n) {
    std::optional<test::Postings> his;
    test::HoldingChild child([&] { return his.emplace(books.directory).lockCounter(); });
    REQUIRE(child.ready());
    CHECK_FALSE(survivor.lockCounter());
    const Clock::time_point start = Clock::now();
    child.kill();
    REQUIRE(survivor.post());
    waits.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
  }
  std::sort(waits.begin(), waits.end());
  std::printf("figure: a dead station's lock is free after %.1f ms (median), %.1f ms at worst, of %d\n",
              waits[kDead / 2], waits.back(), kDead);
  CHECK(waits[kDead / 4] < 100);  // a machine that is busy with other things spoils some, not most
  CHECK(books.count() == kDead);
}

TEST_CASE("stations that are killed or stand still leave whole books to the one that goes on") {
  constexpr int kRounds = kLong ? 150 : 6;
  for (const int stations : {2, 4}) {
    test::Tally tally("kills among " + std::to_string(stations) + " stations");
    const Books books;
    test::Postings survivor(books.directory);
    std::mt19937 random(static_cast<unsigned>(stations));
    std::vector<PostingStation> others;
    for (int n = 1; n < stations; ++n) others.emplace_back(books.directory);
    long before = 0;
    for (int round = 0; round < kRounds; ++round) {
      PostingStation& still = others[random() % others.size()];
      still.stop();
      std::this_thread::sleep_for(std::chrono::microseconds(random() % 5000));
      still.goOn();
      std::this_thread::sleep_for(std::chrono::microseconds(random() % 5000));
      PostingStation& victim = others[random() % others.size()];
      victim.kill();
      REQUIRE(survivor.post());
      victim = PostingStation(books.directory);
      const long number = survivor.number();
      tally.judge(number >= before + 2 ? "" : "postings were lost");  // the survivor's and the new station's
      before = number;
    }
    others.clear();
    REQUIRE(survivor.post());  // which brings what the others have committed into all archives
    long count = 0;
    tally.judge(survivor.judge(count));
    CHECK(count >= before);
    CHECK(books.count() == count);
  }
}
