// The installation step: what a new single-station installation holds before its first start.
#pragma once

#include "session/session.h"

namespace tarvex {

// Whether no program has worked in the directory yet: no archive stands there, nor the mark of an
// installation that has begun. A missing directory is such a one.
bool isUntouched(const std::string& directory);

// Makes the archives of installation scope in DataDirectory, but only where that directory (made when it is
// missing) holds no archive at all, or holds what an installation that was cut short has left. Anything else
// stays untouched: archives without `dataz` are an installation in distress, not a new one.
//
// `civa`, `cpag`, `param` and `dataz` are filled from the tables of SessionOptions::offeredData; `modulo`,
// `modrb`, `gg` and the file `www` are made empty. `dataz` comes last and by rename, so that an archive of
// that name is a whole one. While it lasts a file "installazione" stands in the directory, locked by the
// station at work.
//
// False when an installation was to be made and could not be: the failure has been reported or logged.
bool ensureInstallation(Session& session);

}  // namespace tarvex
