// Two stations at the parties of one company: the numbers drawn, the names taken, the cards changed.
#include <doctest/doctest.h>

#include <set>

#include "parties/forms.h"
#include "session/station.h"
#include "tools/scratch.h"

using namespace tarvex;

namespace {

struct Form {
  Form(test::Station& on, std::string_view unit) : station(on), form(on.session.make(unit)), hands(*form) {
    hands.user.begin();
  }
  test::Station& station;
  std::unique_ptr<ui::Form> form;
  Hands hands;
};

struct TwoStations {
  TwoStations() {
    REQUIRE(one.start(test::found(one.desk, "ROSSI SRL", "2003")));
    REQUIRE(other.start(test::choose("ROSSI SRL", "2003")));
  }
  test::Scratch scratch;
  test::Station one{scratch.path()}, other{scratch.path()};
};

void open(Form& variation, const char* name) {
  variation.hands.set("ricerca", name);
  variation.hands.go("text3");
}

}  // namespace

TEST_CASE("stations that register at once take numbers of their own, also where one was taken unawares") {
  TwoStations at;
  Form customers(at.one, "RCLIENTE"), suppliers(at.other, "RFORN");
  // A voice stands already under the number to be drawn next.
  at.other.session.pc.A = {};
  at.other.session.pc.A.ragsoc = "Già qui";
  at.other.session.pc.put("00052", store::Put::add);
  at.other.session.pc.flush();
  for (const char* name : {"Alfa", "Beta", "Gamma"}) {
    customers.hands.set("text1", std::string(name) + " cliente");
    suppliers.hands.set("text1", std::string(name) + " fornitore");
    customers.hands.press("registra");
    suppliers.hands.press("registra");
  }
  auto& pc = at.one.session.pc;
  std::set<std::string> codes;
  for (const std::string name : {"Alfa", "Beta", "Gamma"})
    for (const std::string kind : {" cliente", " fornitore"}) {
      REQUIRE(pc.search(1, name + kind) == store::kOk);
      CHECK(pc.B.codice.substr(10) == pc.primaryKey());
      codes.insert(pc.primaryKey());
    }
  CHECK(codes == std::set<std::string>{"00051", "00053", "00054", "00055", "00056", "00057"});
  CHECK(at.one.desk.boxes.empty());
  CHECK(at.other.desk.boxes.empty());
}

TEST_CASE("a name that another station has taken since its field was left is refused, and no number drawn") {
  TwoStations at;
  Form mine(at.one, "RCLIENTE"), others(at.other, "RFORN");
  mine.hands.set("text1", "Rossi");
  mine.hands.go("text3");
  others.hands.set("text1", "Rossi");
  others.hands.press("registra");
  mine.hands.press("registra");
  CHECK(at.one.desk.box() == "Errore|Già registrato");
  CHECK(mine.hands.focus() == "text1");
  REQUIRE(at.one.session.pr.search(0, "conto") == store::kOk);
  CHECK(at.one.session.pr.B.valore == 51);
}

TEST_CASE("one card is changed at one station at a time, whatever way the other leaves it") {
  TwoStations at;
  {
    Form registration(at.one, "RCLIENTE");
    for (const char* name : {"Rossi", "Verdi"}) {
      registration.hands.set("text1", name);
      registration.hands.press("registra");
    }
  }
  Form mine(at.one, "VARCLI"), others(at.other, "VARCLI");
  const std::string inUse = "Errore|La scheda è in corso di variazione su un'altra postazione";
  open(mine, "Rossi");
  CHECK(mine.hands.text("text1") == "Rossi");
  // Postings go on meanwhile: they take the record's own lock.
  CHECK(at.other.session.pc.lock("00051") == store::kOk);
  at.other.session.pc.unlock("00051");

  open(others, "Rossi");
  CHECK(at.other.desk.box() == inUse);
  CHECK(others.hands.focus() == "ricerca");
  open(others, "Verdi");
  CHECK(others.hands.text("text1") == "Verdi");

  SUBCASE("saved") { mine.hands.press("registra"); }
  SUBCASE("another card instead") {
    open(mine, "Verdi");
    CHECK(at.one.desk.box() == inUse);
    CHECK(mine.hands.text("text1") == "Rossi");  // it stays until another one can be had
    open(others, "Rossi");
    CHECK(at.other.desk.box() == inUse);
    CHECK(others.hands.text("text1") == "Verdi");
    others.hands.set("ricerca", "Verdi");
    others.hands.press("registra");
    open(mine, "Verdi");
    CHECK(mine.hands.text("text1") == "Verdi");
  }
  SUBCASE("closed") { mine.hands.user.close(); }
  open(others, "Rossi");
  CHECK(others.hands.text("text1") == "Rossi");
  CHECK(at.other.desk.boxes.empty());
}

TEST_CASE("a card whose record has gone meanwhile is told and written nowhere") {
  TwoStations at;
  {
    Form registration(at.one, "RCLIENTE");
    registration.hands.set("text1", "Rossi");
    registration.hands.press("registra");
  }
  Form mine(at.one, "VARCLI");
  open(mine, "Rossi");
  at.other.session.pc.erase("00051");
  at.other.session.pc.flush();
  mine.hands.press("registra");
  CHECK(!at.one.desk.boxes.empty());
  CHECK(at.one.session.pc.search(0, "00051") == store::kNotFound);
  CHECK(at.one.session.pc.lock("00051") == store::kOk);
}
