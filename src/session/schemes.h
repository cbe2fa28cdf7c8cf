// The schemes of automated entries: the archive ax, "auto prima nota", shared by the years of a company.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archives/ax.h"
#include "session/session.h"

namespace tarvex {

// The names of all schemes, in the order of the archive.
std::vector<std::string> schemeNames(Session& session);

// Nothing when there is none of that name; a failure is reported.
std::optional<rec::ax> readScheme(Session& session, std::string_view name);

// Writes the scheme under its name, over one that is there. False after a failure, which has been reported.
bool writeScheme(Session& session, const rec::ax& scheme);

// Harmless when there is none of that name.
void removeScheme(Session& session, std::string_view name);

// Adds the ready schemes that the program comes with (causali.csv) but for the names that are there already.
// How many it added.
int addReadySchemes(Session& session);

}  // namespace tarvex
