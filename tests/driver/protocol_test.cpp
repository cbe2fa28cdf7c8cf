#include <doctest/doctest.h>

#include "driver/play.h"
#include "driver/sample_forms.h"
#include "driver/words.h"
#include "tools/scratch.h"

using driver::readWords;
using test::playSamples;
using Texts = std::vector<std::string>;

TEST_CASE("a line is read as words") {
  CHECK(readWords("").words.empty());
  CHECK(readWords(" \t\r").words.empty());
  CHECK(readWords("  # set a b").words.empty());
  CHECK(readWords("set  text5\t12\r").words == Texts{"set", "text5", "12"});
  CHECK(readWords(R"(set "N. doc." "a \"b\" \u00e8\n")").words == Texts{"set", "N. doc.", "a \"b\" è\n"});
  CHECK(readWords(R"(set a "")").words == Texts{"set", "a", ""});
  CHECK(readWords(R"(set a#1 b"c #d)").words == Texts{"set", "a#1", "b\"c", "#d"});
  CHECK(readWords(R"(set a "\ud83d\ude00")").words.at(2) == "😀");

  const auto put = readWords(R"(put mc 1 {"a": [1, "x y"]} )", 3);
  CHECK(put.words == Texts{"put", "mc", "1"});
  CHECK(put.rest == R"({"a": [1, "x y"]} )");

  for (const char* line : {R"(set a "b)", R"(set a "b"c)", R"(set a "b\")", R"(set a "\x")", "set a \"b\tc\"",
                           R"(set a "\ud83d")", "set a \"\xff\"", "\"", "\"\\"})
    CHECK_MESSAGE(!readWords(line).error.empty(), line);
}

TEST_CASE("whole numbers are read whole") {
  CHECK(driver::wholeNumber("-12") == -12);
  for (const char* text : {"", " 1", "1 ", "1.5", "+1", "x", "99999999999", "-"})
    CHECK_MESSAGE(!driver::wholeNumber(text), text);
}

TEST_CASE("the script begins with start, and only there") {
  const test::Scratch scratch;
  auto options = test::optionsFor(scratch.path());
  const auto before = test::run(options, "\n# nothing yet\nforms\nquit\nanswer yes\nnonsense\n");
  REQUIRE(before.answers.size() == 4);
  for (std::size_t i = 0; i < 3; ++i) CHECK(before.answers[i]["error"] == "start comes first");
  CHECK(before.answers[3]["error"] == "no such command");
  CHECK(before.code == 1);
  CHECK(before.lines[0] == R"({"ok":false,"boxes":[],"beeps":0,"focus":{"form":"MDIForm1","control":""},)"
                           R"("error":"start comes first"})");
  CHECK(playSamples("start\n").answers[0]["ok"] == false);
  CHECK(test::run(options, "").code == 0);
}

TEST_CASE("an answer has its members in their order") {
  const auto played = playSamples("open mcfv\npress Chiedi\nreports\n");
  CHECK(played.lines[0] == R"({"ok":true,"boxes":[],"beeps":0,"focus":{"form":"mcfv","control":"text1"}})");
  CHECK(played.lines[1].starts_with(
      R"({"ok":true,"boxes":[{"title":"Attenzione","text":"Annullare ?","icon":)"));
  CHECK(played.lines[2] ==
        R"({"ok":true,"boxes":[],"beeps":0,"focus":{"form":"mcfv","control":"chiedi"},"count":0})");
  CHECK(played.code == 0);
}

TEST_CASE("what is no command is refused, and the script goes on") {
  const auto played = playSamples(
      "Open mcfv\nopen\nopen mcfv agente x\nforms x\nset text1\nset text1 a b\nput mc\n\"\nset \"text1\n"
      "open nonsense\nopen LIQIVA\nopen mcfv agente\nmenu nonsense\ntop mcfv\ntop MDIForm1\nanswer maybe\n"
      "set text1 1\nkey F5\ntype x\nvalue text1\nleave\ntab Dati\nreport\nreport 0\nsheet\npdf 1 "
      "x\n"
      "dump nonsense\nstate mcfv\nquit\nforms\n");
  REQUIRE(played.answers.size() == 29);  // none after quit
  for (std::size_t i = 0; i + 1 < played.answers.size(); ++i) {
    CHECK_MESSAGE(played.answers[i]["ok"] == false, played.lines[i]);
    CHECK_MESSAGE(!played.answers[i]["error"].get<std::string>().empty(), played.lines[i]);
    CHECK_MESSAGE(played.answers[i]["boxes"].empty(), played.lines[i]);
  }
  CHECK(played.answers.back()["ok"] == true);
  CHECK(played.code == 1);
}
