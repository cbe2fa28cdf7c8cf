// The card beyond what its scenarios tell.
#include <doctest/doctest.h>

#include <cmath>

#include "archives/cpag.h"
#include "chart/company.h"
#include "parties/forms.h"
#include "session/station.h"

using namespace tarvex;

namespace {

struct AtCard {
  explicit AtCard(test::Company& company) : books(company), form(makeRcliente(books.session)), hands(*form) {
    hands.user.begin();
  }
  const rec::pc& save() {
    hands.press("Registra");
    return books.voice(common::zeroFill(books.counter(), 5));
  }
  ui::Choice& combo(const std::string& name) {
    return dynamic_cast<ui::Choice&>(*ui::find(*form, name).control);
  }

  test::Company& books;
  std::unique_ptr<ui::Form> form;
  Hands hands;
};

}  // namespace

TEST_CASE("the three VAT flags exclude each other and open their lists") {
  test::Company books;
  AtCard at(books);
  const auto state = [&] {
    std::string on;
    for (const char* name : {"Check1", "Check2", "Check3"})
      on += dynamic_cast<ui::Check&>(*ui::find(*at.form, name).control).on() ? 'x' : '-';
    return on + (at.combo("codiceesente").enabled() ? " e" : "") +
           (at.combo("codiceridotta").enabled() ? " r" : "");
  };
  CHECK(state() == "---");
  at.hands.check("Esente iva", true);
  at.hands.pick("codiceesente", "F2");
  CHECK(state() == "x-- e");
  at.hands.check("Iva ridotta", true);
  CHECK(state() == "--x r");
  CHECK(at.combo("codiceesente").index() == -1);
  at.hands.check("Sospensione iva", true);
  CHECK(state() == "-x-");
  at.hands.check("Sospensione iva", false);
  CHECK(state() == "---");
  CHECK(at.combo("codiceesente").items().front() == "E10");
  CHECK(at.combo("codiceridotta").items() ==
        std::vector<std::string>{"22", "10", "5", "4", "22I", "10I", "4I"});
}

TEST_CASE("the lists follow their archives on a double click and keep what was chosen") {
  test::Company books;
  books.add("ag", "Bruni");
  AtCard at(books);
  at.hands.pick("agente1", "Bruni");
  at.hands.pick("Condizioni di pagamento", "Contrassegno");
  books.add("ag", "Alba");
  {
    OpenArchive<rec::cpag> cpag(books.session, 1, 2);
    cpag->A.descrizione = "Alla consegna";
    cpag->put("0000", store::Put::add);
  }
  for (const char* name : {"agente1", "pagamento"}) at.hands.user.doubleClick(at.combo(name));
  CHECK(at.combo("agente1").items() == std::vector<std::string>{"Alba", "Bruni"});
  CHECK(at.combo("agente1").text() == "Bruni");
  CHECK(at.combo("pagamento").items().front() == "Alla consegna");  // in key order
  CHECK(at.combo("pagamento").text() == "Contrassegno");
  CHECK(at.combo("scontocassa").items().size() == 40);
  CHECK(at.combo("scontocassa").items().back() == "20");
}

TEST_CASE("any bytes in any field leave a record that fits") {
  for (const std::string& text : {std::string(20'000, '9'), std::string("\x01\x02\t\r\n\xFF\xFE\xC3("),
                                  std::string("1e400"), std::string("-999999999999999999999,99")}) {
    test::Company books;
    AtCard at(books);
    for (ui::Control* control : at.form->controls()) {
      if (auto* memo = dynamic_cast<ui::Memo*>(control)) at.hands.user.set(*memo, text);
      auto* field = dynamic_cast<ui::Field*>(control);
      if (!field) continue;
      at.hands.user.set(*field, text);
      if (!at.hands.go("CAP")) at.hands.user.set(*field, "");
    }
    if (text[0] == '9') {
      const std::string huge(10'000'000, '9');
      at.hands.set("Fido", huge);
      at.hands.set("Nominativo", huge);
      at.hands.user.set(at.hands.at<ui::Memo>("note"), huge);
    }
    at.hands.set("Ragione sociale", "Rossi");
    const rec::pc& c = at.save();
    for (const double value : {c.saldo, c.fido, c.fatturatoprec, c.provvigione1})
      CHECK(std::abs(value) < 1e15);
    CHECK(common::length(c.indirizzo) <= 40);
    CHECK(c.note.size() < 300'000);
    CHECK(common::isUtf8(c.note + c.indirizzo + c.destcitta[1]));
    CHECK(c.chiavetipo == "cRossi");
  }
}

TEST_CASE(
    "a screen that another one waits for hands back the name registered, and none when it is given up") {
  const test::Scratch scratch;
  test::Station station(scratch.path());
  REQUIRE(station.start(test::found(station.desk, "ROSSI SRL", "2003")));
  Session& session = station.session;
  struct Step {
    const char *unit, *mode, *tipo;
  };
  for (const Step& step : {Step{"RCLIENT3", "", "c"}, {"RFORN3", "", "f"}, {"RFORN3", "agente", "ag"}}) {
    CAPTURE(step.tipo);
    const std::string name = std::string("Nuovo ") + step.tipo;
    session.LastRegisteredName.clear();
    station.desk.modal[step.unit] = [&](ui::Form& form) { Hands(form).press("annulla"); };
    session.run(step.unit, step.mode);
    CHECK(session.LastRegisteredName.empty());
    station.desk.modal[step.unit] = [&](ui::Form& form) {
      Hands hands(form);
      hands.set("text1", " " + name + " ");
      hands.press("registra");
      CHECK(!form.isOpen());
    };
    session.run(step.unit, step.mode);
    CHECK(session.LastRegisteredName == name);
    REQUIRE(session.pc.search(1, name) == store::kOk);
    CHECK(session.pc.B.tipo == step.tipo);
  }
  CHECK(station.desk.boxes.empty());
}
