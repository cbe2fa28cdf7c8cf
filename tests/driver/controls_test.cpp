#include <doctest/doctest.h>

#include <map>

#include "driver/sample_forms.h"

using nlohmann::json;
using test::playSamples;

namespace {

// The answers to commands on an open mcfv, the opening left out.
std::vector<json> onForm(const std::string& script) {
  auto answers = playSamples("open mcfv\n" + script).answers;
  answers.erase(answers.begin());
  return answers;
}

std::string textOf(const std::string& script, const std::string& control) {
  return onForm(script + "value \"" + control + "\"\n").back()["control"]["text"];
}

std::string focusAfter(const std::string& script) { return onForm(script).back()["focus"]["control"]; }

}  // namespace

TEST_CASE("state shows the form in full") {
  const auto a = onForm("state\n")[0];
  CHECK(a["form"] == "mcfv");
  CHECK(a["title"] == "Registrazione");
  CHECK(a["modal"] == false);
  std::map<std::string, json> controls;
  for (const auto& control : a["controls"]) controls[control["name"]] = control;
  CHECK(controls["text1"] == json({{"name", "text1"},
                                   {"caption", "Data reg.:"},
                                   {"kind", "field"},
                                   {"text", "__/__/2003"},
                                   {"enabled", true},
                                   {"visible", true}}));
  CHECK(controls["spento"]["enabled"] == false);
  CHECK(controls["nascosto"]["visible"] == false);
  CHECK(controls["totale"]["kind"] == "label");
  CHECK(controls["tipo"]["kind"] == "options");
  CHECK(controls["tipo"]["selected"] == -1);
  CHECK(controls["Combo1"]["kind"] == "combo");
  CHECK(controls["Combo1"]["items"] == json({"CONTANTI", "30 GG"}));
  CHECK(controls["Check1"]["checked"] == false);
  CHECK(controls["copie"]["value"] == 1);
  CHECK(controls["elenco"]["columns"] == json({"Nome", "Città"}));
  CHECK(controls["elenco"]["rows"] == json::array({{"ROSSI", "Ivrea"}, {"BIANCHI", "Asti"}}));
  CHECK(controls["elenco"]["selected"] == -1);
  CHECK(controls["marche"]["selected"] == json::array());
  CHECK(controls["pagine"]["kind"] == "tabs");
  CHECK(controls["pagine"]["selected"] == 0);
  CHECK(controls["note"]["kind"] == "text");
  CHECK(controls["chiedi"]["kind"] == "button");
  CHECK(controls["conto(2)"]["kind"] == "field");
  CHECK(!controls.contains("righe"));

  const auto frame = playSamples("state\nstate MDIForm1\nstate mcfv\n").answers;
  CHECK(frame[0]["form"] == "MDIForm1");
  CHECK(frame[1]["controls"][1]["name"] == "panel(2)");
  CHECK(frame[2]["ok"] == false);
}

TEST_CASE("controls are named by name or caption") {
  CHECK(textOf("set text2 12\n", "text2") == "12");
  CHECK(textOf("set \"n. DOC.\" 12\n", "text2") == "12");
  CHECK(textOf("set \" N. doc.: \" 12\n", "TEXT2") == "12");
  CHECK(textOf("set Via a\nset Via#2 b\n", "via1") == "a");
  CHECK(textOf("set Via a\nset Via#2 b\n", "via2") == "b");
  CHECK(textOf("set sede/via a\nset \"Destinazione/Via\" b\n", "via2") == "b");
  CHECK(textOf("set sconti/maggiorazioni 1234,5\n", "sconto").starts_with("1"));
  CHECK(onForm("set Via#3 x\n")[0]["ok"] == false);
  CHECK(onForm("set sede/Cliente x\n")[0]["ok"] == false);
  CHECK(onForm("set righe x\n")[0]["ok"] == false);
  CHECK(onForm("set \"\" x\n")[0]["ok"] == false);
}

TEST_CASE("rows of a group count through its pages") {
  CHECK(textOf("set conto(1) a\nset conto(4) b\n", "conto(4)") == "b");
  CHECK(textOf("set conto(1) a\nset conto(4) b\n", "conto(1)") == "a");  // the page turns back
  CHECK(focusAfter("set conto(4) b\n") == "conto(4)");
  CHECK(textOf("set Contropartita#2 c\n", "conto(2)") == "c");
  CHECK(onForm("set conto(5) x\n")[0]["ok"] == false);
  CHECK(onForm("set conto(0) x\n")[0]["ok"] == false);
}

TEST_CASE("text is set through the mask and typed with completion") {
  CHECK(textOf("set text1 15/01/2003\n", "text1") == "15/01/2003");
  CHECK(textOf("set cliente ROS\n", "cliente") == "ROS");
  CHECK(textOf("focus cliente\ntype ROS\n", "cliente") == "ROSSI MARIO");
  CHECK(textOf("set cliente ROS\nset cliente \"\"\n", "cliente").empty());
  CHECK(textOf("set segreto abc\n", "segreto") != "abc");
  const auto refused = onForm("set text2 1a2\n")[0];
  CHECK(refused["ok"] == true);
  CHECK(refused["beeps"] == 1);
  CHECK(textOf("set Appunti \"una\\ndue\"\n", "note") == "una\ndue");
  CHECK(focusAfter("focus text1\nleave\n") == "text2");
  CHECK(focusAfter("focus text1\nkey Enter\n") == "text2");
  CHECK(textOf("set cliente AB\nkey Backspace\n", "cliente") != "AB");
  CHECK(onForm("press Annulla\n")[0]["focus"]["form"] == "MDIForm1");
  CHECK(onForm("key Escape\n")[0]["focus"]["form"] == "MDIForm1");
}

TEST_CASE("choices, checks, lists, spins and tabs take their commands") {
  CHECK(textOf("pick \"Fattura immediata\"\n", "tipo").find("immediata") != std::string::npos);
  CHECK(onForm("pick tipo #1\nvalue tipo\n")[1]["control"]["selected"] == 1);
  CHECK(onForm("pick tipo #1\npick tipo\nvalue tipo\n")[2]["control"]["selected"] == -1);
  CHECK(textOf("pick pagamento \"30 gg\"\n", "Combo1") == "30 GG");
  CHECK(textOf("set pagamento CONTANTI\n", "Combo1") == "CONTANTI");
  CHECK(onForm("check Check1 on\nvalue check1\n")[1]["control"]["checked"] == true);
  CHECK(
      onForm("check \"anteprima di stampa\" on\ncheck Check1 off\nvalue check1\n")[2]["control"]["checked"] ==
      false);
  CHECK(onForm("pick elenco BIANCHI\nvalue elenco\n")[1]["control"]["selected"] == 1);
  CHECK(onForm("pick elenco BIANCHI\npick elenco\nvalue elenco\n")[2]["control"]["selected"] == -1);
  CHECK(onForm("pick marche Tre #0\nvalue marche\n")[1]["control"]["selected"] == json({0, 2}));
  CHECK(onForm("open-row elenco #0\nvalue elenco\n")[1]["control"]["selected"] == 0);
  CHECK(onForm("spin copie 4\nvalue copie\n")[1]["control"]["value"] == 4);
  CHECK(onForm("spin copie 40\n")[0]["beeps"] == 1);
  CHECK(onForm("tab note\nvalue pagine\n")[1]["control"]["selected"] == 1);
  CHECK(onForm("focus Appunti\nvalue pagine\n")[1]["control"]["selected"] == 1);
}

TEST_CASE("what a control does not take is an error") {
  for (const char* command : {"set nonsense x",
                              "set chiedi x",
                              "set totale x",
                              "set check1 x",
                              "set spento x",
                              "set nascosto x",
                              "set Combo1 nonsense",
                              "focus totale",
                              "focus spento",
                              "focus nascosto",
                              "press text1",
                              "press nonsense",
                              "check Check1 maybe",
                              "check text1 on",
                              "pick Combo1 nonsense",
                              "pick Combo1 CONTANTI \"30 GG\"",
                              "pick elenco ROSSI BIANCHI",
                              "pick elenco nonsense",
                              "pick elenco #2",
                              "pick elenco #-1",
                              "pick text1 x",
                              "pick \"Fattura immediata\" x",
                              "pick nonsense",
                              "open-row elenco #7",
                              "open-row Combo1 CONTANTI",
                              "cell elenco 1 Nome x",
                              "cell nonsense 1 1 x",
                              "spin copie x",
                              "spin text1 1",
                              "tab nonsense",
                              "key F13",
                              "key x",
                              "value nonsense",
                              "value righe",
                              "state nonsense",
                              "top nonsense"})
    CHECK_MESSAGE(onForm(command + std::string("\n"))[0]["ok"] == false, command);
}

TEST_CASE("a control that takes the focus back stops the command") {
  for (const char* command :
       {"set cliente X", "focus cliente", "press Chiedi", "check Check1 on", "pick Combo1 #0",
        "pick \"Fattura differita\"", "leave", "spin copie 3", "open-row elenco #0", "set conto(4) x",
        "set Appunti x", "pick elenco #1", "tab Note"}) {
    const auto a = onForm("set text2 77\n" + std::string(command) + "\nset text2 1\nstate\n");
    CAPTURE(command);
    CHECK(a[1]["ok"] == true);
    CHECK(a[1]["focus"]["control"] == "text2");
    REQUIRE(a[1]["boxes"].size() == 1);
    CHECK(a[1]["boxes"][0]["text"] == "Fattura già registrata");
    CHECK(a[1]["beeps"] == 1);
    for (const auto& control : a[3]["controls"]) {
      const std::string kind = control["kind"];
      if (kind == "check") CHECK(control["checked"] == false);
      if (kind == "options" || kind == "combo" || control["name"] == "elenco")
        CHECK(control["selected"] == -1);
      if (kind == "tabs") CHECK(control["selected"] == 0);
      if (kind == "spin") CHECK(control["value"] == 1);
      if (control["name"] == "cliente" || kind == "text") CHECK(control["text"] == "");
    }
  }
  CHECK(onForm("set text2 77\npress Annulla\n")[1]["boxes"].empty());
  CHECK(onForm("set text2 77\nclose\n")[1]["boxes"].empty());
}
