// The rules of the ledger that ask whether what a record names is there. (ledger_rules.h tells them.)
#pragma once

#include <vector>

#include "session/session.h"
#include "session/violation.h"

namespace tarvex {

std::vector<Violation> checkReferences(Session& session);
std::vector<Violation> checkScreenRows(Session& session);
std::vector<Violation> checkCounters(Session& session);
std::vector<Violation> checkGaps(Session& session);

}  // namespace tarvex
