// Companies duplicated, filled from another one, removed, renamed, given a password.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

#include "archives/catalogue.h"
#include "archives/fields.h"
#include "session/company.h"
#include "session/password.h"
#include "session/station.h"
#include "tools/child.h"
#include "tools/scratch.h"

using namespace tarvex;
using test::Scratch;
using test::Station;

namespace {

// A station in "Rossi" 2003 (AD), which has a customer, a supplier, an agent and a sottoconto of its own;
// with "Verdi" 2003 (AE) beside it.
struct Books {
  Scratch directory;
  Station station{directory.path()};
  Session& session = station.session;

  Books() {
    station.start(test::found(station.desk, "Rossi", "2003"));
    station.desk.modal["APRIAZ"] = [](ui::Form& form) { test::fillCompany(form, "Verdi", "2003"); };
    station.frame.choose("ma3");
    change("Rossi");
    addVoice("00051", "Bianchi", "c");
    addVoice("00052", "Neri", "f");
    addVoice("00053", "Gialli", "ag");
    addVoice("00054", "Merci", "s");
    session.pr.A = {54, ""};
    session.pr.put("conto", store::Put::rewrite);
  }

  void addVoice(const char* code, const char* name, const char* tipo) {
    session.pc.A = {};
    session.pc.A.ragsoc = name;
    session.pc.A.tipo = tipo;
    session.pc.A.dare = 12.5;
    REQUIRE(session.pc.put(code, store::Put::add) == store::kOk);
  }

  ui::Form& open(const char* unit) {
    REQUIRE(station.frame.openUnit(unit, "") == Chosen::done);
    return *station.desk.forms().back();
  }

  rec::dataz slot(const char* code) {
    session.dataz.search(0, code);
    return session.dataz.B;
  }

  void change(const char* company) {
    station.desk.modal["SCELTA"] = test::choose(company, "2003");
    REQUIRE(station.frame.choose("ma1") == Chosen::done);
  }

  // The names of the voices above the predefined ones, each followed by a blank.
  std::string voices() {
    std::string names;
    session.pc.search(0, "00050");
    while (session.pc.next(0) == store::kOk) names += session.pc.B.ragsoc + " ";
    return names;
  }

  int counter(const char* key) {
    session.pr.search(0, key);
    return session.pr.B.valore;
  }
};

struct Refusal {
  const char *first, *second, *box;
};

}  // namespace

TEST_CASE("DUPLICA refuses in the order of its checks, the name only after the question") {
  Books books;
  ui::Form& form = books.open("DUPLICA");
  Hands hands(form);
  hands.press("ok");
  CHECK(books.station.desk.box() == "Errore|Non è stata inserita la descrizione");
  hands.set("text1", "Verdi");
  books.station.desk.answers = {ui::Answer::no};
  hands.press("ok");
  CHECK(books.station.desk.box() == "Attenzione|Confermare l'operazione ?");
  books.station.desk.answers = {ui::Answer::yes};
  hands.press("ok");
  CHECK(books.station.desk.box() == "Errore|Archivi già creati con lo stessa descrizione");
  CHECK(form.isOpen());
  CHECK(companyNames(books.session).size() == 4);
}

TEST_CASE("DUPLICA makes a whole company of the open one, which goes on as it was") {
  Books books;
  books.session.dataz.search(0, "AD");
  books.session.dataz.A = books.session.dataz.B;
  books.session.dataz.A.password = "segreta";
  books.session.dataz.put("AD", store::Put::rewrite);
  Hands hands(books.open("DUPLICA"));
  hands.set("text1", " Rossi bis ");
  books.station.desk.answers = {ui::Answer::yes};
  hands.press("ok");
  CHECK(books.station.desk.boxes.size() == 1);  // the question
  books.station.desk.sweep();
  CHECK(books.session.CompanyCode == "AD");
  CHECK(books.station.desk.panels[8] == "Rossi");
  CHECK(books.session.ct.isOpen());
  const rec::dataz twin = books.slot("AF");
  CHECK(twin.ragsoc == "Rossi bis");
  CHECK(twin.citta == "Torino");
  CHECK(twin.password.empty());
  for (const archives::Entry& entry : archives::catalogue())
    if (entry.scope != archives::Scope::installation)
      CHECK_MESSAGE(std::filesystem::exists(books.session.stem(entry.prefix, "2003", "AF") + ".ISD"),
                    entry.prefix);

  books.addVoice("00055", "Dopo", "s");
  books.change("Rossi bis");
  CHECK(books.voices() == "Bianchi Neri Gialli Merci ");
  CHECK(books.counter("conto") == 54);
}

TEST_CASE("DUPLICA of a company whose files are partly gone tells what is missing and copies the rest") {
  Books books;
  std::filesystem::remove(books.session.stem("iv") + ".ISD");
  Hands hands(books.open("DUPLICA"));
  hands.set("text1", "Rossi bis");
  books.station.desk.answers = {ui::Answer::yes};
  hands.press("ok");
  CHECK(books.station.desk.boxes.size() == 3);  // the question, then the two of a failure
  CHECK(books.session.pc.isOpen());
  CHECK(!std::filesystem::exists(books.session.stem("iv", "2003", "AF") + ".ISM"));
  CHECK(std::filesystem::exists(books.session.stem("mc", "2003", "AF") + ".ISM"));
}

TEST_CASE("COPIAPC refuses a target that is not there, is this one, or has drawn numbers") {
  Books books;
  Hands hands(books.open("COPIAPC"));
  hands.check("piano", true);
  hands.press("ok");
  CHECK(books.station.desk.box() == "Errore|Archivi non presenti");
  hands.pick("Combo1", "Verdi");
  hands.press("ok");
  CHECK(books.station.desk.box() == "Errore|Archivi non presenti");
  hands.pick("Combo1", "Rossi");
  hands.pick("Combo2", "2003");
  for (const char* wish : {"piano", "magazzino"}) {  // this one, whatever is wished
    hands.check("piano", false);
    hands.check(wish, true);
    hands.press("ok");
    CHECK(books.station.desk.box() == "Errore|Operazione non effettuabile");
  }
  hands.check("piano", true);
  hands.pick("Combo1", "Verdi");
  hands.pick("Combo2", "2003");
  {
    archives::Archive<rec::pr> pr(books.session.store);
    pr.open(books.session.stem("pr", "2003", "AE"));
    pr.A = {51, ""};
    pr.put("conto", store::Put::rewrite);
  }
  hands.press("ok");
  CHECK(books.station.desk.box() == "Errore|Operazione non effettuabile");
  hands.press("annulla");
  books.change("Verdi");
  CHECK(books.voices().empty());
}

TEST_CASE("COPIAPC copies the kinds wished with their balances, and the counter") {
  Books books;
  {
    Hands hands(books.open("COPIAPC"));
    hands.pick("Combo1", "Verdi");
    hands.pick("Combo2", "2003");
    hands.check("clienti", true);
    hands.check("agenti", true);
    hands.press("ok");
  }
  CHECK(books.station.desk.boxes.empty());
  books.station.desk.sweep();
  books.change("Verdi");
  CHECK(books.voices() == "Bianchi Gialli ");
  CHECK(books.counter("conto") == 54);
  books.session.pc.search(0, "00051");
  CHECK(books.session.pc.B.dare == 12.5);
}

TEST_CASE("COPIAPC brings articles without their quantities and leaves those that stand there") {
  Books books;
  const archives::Entry& entry = *archives::find("ma");
  const auto put = [&](const char* company, const char* key, double price, double quantity) {
    auto fields = archives::fieldsOf(entry, {});
    fields[0].value = std::string(key + 2);
    fields[14].value = quantity;  // stock on hand
    fields[23].value = price;     // of the last purchase
    store::Handle ma = 0;
    books.session.store.VmxOpen(books.session.stem("ma", "2003", company), ma);
    CHECK(books.session.store.VmxPut(ma, key, archives::packedOf(entry, fields), store::Put::add) ==
          store::kOk);
    books.session.store.VmxClose(ma);
  };
  put("AD", "01VITE", 2, 7);
  put("AD", "01DADO", 3, 7);
  put("AE", "01DADO", 9, 9);
  books.session.pr.A = {3, ""};
  books.session.pr.put("magaz", store::Put::rewrite);
  Hands hands(books.open("COPIAPC"));
  hands.pick("Combo1", "Verdi");
  hands.pick("Combo2", "2003");
  hands.check("magazzino", true);
  hands.press("ok");
  CHECK(books.station.desk.boxes.empty());
  store::Handle ma = 0;
  store::Found found;
  books.session.store.VmxOpen(books.session.stem("ma", "2003", "AE"), ma);
  const auto figures = [&](const char* key) {
    books.session.store.VmxGet(ma, 0, store::Get::search, key, found);
    const auto fields = archives::fieldsOf(entry, found.record);
    return std::pair(std::get<double>(fields[23].value), std::get<double>(fields[14].value));
  };
  CHECK(figures("01VITE") == std::pair(2.0, 0.0));
  CHECK(figures("01DADO") == std::pair(9.0, 9.0));
  books.session.store.VmxClose(ma);
  books.station.desk.sweep();
  books.change("Verdi");
  CHECK(books.counter("magaz") == 3);
  CHECK(books.counter("conto") == 50);  // no voices were copied
}

TEST_CASE("cancella asks for company, year and confirmation, and frees the slot with the last year") {
  Books books;
  auto& desk = books.station.desk;
  const std::string log = books.session.DataDirectory + "2003AE--.isx";
  std::ofstream(log) << "of the company that goes\n";
  const auto answer = [&](const char* button) {
    desk.modal["cancell1"] = [=](ui::Form& form) { Hands(form).press(button); };
  };
  desk.modal["cancella"] = [&](ui::Form& form) {
    Hands hands(form);
    hands.press("ok");
    CHECK(desk.box() == "Errore|Non è stata selezionata l'azienda");
    hands.pick("Combo1", "Verdi");
    hands.press("ok");
    CHECK(desk.box() == "Errore|Non è stato selezionato l'anno");
    hands.pick("Combo2", "2003");
    answer("no");
    hands.press("ok");
    CHECK(form.isOpen());
    CHECK(std::filesystem::exists(books.session.stem("mc", "2003", "AE") + ".ISM"));
    answer("si");
    hands.press("ok");
    CHECK(!form.isOpen());
  };
  REQUIRE(books.station.frame.choose("m7c") == Chosen::done);
  CHECK(desk.boxes.empty());
  CHECK(books.session.CompanyCode == "AD");
  for (const archives::Entry& entry : archives::catalogue())
    if (entry.scope != archives::Scope::installation)
      CHECK_MESSAGE(std::filesystem::exists(books.session.stem(entry.prefix, "2003", "AE") + ".ISM") ==
                        (entry.prefix == "po"),
                    entry.prefix);
  CHECK(std::filesystem::exists(books.session.logPath()));
  CHECK_FALSE(std::filesystem::exists(log));
  const rec::dataz slot = books.slot("AE");
  CHECK(slot.ragsoc.empty());
  CHECK(slot.citta.empty());
  CHECK(slot.stato == 0);

  desk.modal["APRIAZ"] = [](ui::Form& form) { test::fillCompany(form, "Nuova", "2003"); };
  REQUIRE(books.station.frame.choose("ma3") == Chosen::done);
  CHECK(books.session.CompanyCode == "AE");
  CHECK(desk.boxes.empty());
}

TEST_CASE("cancella removes nothing while another station works there") {
  Books books;
  auto& desk = books.station.desk;
  desk.modal["cancell1"] = [](ui::Form& form) { Hands(form).press("si"); };
  desk.modal["cancella"] = [](ui::Form& form) {
    Hands hands(form);
    hands.pick("Combo1", "Verdi");
    hands.pick("Combo2", "2003");
    hands.press("ok");
  };
  const std::string journal = books.session.stem("mc", "2003", "AE") + ".ISD";
  {
    Station other(books.directory.path());
    REQUIRE(other.start(test::choose("Verdi", "2003")));
    books.station.frame.choose("m7c");
    CHECK(desk.box() == "Attenzione|Gli archivi sono in uso su un'altra postazione");
    CHECK(std::filesystem::exists(journal));
    CHECK(other.session.pc.search(0, "00001") == store::kOk);
  }
  books.station.frame.choose("m7c");
  CHECK(desk.boxes.empty());
  CHECK_FALSE(std::filesystem::exists(journal));
}

TEST_CASE("cancella of the open year leaves the session to SCELTA, of a name without years frees its slot") {
  Books books;
  auto& desk = books.station.desk;
  desk.modal["cancell1"] = [](ui::Form& form) { Hands(form).press("si"); };
  const auto remove = [](const char* company, const char* year) {
    return [=](ui::Form& form) {
      Hands hands(form);
      hands.pick("Combo1", company);
      if (*year) hands.pick("Combo2", year);
      hands.press("ok");
    };
  };
  const std::string damaged = books.session.DataDirectory + "2003ABct.ISM";
  std::ofstream(damaged) << "no archive";
  desk.modal["cancella"] = [&](ui::Form& form) {
    remove("Azienda di prova", "")(form);
    CHECK(desk.box() == "Errore|Non è stato selezionato l'anno");  // a repair may bring its year back
    form.close();
  };
  books.station.frame.choose("m7c");
  CHECK_FALSE(books.slot("AB").ragsoc.empty());
  std::filesystem::remove(damaged);
  desk.boxes.clear();
  desk.modal["cancella"] = remove("Azienda di prova", "");
  books.station.frame.choose("m7c");
  CHECK(books.slot("AB").ragsoc.empty());
  desk.modal["cancella"] = remove("Rossi", "2003");
  desk.modal["SCELTA"] = [&](ui::Form& form) {
    CHECK(!books.session.isCompanyOpen());
    test::choose("Verdi", "2003")(form);
  };
  CHECK(books.station.frame.choose("m7c") == Chosen::done);
  CHECK(books.session.CompanyName == "Verdi");
  CHECK(desk.boxes.empty());
}

TEST_CASE("REGDATI refuses an empty or a taken name, and keeps what is not on its screen") {
  Books books;
  Hands hands(books.open("REGDATI"));
  CHECK(hands.text("text3") == "Torino");
  const Refusal rows[] = {{"  ", "", "Errore|La ragione sociale non è stata inserita"},
                          {"Verdi", "", "Errore|Ragione sociale già registrata"}};
  for (const Refusal& row : rows) {
    hands.set("text1", row.first);
    hands.press("ok");
    CHECK(books.station.desk.box() == row.box);
    CHECK(hands.focus() == "text1");
  }
  hands.set("text1", "ROSSI");  // another spelling is another name
  hands.set("text2", "Corso Francia 3");
  hands.press("ok");
  CHECK(books.station.desk.boxes.empty());
  const rec::dataz slot = books.slot("AD");
  CHECK(slot.ragsoc == "ROSSI");
  CHECK(slot.indirizzo == "Corso Francia 3");
  CHECK(slot.stato2 == 1);
  CHECK(books.station.desk.panels[8] == "ROSSI");
}

TEST_CASE("PASSW asks for the old password, then twice for the new one, of whatever length") {
  Books books;
  const auto change = [&](const std::string& old, const std::string& fresh, const std::string& again) {
    Hands hands(books.open("PASSW"));
    hands.set("text2", fresh);
    hands.set("text3", again);
    if (hands.at("text1").enabled()) hands.set("text1", old);
    hands.press("ok");
    books.station.desk.sweep();
    return books.station.desk.box();
  };
  CHECK(change("", "uno", "due") == "Errore|La conferma non corrisponde alla nuova password");
  CHECK(change("", "uno", "uno").empty());
  CHECK(checkPassword(books.slot("AD").password, "uno") == PasswordCheck::right);
  CHECK(change("due", "tre", "quattro") == "Errore|La password inserita non è corretta");
  const std::string huge(10'000'000, 'x');
  CHECK(change(huge, "due", "due") == "Errore|La password inserita non è corretta");
  CHECK(change("uno", huge, huge).empty());
  CHECK(books.slot("AD").password.size() < 128);
  CHECK(change(huge, "", "").empty());
  CHECK(books.slot("AD").password.empty());
}
