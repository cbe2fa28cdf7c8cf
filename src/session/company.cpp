#include "session/company.h"

#include <algorithm>

#include "session/PASS.h"
#include "session/password.h"

namespace tarvex {
namespace {

using store::Operation;

constexpr std::string_view kVersionKey = "versione";

void showCompany(Session& session) {
  const std::string calendarYear =
      session.TodayText.substr(std::min<std::size_t>(6, session.TodayText.size()));
  session.desk().status(4, session.WorkYear == calendarYear ? "" : session.WorkYear);
  session.desk().status(6, session.CurrentWarehouse);
  session.desk().status(8, session.isCompanyOpen() ? session.CompanyName : "");
  session.desk().frameChanged();
}

// Zero, as a year is created with, stands for the one warehouse that there always is.
int warehousesIn(archives::Archive<rec::pr>& pr) {
  if (pr.search(0, "magaz") != store::kOk) return 1;
  return std::max(1, static_cast<int>(pr.B.valore));
}

void writeVersion(Session& session) {
  archives::Archive<rec::pr>& pr = session.pr;
  if (pr.search(0, kVersionKey) == store::kOk && pr.B.testo == kVersion) return;
  pr.spinLock(kVersionKey);
  const bool found = pr.search(0, kVersionKey) == store::kOk;
  session.CheckArchiveResult(Operation::read, pr.code, 20);
  pr.A = found ? pr.B : rec::pr{};
  pr.A.testo = kVersion;
  pr.put(kVersionKey, store::Put::write);
  session.CheckArchiveResult(Operation::write, pr.code, 21);
  pr.flush();
  pr.unlock(kVersionKey);
}

bool upgradePassword(Session& session, std::string_view code, std::string_view typed) {
  const std::optional<std::string> kept = keptPassword(typed);
  return kept && changePassword(session, code, *kept);
}

bool passwordIsRight(Session& session, std::string_view code) {
  const std::string kept = session.dataz.B.password;
  if (kept.empty()) return true;
  const std::optional<std::string> typed = askPassword(session, kept);
  if (!typed) return false;
  if (checkPassword(kept, *typed) == PasswordCheck::rightButPlain) upgradePassword(session, code, *typed);
  return true;
}

}  // namespace

bool changePassword(Session& session, std::string_view code, std::string_view kept) {
  archives::Archive<rec::dataz>& dataz = session.dataz;
  dataz.spinLock(code);
  dataz.search(0, code);
  session.CheckArchiveResult(Operation::read, dataz.code, 22);
  bool written = session.store.LastArchiveResult == store::kOk;
  if (written) {
    dataz.A = dataz.B;
    dataz.A.password = kept;
    written = dataz.put(code, store::Put::rewrite) == store::kOk;
    session.CheckArchiveResult(Operation::write, dataz.code, 23);
    dataz.flush();
  }
  dataz.unlock(code);
  return written;
}

std::vector<std::string> companyNames(Session& session) {
  archives::Archive<rec::dataz>& dataz = session.dataz;
  std::vector<std::string> names;
  dataz.bof(1);
  while (dataz.next(1) == store::kOk)
    if (!dataz.B.ragsoc.empty()) names.push_back(dataz.B.ragsoc);
  if (session.store.LastArchiveResult != store::kNotFound)
    session.CheckArchiveResult(Operation::read, dataz.code, 24);
  return names;
}

std::optional<std::string> companyCode(Session& session, std::string_view name) {
  if (name.empty() || session.dataz.search(1, name) != store::kOk) return std::nullopt;
  return session.dataz.primaryKey();
}

std::vector<std::string> yearsOf(Session& session, std::string_view code) {
  std::vector<std::string> years;
  archives::Archive<rec::ct> ct(session.store);
  for (int number = kFirstYear; number <= kLastYear; ++number) {
    const std::string year = std::to_string(number);
    if (ct.open(session.stem("ct", year, code)) != store::kOk) continue;
    years.push_back(year);
    ct.close();
  }
  return years;
}

int warehousesOf(Session& session, std::string_view code, std::string_view year) {
  archives::Archive<rec::pr> pr(session.store);
  if (pr.open(session.stem("pr", year, code)) != store::kOk) return 0;
  const int count = warehousesIn(pr);
  pr.close();
  return count;
}

void enterCompany(Session& session, std::string_view code, std::string_view name, std::string_view year,
                  std::string_view warehouse) {
  session.CompanyCode = code;
  session.CompanyName = name;
  session.WorkYear = year;
  session.YearDateMask = "__/__/" + session.WorkYear;
  session.YearStartDate = "01/01/" + session.WorkYear;
  session.CurrentWarehouse = warehouse;
  showCompany(session);
}

void closeCompany(Session& session) {
  const auto close = [&](auto& archive, int position) {
    if (!archive.isOpen()) return;
    archive.close();
    session.CheckArchiveResult(Operation::close, archive.code, position);
  };
  close(session.pc, 25);
  close(session.pr, 26);
  close(session.ct, 27);
  session.CompanyCode.clear();
  session.WorkYear.clear();
  session.YearDateMask.clear();
  session.YearStartDate.clear();
  session.CurrentWarehouse.clear();
  session.WarehouseCount = 0;
  showCompany(session);
}

Opening openCompany(Session& session, std::string_view name, std::string_view year,
                    std::string_view warehouse) {
  const std::optional<std::string> code = companyCode(session, name);
  if (!code) return Opening::notThere;
  if (session.ct.open(session.stem("ct", year, *code)) != store::kOk) return Opening::notThere;
  if (session.pr.open(session.stem("pr", year, *code)) != store::kOk) {
    closeCompany(session);
    return Opening::notThere;
  }
  session.WarehouseCount = static_cast<std::int16_t>(warehousesIn(session.pr));
  enterCompany(session, *code, name, year, warehouse);
  session.pc.open(session.stem("pc"));
  session.CheckArchiveResult(Operation::open, session.pc.code, 28);
  if (!session.pc.isOpen()) {
    closeCompany(session);
    return Opening::failed;
  }
  if (!passwordIsRight(session, *code)) {
    closeCompany(session);
    return Opening::wrongPassword;
  }
  writeVersion(session);
  return Opening::done;
}

}  // namespace tarvex
