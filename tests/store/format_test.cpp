#include "store/format.h"

#include <doctest/doctest.h>

#include <random>
#include <stdexcept>

using namespace store;

namespace {

std::vector<Value> sampleOf(const Format& format, std::mt19937& random) {
  const auto word = [&] { return std::string(random() % 200, static_cast<char>('a' + random() % 26)); };
  std::vector<Value> values = unpack(format, {});
  for (Value& value : values) {
    if (auto* text = std::get_if<std::string>(&value)) *text = word();
    if (auto* number = std::get_if<double>(&value)) *number = static_cast<double>(random()) / 7;
    if (auto* number = std::get_if<std::int16_t>(&value)) *number = static_cast<std::int16_t>(random());
    if (auto* number = std::get_if<std::int32_t>(&value)) *number = static_cast<std::int32_t>(random());
    if (auto* texts = std::get_if<std::vector<std::string>>(&value))
      (*texts)[random() % texts->size()] = word();
    if (auto* numbers = std::get_if<std::vector<double>>(&value)) numbers->back() = -1.5;
  }
  return values;
}

}  // namespace

TEST_CASE("a format string is read with commas, without them and with one behind it") {
  const Format mc = parseFormat("x8$,$,$,$,$,#,#,x8$,$,x19$,x13$,x14$,$,$,%,$");
  CHECK(mc.fields.size() == 16);
  CHECK(mc.indexed == std::vector<int>{1, 8, 10, 11, 12});
  CHECK(mc.fields[9].keyWidth == 19);
  CHECK(mc.fields[5].type == Type::number);

  CHECK(parseFormat("#############").fields.size() == 13);
  CHECK(parseFormat("$,$,$,$,$,$,$,$,").fields.size() == 8);
  CHECK(parseFormat("X30$A61%&").fields.size() == 3);
  CHECK(parseFormat("X30$A61%&").fields[1].count == 61);
  for (const char* wrong :
       {"", ",", "$,,$", "x$", "x0$", "x8#", "A$", "A-1$", "A99999999999$", "$?", "x8", "A5"})
    CHECK_THROWS_AS(parseFormat(wrong), std::invalid_argument);
}

TEST_CASE("every record comes back as it was packed") {
  std::mt19937 random(7);
  for (const char* text : {"$$$", "&,$", "A501$,A501#,$,$,$", "x30$,$,#,%,&,A61%,A3&"}) {
    const Format format = parseFormat(text);
    for (int i = 0; i < 50; ++i) {
      const std::vector<Value> values = sampleOf(format, random);
      CHECK(unpack(format, pack(format, values)) == values);
    }
  }
}

TEST_CASE("an array costs what stands up to its last used element") {
  const Format format = parseFormat("A401$");
  std::vector<Value> values = unpack(format, {});
  CHECK(pack(format, values).size() == 1);
  std::get<std::vector<std::string>>(values[0])[2] = "ab";
  CHECK(pack(format, values) == std::string("\x03\0\0\x02"
                                            "ab",
                                            6));
}

TEST_CASE("values of another format are refused") {
  CHECK_THROWS_AS(pack(parseFormat("$,#"), {Value("a")}), std::invalid_argument);
  CHECK_THROWS_AS(pack(parseFormat("#"), {Value("a")}), std::invalid_argument);
  CHECK_THROWS_AS(pack(parseFormat("A1$"), {Value(std::vector<std::string>{"a", "b"})}),
                  std::invalid_argument);
}

TEST_CASE("an index key is cut by characters") {
  const Format format = parseFormat("%,x4$,A2#,X2$");
  std::vector<std::string> keys;
  const std::string record = pack(format, {std::int16_t{-3}, "perchè", std::vector<double>{1, 2}, "è"});
  REQUIRE(indexKeys(format, record, keys));
  CHECK(keys == std::vector<std::string>{"perc", "è"});
  CHECK_FALSE(indexKeys(format, record + '\0', keys));
  CHECK_FALSE(indexKeys(format, record.substr(0, record.size() - 1), keys));
}

TEST_CASE("hostile bytes give empty values, never a crash") {
  std::mt19937 random(11);
  const Format format = parseFormat("x8$,#,A401$,A51#,%,&,x30$");
  const std::string whole = pack(format, sampleOf(format, random));
  std::vector<std::string> keys;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    CHECK_FALSE(indexKeys(format, whole.substr(0, i), keys));
    CHECK(unpack(format, whole.substr(0, i)).size() == format.fields.size());
  }
  for (int i = 0; i < 5000; ++i) {
    std::string bytes = whole;
    for (unsigned changes = 1 + random() % 8; changes; --changes)
      bytes[random() % bytes.size()] = static_cast<char>(random());
    unpack(format, bytes);
    indexKeys(format, bytes, keys);
  }
  Decoder endless("\xff\xff\xff\xff\xff\xff\xff");
  CHECK(endless.text().empty());
  CHECK(endless.failed());
  CHECK(endless.number() == 0);
}
