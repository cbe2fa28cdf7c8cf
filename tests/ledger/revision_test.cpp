// Revision: the form shows the entry, and ends with a new one in its place or with none.
#include "ledger/revision.h"

#include "archives/sf.h"
#include "ledger/books.h"
#include "ledger/removal.h"

using namespace tarvex;
using test::At, test::Books;

namespace {

const test::Fields kInvoice{{"text1", "15/01/2003"},     {"text2", "125"},     {"text5", "BIANCHI SNC"},
                            {"text6", "122,00"},         {"text4", "Vendita"}, {"controp(1)", "Servizi"},
                            {"imponibile(1)", "100,00"}, {"codiva(1)", "22"},  {"importoiva(1)", "22,00"}};

void postInvoice(Books& books) {
  At at(books, "mcfv");
  test::fill(at.hands, kInvoice);
  at.hands.press("Registra");
  REQUIRE(books.desk().boxes.empty());
}

// The supplier pays in one instalment.
void giveTerms(Books& books) {
  auto& pc = books.session().pc;
  REQUIRE(pc.search(0, "00054") == store::kOk);
  pc.A = pc.B;
  pc.A.pagamento = "Bonifico 30 gg. d.f.";
  pc.put("00054", store::Put::rewrite);
}

void postPurchase(Books& books, const char* number, const char* protocol) {
  At at(books, "MCFA");
  test::fill(at.hands, {{"text1", "15/01/2003"},
                        {"text2", number},
                        {"text7", protocol},
                        {"text5", "FORNITURE VERDI SPA"},
                        {"text6", "122,00"},
                        {"controp(1)", "Merci c/acquisti"},
                        {"imponibile(1)", "100,00"},
                        {"codiva(1)", "22"},
                        {"importoiva(1)", "22,00"}});
  at.hands.press("Registra");
  REQUIRE(books.desk().boxes.empty());
}

}  // namespace

TEST_CASE("a revision shows the entry, keeps its number free and puts a new entry in its place") {
  Books books;
  postInvoice(books);
  const auto before = books.contents();
  At at = test::revise(books, "mcfv2", "1");
  for (const auto& [name, text] : kInvoice) CHECK(at.hands.text(name) == text);
  CHECK(at.hands.text("text3") == "15/01/2003");
  CHECK(books.contents() == before);  // nothing is removed before there is something in its place

  at.hands.go("text2");
  at.hands.set("imponibile(1)", "200,00");
  at.hands.set("codiva(1)", "10");
  at.hands.set("text6", "220,00");
  at.hands.press("Registra");
  CHECK(books.desk().boxes.empty());
  CHECK(!at.form->isOpen());
  const auto mc = books.all<rec::mc>();
  REQUIRE(mc.size() == 3);
  CHECK(mc.front().nummov == "4");  // the counter goes on
  CHECK(mc.front().dare == 220);
  CHECK(books.all<rec::iv>().size() == 1);
  CHECK(books.all<rec::iv>().front().imposta == 20);
  CHECK(books.all<rec::tt>().size() == 1);
  CHECK(books.saldo("00051") == 220);
  CHECK(books.saldo("00012") == -20);
  books.checkWhole();
}

TEST_CASE("leaving a revision asks, and removes the entry only on a yes") {
  Books books;
  const auto empty = books.contents();
  postInvoice(books);
  const auto posted = books.contents();
  At at = test::revise(books, "mcfv2", "1");
  books.desk().answers = {ui::Answer::no, ui::Answer::no};
  at.hands.press("Annulla");
  CHECK(!at.hands.user.close());
  CHECK(at.form->isOpen());
  CHECK(books.contents() == posted);
  books.desk().answers = {ui::Answer::yes};
  at.hands.press("Annulla");
  CHECK(!at.form->isOpen());
  auto after = books.contents();
  CHECK(after["mc"].empty());
  CHECK(after["iv"].empty());
  CHECK(after["tt"].empty());
  CHECK(after["pc"] == empty.at("pc"));
  books.checkWhole();

  // Opened without an entry it registers like the original, and leaves like it.
  At plain(books, "mcfv2");
  plain.hands.press("Annulla");
  CHECK(!plain.form->isOpen());
}

TEST_CASE("an entry that another station has revised meanwhile is not posted twice") {
  Books books;
  postInvoice(books);
  At first = test::revise(books, "mcfv2", "1");
  At second = test::revise(books, "mcfv2", "1");
  first.hands.press("Registra");
  const auto after = books.contents();
  second.hands.set("text2", "126");
  second.hands.press("Registra");
  CHECK(books.desk().box() ==
        "Errore|La registrazione è stata nel frattempo variata o eliminata da un'altra stazione");
  CHECK(books.contents() == after);
}

TEST_CASE("a supplier's invoice takes out its own instalments, not those of a number with the same end") {
  Books books;
  giveTerms(books);
  postPurchase(books, "9100123", "1");
  postPurchase(books, "9200123", "2");
  REQUIRE(books.all<rec::sf>().size() == 2);
  REQUIRE(removeEntry(books.session(), "1"));
  REQUIRE(books.all<rec::sf>().size() == 1);
  CHECK(books.all<rec::sf>().front().numero == "9200123");
  At revised = test::revise(books, "MCFA2", "4");
  CHECK(revised.hands.text("text2") == "9200123");  // whole, though the journal has six digits of it
  books.checkWhole();
}

TEST_CASE("of two invoices with one number and date each has its own instalments") {
  Books books;
  giveTerms(books);
  postPurchase(books, "1", "1");
  postPurchase(books, "1", "2");
  REQUIRE(books.all<rec::sf>().size() == 2);
  books.checkWhole();  // together they come to both amounts
  REQUIRE(removeEntry(books.session(), "4"));
  CHECK(books.all<rec::sf>().size() == 1);
  books.checkWhole();
}

TEST_CASE("a revision follows the voices of its entry, whatever they are called today") {
  Books books;
  postInvoice(books);
  auto& pc = books.session().pc;
  REQUIRE(pc.search(0, "00053") == store::kOk);
  pc.A = pc.B;
  pc.A.ragsoc = "Servizi alle imprese";
  pc.put("00053", store::Put::rewrite);
  test::addVoice(books.session(), "00099", "Servizi", "s", "00003", "00009");  // takes the name that is free
  At at = test::revise(books, "mcfv2", "1");
  CHECK(at.hands.text("controp(1)") == "Servizi alle imprese");
  at.hands.press("Registra");
  CHECK(books.desk().boxes.empty());
  CHECK(books.saldo("00053") == -100);
  CHECK(books.saldo("00099") == 0);
  books.checkWhole();
}

TEST_CASE("no document has the voices of the VAT among its contropartite") {
  Books books;
  At at(books, "mcfv");
  at.hands.set("text1", "15/01/2003");
  at.hands.set("controp(1)", "Iva vendite");
  CHECK_FALSE(at.hands.go("imponibile(1)"));
  CHECK(at.hands.focus() == "controp(1)");
}

TEST_CASE("a row put under its number by hand keeps no entry from its revision") {
  Books books;
  postInvoice(books);
  {
    OpenArchive<rec::iv> iv(books.session(), 1, 2);
    REQUIRE(iv->search(0, " 1") == store::kOk);
    iv->A = iv->B;
    iv->A.conto = "00099";
    iv->put(" 77", store::Put::add);
  }
  At at = test::revise(books, "mcfv2", "1");
  at.hands.set("text4", "Vendita di gennaio");
  at.hands.press("Registra");
  CHECK(books.desk().boxes.empty());
  CHECK(!at.form->isOpen());
  CHECK(books.all<rec::iv>().size() == 2);
}

TEST_CASE("an entry is not revised with a VAT code that is gone") {
  Books books;
  postInvoice(books);
  REQUIRE(books.session().civa.search(1, "22") == store::kOk);
  books.session().civa.A = {};
  books.session().civa.put(books.session().civa.primaryKey(), store::Put::rewrite);
  At at = test::revise(books, "mcfv2", "1");
  at.hands.press("Registra");
  CHECK(books.desk().beeps == 1);
  CHECK(at.hands.focus() == "codiva(1)");
  CHECK(books.all<rec::mc>().front().nummov == "1");
}

TEST_CASE("one row of the journal is taken back with its progressives alone") {
  Books books;
  postInvoice(books);
  CHECK(!removeRow(books.session(), "00000009"));
  CHECK(removeRow(books.session(), "00000002"));
  CHECK(books.all<rec::mc>().size() == 2);
  CHECK(books.all<rec::iv>().size() == 1);
  CHECK(books.saldo("00053") == 0);
  CHECK(books.saldo("00003") == 0);
  CHECK(books.saldo("00051") == 122);
}
