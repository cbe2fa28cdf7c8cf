#include <doctest/doctest.h>

#include <cmath>

#include "archives/cpag.h"
#include "chart/company.h"
#include "parties/forms.h"

using namespace tarvex;

namespace {

struct AtCard {
  explicit AtCard(test::Company& company) : books(company), form(makeRCLIENTE(books.session)), hands(*form) {
    hands.user.begin();
  }
  bool save() { return hands.press("Registra"); }
  const rec::pc& saved() { return books.voice(common::zeroFill(books.counter(), 5)); }
  ui::Choice& combo(const std::string& name) {
    return dynamic_cast<ui::Choice&>(*ui::find(*form, name).control);
  }

  test::Company& books;
  std::unique_ptr<ui::Form> form;
  Hands hands;
};

void fillWhole(Hands& hands) {
  hands.set("Ragione sociale", "Rossi & Figli s.n.c.");
  hands.set("text2", "di Rossi Mario");
  hands.set("Anagrafica/Indirizzo", "Via Roma, 1");
  hands.set("CAP", "40121");
  hands.set("Anagrafica/Città", "Bologna");
  hands.set("Prov.", "bo");
  hands.set("Nazione", "Italia");
  hands.set("Partita iva", "12345678903");
  hands.set("Partita iva estero", "IT12345678903");
  hands.set("Codice fiscale", "rssmra70a01a944b");
  hands.set("Tel.", "051 123456");
  hands.set("Fax", "051 654321");
  hands.set("e-mail", "info@rossi.it");
  hands.set("Banca/Banca", "Banca d'Alba");
  hands.set("ABI", "08530");
  hands.set("CAB", "22500");
  hands.pick("Condizioni di pagamento", "Ri.Ba. 60 gg. f.m.");
  hands.pick("Sconto cassa", "2,5");
  hands.check("Esente iva", true);
  hands.pick("Codice", "E10");
  hands.set("Prima percentuale", "10,9");
  hands.set("Seconda percentuale", "-5,5");
  hands.set("Terza percentuale", "");
  hands.check("Automatico", true);
  hands.set("Tipo cliente", " Ingrosso ");
  hands.set("Zona", " Nord ");
  hands.set("Campo libero 1", " uno ");
  hands.set("Campo libero 2", "due ");
  hands.pick("Listino prezzi", "50");
  hands.pick("agente1", "Agente Alba");
  hands.set("Agente 1°/Provvigione", "7,5");
  hands.pick("tipoprovv1", "Legate al cliente");
  hands.set("Agente 2°/Provvigione", "1");
  hands.pick("tipoprovv2", "Legate all'art. di magazzino");
  hands.check("Addebito spese bollo", true);
  hands.set("Data ultima fattura", "31/12/2002");
  hands.set("Fatturato anno prec.", "100.000,5");
  hands.set("Saldo iniziale", "1.234,56");
  hands.set("Fido", "5000");
  hands.user.set(hands.at<ui::Memo>("note"), "Chiuso il lunedì");
  hands.set("Nominativo", "Magazzino");
  hands.set("Destinazioni/Indirizzo", "Via Emilia, 2");
  hands.user.spin(hands.at<ui::Spin>("Destinazione"), 30);
  hands.set("Nominativo", "Cantiere");
  hands.set("Destinazioni/Città", "Imola");
}

std::vector<std::string> texts(const ui::Form& form) {
  std::vector<std::string> filled;
  for (const ui::Control* control : form.controls()) {
    const auto* field = dynamic_cast<const ui::Field*>(control);
    const auto* check = dynamic_cast<const ui::Check*>(control);
    const auto* choice = dynamic_cast<const ui::Choice*>(control);
    const auto* memo = dynamic_cast<const ui::Memo*>(control);
    const bool options = choice && choice->look() == ui::Choice::Look::options;
    if ((field && !field->empty()) || (check && check->on()) || (memo && !memo->empty()) ||
        (choice && choice->index() != (options ? 0 : -1)))
      filled.push_back(control->name());
  }
  return filled;
}

}  // namespace

TEST_CASE("the whole card becomes a record, and the screen is clear for the next one") {
  test::Company books;
  const std::string agent = books.add("ag", "Agente Alba");
  AtCard at(books);
  CHECK(ui::faultsOf(*at.form).empty());
  fillWhole(at.hands);
  REQUIRE(at.save());
  CHECK(books.desk.boxes.empty());

  const rec::pc c = at.saved();
  CHECK(books.session.pc.primaryKey() == "00051");
  CHECK(c.ragsoc == "Rossi & Figli s.n.c.");
  CHECK(c.ragsoc2 == "di Rossi Mario");
  CHECK(c.indirizzo + "|" + c.cap + "|" + c.citta + "|" + c.provincia + "|" + c.nazione ==
        "Via Roma, 1|40121|Bologna|BO|Italia");
  CHECK(c.partitaiva + "|" + c.partitaivaestero + "|" + c.codicefiscale ==
        "12345678903|IT12345678903|RSSMRA70A01A944B");
  CHECK(c.telefono + "|" + c.fax + "|" + c.email == "051 123456|051 654321|info@rossi.it");
  CHECK(c.banca + "|" + c.abi + "|" + c.cab == "Banca d'Alba|08530|22500");
  CHECK(c.pagamento == "Ri.Ba. 60 gg. f.m.");
  CHECK(c.scontocassa == 2.5);
  CHECK(c.codiceiva == "E10");
  CHECK(c.esenteiva == 1);
  CHECK(c.sospensioneiva == 0);
  CHECK(c.ivaridotta == 0);
  CHECK(c.sconto1 == 10);  // cut, not rounded
  CHECK(c.sconto2 == -5);
  CHECK(c.sconto3 == 0);
  CHECK(c.scontoauto == 1);
  CHECK(c.tipocliente + "|" + c.zona + "|" + c.campolibero1 + "|" + c.campolibero2 ==
        "Ingrosso|Nord|uno|due");
  CHECK(c.listino == 50);
  CHECK(c.agente1 == agent);
  CHECK(c.provvigione1 == 7.5);
  CHECK(c.tipoprovv1 == 1);
  CHECK(c.agente2.empty());  // without one the options say their own all the same
  CHECK(c.provvigione2 == 1);
  CHECK(c.tipoprovv2 == 2);
  CHECK(c.addebitobollo == 1);
  CHECK(c.dataultfatt == "20021231");
  CHECK(c.fatturatoprec == 100000.5);
  CHECK(c.saldoiniziale == 1234.56);
  CHECK(c.saldo == 1234.56);
  CHECK(c.fido == 5000);
  CHECK(c.note == "Chiuso il lunedì");
  CHECK(c.destnominativo[0].empty());
  CHECK(c.destnominativo[1] + "|" + c.destindirizzo[1] + "|" + c.destcitta[1] == "Magazzino|Via Emilia, 2|");
  CHECK(c.destnominativo[30] + "|" + c.destindirizzo[30] + "|" + c.destcitta[30] == "Cantiere||Imola");
  CHECK(c.tipo + c.natura + c.mastro + c.conto == "cp0000100005");
  CHECK(c.codice == "000010000500051");
  CHECK(c.chiavetipo == "c" + c.ragsoc);
  CHECK(c.chiavegruppo == "cf" + c.ragsoc);
  CHECK(c.riservato36 + c.fatturato + c.dare + c.avere + c.riservato57 == 0);
  CHECK((c.datanascita + c.provnascita + c.comunenascita).empty());

  CHECK(texts(*at.form).empty());
  CHECK(at.hands.focus() == "text1");
  CHECK(at.hands.at<ui::Tabs>("schede").current() == 0);
  CHECK(at.hands.at<ui::Spin>("Destinazione").value() == 1);
  CHECK_FALSE(at.combo("codiceesente").enabled());

  at.hands.set("Ragione sociale", "Nuda");
  REQUIRE(at.save());
  const rec::pc bare = at.saved();
  rec::pc expected;  // nothing of the card before it
  expected.ragsoc = "Nuda";
  expected.tipo = "c", expected.natura = "p", expected.mastro = "00001", expected.conto = "00005";
  expected.codice = "000010000500052";
  expected.chiavetipo = "cNuda", expected.chiavegruppo = "cfNuda";
  std::string packed, wanted;
  archives::encode(bare, packed);
  archives::encode(expected, wanted);
  CHECK(packed == wanted);
}

TEST_CASE("fields are checked when they are left") {
  test::Company books;
  books.add("c", "Rossi");
  AtCard at(books);
  at.hands.set("Ragione sociale", "Rossi ");
  at.save();
  CHECK(books.desk.box() == "Errore|Già registrato");
  CHECK(at.hands.focus() == "text1");
  at.hands.set("Ragione sociale", "Debiti");  // a voice of any kind
  at.hands.go("CAP");
  CHECK(books.desk.box() == "Errore|Già registrato");
  at.hands.set("Ragione sociale", "rossi");  // another name
  CHECK(at.hands.go("CAP"));

  at.hands.set("Partita iva", "12345678901");
  CHECK_FALSE(at.hands.go("CAP"));
  CHECK(books.desk.box() == "Errore|La partita iva inserita non è corretta");
  CHECK(at.hands.focus() == "text8");
  at.hands.set("Partita iva", "1234567890");
  CHECK_FALSE(at.hands.go("CAP"));
  at.hands.set("Partita iva", "");
  CHECK(at.hands.go("CAP"));
  books.desk.boxes.clear();

  at.hands.set("e-mail", "rossi@.it");
  CHECK(at.hands.go("CAP"));  // told, but not held
  CHECK(books.desk.box() == "Attenzione|L'e-mail non è corretta");

  for (const char* date : {"31/02/2003", "3_/__/2003", "29/02/2020", "01/01/1899", "00/01/2003"}) {
    at.hands.set("Data ultima fattura", date);
    CHECK_FALSE(at.hands.go("CAP"));
    CHECK(books.desk.box() == "Errore|La data inserita non è valida");
  }
  at.hands.set("Data ultima fattura", "");
  CHECK(at.hands.go("CAP"));
  CHECK(books.desk.boxes.empty());
}

TEST_CASE("saving refuses in order, and nothing is drawn or written") {
  test::Company books;
  AtCard at(books);
  at.hands.check("Esente iva", true);
  at.save();
  CHECK(books.desk.box() == "Errore|Non è stata inserita la ragione sociale");
  CHECK(at.hands.focus() == "text1");
  CHECK(at.hands.at<ui::Tabs>("schede").current() == 0);
  at.hands.set("Ragione sociale", "   ");
  at.save();
  CHECK(books.desk.box() == "Errore|Non è stata inserita la ragione sociale");

  at.hands.set("Ragione sociale", "Rossi");
  at.save();
  CHECK(books.desk.box() == "Errore|Non è stato inserito il codice di esenzione iva");
  CHECK(at.hands.focus() == "codiceesente");
  at.hands.check("Iva ridotta", true);
  at.save();
  CHECK(books.desk.box() == "Errore|Non è stato inserito il codice iva ridotta");
  CHECK(at.hands.focus() == "codiceridotta");
  CHECK(books.counter() == 50);
  CHECK(books.desk.beeps == 4);

  at.hands.check("Sospensione iva", true);
  at.save();
  CHECK(at.saved().sospensioneiva == 1);
  CHECK(at.saved().codiceiva.empty());
}

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

  // Codes without a rate for the one, those with a rate for the other.
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
  CHECK(at.combo("listino").items().size() == 51);
}

TEST_CASE("each slot of the destinations keeps its own while the spinner moves") {
  test::Company books;
  AtCard at(books);
  auto& spin = at.hands.at<ui::Spin>("Destinazione");
  at.hands.set("Ragione sociale", "Rossi");
  for (int slot = 1; slot <= 30; ++slot) {
    at.hands.user.spin(spin, slot);
    CHECK(at.hands.text("Nominativo").empty());
    at.hands.set("Nominativo", "Posto " + std::to_string(slot));
  }
  CHECK(at.hands.text("contatore") == "30");
  at.hands.user.spin(spin, 31);
  CHECK(books.desk.beeps == 1);
  at.hands.user.spin(spin, 7);
  CHECK(at.hands.text("Nominativo") == "Posto 7");
  CHECK(at.hands.text("contatore") == "7");
  at.save();
  CHECK(at.saved().destnominativo[7] == "Posto 7");
  CHECK(at.saved().destnominativo[30] == "Posto 30");
}

TEST_CASE("any bytes in any field leave a record that fits") {
  for (const std::string& text : {std::string(20'000, '9'), std::string("\x01\x02\t\r\n\xFF\xFE\xC3("),
                                  std::string("1e400"), std::string("-999999999999999999999,99")}) {
    test::Company books;
    AtCard at(books);
    for (ui::Control* control : at.form->controls()) {
      if (auto* memo = dynamic_cast<ui::Memo*>(control)) at.hands.user.set(*memo, text);
      auto* field = dynamic_cast<ui::Field*>(control);
      if (!field || field->name() == "text8") continue;
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
    CHECK(at.save());
    const rec::pc& c = at.saved();
    for (const double value : {c.saldo, c.fido, c.fatturatoprec, c.provvigione1})
      CHECK(std::abs(value) < 1e15);
    CHECK(common::length(c.indirizzo) <= 40);
    CHECK(c.note.size() < 300'000);
    CHECK(common::isUtf8(c.note + c.indirizzo + c.destcitta[1]));
    CHECK(c.chiavetipo == "cRossi");
  }
}
