#include <doctest/doctest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "archives/catalogue.h"
#include "archives/cpag.h"
#include "session/company.h"
#include "session/station.h"
#include "tools/scratch.h"

using namespace tarvex;
using test::Scratch;
using test::Station;

namespace {

const std::string kFatal =
    "Tarvex|Non è possibile proseguire con il programma. Nel caso di utilizzo del programma in rete "
    "verificare "
    "il percorso, inserito nei parametri, della directory di Tarvex sul server e verificare che sia stata "
    "effettuata la condivisione e che il disco rigido del server sia connesso alla rete.";

void touch(const std::string& path, std::string_view text = {}) { std::ofstream(path) << text; }

template <class R>
int countRecords(archives::Archive<R>& archive) {
  int count = 0;
  archive.bof(0);
  while (archive.next(0) == store::kOk) ++count;
  return count;
}

void checkWhole(Station& station) {
  CHECK(station.desk.boxes.empty());
  CHECK(countRecords(station.session.dataz) == 380);
  CHECK(countRecords(station.session.civa) == 25);
  CHECK(!std::filesystem::exists(station.session.DataDirectory + "installazione"));
}

// A start that fails before SCELTA; the boxes it shows.
std::vector<std::string> failedStart(const std::filesystem::path& directory) {
  Station station(directory);
  CHECK(!station.start(test::leave));
  CHECK(station.desk.ended);
  CHECK(station.desk.nowBusy == 0);
  CHECK(station.frame.end());
  return station.desk.boxes;
}

}  // namespace

TEST_CASE("an empty or missing directory becomes an installation") {
  const Scratch scratch;
  const std::filesystem::path directory = scratch.path() / "non" / "ancora";
  Station station(directory);
  int visits = 0;
  CHECK(!station.start([&](ui::Form& form) {
    ++visits;
    checkWhole(station);
    form.close();
  }));
  CHECK(visits == 1);
  station.session.dataz.open(station.session.stem("dataz"));
  CHECK(companyNames(station.session) == std::vector<std::string>{"Azienda AAAAAAAAA", "Azienda di prova"});
  CHECK(companyCode(station.session, "Azienda di prova") == "AB");
  CHECK(station.session.dataz.search(0, "ZZ") == store::kOk);
  CHECK(station.session.dataz.search(0, "OB") == store::kNotFound);

  CHECK(station.session.param.carattere == "Courier New");
  CHECK(station.session.param.ivabollo == "N15");
  CHECK(station.session.param.bollosoglia6 == 77.47);
  CHECK(station.session.param.bolloimporto6 == 2);
  CHECK(station.session.PageLength == 60);
  CHECK(std::filesystem::file_size(directory / "www") == 0);

  archives::Archive<rec::cpag> cpag(station.session.store);
  REQUIRE(cpag.open(station.session.stem("cpag")) == store::kOk);
  CHECK(countRecords(cpag) == 16);
  CHECK(cpag.search(0, "0005") == store::kOk);
  CHECK(cpag.B.descrizione == "Bonifico 30 gg. f.m.");
  CHECK(cpag.B.giorno == 30);
  for (const char* prefix : {"modulo", "modrb", "gg"}) {
    store::Handle handle = 0;
    CHECK(station.session.store.VmxOpen(station.session.stem(prefix), handle) == store::kOk);
  }
}

TEST_CASE("archives without dataz are no new installation") {
  const Scratch directory;
  SUBCASE("those of a company") { touch(directory / "2003ABmc.ISM"); }
  SUBCASE("in small letters, as they come from other systems") { touch(directory / "civa.isd"); }
  SUBCASE("with the mark of an installation that was cut short") {
    touch(directory / "installazione");
    touch(directory / "civa.ISD");
    touch(directory / "2003ABmc.ISD");
  }
  const auto filesThere = [&] {
    return std::distance(std::filesystem::directory_iterator(directory.path()), {});
  };
  const auto before = filesThere();
  const std::vector<std::string> boxes = failedStart(directory.path());
  REQUIRE(boxes.size() == 3);
  CHECK(boxes[0] == "Errore|ERRORE DOS");
  CHECK(boxes[1] ==
        "Errore durante operazione sugli archivi|Errore:  13\rOperazione: apertura file\rArchivio: "
        "azienda\rPosizione:  10");
  CHECK(boxes[2] == kFatal);
  CHECK(filesThere() == before + 1);  // the log alone
  CHECK(std::filesystem::exists(directory / "--.isx"));
}

TEST_CASE("a directory that cannot hold archives ends the start") {
  const Scratch scratch;
  touch(scratch / "un file");
  CHECK(failedStart(scratch / "un file/dati").back() == kFatal);
}

TEST_CASE("a full disk ends the first start, and the next one completes it") {
  const Scratch directory;
  for (const rlim_t limit : {rlim_t{0}, rlim_t{9000}}) {
    CAPTURE(limit);
    const pid_t child = ::fork();
    if (child == 0) {
      test::fillDisk(limit);
      Station station(directory.path());
      const bool told =
          !station.start(test::leave) && station.desk.boxes.size() == 5 && station.desk.box() == kFatal;
      ::_exit(told ? 0 : 1);
    }
    int status = 1;
    ::waitpid(child, &status, 0);
    CHECK(status == 0);
  }
  Station station(directory.path());
  station.start([&](ui::Form& form) {
    checkWhole(station);
    form.close();
  });
}

TEST_CASE("an unusable dataz ends the start and is left alone") {
  const Scratch directory;
  for (const char* extension : {".ISM", ".ISD", ".ISF"})
    touch(directory / ("dataz" + std::string(extension)), "?");
  CHECK(failedStart(directory.path()).back() == kFatal);
  CHECK(std::filesystem::file_size(directory / "dataz.ISD") == 1);
}

TEST_CASE("a half-made installation is completed at the next start") {
  const Scratch scratch;
  const std::filesystem::path offered = scratch.path() / "offerti";
  std::filesystem::copy(TARVEX_SOURCE_DIR "/data", offered);
  std::filesystem::remove(offered / "dataz.csv");
  const std::filesystem::path directory = scratch.path() / "dati";
  {
    FakeDesk desk;
    Session session({directory, directory, offered, {}}, desk, units());
    Frame frame(session);
    CHECK(!frame.start());
    CHECK(desk.boxes.back() == kFatal);
  }
  CHECK(std::filesystem::exists(directory / "installazione"));
  CHECK(std::filesystem::exists(directory / "gg.ISD"));
  Station station(directory);
  station.start([&](ui::Form& form) {
    checkWhole(station);
    form.close();
  });
}

TEST_CASE("an installation killed at any moment is completed at the next start") {
  for (int milliseconds = 2; milliseconds < 120; milliseconds += 13) {
    CAPTURE(milliseconds);
    const Scratch directory;
    const pid_t child = ::fork();
    if (child == 0) {
      Station station(directory.path());
      station.start(test::leave);
      ::_exit(0);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    Station station(directory.path());
    station.start([&](ui::Form& form) {
      checkWhole(station);
      form.close();
    });
  }
}

TEST_CASE("two first starts at once make one installation") {
  const Scratch directory;
  const auto start = [&] {
    Station station(directory.path());
    bool whole = false;
    station.start([&](ui::Form& form) {
      whole = countRecords(station.session.dataz) == 380 && station.desk.boxes.empty();
      form.close();
    });
    return whole;
  };
  const pid_t child = ::fork();
  if (child == 0) ::_exit(start() ? 0 : 1);
  CHECK(start());
  int status = 1;
  ::waitpid(child, &status, 0);
  CHECK(status == 0);
}
