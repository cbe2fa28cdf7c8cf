// The form of the free entries (movement_form) beyond what its scenarios tell.
#include "ledger/movement_form.h"

#include "ledger/books.h"
#include "session/schemes.h"

using namespace tarvex;
using test::At, test::Books;

namespace {

std::string cell(const char* column, int line) {
  return std::string(column) + "(" + std::to_string(line) + ")";
}

// A hundred lines: 1, 2, ... 50 in dare on one voice, the same in avere on another.
void typeHundred(Hands& hands) {
  test::fill(hands, {{"text1", "15/01/2003"}, {"text2", "5"}, {"text4", "Giro"}});
  for (int line = 1; line <= 100; ++line) {
    hands.set(cell("conto", line), line <= 50 ? "Cassa contanti" : "BIANCHI SNC");
    hands.set(cell("agg", line), " riga " + std::to_string(line));
    hands.set(cell(line <= 50 ? "dare" : "avere", line), std::to_string((line - 1) % 50 + 1) + ",00");
  }
}

}  // namespace

TEST_CASE("a hundred lines take a hundred numbers and one entry, and come back to be revised") {
  Books books;
  At at(books, "MCMG");
  typeHundred(at.hands);
  at.hands.press("Registra");
  CHECK(books.desk().boxes.empty());
  CHECK(books.counter("mc") == 100);
  CHECK(books.counter("dati") == 100);
  const auto mc = books.all<rec::mc>();
  REQUIRE(mc.size() == 100);
  for (const rec::mc& line : mc) CHECK(line.nummov == "1");
  CHECK(mc[20].descrizione == "Giro riga 21");
  CHECK(books.saldo("00056") == 1275);
  books.checkWhole();

  At again = test::revise(books, "MCMG2", "1");
  CHECK(again.hands.text("text4") == "Giro");
  again.hands.go("avere(100)");
  CHECK(again.hands.text("avere(100)") == "50,00");
  again.hands.set("avere(100)", "49,00");
  again.hands.press("Registra");
  CHECK(books.desk().box() == "SBILANCIO|1,00");
  again.hands.set("dare(50)", "49,00");
  again.hands.press("Registra");
  CHECK(books.desk().boxes.empty());
  CHECK(!again.form->isOpen());
  CHECK(books.all<rec::mc>().size() == 100);
  CHECK(books.all<rec::mc>().front().nummov == "101");
  CHECK(books.all<rec::tt>().size() == 100);
  CHECK(books.saldo("00051") == -1274);
  books.checkWhole();
}

TEST_CASE("every scheme that the program comes with fits the archive and has its two sides") {
  Books books;
  CHECK(addReadySchemes(books.session()) == 5);
  CHECK(addReadySchemes(books.session()) == 0);
  for (const std::string& name : schemeNames(books.session())) {
    CAPTURE(name);
    std::string sides;
    const auto scheme = readScheme(books.session(), name);
    REQUIRE(scheme);
    for (const rec::AxRow& row : scheme->righe) {
      CHECK(row.conto.empty() == row.segno.empty());
      sides += row.segno;
    }
    CHECK(sides.find_first_not_of("da") == std::string::npos);
    CHECK(sides.find('d') != std::string::npos);
    CHECK(sides.find('a') != std::string::npos);
  }
}
