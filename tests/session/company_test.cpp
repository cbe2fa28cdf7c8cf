#include "session/company.h"

#include <doctest/doctest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "archives/catalogue.h"
#include "archives/si.h"
#include "session/new_company.h"
#include "session/password.h"
#include "session/station.h"
#include "tools/child.h"
#include "tools/scratch.h"

using namespace tarvex;
using test::Scratch;
using test::Station;

namespace {

// Runs `act` at SCELTA of a station that has just started.
void atScelta(Station& station, const test::Act& act) {
  station.start([&](ui::Form& form) {
    act(form);
    if (form.isOpen()) form.close();
  });
}

rec::dataz recordOf(Station& station, std::string_view code) {
  station.session.dataz.search(0, code);
  return station.session.dataz.B;
}

void rewrite(Station& station, const std::string& code, const rec::dataz& record) {
  station.session.dataz.A = record;
  REQUIRE(station.session.dataz.put(code, store::Put::rewrite) == store::kOk);
}

// Types a whole company into APRIAZ, but for what the row spoils.
struct Refusal {
  const char *name, *year, *box;
  int beeps;
};

}  // namespace

TEST_CASE("APRIAZ refuses in the order of its checks") {
  const Scratch directory;
  Station station(directory.path());
  // Each row is wrong in its own way and in all later ones: 100 companies fill the list at the last two.
  const Refusal rows[] = {{"", "1989", "", 1},
                          {"", "2031", "", 1},
                          {"", "", "", 1},
                          {"   ", "2003", "Errore|La ragione sociale non è stata inserita", 1},
                          {"Azienda di prova", "2003", "Errore|Archivi già creati", 1},
                          {"Rossi", "2003", "Tarvex|Non si possono aprire più aziende", 1}};
  atScelta(station, [&](ui::Form& scelta) {
    Session& session = station.session;
    int used = 2;
    for (session.dataz.bof(0); used < kMostCompanies && session.dataz.next(0) == store::kOk;) {
      if (!session.dataz.B.ragsoc.empty()) continue;
      rec::dataz full = session.dataz.B;
      full.ragsoc = "Azienda " + std::to_string(++used);
      full.stato = full.stato2 = 1;
      rewrite(station, session.dataz.primaryKey(), full);
    }
    for (const Refusal& row : rows) {
      CAPTURE(row.name);
      CAPTURE(row.year);
      station.desk.modal["APRIAZ"] = [&](ui::Form& form) {
        station.desk.beeps = 0;
        test::fillCompany(form, row.name, row.year);
        CHECK(form.isOpen());
        CHECK(station.desk.box() == row.box);
        CHECK(station.desk.beeps == row.beeps);
        form.close();
      };
      Hands(scelta).press("nuova");
      CHECK(scelta.isOpen());
    }
    CHECK(companyNames(session).size() == kMostCompanies);
    CHECK(!std::filesystem::exists(directory / "2003FLct.ISM"));
  });
}

TEST_CASE("a new company takes the first free slot and begins with its accounts and counters") {
  const Scratch directory;
  Station station(directory.path());
  REQUIRE(station.start(test::found(station.desk, " Bianchi & C. ", "2004")));
  Session& session = station.session;
  CHECK(station.desk.boxes.empty());
  CHECK(session.CompanyCode == "AD");
  CHECK(session.CompanyName == "Bianchi & C.");
  CHECK(session.YearDateMask == "__/__/2004");
  CHECK(session.YearStartDate == "01/01/2004");
  CHECK(session.CurrentWarehouse == "01");
  CHECK(session.WarehouseCount == 1);
  CHECK(station.desk.panels[4] == "2004");
  CHECK(station.desk.panels[6] == "01");
  CHECK(station.desk.panels[8] == "Bianchi & C.");
  const rec::dataz slot = recordOf(station, "AD");
  CHECK(slot.citta == "Torino");
  CHECK(slot.stato == 1);
  CHECK(slot.stato2 == 1);

  for (const archives::Entry& entry : archives::catalogue()) {
    if (entry.scope == archives::Scope::installation) continue;
    CAPTURE(entry.prefix);
    CHECK(std::filesystem::exists(session.stem(entry.prefix) + ".ISM"));
  }
  int accounts = 0;
  for (session.pc.bof(0); session.pc.next(0) == store::kOk;) ++accounts;
  CHECK(accounts == 22);
  REQUIRE(session.pc.search(1, "Iva vendite") == store::kOk);
  CHECK(session.pc.primaryKey() == "00012");
  CHECK(session.pc.B.codice == "000020000800012");
  CHECK(session.pc.B.chiavetipo == "sIva vendite");
  CHECK(session.pc.B.chiavegruppo == "ssIva vendite");
  REQUIRE(session.pc.search(0, "00021") == store::kOk);
  CHECK(session.pc.B.codice == "000010002100000");
  CHECK(session.pc.B.chiavetipo == "xPortafoglio effetti");
  REQUIRE(session.pc.search(0, "00004") == store::kOk);
  CHECK(session.pc.B.codice == "000040000000000");
  CHECK(session.pc.B.conto.empty());

  int counters = 0;
  for (session.pr.bof(0); session.pr.next(0) == store::kOk; ++counters) {
    CAPTURE(session.pr.primaryKey());
    CHECK(session.pr.B.valore == (session.pr.primaryKey() == "conto" ? 50 : 0));
    CHECK(session.pr.B.testo.empty());
  }
  CHECK(counters == 76);
  CHECK(session.ct.search(0, "1") == store::kOk);
  OpenArchive<rec::si> si(session, 0, 0);
  CHECK(si->search(0, "1") == store::kOk);
  CHECK(si->B.creditoprec == 0);
}

TEST_CASE("a freed slot is taken again, one with stato 1 last of all") {
  const Scratch directory;
  Station station(directory.path());
  atScelta(station, [&](ui::Form&) {
    rec::dataz spent;
    spent.stato = 1;
    rewrite(station, "AB", spent);
    std::string code;
    REQUIRE(takeSlot(station.session, {"Uno", "", "", "", "2003"}, code) == Slot::taken);
    CHECK(code == "AD");
    rewrite(station, "AC", {});
    REQUIRE(takeSlot(station.session, {"Due", "", "", "", "2003"}, code) == Slot::taken);
    CHECK(code == "AC");
    CHECK(takeSlot(station.session, {"Uno", "", "", "", "2003"}, code) == Slot::nameExists);
  });
}

TEST_CASE("two stations never take the same slot or the same name") {
  const Scratch directory;
  Station first(directory.path());
  atScelta(first, [&](ui::Form&) {
    test::HoldingChild child([&] {
      Station other(directory.path());
      bool held = false;
      atScelta(other, [&](ui::Form&) {
        std::string code;
        held = takeSlot(other.session, {"Rossi", "", "", "", "2003"}, code) == Slot::taken && code == "AD";
      });
      return held;
    });
    CHECK(child.ready());
    std::string code;
    CHECK(takeSlot(first.session, {"Rossi", "", "", "", "2003"}, code) == Slot::nameExists);
    CHECK(takeSlot(first.session, {"Verdi", "", "", "", "2003"}, code) == Slot::taken);
    CHECK(code == "AE");
  });
}

TEST_CASE("two stations that take slots at once get different ones, and never the same name") {
  const Scratch directory;
  Station(directory.path()).start(test::leave);
  constexpr int kEach = 15;
  const auto take = [&] {
    Station station(directory.path());
    int taken = 0;
    atScelta(station, [&](ui::Form&) {
      std::string code;
      for (int i = 0; i < kEach; ++i)
        taken += takeSlot(station.session, {"Azienda " + std::to_string(i), "", "", "", "2003"}, code) ==
                 Slot::taken;
    });
    return taken;
  };
  const pid_t child = ::fork();
  if (child == 0) ::_exit(take());
  const int here = take();
  int status = 0;
  ::waitpid(child, &status, 0);
  CHECK(here + WEXITSTATUS(status) == kEach);
  Station station(directory.path());
  atScelta(station, [&](ui::Form&) { CHECK(companyNames(station.session).size() == kEach + 2); });
}

TEST_CASE("a company made where files stand already tells it, keeps them and goes on") {
  const Scratch directory;
  {
    Station station(directory.path());
    REQUIRE(station.start(test::found(station.desk, "Rossi", "2003")));
    station.session.pc.search(0, "00001");
    station.session.pc.A = station.session.pc.B;
    station.session.pc.A.ragsoc = "Crediti di Rossi";
    station.session.pc.put("00001", store::Put::rewrite);
    rewrite(station, "AD", {});
  }
  Station station(directory.path());
  REQUIRE(station.start(test::found(station.desk, "Verdi", "2003")));
  CHECK(station.session.CompanyCode == "AD");
  CHECK(station.desk.boxes.size() > 20);
  CHECK(station.session.pc.search(1, "Crediti di Rossi") == store::kOk);
}

TEST_CASE("a company made on a full disk tells every failure and does not stop the program") {
  const Scratch directory;
  Station(directory.path()).start(test::leave);
  const pid_t child = ::fork();
  if (child == 0) {
    Station station(directory.path());
    bool goesOn = false;
    station.start([&](ui::Form& form) {
      test::fillDisk(40000);  // the slot is written, larger archives are not
      test::found(station.desk, "Rossi", "2003")(form);
      goesOn = !form.isOpen() && station.session.CompanyCode == "AD" && station.session.ct.isOpen();
    });
    const std::size_t boxes = station.desk.boxes.size();  // two for each failure
    ::_exit(goesOn && boxes >= 10 && boxes < 40 && station.frame.end() ? 0 : 1);
  }
  int status = 1;
  ::waitpid(child, &status, 0);
  CHECK(status == 0);
}

TEST_CASE("SCELTA offers companies, years and warehouses") {
  const Scratch directory;
  {
    Station station(directory.path());
    REQUIRE(station.start(test::found(station.desk, "Rossi", "2003")));
    CHECK(station.frame.end());
  }
  Station station(directory.path());
  atScelta(station, [&](ui::Form& form) {
    Hands hands(form);
    CHECK(hands.text("Combo1") == "Rossi");  // the company last used
    CHECK(hands.at<ui::Choice>("Combo2").items() == std::vector<std::string>{"2003"});
    CHECK(hands.text("Combo2").empty());
    hands.press("ok");
    CHECK(form.isOpen());  // no year: nothing happens
    hands.pick("Combo2", "2003");
    CHECK(hands.at<ui::Choice>("Combo3").items() == std::vector<std::string>{"01"});

    hands.pick("Combo1", "Azienda di prova");  // has no year
    CHECK(hands.at<ui::Choice>("Combo2").items().empty());
    CHECK(hands.at<ui::Choice>("Combo3").items().empty());
    hands.press("ok");
    CHECK(form.isOpen());
    CHECK(station.desk.boxes.empty());

    hands.pick("Combo1", "Rossi");
    hands.pick("Combo2", "2003");
    std::filesystem::rename(directory.path() / "2003ADpr.ISD", directory.path() / "via");
    hands.press("ok");
    CHECK(form.isOpen());
    CHECK(station.desk.box() == "Errore|Archivi azienda non aperti");
    CHECK(!station.session.isCompanyOpen());
    CHECK(!station.session.ct.isOpen());
    std::filesystem::rename(directory.path() / "via", directory.path() / "2003ADpr.ISD");
    hands.press("ok");
    CHECK(!form.isOpen());
    CHECK(station.session.isCompanyOpen());
  });
  CHECK(station.session.pr.search(0, "versione") == store::kOk);
  CHECK(station.session.pr.B.testo == "5.0.23");
  CHECK(station.desk.panels[4].empty());  // the calendar's own year
}

TEST_CASE("without www SCELTA says so and nothing is chosen") {
  const Scratch directory;
  Station(directory.path()).start(test::leave);
  std::filesystem::remove(directory / "www");
  Station station(directory.path());
  atScelta(station, [&](ui::Form& form) {
    CHECK(station.desk.box() == "Errore|Non è stato trovato il file www");
    CHECK(Hands(form).text("Combo1").empty());
  });
  CHECK(station.desk.ended);                           // its closing is the end
  CHECK(!std::filesystem::exists(directory / "www"));  // no company was used
}

TEST_CASE("a company change closes the company and comes back to SCELTA") {
  const Scratch directory;
  Station station(directory.path());
  REQUIRE(station.start(test::found(station.desk, "Rossi", "2003")));
  station.desk.modal["SCELTA"] = test::found(station.desk, "Verdi", "2004");
  CHECK(station.frame.choose("ma1") == Chosen::done);
  CHECK(station.session.CompanyCode == "AE");
  station.desk.modal["APRIAZ"] = [](ui::Form& form) { test::fillCompany(form, "Neri", "2005"); };
  CHECK(station.frame.choose("ma3") == Chosen::done);
  CHECK(station.session.stem("pc") == station.session.DataDirectory + "2005AFpc");

  station.desk.modal["SCELTA"] = [&](ui::Form& form) {
    CHECK(!station.session.isCompanyOpen());
    CHECK(!station.session.pc.isOpen());
    CHECK(station.desk.panels[8].empty());
    form.close();
  };
  CHECK(station.frame.choose("ma1") == Chosen::done);
  CHECK(station.desk.ended);
  std::string last;
  std::getline(std::ifstream(directory / "www") >> std::ws, last);
  CHECK(last == "Neri");
}

TEST_CASE("a password opens the company, kept as plain text or as its hash") {
  const Scratch directory;
  {
    Station station(directory.path());
    REQUIRE(station.start(test::found(station.desk, "Rossi", "2003")));
    rec::dataz old = recordOf(station, "AD");
    old.password = "segreta è";
    rewrite(station, "AD", old);
    station.frame.end();
  }
  Station station(directory.path());
  const auto enter = [](const std::string& typed) {
    return [typed](ui::Form& form) {
      Hands(form).set("text1", typed);
      Hands(form).press(typed.empty() ? "annulla" : "ok");
      CHECK(!form.isOpen());
    };
  };
  REQUIRE(station.start([&](ui::Form& form) {
    Hands hands(form);
    hands.pick("Combo2", "2003");
    for (const char* typed : {"Segreta è", "segreta", ""}) {
      station.desk.modal["PASS"] = enter(typed);
      hands.press("ok");
      CHECK(form.isOpen());
      CHECK(!station.session.isCompanyOpen());
      CHECK(station.desk.box() == (*typed ? "Errore|La password inserita non è corretta" : ""));
      CHECK(recordOf(station, "AD").password == "segreta è");
    }
    station.desk.modal["PASS"] = enter("segreta è");
    hands.press("ok");
  }));
  const rec::dataz kept = recordOf(station, "AD");
  CHECK(kept.password.starts_with("$argon2id$"));
  CHECK(kept.citta == "Torino");
  CHECK(checkPassword(kept.password, "segreta è") == PasswordCheck::right);
  CHECK(checkPassword(kept.password, "segreta") == PasswordCheck::wrong);
  CHECK(checkPassword(kept.password, kept.password) == PasswordCheck::wrong);

  station.desk.modal["SCELTA"] = [&](ui::Form& form) {
    Hands hands(form);
    hands.pick("Combo1", "Rossi");
    hands.pick("Combo2", "2003");
    hands.press("ok");
  };
  CHECK(station.frame.choose("ma1") == Chosen::done);
  CHECK(station.session.isCompanyOpen());
  CHECK(recordOf(station, "AD").password == kept.password);
}
