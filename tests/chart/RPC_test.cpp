#include <doctest/doctest.h>
#include <cmath>

#include "chart/company.h"
#include "chart/forms.h"

using namespace tarvex;

namespace {

struct AtRpc {
  explicit AtRpc(test::Company& books) : form(makeRpc(books.session)), hands(*form) { hands.user.begin(); }
  void describe(const std::string& kind, const std::string& name, const std::string& balance = {}) {
    hands.pick("tipo", kind);
    hands.set("Descrizione", name);
    hands.set("Saldo iniziale", balance);
  }
  std::unique_ptr<ui::Form> form;
  Hands hands;
};

}  // namespace

TEST_CASE("a number that is taken already is passed over") {
  test::Company books;
  for (const char* code : {"00051", "00052"}) {
    books.session.pc.A = {};
    books.session.pc.A.ragsoc = code;
    books.session.pc.put(code, store::Put::add);
  }
  AtRpc at(books);
  at.describe("Mastro", "Terzo");
  at.hands.press("Registra");
  CHECK(books.voice("00053").codice == "000530000000000");
  CHECK(books.voice("00051").ragsoc == "00051");
  CHECK(books.counter() == 53);
}

TEST_CASE("a voice that could not be numbered or written stays on the screen") {
  test::Company books;
  AtRpc at(books);
  books.session.pr.erase("conto");
  at.describe("Mastro", "Patrimonio");
  at.hands.press("Registra");
  CHECK(books.desk.boxes ==
        std::vector<std::string>{
            "Errore durante operazione sugli archivi|Errore:  1\rOperazione: lettura dati\r"
            "Archivio: progressivi\rPosizione:  1020"});
  CHECK(at.hands.text("Descrizione") == "Patrimonio");
  CHECK(books.session.pc.search(1, "Patrimonio") == store::kNotFound);
}

TEST_CASE("two stations that register at once get different numbers") {
  test::Company books;
  FakeDesk otherDesk;
  Session other(books.session.options(), otherDesk, {});
  other.DataDirectory = books.session.DataDirectory;
  other.CompanyCode = books.session.CompanyCode;
  other.WorkYear = books.session.WorkYear;
  REQUIRE(other.pc.open(other.stem("pc")) == store::kOk);
  REQUIRE(other.pr.open(other.stem("pr")) == store::kOk);
  AtRpc here(books);
  const auto form = makeRpc(other);
  Hands there(*form);
  there.user.begin();
  for (const char* name : {"uno", "due", "tre"}) {
    here.describe("Mastro", std::string("Qui ") + name);
    there.set("Descrizione", std::string("Di là ") + name);
    here.hands.press("Registra");
    there.press("Registra");
  }
  for (int code = 51; code <= 56; ++code)
    CHECK(books.voice(common::zeroFill(code, 5)).ragsoc.starts_with(code % 2 ? "Qui" : "Di là"));
  CHECK(books.counter() == 56);
}

TEST_CASE("a description of any bytes becomes thirty clean characters") {
  test::Company books;
  AtRpc at(books);
  for (const std::string& text : {std::string(10'000'000, 'x'), std::string("a\x01\tb\xFF\xC3(c"),
                                  std::string("perché è così e non altrimenti, davvero")}) {
    at.describe("Mastro", text, "99999999999999999999");
    at.hands.press("Registra");
  }
  CHECK(books.voice("00051").ragsoc == std::string(30, 'x'));
  CHECK(books.voice("00052").ragsoc == "a  b\xEF\xBF\xBD\xEF\xBF\xBD(c");
  CHECK(books.voice("00053").ragsoc == "perché è così e non altrimenti");
  CHECK(std::abs(books.voice("00053").saldo) < 1e15);
  CHECK(books.desk.boxes.empty());
}
