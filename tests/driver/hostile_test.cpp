// Lines that no person types: each is answered by one JSON object, and the script goes on.
#include <doctest/doctest.h>

#include "driver/sample_forms.h"

using test::playSamples;

namespace {

void answersEach(const std::vector<std::string>& commands) {
  std::string script = "open mcfv\n";
  for (const auto& command : commands) script += command + "\n";
  const auto played = playSamples(script + "forms\n");
  REQUIRE(played.answers.size() == commands.size() + 2);
  for (const auto& answer : played.answers) CHECK(answer.is_object());
  CHECK(played.answers.back()["ok"] == true);
}

}  // namespace

TEST_CASE("lines of ten megabytes") {
  const std::string long10(10 << 20, 'x');
  std::string zeros(10 << 20, '0');
  answersEach({long10, "set cliente \"" + long10 + "\"", "set Appunti " + long10, "set sconto -" + zeros,
               "pick elenco " + long10, "\"" + long10});
  CHECK(playSamples("open " + long10 + "\n").lines[0].size() < 400);
}

TEST_CASE("bytes that are no text") {
  answersEach({"\xff\xfe", "set cliente \xff\xc3", "set \xf0\x9f x", "set cliente \"\xc3\x28\"",
               "type \xe0\x80\x80", std::string("set cliente a\0b", 15), "set cliente \x01\x1b[2J\x7f",
               "set cliente \"\\u0000\\u0007\"", "set Appunti \"a\\u0000\\u001b\\r\\n\"",
               "press \xed\xa0\x80", "pick elenco \xff", "state \xff", "dump \xff", "open \xff\xff",
               "menu \x01", "tab \xff", "value \xff"});
}

TEST_CASE("numbers and names beyond every range") {
  answersEach({"spin copie 99999999999999999999",
               "spin copie -2147483648",
               "report 99999999999999999999",
               "report -1",
               "pick elenco #99999999999999999999",
               "pick elenco #-2147483648",
               "set conto(99999999999999999999) x",
               "set conto() x",
               "set conto(-1) x",
               "set Via#0 x",
               "set Via#99999999999 x",
               "set # x",
               "set / x",
               "set // x",
               "set \"#1\" x",
               "focus ()",
               "set sconto 9999999999999999999999,99",
               "set text1 99/99/9999",
               "dump mc",
               "dump civa",
               "put civa 00 {",
               "put civa 00 []",
               "put civa 00 " + std::string(200'000, '['),
               "put civa 00 {\"a\":" + std::string(100'000, '[') + std::string(100'000, ']') + "}"});
}
