// The books after a station has been killed at any point of its work, and while two of them work at once.
#include <doctest/doctest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>
#include <thread>
#include <vector>

#include "app/invoices.h"
#include "app/verify.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "common/text.h"
#include "tools/faults.h"
#include "tools/scratch.h"

namespace {

namespace fs = std::filesystem;

constexpr int kPostings = 4, kLinesOfAnEntry = 4;

std::set<int> numbersIn(const fs::path& acknowledged) {
  std::set<int> numbers;
  std::ifstream file(acknowledged);
  for (int number = 0; file >> number;) numbers.insert(number);
  return numbers;
}

struct Books {
  std::vector<std::string> faults;  // boxes of the start, violated rules
  std::set<int> invoices;           // by number, in the register
  std::vector<std::string> rows;    // keys of the journal
};

Books read(const fs::path& directory) {
  Books books;
  test::Station station(directory);
  if (!station.start(test::choose(test::kCompany, test::kYear))) books.faults.push_back("does not start");
  for (const tarvex::Violation& violation : tarvex::verify(station.session))
    if (!violation.notice) books.faults.push_back(violation.text);
  tarvex::OpenArchive<rec::iv> iv(station.session, 0, 0);
  for (iv->bof(0); iv->next(0) == store::kOk;) books.invoices.insert(std::stoi(iv->B.numero));
  tarvex::OpenArchive<rec::mc> mc(station.session, 0, 0);
  for (mc->bof(0); mc->next(0) == store::kOk;) books.rows.push_back(mc->primaryKey());
  for (const std::string& box : station.desk.boxes) books.faults.push_back(box);
  return books;
}

std::vector<std::string> station(const fs::path& directory, int first, int count,
                                 const fs::path& acknowledged) {
  return {TARVEX_INVOICE_STATION, directory, std::to_string(first), std::to_string(count), acknowledged};
}

// Every invoice that was told to stand must stand; at most the one in work may stand beside them.
void judge(const Books& books, const std::set<int>& told) {
  for (const std::string& fault : books.faults) FAIL_CHECK(fault);
  for (const int number : told) CHECK(books.invoices.contains(number));
  CHECK(books.invoices.size() <= told.size() + 1);
  CHECK(books.rows.size() == books.invoices.size() * kLinesOfAnEntry);
}

pid_t spawn(const std::vector<std::string>& command) {
  const pid_t child = fork();
  if (child != 0) return child;
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  execv(words[0], words.data());
  _exit(127);
}

int statusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace

TEST_CASE("a station killed at any file operation of several postings leaves whole books") {
  const test::Scratch scratch;
  const fs::path sound = scratch.path() / "sound", struck = scratch.path() / "struck",
                 told = scratch.path() / "told";
  fs::create_directory(sound);
  test::makeBooks(sound);
  fs::copy(sound, struck);
  const test::Outcome whole = test::runUnderFault(station(struck, 1, kPostings, told), struck, {});
  REQUIRE(whole.status == 0);
  REQUIRE(numbersIn(told).size() == kPostings);
  judge(read(struck), numbersIn(told));

  constexpr int kWanted = 500;
  const int every = std::max(1, whole.operations * 3 / kWanted);
  int cases = 0, place = 0;
  for (int at = 1; at <= whole.operations; ++at)
    for (const char* when : {"before", "mid", "after"}) {
      if (place++ % every != 0) continue;
      CAPTURE(at);
      CAPTURE(when);
      fs::remove_all(struck);
      fs::remove(told);
      fs::copy(sound, struck);
      test::Fault fault;
      fault.mode = test::Fault::Mode::kill;
      fault.at = at;
      fault.when = when;
      test::runUnderFault(station(struck, 1, kPostings, told), struck, fault);
      judge(read(struck), numbersIn(told));
      ++cases;
    }
  MESSAGE(cases << " cases over " << whole.operations << " file operations");
  CHECK(cases >= kWanted);
}

TEST_CASE(
    "a station killed while it revises an entry leaves the old one or the new one, never none or both") {
  const test::Scratch scratch;
  const fs::path sound = scratch.path() / "sound", struck = scratch.path() / "struck";
  fs::create_directory(sound);
  test::makeBooks(sound);
  const std::vector<std::string> revise{TARVEX_INVOICE_STATION, struck, "revise", "1"};
  REQUIRE(statusOf(spawn(station(sound, 1, 1, scratch.path() / "told"))) == 0);
  fs::copy(sound, struck);
  const test::Outcome whole = test::runUnderFault(revise, struck, {});
  REQUIRE(whole.status == 0);

  std::set<std::string> firstRows;  // the key tells the old entry from the new one
  for (int at = 1; at <= whole.operations; at += std::max(1, whole.operations / 100)) {
    CAPTURE(at);
    fs::remove_all(struck);
    fs::copy(sound, struck);
    test::Fault fault;
    fault.mode = test::Fault::Mode::kill;
    fault.at = at;
    fault.when = "mid";
    test::runUnderFault(revise, struck, fault);
    const Books books = read(struck);
    judge(books, {1});
    REQUIRE(books.rows.size() == kLinesOfAnEntry);
    firstRows.insert(books.rows.front());
  }
  CHECK(firstRows == std::set<std::string>{"00000001", "00000005"});
}

TEST_CASE("two stations at once draw unbroken, different numbers, and a killed one stops nobody") {
  const test::Scratch scratch;
  const fs::path books = scratch.path() / "books", told = scratch.path() / "told";
  fs::create_directory(books);
  test::makeBooks(books);
  constexpr int kEach = 40, kKilled = 6;
  const pid_t one = spawn(station(books, 1000, kEach, told)),
              other = spawn(station(books, 2000, kEach, told));
  for (int i = 0; i < kKilled; ++i) {
    const pid_t victim = spawn(station(books, 3000 + 100 * i, 100, told));
    std::this_thread::sleep_for(std::chrono::milliseconds(60 + 37 * i));
    kill(victim, SIGKILL);
    statusOf(victim);
  }
  CHECK(statusOf(one) == 0);
  CHECK(statusOf(other) == 0);

  const Books left = read(books);
  for (const std::string& fault : left.faults) FAIL_CHECK(fault);
  const std::set<int> acknowledged = numbersIn(told);
  CHECK(acknowledged.size() >= 2 * kEach);
  for (const int number : acknowledged) CHECK(left.invoices.contains(number));
  CHECK(left.rows.size() == left.invoices.size() * kLinesOfAnEntry);
  for (std::size_t i = 0; i < left.rows.size(); ++i)
    CHECK(left.rows[i] == common::zeroFill(static_cast<int>(i) + 1, 8));
}
