// The making of a company with its first year: slot, archives, predefined accounts, counters.
#pragma once

#include <string>
#include <string_view>

#include "session/session.h"
#include "ui/control.h"

namespace tarvex {

struct NewCompany {
  std::string name, address, city, vatNumber, year;
};

enum class Slot { taken, nameExists, noneFree, failed };  // failed: reported already, nothing was made

inline constexpr int kMostCompanies = 100;
inline constexpr int kFirstCounter = 50;  // "conto": the numbers below are the predefined accounts'

// Finds a free slot of `dataz` and writes the company into it, under one lock for all stations, so that two
// of them take neither the same slot nor the same name. `code` receives the slot's key.
Slot takeSlot(Session& session, const NewCompany& company, std::string& code);

// Tells why no slot was given: `nameExists` with the focus on `name`, or that there is room for no more.
void refuseSlot(Session& session, Slot slot, std::string nameExists, ui::Field& name);

// Writes the four fields of a company under the same lock, its other fields as they stand. nameExists when
// another company bears the name; noneFree never.
Slot changeSlot(Session& session, const NewCompany& company, std::string_view code);

// Empties the slot of a company that has been removed, its name last of all seen by other stations.
void freeSlot(Session& session, std::string_view code);

// Opens `pc`, `pr`, `ct` of the company that the session stands on, each failure reported.
void openCompanyArchives(Session& session);

// Closes the open company, makes the archives of the new one with what they begin with, and leaves the
// session on it, warehouse 01. A failure is reported, and the work goes on. Writes the log line.
void makeCompany(Session& session, const NewCompany& company, const std::string& code);

}  // namespace tarvex
