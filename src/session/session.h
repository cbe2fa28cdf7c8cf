// The session of one station: where the archives lie, which company and year are open, the parameters, and
// the ways to everything that a form needs: the archives held open, the desk of the host, the log, other
// units.
//
// Passed by reference; there is no global state, so that two stations live in one process (tests do).
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "archives/archive.h"
#include "archives/civa.h"
#include "archives/ct.h"
#include "archives/dataz.h"
#include "archives/param.h"
#include "archives/pc.h"
#include "archives/pr.h"
#include "common/clock.h"
#include "store/record_store.h"
#include "ui/desk.h"

namespace tarvex {

class Session;

// One entry of the table of units (app/units.h): the name of a form and how it is made.
struct Unit {
  std::string_view name;
  std::unique_ptr<ui::Form> (*make)(Session&);
};

struct SessionOptions {
  std::filesystem::path dataDirectory;     // of the archives, when no file `rr` says otherwise
  std::filesystem::path programDirectory;  // where `rr` lies
  std::filesystem::path offeredData;       // the tables that a new installation is filled with (data/)
  common::Clock clock;
};

class Session {
  // Before the archives, which report through them until they are gone.
  SessionOptions options_;
  ui::Desk& desk_;
  std::span<const Unit> units_;

 public:
  Session(SessionOptions options, ui::Desk& desk, std::span<const Unit> units);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // --- the state that all forms share ---
  std::string DataDirectory;  // with a trailing separator
  std::string ServerProgramPath;
  std::string CompanyCode;       // two letters; empty when no company is open
  std::string CompanyName;       // of the company last opened: what `www` keeps
  std::string WorkYear;          // four digits
  std::string YearDateMask;      // "__/__/" + WorkYear
  std::string YearStartDate;     // 01/01/ + WorkYear
  std::string CurrentWarehouse;  // two digits
  std::int16_t WarehouseCount = 0;
  std::string TodayText;  // dd/mm/yyyy, taken once at start-up
  std::string CurrentUser;
  std::string PrintFontName;
  int PrintSize = 0;                       // points
  int PageLength = 0;                      // lines
  std::array<std::string, 13> MonthNames;  // 1 to 12
  double EuroRate = 0;
  bool ExitBackupRequested = false;
  int AgentMode = 0;               // 1: the supplier screens made next serve agents
  std::string LastRegisteredName;  // what RCLIENT3 and RFORN3 hand back
  std::string EntryToRevise;       // number of the journal's entry, for the revision form opened next
  std::shared_ptr<const ui::Sheet> LastSheet;  // what Foglio shows
  std::string VoiceToShow;         // code of the voice whose card visched1 opens on
  std::string DocumentToShow;      // key of the document that VISDOC1 opens on

  // --- the archives held open: dataz and civa for the run, the others for the open company ---
  store::RecordStore store;
  archives::Archive<rec::dataz> dataz{store};
  archives::Archive<rec::civa> civa{store};
  archives::Archive<rec::ct> ct{store};
  archives::Archive<rec::pc> pc{store};
  archives::Archive<rec::pr> pr{store};
  rec::param param;  // read at start-up, refreshed by PARGES

  bool isCompanyOpen() const { return !CompanyCode.empty(); }
  const SessionOptions& options() const { return options_; }
  const common::Clock& clock() const { return options_.clock; }
  ui::Desk& desk() const { return desk_; }

  // Reports the last archive operation, when it failed, as boxes and in the log; the caller carries on.
  void CheckArchiveResult(store::Operation operation, int archive, int position) {
    store.CheckArchiveResult(operation, archive, position);
  }

  // The stem of an archive by its prefix, for the open company and year (or the ones given).
  std::string stem(std::string_view prefix) const;
  std::string stem(std::string_view prefix, std::string_view year, std::string_view company) const;

  // The path, without extension, of the group log of the open company; of the installation.
  std::string groupLog() const;
  std::string installationLog() const;

  // Appends one entry of four lines to the company's log --.isx; errors are ignored.
  void log(std::string_view text);
  std::string logPath() const;

  // --- units ---
  bool knows(std::string_view unit) const;
  std::unique_ptr<ui::Form> make(std::string_view unit);  // the unit must be known
  // Opens a unit's form beside the others; one that stands open in that mode comes to the front. `mode` as
  // the menu has it: "agente" for the supplier screens that serve agents, which sets AgentMode.
  void open(std::string_view unit, std::string_view mode = {});
  // Runs a unit's form as a modal step; returns when it has closed.
  void run(std::string_view unit, std::string_view mode = {});

  // How a store of this station reports and waits: for one that lives for a single operation.
  store::StoreOptions storeOptions();

 private:
  void showFailure(const store::ArchiveFailure& failure);
  std::unique_ptr<ui::Form> make(std::string_view unit, std::string_view mode);
};

// Opens an archive for one operation and closes it on every path, both reported with the archive's code and
// these two positions: `OpenArchive<rec::mc> mc(session, 1210, 1211); mc->search(...)`.
template <class R>
class OpenArchive {
 public:
  OpenArchive(Session& session, int openPosition, int closePosition)
      : session_(session), closePosition_(closePosition), archive_(session.store) {
    archive_.open(session.stem(archives::Layout<R>::prefix));
    session_.store.CheckArchiveResult(store::Operation::open, archives::Layout<R>::code, openPosition);
  }
  ~OpenArchive() {
    if (!archive_.isOpen()) return;
    archive_.close();
    session_.store.CheckArchiveResult(store::Operation::close, archives::Layout<R>::code, closePosition_);
  }
  OpenArchive(const OpenArchive&) = delete;
  OpenArchive& operator=(const OpenArchive&) = delete;

  archives::Archive<R>* operator->() { return &archive_; }
  archives::Archive<R>& operator*() { return archive_; }

 private:
  Session& session_;
  int closePosition_;
  archives::Archive<R> archive_;
};

}  // namespace tarvex
