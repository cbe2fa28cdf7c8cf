// The making of a company with its first year: slot, archives, predefined accounts, counters.
#pragma once

#include <string>

#include "session/session.h"

namespace tarvex {

struct NewCompany {
  std::string name, address, city, vatNumber, year;
};

enum class Slot { taken, nameExists, noneFree, failed };  // failed: reported already, nothing was made

inline constexpr int kMostCompanies = 100;

// Finds a free slot of `dataz` and writes the company into it, under one lock for all stations, so that two
// of them take neither the same slot nor the same name. `code` receives the slot's key.
Slot takeSlot(Session& session, const NewCompany& company, std::string& code);

// Closes the open company, makes the archives of the new one with what they begin with, and leaves the
// session on it, warehouse 01. A failure is reported, and the work goes on. Writes the log line.
void makeCompany(Session& session, const NewCompany& company, const std::string& code);

}  // namespace tarvex
