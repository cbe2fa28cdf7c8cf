#include "session/startup.h"

#include <algorithm>
#include <string>
#include <vector>

#include "common/amount.h"
#include "common/text.h"
#include "session/installation.h"
#include "session/text_file.h"

namespace tarvex {
namespace {

using store::Operation;

constexpr std::string_view kUsualFont = "Courier New";
constexpr std::int16_t kUsualSearch = 50;

std::string withSeparator(std::string directory) {
  if (!directory.empty() && directory.back() != '/') directory += '/';
  return directory;
}

void setNames(Session& session) {
  session.MonthNames = {"",       "Gennaio", "Febbraio",  "Marzo",   "Aprile",   "Maggio",  "Giugno",
                        "Luglio", "Agosto",  "Settembre", "Ottobre", "Novembre", "Dicembre"};
  session.EuroRate = common::kEuroRate;
}

bool openCompanies(Session& session) {
  session.dataz.open(session.stem("dataz"));
  session.CheckArchiveResult(Operation::open, session.dataz.code, 10);
  if (session.dataz.isOpen()) return true;
  session.desk().show(
      {"Non è possibile proseguire con il programma. Nel caso di utilizzo del programma in rete verificare "
       "il "
       "percorso, inserito nei parametri, della directory di Tarvex sul server e verificare che sia stata "
       "effettuata la condivisione e che il disco rigido del server sia connesso alla rete.",
       "Tarvex", ui::Ask::ok, ui::Icon::critical});
  return false;
}

void readParameters(Session& session) {
  OpenArchive<rec::param> param(session, 12, 13);
  param->search(0, "1");
  session.CheckArchiveResult(Operation::read, param->code, 14);
  session.param = param->B;
}

void choosePrintFont(Session& session) {
  const std::vector<std::string> fonts = session.desk().printerFonts();
  const auto has = [&](std::string_view font) {
    return std::find(fonts.begin(), fonts.end(), font) != fonts.end();
  };
  if (has(session.PrintFontName)) return;
  if (has(kUsualFont)) {
    session.PrintFontName = kUsualFont;
    return;
  }
  session.desk().show({"Prima di effettuare una stampa selezionare il carattere di stampa", "ATTENZIONE",
                       ui::Ask::ok, ui::Icon::information});
}

}  // namespace

std::string dataDirectory(const SessionOptions& options, bool& singleStation) {
  const std::string line = firstLine((options.programDirectory / "rr").string()).value_or("");
  singleStation = line == "mono" || common::trim(line).empty();
  return withSeparator(singleStation ? options.dataDirectory.string() : line);
}

void applyParameters(Session& session) {
  if (session.param.maxricerca == 0) session.param.maxricerca = kUsualSearch;
  session.PrintFontName = session.param.carattere;
  session.PrintSize = session.param.corpostampa;
  session.PageLength = session.param.righepagina;
}

bool startSession(Session& session) {
  bool singleStation = false;
  session.DataDirectory = dataDirectory(session.options(), singleStation);
  session.TodayText = session.clock().today();
  session.ServerProgramPath = session.DataDirectory + "Tarvex.exe";
  if (singleStation) ensureInstallation(session);
  if (!openCompanies(session)) return false;
  session.civa.open(session.stem("civa"));
  session.CheckArchiveResult(Operation::open, session.civa.code, 11);
  readParameters(session);
  applyParameters(session);
  setNames(session);
  choosePrintFont(session);
  session.CurrentUser = "amministratore";
  return true;
}

}  // namespace tarvex
