#include "ui/lookup.h"

#include <doctest/doctest.h>

#include <string>

#include "ui/caption.h"
#include "ui/fake_desk.h"

using namespace ui;

namespace {

struct Card : Form {
  explicit Card(Desk& desk) : Form(desk, "scheda", "Scheda") {}
  Layout layout() const override {
    return column({tabs(schede, {column({group("Sede", {row({indirizzo, citta})}), group("Posta", {posta})}),
                                 column({destinazione, griglia})}),
                   row({documento, natura, elenco, segreto, text1}), buttons({registra, barra})});
  }
  Tabs schede{*this, "schede", {"&Anagrafica", "Destinazioni"}};
  Field indirizzo{*this, "indirizzo", "&Indirizzo:", Mask::text(30)};
  Field citta{*this, "citta", "Città", Mask::text(30)};
  Field posta{*this, "indirizzoposta", "Indirizzo:", Mask::text(30)};
  Field destinazione{*this, "destindirizzo", "Indirizzo", Mask::text(30)};
  Grid griglia{*this, "griglia", 3, 10};
  GridColumn conto{griglia, "conto", "Conto", Mask::text(9)};
  Choice documento{*this, "documento", "Documento", Choice::Look::options, {"&Fattura immediata", "&Bolla"}};
  Choice natura{*this, "natura", "", Choice::Look::options, {"Patrimoniale", "Economico", "Bolla"}};
  List elenco{*this, "elenco", "", {{"Nome", 10}, {"Codice", 5}}};
  Field segreto{*this, "segreto", "Totale", Mask::text(5)};
  Label text1{*this, "Text1", "Totale"};
  Button registra{*this, "registra", " &Registra : "};
  Button barra{*this, "barra", "Sede/Indirizzo #2"};
};

struct At {
  FakeDesk desk;
  Card form{desk};
  std::string name(std::string_view called) {
    const Found found = find(form, called);
    if (!found.control) return "";
    return found.control->name() + (found.option >= 0 ? ":" + std::to_string(found.option) : "");
  }
};

}  // namespace

TEST_CASE("controls by name and by caption") {
  At at;
  CHECK(at.name("text1") == "Text1");
  CHECK(at.name("REGISTRA") == "registra");
  CHECK(at.name("&registra") == "registra");
  CHECK(at.name("CITTÀ:") == "citta");
  CHECK(at.name("indirizzo") == "indirizzo");  // a name goes before a caption
  CHECK(at.name("Indirizzo#2") == "indirizzoposta");
  CHECK(at.name("Indirizzo#3") == "destindirizzo");
  CHECK(at.name("Indirizzo#4") == "");
  CHECK(at.name("Indirizzo#0") == "");
  CHECK(at.name("posta/indirizzo") == "indirizzoposta");
  CHECK(at.name("Anagrafica/Indirizzo#2") == "indirizzoposta");
  CHECK(at.name("destinazioni/indirizzo") == "destindirizzo");
  CHECK(at.name("Banca/Indirizzo") == "");
  CHECK(at.name("Sede/Indirizzo #2") == "barra");  // tried whole first
  CHECK(at.name("Totale") == "segreto");
  at.form.segreto.setVisible(false);
  CHECK(at.name("Totale") == "Text1");  // the first visible one
  for (const char* nobody : {"", " ", "&", ":", "#1", "/", "boh", "conto(", "conto()"})
    CHECK(at.name(nobody) == "");
}

TEST_CASE("of equal captions the one on the shown page is meant") {
  At at;
  at.form.indirizzo.setCaption("Via");
  CHECK(at.name("Via") == "indirizzo");
  struct Two : Form {
    explicit Two(Desk& d) : Form(d, "due", "") {}
    Layout layout() const override { return tabs(schede, {a, b}); }
    Tabs schede{*this, "schede", {"A", "B"}};
    Field a{*this, "a", "Via", Mask::text(5)};
    Field b{*this, "b", "Via", Mask::text(5)};
  } form(at.desk);
  CHECK(find(form, "via").control == &form.a);
  form.schede.select(1);
  CHECK(find(form, "via").control == &form.b);
}

TEST_CASE("the arrows never let go of an option") {
  At at;
  Card& form = at.form;
  User user(form);
  user.begin();
  CHECK(user.choose(form.documento, 0));
  CHECK_FALSE(user.key(Key::up));
  CHECK(form.documento.index() == 0);
  CHECK(user.key(Key::down));
  CHECK_FALSE(user.key(Key::down));
  CHECK(form.documento.index() == 1);
}

TEST_CASE("options, cells, pages, items and rows") {
  At at;
  CHECK(at.name("fattura immediata") == "documento:0");
  CHECK(at.name("Bolla") == "documento:1");
  CHECK(at.name("Bolla#2") == "natura:2");
  CHECK(at.name("natura") == "natura");
  CHECK(at.name("Documento/Bolla") == "documento:1");
  CHECK(at.name("conto(2)") == "conto(2)");
  CHECK(at.name("Conto#3") == "conto(3)");
  const Found far = find(at.form, "CONTO(21)");
  CHECK(far.column == &at.form.conto);
  CHECK(far.line == 21);
  CHECK(far.onOtherPage());
  CHECK(User(at.form).goToLine(*far.column, far.line));
  CHECK(far.control->name() == "conto(21)");
  CHECK_FALSE(find(at.form, "conto(21)").onOtherPage());
  CHECK(at.name("conto(31)") == "");
  CHECK(at.name("conto(0)") == "");
  CHECK(findPage(at.form, "anagrafica").page == 0);
  CHECK(findPage(at.form, "Destinazioni").page == 1);
  CHECK_FALSE(findPage(at.form, "Banca").tabs);

  CHECK(itemOf(at.form.documento, "fattura immediata") == 0);
  CHECK(itemOf(at.form.documento, "#1") == 1);
  CHECK(itemOf(at.form.documento, "#2") == -1);
  CHECK(itemOf(at.form.documento, "#-1") == -1);
  at.form.elenco.setRows({{"ROSSI", "1"}, {"1", "BIANCHI"}, {"VERDI", "3"}});
  CHECK(rowOf(at.form.elenco, "rossi") == 0);
  CHECK(rowOf(at.form.elenco, "1") == 1);  // the first column before the others
  CHECK(rowOf(at.form.elenco, "3") == 2);
  CHECK(rowOf(at.form.elenco, "VERDI 3") == 2);
  CHECK(rowOf(at.form.elenco, "#0") == 0);
  CHECK(rowOf(at.form.elenco, "#3") == -1);
}

TEST_CASE("captions and mnemonics") {
  CHECK(mnemonicOf("No&ta credito") == "T");
  CHECK(mnemonicOf("A && &B") == "B");
  CHECK(mnemonicOf("&è") == "È");
  CHECK(mnemonicOf("fine&") == "");
  CHECK(plainCaption("Rossi && C.") == "Rossi & C.");
  CHECK(foldedCaption(" &N. doc.: ") == "N. DOC.");
}

TEST_CASE("the faults of a form") {
  At at;
  CHECK(faultsOf(at.form) == std::vector<std::string>());
  struct Faulty : Form {
    explicit Faulty(Desk& d) : Form(d, "guasta", "") {}
    Layout layout() const override { return column({a, a}); }
    Field a{*this, "campo", "&Uno", Mask::text(1)};
    Field b{*this, "Campo", "&uno", Mask::text(1)};
  } form(at.desk);
  const auto faults = faultsOf(form);
  REQUIRE(faults.size() == 4);
  CHECK(faults[0] == "guasta: campo is placed 2 times");
  CHECK(faults[3] == "guasta: campo and Campo share Alt+U");

  struct Plain : Form {  // the layout that nobody wrote
    explicit Plain(Desk& d) : Form(d, "piana", "") {}
    Field a{*this, "a", "&A", Mask::text(1)};
    Grid g{*this, "g", 2};
    GridColumn c{g, "c", "C", Mask::text(1)};
    Memo m{*this, "m", "M"};
    Button ok{*this, "ok", "&OK"};
  } plain(at.desk);
  CHECK(faultsOf(plain) == std::vector<std::string>());
}
