// The start of the program before the choice of a company.
#pragma once

#include "session/session.h"

namespace tarvex {

// Finds the data directory, makes a new installation where there is none, opens `dataz` and `civa`, reads the
// parameters and sets the session's values, each failure reported. False when `dataz` does not open: the box
// that tells so has been shown, and the program ends.
bool startSession(Session& session);

// Where the archives lie, with a trailing separator: the directory that the file `rr` of the program's
// directory names, or SessionOptions::dataDirectory for a single station ("mono", an empty line, no such
// file).
std::string dataDirectory(const SessionOptions& options, bool& singleStation);

// Copies the parameters into the values that stand for them (font, sizes, maxricerca), after they were read.
void applyParameters(Session& session);

}  // namespace tarvex
