#include "session/startup.h"

#include <doctest/doctest.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "session/checks.h"
#include "session/company.h"
#include "session/forms.h"
#include "session/station.h"
#include "tools/scratch.h"

using namespace tarvex;
using test::Scratch;
using test::Station;

namespace {

std::string contents(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, std::string_view text) { std::ofstream(path) << text; }

struct Plain : ui::Form {  // a form with nothing on it
  Plain(ui::Desk& desk, std::string_view name) : Form(desk, name, "Prova") {}
};

template <const char* name>
std::unique_ptr<ui::Form> makePlain(Session& session) {
  return std::make_unique<Plain>(session.desk(), name);
}
constexpr char kJournal[] = "VMC", kBackup[] = "BACK1";

constexpr Unit kFewUnits[] = {{"SCELTA", makeScelta},
                              {"APRIAZ", makeApriaz},
                              {kJournal, makePlain<kJournal>},
                              {kBackup, makePlain<kBackup>}};

// A session with the company Rossi, 2003, open.
struct Open : Scratch, Station {
  explicit Open(std::string today = "15/01/2003") : Station(path(), std::move(today)) {
    REQUIRE(start(test::found(desk, "Rossi", "2003")));
  }
};

}  // namespace

TEST_CASE("the file rr tells where the archives lie") {
  struct Row {
    const char* text;
    const char* directory;  // nullptr: the single station's own
  };
  for (const Row& row :
       {Row{"mono", nullptr}, Row{"mono\r\n", nullptr}, Row{"", nullptr}, Row{"\n", nullptr},
        Row{"   \n", nullptr}, Row{"/srv/dati\n", "/srv/dati/"}, Row{"/srv/dati/", "/srv/dati/"},
        Row{"monopoli\n", "monopoli/"}, Row{"/srv/due righe\nmono\n", "/srv/due righe/"}}) {
    CAPTURE(row.text);
    const Scratch program;
    write(program / "rr", row.text);
    bool single = false;
    const std::string found = dataDirectory({"/dati", program.path(), "", {}}, single);
    CHECK(found == (row.directory ? row.directory : "/dati/"));
    CHECK(single == (row.directory == nullptr));
  }
  const Scratch program;
  bool single = false;
  CHECK(dataDirectory({"/dati", program.path(), "", {}}, single) == "/dati/");
  std::filesystem::create_directory(program.path() / "rr");  // cannot be read: as no file
  CHECK(dataDirectory({"/dati", program.path(), "", {}}, single) == "/dati/");
  CHECK(single);
}

TEST_CASE("an empty directory that rr names is a share that is not there, not a new installation") {
  const Scratch program, share;
  write(program / "rr", share.path().string());
  Station station(program.path());
  CHECK(!station.start(test::leave));
  CHECK(station.desk.boxes.back().find("Non è possibile proseguire con il programma.") != std::string::npos);
  CHECK(!std::filesystem::exists(share / "civa.ISM"));
}

TEST_CASE("a directory that rr names is worked on as a share, and by its single station as before") {
  const Scratch directory;
  {
    Station first(directory.path());
    CHECK(first.start(test::found(first.desk, "Rossi", "2003")));
  }
  const auto versionOf = [&](const char* archive) { return contents(directory / archive).at(18); };
  CHECK(versionOf("2003ADpc.ISD") == 2);  // the journal written ahead
  namespace fs = std::filesystem;
  fs::permissions(directory.path(), fs::perms(02770));
  write(directory / "rr", directory.path().string());
  fs::remove(directory / "2003AD--.isx");
  {
    Station shared(directory.path());
    CHECK(shared.start(test::choose("Rossi", "2003")));
    shared.session.log("prova");
    CHECK(fs::status(shared.session.logPath()).permissions() == fs::perms(0660));
    CHECK(shared.desk.boxes.empty());
  }
  CHECK(versionOf("2003ADpc.ISD") == 1);  // the rollback journal
  fs::remove(directory / "rr");
  Station again(directory.path());
  CHECK(again.start(test::choose("Rossi", "2003")));
  CHECK(versionOf("2003ADpc.ISD") == 2);
}

TEST_CASE("the start sets the session's values") {
  Open station;
  const Session& session = station.session;
  CHECK(session.TodayText == "15/01/2003");
  CHECK(session.CurrentUser == "amministratore");
  CHECK(session.EuroRate == 1936.27);
  CHECK(session.MonthNames[1] == "Gennaio");
  CHECK(session.MonthNames[12] == "Dicembre");
  CHECK(session.PrintFontName == "Courier New");
  CHECK(session.DataDirectory == session.stem("civa").substr(0, session.stem("civa").size() - 4));
  CHECK(session.stem("mc") == session.DataDirectory + "2003ADmc");
  CHECK(session.stem("ba") == session.DataDirectory + "ADba");
  CHECK(session.groupLog() == session.DataDirectory + "AD--");
  CHECK_THROWS_AS((void)session.stem("nulla"), std::logic_error);
}

TEST_CASE("the printing font is one that the printer has") {
  struct Row {
    std::vector<std::string> fonts;
    const char *wanted, *font;
    int boxes;
  };
  const Scratch directory;
  Station(directory.path()).start(test::leave);
  for (const Row& row :
       {Row{{"Lucida", "Courier New"}, "Lucida", "Lucida", 0},
        Row{{"Arial", "Courier New"}, "Lucida", "Courier New", 0}, Row{{"Arial"}, "Lucida", "Lucida", 1}}) {
    Station station(directory.path());
    {
      archives::Archive<rec::param> param(station.session.store);
      REQUIRE(param.open((directory.path() / "param").string()) == store::kOk);
      param.search(0, "1");
      param.A = param.B;
      param.A.carattere = row.wanted;
      param.A.maxricerca = 0;
      param.put("1", store::Put::rewrite);
    }
    station.desk.fonts = row.fonts;
    station.start(test::leave);
    CHECK(station.session.PrintFontName == row.font);
    CHECK(static_cast<int>(station.desk.boxes.size()) == row.boxes);
    if (row.boxes)
      CHECK(station.desk.box() ==
            "ATTENZIONE|Prima di effettuare una stampa selezionare il carattere di stampa");
    CHECK(station.session.param.maxricerca == 50);
  }
}

TEST_CASE("a failure of an archive is told in boxes and in the log, and nothing else happens") {
  Open station;
  Session& session = station.session;
  const std::string before = contents(session.logPath());
  session.CheckArchiveResult(store::Operation::read, 8, 1234);
  CHECK(station.desk.beeps == 0);
  CHECK(contents(session.logPath()) == before);

  session.store.LastArchiveResult = store::kNoMemory;
  session.CheckArchiveResult(store::Operation::read, 8, 1234);
  CHECK(station.desk.beeps == 1);
  REQUIRE(station.desk.boxes.size() == 2);
  CHECK(station.desk.boxes[0] == "Tarvex|OUT OF MEMORY");
  CHECK(station.desk.boxes[1] ==
        "Errore durante operazione sugli archivi|Errore:  12\rOperazione: lettura dati\r"
        "Archivio: mov. contabili\rPosizione:  1234");
  CHECK(contents(session.logPath()) ==
        before +
            "---------------\n15/01/2003 10:30:00\nErrore:  12 Operazione: lettura "
            "dati Archivio: mov. contabili Posizione:  1234\n---------------\n");

  std::filesystem::remove(session.logPath());
  std::filesystem::create_directory(session.logPath());
  session.log("non si può scrivere");  // passed over
  CHECK(station.desk.boxes.size() == 2);
}

TEST_CASE("the checks of dates and of the VAT number show their own boxes") {
  Open station;
  std::string date = "__/__/2003";
  CHECK(!ValidateWorkDate(station.session, date));
  CHECK(date.empty());
  CHECK(station.desk.box() == "Errore|La data inserita non è valida");
  date = "31/12/2003";
  CHECK(ValidateWorkDate(station.session, date));
  date = "31/12/2002";
  CHECK(!ValidateWorkDate(station.session, date));
  CHECK(station.desk.box() == "Errore|La data inserita non è valida");
  CHECK(ValidateDate(station.session, date));
  CHECK(!validateRegistrationDate(station.session, date));
  CHECK(station.desk.box() == "Tarvex|L'anno inserito non corrisponde all'anno di lavoro");
  date = "31/04/2002";
  CHECK(!validateRegistrationDate(station.session, date));
  CHECK(station.desk.box() == "Errore|La data inserita non è valida");
  CHECK(station.desk.boxes.empty());

  CHECK(ValidateVatNumber(station.session, ""));
  CHECK(!ValidateVatNumber(station.session, "00000000000"));
  CHECK(station.desk.box() == "Errore|La partita iva inserita non è corretta");
  SetFieldHint(station.session);
  CHECK(station.desk.panels[2] == "F5 ricerca facilitata");
}

TEST_CASE("guarded entries ask for closed windows, the others open beside each other") {
  const Scratch directory;
  Station(directory.path()).start([&](ui::Form& form) { form.close(); });
  FakeDesk desk;
  Session session({directory.path(), directory.path(), "", common::Clock("15/01/2003", "10:30")}, desk,
                  kFewUnits);
  Frame frame(session);
  CHECK(frame.choose("mb2") == Chosen::refused);  // no company
  desk.modal["SCELTA"] = [&](ui::Form& form) {
    CHECK(frame.choose("mb2") == Chosen::refused);
    CHECK(frame.choose("ma3") == Chosen::refused);
    desk.modal["APRIAZ"] = [](ui::Form& apriaz) { test::fillCompany(apriaz, "Rossi", "2003"); };
    CHECK(frame.openUnit("APRIAZ", "") == Chosen::done);  // its own button
    CHECK(!form.isOpen());
  };
  REQUIRE(frame.start());

  CHECK(frame.choose("mb2") == Chosen::done);
  CHECK(frame.choose("mb2") == Chosen::done);  // comes to the front
  CHECK(desk.forms().size() == 1);
  CHECK(frame.choose("ma1") == Chosen::refused);
  CHECK(desk.box() == "Tarvex|Tutte le finestre devono essere chiuse");
  CHECK(frame.openUnit("APRIAZ", "") == Chosen::refused);
  CHECK(desk.box() == "Tarvex|Tutte le finestre devono essere chiuse");
  CHECK(frame.choose("back10") == Chosen::refused);
  CHECK(desk.box() ==
        "Tarvex|Tutte le finestre devono essere chiuse prima di effettuare l'operazione richiesta");
  CHECK(frame.choose("me1") == Chosen::unavailable);
  CHECK(frame.choose("mb") == Chosen::unknown);
  CHECK(frame.choose("p11") == Chosen::host);
  CHECK(frame.openUnit("PASS", "") == Chosen::unknown);
  CHECK(frame.choose("StatusBar1") == Chosen::done);
  CHECK(desk.box() == "Tarvex|Codice azienda: AD");
  CHECK(frame.caption(*findMenu("mu")) == "&Magazzino 01");

  desk.answers = {ui::Answer::no};
  CHECK(frame.choose("ma2") == Chosen::refused);
  CHECK(desk.box() == "Tarvex|Le finestre non risultano tutte chiuse. Terminare Tarvex");
  CHECK(!desk.ended);
  CHECK(session.pc.isOpen());
  desk.answers = {ui::Answer::yes};
  CHECK(frame.choose("p4") == Chosen::done);
  CHECK(desk.ended);
  CHECK(!session.pc.isOpen());
}

TEST_CASE("the end asks for a backup when the last one is old") {
  struct Row {
    const char* last;   // nullptr: no file
    std::int16_t days;  // the parameter
    bool asks;
  };
  const Scratch directory;
  Station station(directory.path());
  Session& session = station.session;
  session.DataDirectory = directory / "";
  session.TodayText = "15/01/2003";
  session.WorkYear = "2003";
  session.CompanyName = "Rossi";
  for (const Row& row : {Row{nullptr, 0, false}, Row{"nessuna data", 0, false}, Row{"08/01/2003", 7, true},
                         Row{"09/01/2003", 7, false}, Row{"31/12/2002\r\n", 15, true}}) {
    Frame frame(session);
    session.CompanyCode = "AD";
    if (row.last) write(directory / "2003ADBK.DAT", row.last);
    session.param.giornibackup = row.days;
    if (row.asks) station.desk.answers = {ui::Answer::yes};
    CHECK(frame.end() == !row.asks);
    if (!row.asks) continue;
    CHECK(station.desk.box() == "Attenzione|L'ultimo backup degli archivi è stato effettuato il " +
                                    std::string(row.last, 10) + ". Effettuarlo ora?");
    CHECK(session.ExitBackupRequested);
    CHECK(frame.end());  // after the backup: not asked again
  }
  station.desk.answers = {ui::Answer::no};
  CHECK(station.frame.end());
  CHECK(contents(session.logPath()).find("\nUscita dal programma senza fare backup\n") != std::string::npos);
  CHECK(contents(directory / "www") == "Rossi\n");
  CHECK(station.frame.end());  // ended is ended
  CHECK(station.desk.boxes.size() == 1);
}

TEST_CASE("the appearance follows the parameters") {
  Open station;
  rec::param& param = station.session.param;
  param = {};
  CHECK(station.frame.appearance().toolBar == 0);
  CHECK(station.frame.appearance().background.empty());
  param.mostratoolbar = 1;
  CHECK(station.frame.appearance().toolBar == 1);
  param.stiletoolbar = 5;
  CHECK(station.frame.appearance().toolBar == 6);
  param.stiletoolbar = 6;
  CHECK(station.frame.appearance().toolBar == 1);
  param.immaginesfondo = 1;
  CHECK(station.frame.appearance().background == station.session.DataDirectory + "SfondoTV2.bmp");
  param.percorsosfondo = "/immagini/mare.jpg";
  CHECK(station.frame.appearance().background == "/immagini/mare.jpg");
  param.predefinita = 1;
  CHECK(station.frame.appearance().background == station.session.DataDirectory + "SfondoLogoDorlen.bmp");
}
