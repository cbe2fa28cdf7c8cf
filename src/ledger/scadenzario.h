// The choice among what a customer or supplier has still to pay or to get.
#pragma once

#include <optional>
#include <vector>

#include "duedates/due_ledgers.h"
#include "session/session.h"

namespace tarvex {

// Those of the account that stand open, by due date, as a modal step; the ones chosen, none when the user
// gives up.
std::vector<DueDate> chooseInstalments(Session& session, DueLedger ledger, const std::string& conto);

}  // namespace tarvex
