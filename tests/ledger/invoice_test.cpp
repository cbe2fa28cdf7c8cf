// The form of the documents with VAT (invoice_form) in all its kinds.
#include "ledger/invoice_form.h"

#include <cmath>

#include "ledger/books.h"
#include "ledger/ledger_rules.h"

using namespace tarvex;
using test::At, test::Books;

TEST_CASE("credit notes turn the sides round and change the sign of their VAT rows") {
  struct Side {
    const char *unit, *subject, *subjectCode, *contropartita;
    const char *vat, *causale;
    double sign;  // of the balance of the account
  };
  for (const Side& side :
       {Side{"mcfv", "BIANCHI SNC", "00051", "Servizi", "00012", "fv", 1},
        Side{"mccv", "BIANCHI SNC", "00051", "Servizi", "00012", "cv", -1},
        Side{"MCFA", "FORNITURE VERDI SPA", "00054", "Merci c/acquisti", "00011", "fa", -1},
        Side{"mcca", "FORNITURE VERDI SPA", "00054", "Merci c/acquisti", "00011", "ca", 1},
        Side{"mcco", "Cassa contanti", "00056", "Servizi", "00013", "co", 1}}) {
    CAPTURE(side.unit);
    Books books;
    At at(books, side.unit);
    test::fill(at.hands, {{"text1", "15/01/2003"},
                          {"text2", "7"},
                          {"text5", side.subject},
                          {"text6", "112,00"},
                          {"controp(1)", side.contropartita},
                          {"imponibile(1)", "150,00"},
                          {"codiva(1)", "22"},
                          {"controp(2)", "Merci c/vendite"},
                          {"imponibile(2)", "-50,00"},
                          {"codiva(2)", "22"},
                          {"importoiva(2)", "-21,00"}});
    if (at.form->name()[0] == 'M' || side.causale == std::string("ca")) at.hands.set("text7", "31");
    at.hands.press("Registra");
    CHECK(books.desk().boxes.empty());
    const auto mc = books.all<rec::mc>();
    REQUIRE(mc.size() == 4);
    CHECK(mc[0].causale == side.causale);
    CHECK(mc[0].numdoc == "000007");
    CHECK(books.saldo(side.subjectCode) == 112 * side.sign);
    CHECK(books.saldo("00052") == 50 * side.sign);
    CHECK(books.saldo(side.vat) == -12 * side.sign);
    for (const rec::mc& line : mc) CHECK((line.dare == 0) != (line.avere == 0));
    for (const rec::mc& line : mc) CHECK(line.dare + line.avere > 0);
    const double rows = side.causale[0] == 'c' && side.causale[1] != 'o' ? -1 : 1;
    const auto iv = books.all<rec::iv>();
    const auto ia = books.all<rec::ia>();
    const auto ic = books.all<rec::ic>();
    REQUIRE(iv.size() + ia.size() + ic.size() == 2);
    if (!iv.empty()) CHECK(iv[0].imponibile == 150 * rows);
    if (!ia.empty()) {
      CHECK(ia[1].imposta == -21 * rows);
      CHECK(ia[0].chiavereg == "100031");
      CHECK(ia[0].numero == "000007");
      CHECK(mc[3].protocollo == "00031");
      CHECK(books.counter("prot1") == 31);
    }
    if (!ic.empty()) {
      CHECK(ic[0].datareg == "20030115");
      CHECK(ic[0].chiavereg == "100007");
      CHECK(books.counter("co1") == 7);
    }
    CHECK(books.all<rec::tt>()[1].testo == "-50,00");
    books.checkWhole();
  }
}

TEST_CASE("a purchase invoice of one row takes 13 keys beside its texts and digits") {
  Books books;
  books.session().param.completamento = 1;
  At at(books, "MCFA");
  int keys = 0;
  const auto field = [&](const char* text) {
    at.hands.user.type(text);
    at.hands.user.key(ui::Key::enter);
    ++keys;
  };
  for (const char* text : {"1501", "77", "", "", "", "FORN", "", "122", "Merci c/a", "100", "22"})
    field(text);
  CHECK(at.hands.focus() == "importoiva(1)");
  at.hands.user.alt("R");
  keys += 2;
  CHECK(keys == 13);
  CHECK(books.desk().boxes.empty());
  const auto ia = books.all<rec::ia>();
  REQUIRE(ia.size() == 1);
  CHECK(ia[0].numero == "000077");
  CHECK(ia[0].protocollo == "00001");
  CHECK(ia[0].imposta == 22);
  books.checkWhole();
}

TEST_CASE("amounts in Lire balance in Euro whatever they are") {
  // Every split of 10.000 Lire into three rows of 22 %: no cent is lost or made.
  for (int first = 1; first < 10'000; first += 37) {
    InvoiceDocument document;
    const double second = 1936.27 / 2;
    for (const double base : {first * 1.0, second, 10'000 - first - second}) {
      InvoiceRow row;
      row.contropartita = "00055";
      row.imponibile = base;
      row.imposta = std::floor(base * 0.22);
      document.rows.push_back(row);
    }
    for (const InvoiceRow& row : document.rows) document.importo += row.imponibile + row.imposta;
    REQUIRE(imbalance(document) == 0);
    convertFromLire(document, 1936.27);
    CHECK(imbalance(document) == 0);
    CHECK(document.importo >= 5.16);
  }
}
