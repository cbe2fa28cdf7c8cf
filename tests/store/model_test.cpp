// Random work of two stations on one archive, each answer compared with that of a plain map.
#include <doctest/doctest.h>

#include <array>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <tuple>
#include <utility>

#include "store/books.h"
#include "store/group.h"

using namespace store;
using test::record;

namespace {

using Records = std::map<std::string, std::string>;  // primary key, packed record

std::string keyOf(const std::string& primaryKey, const std::string& packed, int index) {
  if (index == 0) return primaryKey;
  std::vector<std::string> keys;
  indexKeys(parseFormat(test::kFormat), packed, keys);
  return keys[index == 1 ? 0 : 1];
}

// A position as the contract tells it, over all rows of an index in order.
struct Position {
  enum { start, before, on, end } at = start;
  std::string key, primaryKey;

  std::optional<std::string> move(const Records& records, int index, bool forward) {
    using Row = std::pair<std::string, std::string>;
    std::set<Row> rows;
    for (const auto& [primary, packed] : records) rows.emplace(keyOf(primary, packed, index), primary);
    const Row here{key, at == on ? primaryKey : ""};
    auto row = rows.end();
    if (forward) {
      row = at == start ? rows.begin()
            : at == end ? rows.end()
            : at == on  ? rows.upper_bound(here)
                        : rows.lower_bound(here);
    } else {
      row = at == end ? rows.end() : at == start ? rows.begin() : rows.lower_bound(here);
      row = row == rows.begin() ? rows.end() : std::prev(row);
    }
    if (row == rows.end()) {
      at = forward ? end : start;
      return std::nullopt;
    }
    at = on;
    std::tie(key, primaryKey) = *row;
    return primaryKey;
  }

  std::optional<std::string> search(const Records& records, int index, const std::string& wanted) {
    *this = {before, wanted, ""};
    Position probe = *this;
    const auto found = probe.move(records, index, true);
    if (!found || probe.key != wanted) return std::nullopt;
    *this = probe;
    return found;
  }
};

class Station {
 public:
  Station(const std::string& stem, std::mt19937& random) : random_(random), archive_(store_, stem) {}

  RecordStore& store() { return store_; }

  void read(const Records& records) {
    const int index = std::array{0, 1, 3}[random_() % 3];
    Position& position = positions_[index];
    std::optional<std::string> expected;
    Code code = kOk;
    switch (random_() % 8) {
      case 0:
        position = {Position::start, "", ""};
        CHECK(archive_.bof(index) == kOk);
        return;
      case 1:
        position = {Position::end, "", ""};
        CHECK(archive_.eof(index) == kOk);
        return;
      case 2: {
        const std::string key = anyKey(index);
        expected = position.search(records, index, key);
        code = archive_.search(index, key);
        break;
      }
      case 3:
      case 4:
        expected = position.move(records, index, false);
        code = archive_.previous(index);
        break;
      default:
        expected = position.move(records, index, true);
        code = archive_.next(index);
    }
    REQUIRE(code == (expected ? kOk : kNotFound));
    if (!expected) return;
    CHECK(archive_.found.primaryKey == *expected);
    CHECK(archive_.found.record == records.at(*expected));
    CHECK(archive_.found.indexKey == keyOf(*expected, records.at(*expected), index));
  }

  // Changes `records` as the archive is changed; tells the key, unless it is one of `avoided`.
  std::string write(Records& records, const std::set<std::string>& avoided) {
    const std::string key = anyKey(0);
    if (avoided.contains(key)) return "";
    const bool there = records.contains(key);
    if (random_() % 4 == 0) {
      CHECK(archive_.erase(key) == (there ? kOk : kNotFound));
      records.erase(key);
      return key;
    }
    const std::string packed = record(anyKey(1), static_cast<double>(random_() % 1000), anyKey(3));
    const Put mode = std::array{Put::write, Put::add, Put::rewrite}[random_() % 3];
    const Code expected = mode == Put::add && there        ? kExists
                          : mode == Put::rewrite && !there ? kNotFound
                                                           : kOk;
    CHECK(archive_.put(key, packed, mode) == expected);
    if (expected == kOk) records[key] = packed;
    return key;
  }

 private:
  std::string anyKey(int index) {
    const auto number = random_();
    return index == 0 ? std::to_string(number % 40)
                      : std::string(1 + number % 2, static_cast<char>('a' + number % 5));
  }

  std::mt19937& random_;
  RecordStore store_{test::optionsOfTests()};
  test::Opened archive_;
  std::map<int, Position> positions_;
};

// What all see, and what the first station's group has made of it.
struct Books {
  Records records;
  std::set<std::string> touched;  // by the group
  Records own;                    // those of them that it has left there

  Records seenInGroup() const {
    Records seen = records;
    for (const std::string& key : touched) seen.erase(key);
    seen.insert(own.begin(), own.end());
    return seen;
  }
};

void play(unsigned seed, int steps) {
  std::mt19937 random(seed);
  const test::Scratch directory;
  const std::string stem = directory / "2003ABmc";
  RecordStore maker{test::optionsOfTests()};
  REQUIRE(maker.VmxCreate(stem, 8, test::kFormat) == kOk);
  Station first(stem, random), second(stem, random);
  Books books;
  std::optional<Group> group;
  for (int step = 0; step < steps; ++step) {
    CAPTURE(seed);
    CAPTURE(step);
    const unsigned choice = random() % 100;
    if (choice < 3 && !group) {
      group.emplace(first.store(), directory / "AB--", 8, 120);
    } else if (choice < 3) {
      if (random() % 3) {
        REQUIRE(group->commit());
        books.records = books.seenInGroup();
      }
      group.reset();
      books = {books.records, {}, {}};
    } else if (choice < 40) {
      first.read(books.seenInGroup());
    } else if (choice < 60 && group) {
      Records seen = books.seenInGroup();
      const std::string key = first.write(seen, {});
      books.touched.insert(key);
      books.own.erase(key);
      if (seen.contains(key)) books.own[key] = seen[key];
    } else if (choice < 60) {
      first.write(books.records, {});
    } else if (choice < 90) {
      second.read(books.records);
    } else {
      second.write(books.records, books.touched);  // those the group has locked, as all callers do
    }
  }
}

}  // namespace

TEST_CASE("random reads and writes of two stations, in groups and outside, agree with a map") {
  for (unsigned seed = 1; seed <= 12; ++seed) play(seed, 4000);
}
