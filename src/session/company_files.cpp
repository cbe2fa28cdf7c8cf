#include "session/company_files.h"

#include <array>
#include <filesystem>
#include <vector>

#include "archives/catalogue.h"
#include "session/company.h"
#include "session/new_company.h"

namespace tarvex {
namespace {

using store::Operation;

struct Listed {
  std::string_view prefix;
  int position;  // of the report
};

constexpr std::array<Listed, 29> kCopied{{
    {"ct", 110},    {"pc", 111}, {"iv", 112}, {"ia", 113}, {"ic", 114}, {"tt", 115}, {"mc", 116}, {"si", 117},
    {"xx", 118},    {"fa", 119}, {"ma", 120}, {"mm", 121}, {"ag", 122}, {"sd", 123}, {"st", 124}, {"sf", 125},
    {"lf", 126},    {"pf", 127}, {"cp", 128}, {"mp", 129}, {"ff", 130}, {"pr", 131}, {"ra", 132}, {"ax", 133},
    {"ssmod", 134}, {"sh", 135}, {"ce", 136}, {"ba", 137}, {"po", 138},
}};

constexpr std::array<Listed, 23> kOfYear{{
    {"ct", 140}, {"pc", 141}, {"pr", 142}, {"mc", 143}, {"tt", 144}, {"ia", 145}, {"iv", 146}, {"ic", 147},
    {"si", 148}, {"xx", 149}, {"ma", 150}, {"mm", 151}, {"fa", 152}, {"ag", 153}, {"sd", 154}, {"st", 155},
    {"sf", 156}, {"lf", 157}, {"pf", 158}, {"cp", 159}, {"mp", 160}, {"ff", 161}, {"ra", 162},
}};

constexpr std::array<Listed, 5> kOfCompany{
    {{"ax", 163}, {"ssmod", 164}, {"sh", 165}, {"ce", 166}, {"ba", 167}}};

bool stands(const std::string& stem) {
  std::error_code error;
  return std::filesystem::exists(stem + ".ISM", error);
}

void kill(Session& session, const Listed& listed, std::string_view year, std::string_view code) {
  session.store.VmxKill(session.stem(listed.prefix, year, code));
  session.CheckArchiveResult(Operation::kill, archives::find(listed.prefix)->code, listed.position);
}

// The log and the date of the last backup: another company that takes the slot would inherit them.
void removeTraces(Session& session, std::string_view code, std::string_view year) {
  const std::string prefix = session.DataDirectory + std::string(year) + std::string(code);
  std::error_code error;
  for (const char* name : {"--.isx", "BK.DAT"}) std::filesystem::remove(prefix + name, error);
}

}  // namespace

void copyCompany(Session& session, std::string_view code) {
  const std::string year = session.WorkYear, name = session.CompanyName, own = session.CompanyCode,
                    warehouse = session.CurrentWarehouse;
  const auto warehouses = session.WarehouseCount;
  std::vector<store::ArchiveCopy> copies;
  for (const Listed& listed : kCopied)
    copies.push_back({session.stem(listed.prefix, year, own), session.stem(listed.prefix, year, code)});
  closeCompany(session);
  if (stands(copies.back().to)) session.store.VmxKill(copies.back().to);
  const std::vector<store::Code> results = session.store.copyArchives(copies);
  for (std::size_t i = 0; i < results.size(); ++i) {
    session.store.LastArchiveResult = results[i];
    session.CheckArchiveResult(Operation::create, archives::find(kCopied[i].prefix)->code,
                               kCopied[i].position);
  }
  enterCompany(session, own, name, year, warehouse);
  session.WarehouseCount = warehouses;
  openCompanyArchives(session);
}

bool hasYear(Session& session, std::string_view code) {
  for (int year = kFirstYear; year <= kLastYear; ++year)
    if (stands(session.stem("ct", std::to_string(year), code))) return true;
  return false;
}

bool removeYear(Session& session, std::string_view code, std::string_view year) {
  if (session.CompanyCode == code && session.WorkYear == year) closeCompany(session);
  if (session.store.isOpenElsewhere(session.stem("ct", year, code))) return false;
  for (const Listed& listed : kOfYear) kill(session, listed, year, code);
  removeTraces(session, code, year);
  if (!hasYear(session, code)) removeCompany(session, code);
  return true;
}

void removeCompany(Session& session, std::string_view code) {
  for (const Listed& listed : kOfCompany)
    if (stands(session.stem(listed.prefix, {}, code))) kill(session, listed, {}, code);
  freeSlot(session, code);
}

}  // namespace tarvex
