#include "common/text.h"

#include <doctest/doctest.h>

using namespace common;

TEST_CASE("widths count characters, not bytes") {
  CHECK(length("Forlì") == 5);
  CHECK(cut("Forlì città", 5) == "Forlì");
  CHECK(right("Forlì", 1) == "ì");
  CHECK(fit("Forlì", 7) == "Forlì  ");
  CHECK(fit("Forlì", 7, Align::right) == "  Forlì");
  CHECK(fit("Città di Castello", 5) == "Città");
  CHECK(zeroFill("12", 5) == "00012");
  CHECK(zeroFill("123456", 5) == "123456");
}

TEST_CASE("upper case knows the accented letters and leaves the rest") {
  CHECK(upper("perché no? ÷ €") == "PERCHÉ NO? ÷ €");
  CHECK(lower("PERCHÉ NO? × €") == "perché no? × €");
  CHECK(trim("  a b  ") == "a b");
  CHECK(trim("   ").empty());
}

TEST_CASE("cleaned text is valid UTF-8 without control characters") {
  CHECK(cleaned("a\tb\x01") == "a b ");
  CHECK(cleaned("a\nb\x01", true) == "a\nb ");
  CHECK(cleaned("caffè\xFF") == "caffè\xEF\xBF\xBD");
  CHECK(cleaned("\xC0\xAF") == "\xEF\xBF\xBD\xEF\xBF\xBD");          // overlong
  CHECK(cleaned("\xED\xA0\x80").find('\xED') == std::string::npos);  // a surrogate
  CHECK(cleaned(std::string("\xE2\x82", 2)) == "\xEF\xBF\xBD\xEF\xBF\xBD");
  CHECK(cleaned("\xC2\x85") == " ");
}

TEST_CASE("numbers as stored text have a blank where a minus could stand") {
  CHECK(numberText(22) == " 22");
  CHECK(numberText(-3) == "-3");
  CHECK(numberText(10.5) == " 10.5");
  CHECK(numberText(-0.0) == " 0");
  CHECK(numberValue(" 22") == 22);
  CHECK(numberValue("12abc") == 12);
  CHECK(numberValue("abc") == 0);
}
