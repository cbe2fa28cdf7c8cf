// The choice among what a customer or supplier has still to pay or to get.
#pragma once

#include <optional>
#include <vector>

#include "duedates/due_ledgers.h"
#include "ledger/collections.h"
#include "session/session.h"

namespace tarvex {

// Those of the account that stand open, by due date, as a modal step, under the numbers and dates of their
// documents; without those that `taken` names already. The ones chosen, none when the user gives up.
std::vector<DueDate> chooseInstalments(Session& session, DueLedger ledger, const std::string& conto,
                                       const std::vector<CollectionRow>& taken);

}  // namespace tarvex
