// PARGES: what it writes, what acts at once, what it refuses.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

#include "session/startup.h"
#include "session/station.h"
#include "session/text_file.h"
#include "tools/scratch.h"

using namespace tarvex;
using test::Scratch;
using test::Station;

namespace {

struct Started {
  Scratch directory;
  Station station{directory.path()};
  Session& session = station.session;
  FakeDesk& desk = station.desk;
  Started() { station.start(test::found(desk, "Rossi", "2003")); }

  ui::Form& parges() {
    desk.sweep();
    REQUIRE(station.frame.choose("p5") == Chosen::done);
    return *desk.forms().back();
  }

  rec::param stored() {
    OpenArchive<rec::param> param(session, 0, 0);
    param->search(0, "1");
    return param->B;
  }
};

}  // namespace

TEST_CASE("PARGES shown and registered untouched changes no field") {
  Started started;
  rec::param full = started.stored();
  full.riservato33 = 7;
  full.riservato77 = "resta";
  full.coloresfondo = 123456;  // none of the colours listed
  full.zoomanteprima = "110";
  full.contoservizio = "04711";  // a voice of another company
  full.immaginidoc = 13;
  full.aspetticolli[50] = "Bancale";
  full.nominativi[11] = "Studio Verdi";
  full.nonprefisso = 20;         // more than its control takes
  full.testosollecito[0] = "riga 0";
  full.testosollecito[1] = "Spett.le ditta,";
  full.testosollecito[3] = "saluti";
  full.bollosoglia3 = 12.34;
  {
    OpenArchive<rec::param> param(started.session, 0, 0);
    param->A = full;
    param->put("1", store::Put::write);
  }
  const auto packed = [](const rec::param& parameters) {
    std::string bytes;
    archives::Codec<rec::param>::encode(parameters, bytes);
    return bytes;
  };
  Hands hands(started.parges());
  hands.press("ok");
  CHECK(started.desk.boxes.empty());
  CHECK(packed(started.stored()) == packed(full));
}

TEST_CASE("what PARGES writes acts at once, but for the decimals and the network") {
  Started started;
  Hands hands(started.parges());
  const int changes = started.desk.frameChanges;
  hands.pick("coloresfondo", "Nero");
  hands.check("immaginesfondo", true);
  hands.pick("predefinita", "Impost. predefinite (2)");
  hands.pick("stiletoolbar", "#4");
  hands.check("mostrastatusbar", false);
  hands.user.choose(hands.at<ui::Choice>("carattere"), 0);  // none
  hands.user.spin(hands.at<ui::Spin>("righepagina"), 66);
  hands.user.spin(hands.at<ui::Spin>("decimaliprezzi"), 4);
  hands.set("aspetticolli(12)", "Scatole");
  hands.set("nominativi(50)", "Ultimo");
  hands.check("immaginiacquisto", true);
  hands.check("immaginiconferma", true);
  hands.set("contoservizio", "Rivalsa spese varie");
  hands.press("ok");
  CHECK(started.desk.boxes.empty());
  CHECK(started.desk.frameChanges == changes + 1);
  const Appearance look = started.station.frame.appearance();
  CHECK(look.colour == 0x202020);
  CHECK(look.background == started.session.DataDirectory + "SfondoTV1.bmp");
  CHECK(look.toolBar == 5);
  CHECK(!look.statusBar);
  CHECK(started.session.PrintFontName == "Courier New");
  CHECK(started.session.PageLength == 66);
  CHECK(started.session.param.decimaliprezzi == 2);
  const rec::param stored = started.stored();
  CHECK(stored.decimaliprezzi == 4);
  CHECK(stored.aspetticolli[12] == "Scatole");
  CHECK(stored.nominativi[50] == "Ultimo");
  CHECK(stored.immaginidoc == 12);
  CHECK(stored.contoservizio == "00018");
  CHECK(firstLine((started.directory.path() / "rr").string()) == "mono");
}

TEST_CASE("PARGES takes the server's directory from the program picked there, for the next start") {
  Started started;
  ui::Form& form = started.parges();
  Hands hands(form);
  hands.pick("postazione", "Rete");
  hands.press("ok");
  CHECK(started.desk.box() == "Errore|Non è stato inserito il percorso di rete");
  CHECK(hands.focus() == "percorsorete");
  started.desk.files = {std::nullopt, "/srv/tarvex/TARVEX.EXE"};
  hands.press("sfogliarete");
  CHECK(hands.text("percorsorete").empty());
  hands.press("sfogliarete");
  CHECK(hands.text("percorsorete") == "/srv/tarvex");
  const std::string before = started.session.DataDirectory;
  hands.press("ok");
  CHECK(started.session.DataDirectory == before);
  bool alone = true;
  CHECK(dataDirectory(started.session.options(), alone) == "/srv/tarvex/");
  CHECK(!alone);
  CHECK(Hands(started.parges()).text("percorsorete") == "/srv/tarvex/");
}

TEST_CASE("PARGES tells when rr cannot be written, and does not open over a record that it cannot read") {
  Started started;
  std::filesystem::create_directory(started.directory.path() / "rr");
  ui::Form& form = started.parges();
  Hands(form).press("ok");
  CHECK(started.desk.box().starts_with("Errore|Non è stato possibile scrivere il file"));
  form.close();
  std::filesystem::remove(started.directory.path() / "param.ISD");
  started.desk.sweep();
  started.station.frame.choose("p5");
  CHECK(started.desk.forms().empty());
}

TEST_CASE("the account of the service invoice is one that may be posted to") {
  Started started;
  Hands hands(started.parges());
  hands.user.page(*dynamic_cast<ui::Tabs*>(&hands.at("tabs")), 2);
  hands.set("contoservizio", "Ricavi diversi");  // a conto
  hands.press("ok");
  CHECK(started.desk.beeps == 1);
  CHECK(hands.focus() == "contoservizio");
  hands.set("contoservizio", "Rivalsa spese varie");
  hands.press("ok");
  CHECK(started.stored().contoservizio == "00018");
}
