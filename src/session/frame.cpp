#include "session/frame.h"

#include <optional>

#include "common/date.h"
#include "session/checks.h"
#include "session/company.h"
#include "session/startup.h"
#include "session/text_file.h"
#include "ui/lookup.h"
#include "ui/user.h"

namespace tarvex {
namespace {

using store::Operation;
using ui::Ask;
using ui::Icon;

ui::Form* formNamed(ui::Desk& desk, std::string_view name, std::string_view mode = {}) {
  for (ui::Form* form : desk.forms())
    if (form->name() == name && form->mode() == mode) return form;
  return nullptr;
}

template <class R>
void closeArchive(Session& session, archives::Archive<R>& archive, int position) {
  if (!archive.isOpen()) return;
  archive.close();
  session.CheckArchiveResult(Operation::close, archive.code, position);
}

void closeArchives(Session& session) {
  closeArchive(session, session.dataz, 90);
  closeArchive(session, session.civa, 91);
  closeArchive(session, session.ct, 92);
  closeArchive(session, session.pc, 93);
  closeArchive(session, session.pr, 94);
  session.store.settle();
}

}  // namespace

bool Frame::start() {
  bool started = false;
  {
    const ui::Busy busy(session_.desk());
    started = startSession(session_);
  }
  if (!started) {
    ended_ = true;
    session_.desk().end();
    return false;
  }
  session_.desk().frameChanged();
  if (!chooseCompany()) return false;
  if (session_.param.agendaavvio == 1 && session_.knows("AGENDA")) session_.open("AGENDA");
  return true;
}

// SCELTA is left by a choice or by the end of the program, in no other way.
bool Frame::chooseCompany() {
  while (!session_.isCompanyOpen()) {
    session_.run("SCELTA");
    if (session_.isCompanyOpen() || !end()) continue;
    session_.desk().end();
    return false;
  }
  return true;
}

void Frame::changeCompany() {
  {
    const ui::Busy busy(session_.desk());
    closeCompany(session_);
  }
  chooseCompany();
}

bool Frame::passesWindowRule(Guard guard) {
  if (guard == Guard::none || session_.desk().forms().empty()) return true;
  const char* text = guard == Guard::shortBox ? "Tutte le finestre devono essere chiuse"
                                              : "Tutte le finestre devono essere chiuse prima di effettuare "
                                                "l'operazione richiesta";
  session_.desk().show({text, std::string(kProduct), Ask::ok, Icon::warning});
  return false;
}

Chosen Frame::choose(std::string_view name) {
  if (name == "StatusBar1") {
    session_.desk().show(
        {"Codice azienda: " + session_.CompanyCode, std::string(kProduct), Ask::ok, Icon::information});
    return Chosen::done;
  }
  const MenuEntry* entry = findMenu(name);
  return entry ? choose(*entry) : Chosen::unknown;
}

Chosen Frame::choose(const MenuEntry& entry) {
  switch (entry.action) {
    case MenuAction::none:
      return Chosen::unknown;
    case MenuAction::open:
      return open(entry);
    case MenuAction::end:
      return finish();
    default:
      return Chosen::host;
  }
}

Chosen Frame::finish() {
  if (!end()) return Chosen::refused;
  session_.desk().end();
  return Chosen::done;
}

Chosen Frame::open(const MenuEntry& entry) {
  if (!session_.knows(entry.unit)) return Chosen::unavailable;
  // Until a company is chosen only SCELTA is usable.
  if (!session_.isCompanyOpen() || formNamed(session_.desk(), "SCELTA")) return Chosen::refused;
  if (!passesWindowRule(entry.guard)) return Chosen::refused;
  if (entry.unit == "SCELTA") {
    changeCompany();
  } else if (entry.unit == "APRIAZ" || entry.unit == "cancella") {
    session_.run(entry.unit);  // it changes the company under every form that would be opened beside it
    chooseCompany();           // cancella may have removed the one that was open
  } else {
    session_.open(entry.unit, entry.mode);
  }
  return Chosen::done;
}

Chosen Frame::openUnit(std::string_view unit, std::string_view mode) {
  const MenuEntry* entry = findMenuOfUnit(unit, mode);
  if (!entry) return Chosen::unknown;
  ui::Desk& desk = session_.desk();
  if (ui::Form* standing = formNamed(desk, unit, entry->mode)) {
    desk.bringToFront(*standing);
    return Chosen::done;
  }
  ui::Form* choice = formNamed(desk, "SCELTA");
  if (unit == "APRIAZ" && choice && desk.forms().size() == 1) {
    auto* button = dynamic_cast<ui::Button*>(ui::find(*choice, "nuova").control);
    return button && ui::User(*choice).press(*button) ? Chosen::done : Chosen::refused;
  }
  return choose(*entry);
}

bool Frame::end() {
  if (ended_) return true;
  const ui::Box question{"Le finestre non risultano tutte chiuse. Terminare Tarvex", std::string(kProduct),
                         Ask::yesNo, Icon::question};
  ui::Desk& desk = session_.desk();
  if (!desk.forms().empty() && desk.show(question) != ui::Answer::yes) return false;
  if (stopsForBackup()) return false;
  closeArchives(session_);
  if (!session_.CompanyName.empty()) writeLine(session_.DataDirectory + "www", session_.CompanyName);
  ended_ = true;
  return true;
}

// Asks once: who has answered yes ends again after the backup, and is not asked then.
bool Frame::stopsForBackup() {
  if (session_.ExitBackupRequested) {
    session_.ExitBackupRequested = false;
    return false;
  }
  if (!session_.isCompanyOpen()) return false;
  const std::string path = session_.DataDirectory + session_.WorkYear + session_.CompanyCode + "BK.DAT";
  const std::optional<std::string> last = firstLine(path);
  if (!last || !common::isDate(*last)) return false;
  if (common::daysBetween(*last, session_.TodayText) < session_.param.giornibackup) return false;
  const std::string text =
      "L'ultimo backup degli archivi è stato effettuato il " + *last + ". Effettuarlo ora?";
  if (!session_.desk().confirm(text)) {
    session_.log("Uscita dal programma senza fare backup");
    return false;
  }
  session_.ExitBackupRequested = true;
  if (session_.knows("BACK1")) session_.open("BACK1");
  return true;
}

Appearance Frame::appearance() const {
  const rec::param& param = session_.param;
  const auto inData = [&](const char* file) { return session_.DataDirectory + file; };
  constexpr double kBars = 6;
  Appearance look;
  const bool numbered = param.stiletoolbar >= 1 && param.stiletoolbar < kBars;
  if (param.mostratoolbar == 1) look.toolBar = 1 + (numbered ? static_cast<int>(param.stiletoolbar) : 0);
  look.sideBar = param.mostralistbar == 1;
  look.statusBar = param.mostrastatusbar == 1;
  look.colour = param.coloresfondo;
  const std::string own = param.percorsosfondo.empty() ? inData("SfondoTV2.bmp") : param.percorsosfondo;
  if (param.immaginesfondo == 1)
    look.background = param.predefinita == 1   ? inData("SfondoLogoDorlen.bmp")
                      : param.predefinita == 2 ? inData("SfondoTV1.bmp")
                                               : own;
  if (param.immaginelistbar == 1) look.sideBarPicture = param.percorsosfondo;
  return look;
}

std::string Frame::caption(const MenuEntry& entry) const {
  const std::string caption(entry.caption);
  if (entry.name != "mu" || session_.CurrentWarehouse.empty()) return caption;
  return caption + " " + session_.CurrentWarehouse;
}

}  // namespace tarvex
