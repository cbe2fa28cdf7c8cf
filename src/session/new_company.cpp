#include "session/new_company.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "archives/catalogue.h"
#include "archives/si.h"
#include "session/checks.h"
#include "session/company.h"
#include "session/predefined_accounts.h"

namespace tarvex {
namespace {

using store::Operation;

// No company's code: all that give slots away or free them exclude each other by this key.
constexpr std::string_view kSlotLock = "!!";

struct Creation {
  std::string_view prefix;
  int position;  // of the report
};

// What is made after `ct`, in this order; `pr` comes last of all.
constexpr std::array<Creation, 27> kArchives{{
    {"pc", 41},    {"iv", 42}, {"ia", 43}, {"ic", 44}, {"tt", 45}, {"mc", 46}, {"ax", 47},
    {"ssmod", 48}, {"si", 49}, {"xx", 50}, {"fa", 51}, {"ma", 52}, {"mm", 53}, {"ag", 54},
    {"sd", 55},    {"st", 56}, {"sf", 57}, {"lf", 58}, {"pf", 59}, {"cp", 60}, {"mp", 61},
    {"ff", 62},    {"sh", 63}, {"ce", 64}, {"ba", 65}, {"ra", 66}, {"po", 67},
}};

struct Scan {
  int used = 0;                     // slots in use before the free one
  std::optional<std::string> free;  // key
};

// Up to the first free slot; `untouched` asks for one that was never used.
Scan scanSlots(archives::Archive<rec::dataz>& dataz, bool untouched) {
  Scan scan;
  dataz.bof(0);
  while (dataz.next(0) == store::kOk) {
    if (!dataz.B.ragsoc.empty()) {
      ++scan.used;
    } else if (!untouched || dataz.B.stato == 0) {
      scan.free = dataz.primaryKey();
      return scan;
    }
  }
  return scan;
}

Slot writeSlot(Session& session, const NewCompany& company, std::string& code) {
  archives::Archive<rec::dataz>& dataz = session.dataz;
  if (dataz.search(1, company.name) == store::kOk) return Slot::nameExists;
  const Scan scan = scanSlots(dataz, true);
  const std::optional<std::string> free = scan.free ? scan.free : scanSlots(dataz, false).free;
  if (scan.used >= kMostCompanies || !free) return Slot::noneFree;
  dataz.A = rec::dataz{company.name, company.address, company.city, company.vatNumber, 1, 1, ""};
  dataz.put(*free, store::Put::rewrite);
  session.CheckArchiveResult(Operation::write, dataz.code, 30);
  if (session.store.LastArchiveResult != store::kOk) return Slot::failed;
  dataz.flush();
  session.CheckArchiveResult(Operation::write, dataz.code, 31);
  code = *free;
  return Slot::taken;
}

Slot rewriteSlot(Session& session, const NewCompany& company, std::string_view code) {
  archives::Archive<rec::dataz>& dataz = session.dataz;
  if (dataz.search(1, company.name) == store::kOk && dataz.primaryKey() != code) return Slot::nameExists;
  dataz.spinLock(code);
  dataz.search(0, code);
  session.CheckArchiveResult(Operation::read, dataz.code, 81);
  bool written = session.store.LastArchiveResult == store::kOk;
  if (written) {
    dataz.A = dataz.B;
    dataz.A.ragsoc = company.name;
    dataz.A.indirizzo = company.address;
    dataz.A.citta = company.city;
    dataz.A.partitaiva = company.vatNumber;
    written = dataz.put(code, store::Put::rewrite) == store::kOk;
    session.CheckArchiveResult(Operation::write, dataz.code, 82);
    dataz.flush();
    dataz.search(0, code);
  }
  dataz.unlock(code);
  return written ? Slot::taken : Slot::failed;
}

void create(Session& session, std::string_view prefix, int position) {
  const archives::Entry& entry = *archives::find(prefix);
  const std::string stem = session.stem(prefix);
  // Those of a company that once had this code stay behind when it is removed: they serve again.
  if (prefix == "po" && std::filesystem::exists(stem + ".ISM")) return;
  session.store.VmxCreate(stem, entry.keyLength, std::string(entry.format));
  session.CheckArchiveResult(Operation::create, entry.code, position);
}

void writeFlags(Session& session) {
  OpenArchive<rec::ct> ct(session, 32, 33);
  ct->put("1", store::Put::write);
  session.CheckArchiveResult(Operation::write, ct->code, 34);
}

void writeVatBalances(Session& session) {
  OpenArchive<rec::si> si(session, 35, 36);
  si->put("1", store::Put::write);
  session.CheckArchiveResult(Operation::write, si->code, 37);
}

void createArchives(Session& session) {
  create(session, "ct", 40);
  writeFlags(session);
  for (const Creation& creation : kArchives) {
    create(session, creation.prefix, creation.position);
    if (creation.prefix == "si") writeVatBalances(session);
  }
}

// Where one record cannot be written the others cannot either: one report tells as much as all of them.
void writeAccounts(Session& session, archives::Archive<rec::pc>& pc) {
  for (const PredefinedAccount& account : predefinedAccounts()) {
    pc.A = recordOf(account);
    pc.put(account.key, store::Put::add);
    session.CheckArchiveResult(Operation::write, pc.code, 70);
    if (session.store.LastArchiveResult != store::kOk) return;
  }
}

std::vector<std::string> counterKeys() {
  std::vector<std::string> keys{"of", "co", "bp", "bv", "fp", "or",   "bc", "mc",
                                "mm", "ia", "ic", "iv", "mp", "dati", "ba", "po"};
  const auto addRegisters = [&](std::string_view name) {
    for (char number = '1'; number <= '9'; ++number) keys.push_back(std::string(name) + number);
  };
  for (const char* name : {"fv", "prot", "co", "regiv", "regia"}) addRegisters(name);
  keys.insert(keys.end(), {"giornale", "paggiorn", "magaz", "conto", "scaclird", "scaclitr", "scafornrd",
                           "agente", "xx", "mra", "versione", "rr", "yy", "destinaz", "codpag"});
  return keys;
}

void writeCounters(Session& session, archives::Archive<rec::pr>& pr) {
  for (const std::string& key : counterKeys()) {
    pr.A = rec::pr{key == "conto" ? kFirstCounter : 0, ""};
    pr.put(key, store::Put::write);
    session.CheckArchiveResult(Operation::write, pr.code, 71);
    if (session.store.LastArchiveResult != store::kOk) return;
  }
}

}  // namespace

Slot takeSlot(Session& session, const NewCompany& company, std::string& code) {
  session.dataz.spinLock(kSlotLock);
  const Slot slot = writeSlot(session, company, code);
  session.dataz.unlock(kSlotLock);
  return slot;
}

void refuseSlot(Session& session, Slot slot, std::string nameExists, ui::Field& name) {
  ui::Desk& desk = session.desk();
  if (slot == Slot::nameExists) return desk.refuse(std::move(nameExists), name);
  if (slot != Slot::noneFree) return;
  desk.beep();
  desk.show({"Non si possono aprire più aziende", std::string(kProduct), ui::Ask::ok, ui::Icon::warning});
}

Slot changeSlot(Session& session, const NewCompany& company, std::string_view code) {
  session.dataz.spinLock(kSlotLock);
  const Slot slot = rewriteSlot(session, company, code);
  session.dataz.unlock(kSlotLock);
  return slot;
}

void freeSlot(Session& session, std::string_view code) {
  archives::Archive<rec::dataz>& dataz = session.dataz;
  dataz.spinLock(kSlotLock);
  dataz.A = rec::dataz{};
  dataz.put(code, store::Put::rewrite);
  session.CheckArchiveResult(Operation::write, dataz.code, 84);
  dataz.flush();
  dataz.unlock(kSlotLock);
}

void openCompanyArchives(Session& session) {
  session.pc.open(session.stem("pc"));
  session.CheckArchiveResult(Operation::open, session.pc.code, 72);
  session.pr.open(session.stem("pr"));
  session.CheckArchiveResult(Operation::open, session.pr.code, 73);
  session.ct.open(session.stem("ct"));
  session.CheckArchiveResult(Operation::open, session.ct.code, 74);
}

void makeCompany(Session& session, const NewCompany& company, const std::string& code) {
  closeCompany(session);
  enterCompany(session, code, company.name, company.year, "01");
  createArchives(session);
  {
    OpenArchive<rec::pc> pc(session, 75, 76);
    writeAccounts(session, *pc);
    create(session, "pr", 77);
    OpenArchive<rec::pr> pr(session, 78, 79);
    writeCounters(session, *pr);
  }
  openCompanyArchives(session);
  session.WarehouseCount = 1;
  session.dataz.search(0, code);
  session.CheckArchiveResult(Operation::read, session.dataz.code, 80);
  session.log("Aperta nuova azienda " + company.name + " " + company.year);
}

}  // namespace tarvex
