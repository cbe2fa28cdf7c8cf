// Which companies and years there are, and which one is open.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace tarvex {

inline constexpr int kFirstYear = 1990, kLastYear = 2030;
inline constexpr std::string_view kVersion = "5.0.23";  // what `pr` "versione" holds

// The names in use, in the order of their index.
std::vector<std::string> companyNames(Session& session);

// The code of the company of that name; its record stands in dataz.B then.
std::optional<std::string> companyCode(Session& session, std::string_view name);

// The years of a company, ascending: those of 1990 to 2030 whose `ct` opens.
std::vector<std::string> yearsOf(Session& session, std::string_view code);

// The warehouses of a year, at least 1; 0 when its `pr` does not open.
int warehousesOf(Session& session, std::string_view code, std::string_view year);

enum class Opening { done, notThere, wrongPassword, failed };  // failed: reported already

// Opens the company of that name: `ct`, `pr`, `pc`, the session's state, the status bar; asks for its
// password with PASS, and writes the version into `pr` "versione" (under its lock). Unless done, no company
// is open afterwards.
Opening openCompany(Session& session, std::string_view name, std::string_view year,
                    std::string_view warehouse);

// Writes a company's password as it is to be kept (session/password.h; empty: none), under the record's lock
// and into the record as it stands then. False when that failed, which has been reported.
bool changePassword(Session& session, std::string_view code, std::string_view kept);

// Closes `pc`, `pr`, `ct` when they are open; no company is open then. CompanyName stays.
void closeCompany(Session& session);

// Makes the session that of this company and year, and shows it in the status bar and the menu: panel 4 the
// year of work when it is not the calendar's, 6 the warehouse, 8 the name.
void enterCompany(Session& session, std::string_view code, std::string_view name, std::string_view year,
                  std::string_view warehouse);

}  // namespace tarvex
