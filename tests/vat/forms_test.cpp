#include <doctest/doctest.h>

#include "archives/iv.h"
#include "common/text.h"
#include "session/station.h"
#include "tools/scratch.h"
#include "vat/forms.h"
#include "vat/vat_table.h"

using namespace tarvex;

namespace {

// A station with a company of its own, customers 00060 and 00061.
struct Books {
  test::Scratch directory;
  test::Station station{directory.path()};
  Session& session = station.session;
  FakeDesk& desk = station.desk;

  Books() {
    station.start(test::found(desk, "ALFA S.R.L.", "2003"));
    addCustomer("00060", "ROSSI MARIO");
    addCustomer("00061", "BIANCHI & FIGLI");
    desk.boxes.clear();
    desk.beeps = 0;
  }
  void addCustomer(const char* code, const char* name) {
    session.pc.A = {};
    session.pc.A.ragsoc = name;
    session.pc.A.tipo = "c";
    REQUIRE(session.pc.put(code, store::Put::add) == store::kOk);
  }
  void post(int number, const char* numero, double imponibile, const char* codiva, const char* registro = "1",
            const char* mese = "01", const char* conto = "00060") {
    OpenArchive<rec::iv> iv(session, 1, 2);
    rec::iv& row = iv->A;
    row = {};
    row.mese = mese;
    row.numero = numero;
    row.datadoc = row.datareg = std::string("15/") + mese + "/2003";
    row.conto = conto;
    row.imponibile = imponibile;
    row.codiva = codiva;
    row.aliquota = common::numberText(22);
    row.imposta = imponibile * 22 / 100;
    row.registro = registro;
    row.chiavereg = row.registro + row.numero;
    REQUIRE(iv->put(common::numberText(number), store::Put::add) == store::kOk);
  }
  rec::civa slot(const char* key) {
    REQUIRE(session.civa.search(0, key) == store::kOk);
    return session.civa.B;
  }
  std::string lastMonth(const char* counter) {
    REQUIRE(session.pr.search(0, counter) == store::kOk);
    return session.pr.B.testo;
  }
};

// A form of the folder with the user at it.
struct Open {
  std::unique_ptr<ui::Form> form;
  Hands hands;
  explicit Open(std::unique_ptr<ui::Form> made) : form(std::move(made)), hands(*form) { hands.user.begin(); }
  bool isOn(const std::string& check) { return hands.at<ui::Check>(check).on(); }
};

using Boxes = std::vector<std::string>;

}  // namespace

TEST_CASE("rtiva rewrites the slots, the first and the last, the emptied and the new") {
  Books books;
  {
    Open rtiva(makeRtiva(books.session));
    Hands& hands = rtiva.hands;
    CHECK(hands.text("codice(1)") == "22");
    CHECK(hands.text("aliquota(1)") == "22,00");
    CHECK(rtiva.isOn("indetraibile(5)"));
    CHECK_FALSE(rtiva.isOn("indetraibile(1)"));
    CHECK(hands.text("codice(25)").empty());
    CHECK(hands.text("aliquota(25)").empty());
    for (const char* column : {"codice(2)", "aliquota(2)", "descrizione(2)"}) hands.set(column, "");
    hands.set("aliquota(1)", "22,5");
    hands.check("indetraibile(1)", true);
    hands.set("codice(25)", " ZZ ");
    hands.set("descrizione(25)", "Perché no");
    hands.check("indetraibile(5)", false);
    hands.press("registra");
    CHECK(hands.focus() == "codice(1)");
    CHECK(rtiva.form->isOpen());
  }
  CHECK(books.desk.boxes.empty());
  CHECK(books.slot("0").aliquota == 22.5);
  CHECK(books.slot("0").indetraibile == 100);
  CHECK(books.slot("01").codice.empty());
  CHECK(books.slot("01").aliquota == 0);
  CHECK(books.slot("04").indetraibile == 0);
  CHECK(books.slot("24").codice == "ZZ");
  CHECK(books.slot("24").descrizione == "Perché no");
  CHECK(books.session.civa.search(0, "00") == store::kNotFound);
  CHECK_FALSE(readVatCode(books.session, "10"));
  CHECK_FALSE(readVatCode(books.session, ""));
  CHECK(readVatCode(books.session, "ZZ")->descrizione == "Perché no");

  Open vistiva(makeVistiva(books.session));
  CHECK(vistiva.hands.text("indetraibile(1)") == "X");
  CHECK(vistiva.hands.text("aliquota(1)") == "22,50");
  CHECK(vistiva.hands.text("indetraibile(5)").empty());
  CHECK(vistiva.hands.text("codice(2)").empty());
  CHECK(vistiva.hands.text("aliquota(2)").empty());
  CHECK(vistiva.hands.text("codice(25)") == "ZZ");
}

TEST_CASE("rtiva refuses a code that stands in several rows, whatever the other columns hold") {
  Books books;
  Open rtiva(makeRtiva(books.session));
  rtiva.hands.set("codice(3)", "10");
  rtiva.hands.set("aliquota(3)", "");
  rtiva.hands.set("codice(25)", "10");
  rtiva.hands.set("codice(24)", "22");
  rtiva.hands.set("codice(4)", "");
  rtiva.hands.press("registra");
  CHECK(books.desk.boxes == Boxes{"Errore|Il codice 22 è stato inserito 2 volte"});  // the first of two
  CHECK(books.desk.beeps == 1);
  rtiva.hands.set("codice(24)", "");
  rtiva.hands.press("registra");
  CHECK(books.desk.box() == "Errore|Il codice 10 è stato inserito 3 volte");
  CHECK(books.slot("02").codice == "5");
  CHECK(books.slot("03").codice == "4");
}

TEST_CASE("rtiva leaves alone what another station has registered meanwhile") {
  Books books;
  Open mine(makeRtiva(books.session)), his(makeRtiva(books.session));
  his.hands.set("codice(24)", "U1");
  his.hands.press("registra");
  mine.hands.set("codice(25)", "T1");
  mine.hands.press("registra");
  CHECK(readVatCode(books.session, "U1"));
  CHECK(readVatCode(books.session, "T1"));
}

TEST_CASE("a table that cannot be read is not offered for rewriting") {
  Books books;
  REQUIRE(books.session.civa.close() == store::kOk);
  Open rtiva(makeRtiva(books.session));
  CHECK_FALSE(rtiva.form->isOpen());
  CHECK(books.desk.boxes.size() >= 1);
}

TEST_CASE("a definitive print keeps its month for that register, after the printing") {
  Books books;
  Open striv(makeStriv(books.session));
  striv.hands.pick("registro", "9");
  striv.hands.pick("mese", "Dicembre");
  striv.hands.check("definitiva", true);
  striv.hands.check("anteprima", false);
  striv.hands.set("salto", "3");
  striv.hands.press("ok");
  REQUIRE(books.desk.prints.size() == 1);  // a register with no rows is printed, too
  CHECK(books.desk.nowBusy == 0);
  CHECK(books.desk.prints[0]->textOf(books.desk.prints[0]->pages()[0])[2].empty());
  CHECK(books.lastMonth("regiv9") == "12");
  CHECK(books.lastMonth("regiv1").empty());
  CHECK(striv.hands.text("ultimo") == "Dicembre");
  striv.hands.pick("registro", "1");
  CHECK(striv.hands.text("ultimo").empty());
  striv.hands.pick("registro", "9");
  CHECK(striv.hands.text("ultimo") == "Dicembre");
  striv.hands.user.choose(striv.hands.at<ui::Choice>("registro"), -1);
  striv.hands.user.choose(striv.hands.at<ui::Choice>("mese"), -1);
  CHECK(striv.hands.text("registro") == "1");
  CHECK(striv.hands.text("mese") == "Gennaio");
}

TEST_CASE("what is amiss in a register is told, and it is printed all the same") {
  Books books;
  books.post(1, "00001", 100, "22");
  books.post(2, "00005", 50, "XX");
  books.post(3, "00006", 10, "22", "1", "01", "00099");
  Open striv(makeStriv(books.session));
  striv.hands.press("ok");
  const Boxes& boxes = books.desk.boxes;
  REQUIRE(boxes.size() == 3);
  CHECK(boxes[0].starts_with("Errore durante operazione sugli archivi|"));  // the customer that is gone
  CHECK(boxes[1] ==
        "Attenzione|Il codice iva XX non risulta più registrato nella tabella iva. "
        "Il registro non sarà stampato correttamente.");
  CHECK(boxes[2] == "Tarvex|Salto fattura dal numero:2-4");
  REQUIRE(books.desk.previews.size() == 1);
  CHECK(books.desk.previews[0]->text().find("00006 15/01/2003") != std::string::npos);
}
