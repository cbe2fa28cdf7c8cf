// What a new installation holds fits the archives that it goes into.
#include <doctest/doctest.h>

#include <set>

#include "archives/fields.h"
#include "common/csv.h"
#include "common/text.h"

using namespace archives;

namespace {

common::CsvTable contents(const std::string& name) {
  const auto table = common::readCsv(TARVEX_SOURCE_DIR "/data/" + name + ".csv");
  REQUIRE_MESSAGE(table, name);
  return *table;
}

// Rows whose first column is the primary key and whose further ones are fields.
std::set<std::string> keysOf(const std::string& name) {
  const common::CsvTable table = contents(name);
  const Entry& entry = *find(name);
  std::set<std::string> keys;
  for (const auto& row : table.rows) {
    auto fields = fieldsOf(entry, {});
    for (std::size_t i = 1; i < row.size(); ++i)
      CHECK_MESSAGE(setField(fields, table.header[i], row[i]), row[0]);
    CHECK(common::length(row[0]) <= static_cast<std::size_t>(entry.keyLength));
    keys.insert(row[0]);
  }
  CHECK(keys.size() == table.rows.size());
  return keys;
}

}  // namespace

TEST_CASE("VAT codes fill the 25 slots") {
  const auto slots = keysOf("civa");
  CHECK(slots.contains("0"));
  for (int slot = 1; slot <= 24; ++slot) CHECK(slots.contains(common::zeroFill(slot, 2)));
  CHECK(slots.size() == 25);
}

TEST_CASE("companies have 380 slots, two of them named") {
  const auto codes = keysOf("dataz");
  CHECK(codes.size() == 380);
  CHECK(*codes.begin() == "AB");
  CHECK(*codes.rbegin() == "ZZ");
  for (const char* none : {"AA", "JB", "OB", "VB", "BA", "BJ", "KK"}) CHECK_FALSE(codes.contains(none));
  int named = 0;
  for (const auto& row : contents("dataz").rows) named += !row[1].empty();
  CHECK(named == 2);
}

TEST_CASE("payment conditions and parameters are fields of their records") {
  const auto conditions = contents("cpag");
  for (const auto& row : conditions.rows) {
    auto fields = fieldsOf(*find("cpag"), {});
    for (std::size_t i = 0; i < row.size(); ++i)
      CHECK_MESSAGE(setField(fields, conditions.header[i], row[i]), row[0]);
  }
  auto parameters = fieldsOf(*find("param"), {});
  for (const auto& row : contents("param").rows) CHECK_MESSAGE(setField(parameters, row[0], row[1]), row[0]);
}
