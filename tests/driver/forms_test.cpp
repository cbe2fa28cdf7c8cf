#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "driver/sample_forms.h"
#include "tools/scratch.h"

using nlohmann::json;
using test::playSamples;

namespace {

json boxTexts(const json& answer) {
  json texts = json::array();
  for (const auto& box : answer["boxes"]) texts.push_back(box["text"]);
  return texts;
}

json answersGiven(const json& answer) {
  json given = json::array();
  for (const auto& box : answer["boxes"]) given.push_back(box["answer"]);
  return given;
}

}  // namespace

TEST_CASE("forms stand beside each other, the last one in front") {
  const auto a =
      playSamples(
          "forms\nopen mcfv\nopen RCLIENTE\nforms\ntop mcfv\nforms\nopen RCLIENTE\nforms\nmenu mbb2\n"
          "forms\npress Annulla\nforms\nanswer yes\nclose\nforms\nclose\n")
          .answers;
  CHECK(a[0]["forms"] == json({"MDIForm1"}));
  CHECK(a[3]["forms"] == json({"MDIForm1", "mcfv", "RCLIENTE"}));
  CHECK(a[5]["forms"] == json({"MDIForm1", "RCLIENTE", "mcfv"}));
  CHECK(a[7]["forms"] == json({"MDIForm1", "mcfv", "RCLIENTE"}));
  CHECK(a[9]["forms"] == json({"MDIForm1", "RCLIENTE", "mcfv"}));
  CHECK(a[10]["focus"] == json({{"form", "RCLIENTE"}, {"control", "nome"}}));
  CHECK(a[11]["forms"] == json({"MDIForm1", "RCLIENTE"}));
  CHECK(a[13]["focus"] == json({{"form", "MDIForm1"}, {"control", ""}}));
  CHECK(a.size() == 16);  // close with the frame alone was the end
}

TEST_CASE("boxes take the queued answers, or their default button") {
  SUBCASE("queued") {
    const auto a = playSamples(
                       "open mcfv\nanswer yes\nanswer cancel\nanswer cancel\nanswer no\npress Chiedi\n"
                       "press Chiedi\n")
                       .answers;
    CHECK(answersGiven(a[5]) == json({"yes", "cancel", "cancel"}));
    CHECK(a[5]["boxes"][0] == json({{"title", "Attenzione"},
                                    {"text", "Annullare ?"},
                                    {"icon", a[5]["boxes"][0]["icon"]},
                                    {"buttons", {"yes", "no"}},
                                    {"answer", "yes"}}));
    CHECK(a[5]["boxes"][1]["icon"] == "question");
    CHECK(a[5]["boxes"][1]["buttons"] == json({"yes", "no", "cancel"}));
    CHECK(a[5]["boxes"][2]["buttons"] == json({"ok", "cancel"}));
    CHECK(a[5]["beeps"] == 1);
    CHECK(answersGiven(a[6]) == json({"no", "yes", "ok"}));  // the one left over, then defaults
    CHECK(!a[6]["boxes"][0].contains("unanswered"));
    CHECK(a[6]["boxes"][1]["unanswered"] == true);
  }
  SUBCASE("nothing queued, or emptied") {
    const auto a = playSamples("open mcfv\nanswer yes\nanswer\npress Chiedi\n").answers;
    CHECK(answersGiven(a[3]) == json({"no", "yes", "ok"}));
    for (const auto& box : a[3]["boxes"]) CHECK(box["unanswered"] == true);
  }
  SUBCASE("an answer without a button is used up") {
    const auto a = playSamples("open mcfv\nanswer cancel\nanswer no\npress Chiedi\n").answers;
    CHECK(answersGiven(a[3]) == json({"no", "no", "ok"}));
    CHECK(a[3]["boxes"][0]["unanswered"] == true);
    CHECK(!a[3]["boxes"][1].contains("unanswered"));
  }
  SUBCASE("a box that does not ask leaves the queue alone") {
    const auto a =
        playSamples("open mcfv\nanswer yes\nset text2 77\nleave\npress Errore\nset text2 1\npress Chiedi\n")
            .answers;
    CHECK(a[3]["boxes"][0]["answer"] == "ok");
    CHECK(!a[3]["boxes"][0].contains("unanswered"));
    CHECK(a[6]["boxes"][0]["answer"] == "yes");
  }
}

TEST_CASE(
    "a modal form answers the command that opened it; what follows it belongs to the one that closed it") {
  const auto a =
      playSamples(
          "open mcfv\npress Apri\nforms\nstate\nopen RCLIENTE\ntop mcfv\nmenu mbb2\npress Ancora\nforms\n"
          "answer no\nclose\nanswer yes\nclose\npress Fine\nforms\n")
          .answers;
  CHECK(a[1]["focus"]["form"] == "RPC");
  CHECK(a[1]["beeps"] == 0);
  CHECK(a[2]["forms"] == json({"MDIForm1", "mcfv", "RPC"}));
  CHECK(a[3]["modal"] == true);
  for (const int refused : {4, 5, 6}) CHECK(a[static_cast<std::size_t>(refused)]["ok"] == false);
  CHECK(a[7]["ok"] == true);
  CHECK(a[8]["forms"] == json({"MDIForm1", "mcfv", "RPC", "RCLIENTE"}));
  CHECK(a[10]["focus"]["form"] == "RCLIENTE");  // its closing box was refused
  CHECK(answersGiven(a[10]) == json({"no"}));
  CHECK(a[12]["focus"]["form"] == "RPC");
  CHECK(boxTexts(a[13]) == json({"chiusa"}));
  CHECK(a[13]["beeps"] == 1);
  CHECK(a[14]["forms"] == json({"MDIForm1", "mcfv"}));
}

TEST_CASE("quit closes modal forms from the innermost, then asks") {
  const auto played = playSamples(
      "open mcfv\npress Apri\npress Ancora\nanswer yes\nanswer no\nquit\nforms\nanswer yes\nquit\nforms\n");
  const auto& a = played.answers;
  REQUIRE(a.size() == 9);
  REQUIRE(a[5]["boxes"].size() == 2);
  CHECK(a[5]["boxes"][0]["text"] == "Chiudere ?");
  CHECK(a[5]["boxes"][1]["text"] == "Le finestre non risultano tutte chiuse. Terminare Tarvex");
  CHECK(a[5]["beeps"] == 1);
  CHECK(a[6]["forms"] == json({"MDIForm1", "mcfv"}));
  CHECK(a[8]["ok"] == true);
  CHECK(played.code == 0);
}

TEST_CASE("a modal form that refuses to close does not outlive the program") {
  const auto quit = playSamples("open mcfv\npress Apri\npress Ancora\nanswer no\nanswer yes\nquit\nforms\n");
  CHECK(quit.answers.size() == 6);
  const auto end = playSamples("open mcfv\npress Apri\npress Ancora\nanswer no\n");
  CHECK(end.answers.size() == 4);
  CHECK(end.code == 0);
}

TEST_CASE("a run-time error ends the operation, not the program") {
  const auto a = playSamples("open mcfv\npress Errore\nforms\n").answers;
  CHECK(a[1]["ok"] == true);
  CHECK(a[1]["boxes"][0]["title"] == "Tarvex");
  CHECK(a[1]["boxes"][0]["text"] == "Divisione per zero");
  CHECK(a[1]["boxes"][0]["icon"] == "critical");
  CHECK(a[2]["forms"] == json({"MDIForm1", "mcfv"}));
}

TEST_CASE("choices of a file take the queued paths") {
  const auto a =
      playSamples(
          "open mcfv\nfile \"/tmp/a b\"\nfile\nfile c\npress Archivio\nvalue totale\npress Archivio\n"
          "value totale\npress Archivio\nvalue totale\npress Archivio\nvalue totale\n")
          .answers;
  CHECK(a[5]["control"]["text"] == "/tmp/a b");
  CHECK(a[7]["control"]["text"] == "(nessuno)");
  CHECK(a[9]["control"]["text"] == "c");
  CHECK(a[11]["control"]["text"] == "(nessuno)");
}

TEST_CASE("prints are kept as their lines") {
  const auto a =
      playSamples("open mcfv\npress Stampa\nreports\nreport 2\nreport\nreport 3\nreport x\n").answers;
  CHECK(a[2]["count"] == 2);
  CHECK(a[3]["title"] == "Registro");
  CHECK(a[3]["device"] == "preview");
  CHECK(a[3]["pages"] == json({{"  prima", "", "terza"}, {"altra pagina"}}));
  CHECK(a[4]["title"] == "Vuoto");
  CHECK(a[4]["device"] == "printer");
  CHECK(a[5]["ok"] == false);
  CHECK(a[6]["ok"] == false);
}

TEST_CASE("PDF files come from the program beside this one") {
  const test::Scratch scratch;
  const std::string program = scratch / "pdf";
  std::ofstream(program) << "#!/bin/sh\nexec 2>/dev/null\ncat >\"$1\"\n";
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  const std::string commands =
      "open mcfv\npress Stampa\npdf 2 \"" + (scratch / "out.pdf") + "\"\npdf 1 /nowhere/x\n";
  CHECK(playSamples(commands).answers[2]["ok"] == false);
  const auto a = playSamples(commands, program).answers;
  CHECK(a[2]["ok"] == true);
  CHECK(a[3]["ok"] == false);
  const json report = json::parse(std::ifstream(scratch / "out.pdf"));
  CHECK(report["title"] == "Registro");
  CHECK(report["pages"][0]["lines"][2]["text"] == "terza");
  CHECK(report["pages"].size() == 2);
}
