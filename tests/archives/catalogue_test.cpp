#include "archives/catalogue.h"

#include <doctest/doctest.h>

#include <set>

#include "store/format.h"

using namespace archives;

TEST_CASE("every archive is a format that can be read, under a name and a code of its own") {
  std::set<std::string_view> prefixes;
  std::set<int> codes;
  for (const Entry& entry : catalogue()) {
    CAPTURE(entry.prefix);
    const store::Format format = store::parseFormat(entry.format);
    CHECK(format.fields.size() == entry.names.size());
    CHECK(std::set(entry.names.begin(), entry.names.end()).size() == entry.names.size());
    prefixes.insert(entry.prefix);
    codes.insert(entry.code);
  }
  CHECK(prefixes.size() == 36);
  CHECK(codes.size() == 36);
  CHECK(*codes.begin() == 1);
  CHECK(*codes.rbegin() == 36);
}

TEST_CASE("the long formats have the fields that their readers count on") {
  struct Row {
    const char* prefix;
    std::size_t fields;
    std::vector<int> indexed;
  };
  const Row rows[] = {
      {"pc", 62, {1, 4, 7, 15, 16, 18, 20, 58, 59}},
      {"mc", 16, {1, 8, 10, 11, 12}},
      {"xx", 80, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 26, 27, 28}},
      {"param", 79, {}},
      {"ma", 42, {1, 2, 3, 4, 5}},
      {"mm", 16, {1, 2, 4, 7, 11}},
      {"ba", 33, {1}},
      {"ax", 43, {}},
      {"ssmod", 26, {}},
      {"si", 13, {}},
      {"po", 8, {}},
      {"modulo", 14, {}},
      {"ra", 17, {1, 2, 3}},
      {"ia", 13, {2, 5, 11}},
      {"ic", 12, {2, 3, 10}},
  };
  for (const Row& row : rows) {
    CAPTURE(row.prefix);
    const store::Format format = store::parseFormat(find(row.prefix)->format);
    CHECK(format.fields.size() == row.fields);
    CHECK(format.indexed == row.indexed);
  }
  const auto documents = store::parseFormat(find("xx")->format).fields;
  for (int field = 44; field <= 53; ++field)
    CHECK(documents[static_cast<std::size_t>(field - 1)].count == 401);
  for (int field = 56; field <= 59; ++field)
    CHECK(documents[static_cast<std::size_t>(field - 1)].count == 25);
  CHECK(find("param")->names[21] == "minimoiva");
  CHECK(find("param")->names[53] == "formatoimmagine");
  CHECK(find("param")->names[72] == "percorsoexcel");
}

TEST_CASE("an archive is found by its full name and by no other") {
  struct Row {
    const char *name, *prefix, *log;
  };
  const Row rows[] = {
      {"civa", "civa", "--.grp"},       {"param", "param", "--.grp"},   {"ABba", "ba", "AB--.grp"},
      {"ABssmod", "ssmod", "AB--.grp"}, {"2003ABmc", "mc", "AB--.grp"}, {"2003ZZsi", "si", "ZZ--.grp"},
  };
  for (const Row& row : rows) {
    CAPTURE(row.name);
    const Entry* entry = entryOf(row.name);
    REQUIRE(entry);
    CHECK(entry->prefix == row.prefix);
    CHECK(logOf(row.name) == row.log);
  }
  for (const char* name :
       {"", "mc", "ABmc", "2003ABba", "2003ABciva", "ABciva", "2003mc", "203ABmc", "2003abmc", "20O3ABmc",
        "2003ABmcx", "2003ABmc.ISD", "ABab", "AB", "2003AB", "CIVA", "ba"}) {
    CHECK_MESSAGE(entryOf(name) == nullptr, name);
    CHECK_MESSAGE(logOf(name) == "--.grp", name);
  }
  for (const Entry& entry : catalogue()) CHECK(entryOf(nameOf(entry, "2003", "AB")) == &entry);
}
