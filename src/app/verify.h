// The invariants of the books of the open company, each told by a rule that stands beside what it checks.
#pragma once

#include <vector>

#include "session/session.h"
#include "session/violation.h"

namespace tarvex {

// Reads the archives of the open company and year, locks nothing and writes nothing; archive failures are
// reported as usual. Empty when all rules hold. Takes one or two passes over the journal.
std::vector<Violation> verify(Session& session);

}  // namespace tarvex
