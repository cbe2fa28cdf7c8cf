// What always holds between the journal and the chart of accounts.
#pragma once

#include <vector>

#include "session/session.h"
#include "session/violation.h"

namespace tarvex {

// "entries balance": the rows of each entry (mc.nummov) have equal sums of dare and avere, to the cent.
//
// "progressives equal the journal": dare and avere of each voice are, to the cent, the sums of the journal
// rows of the voices whose code, mastro or conto it is (a voice counts once on each level), and its saldo is
// saldoiniziale + dare - avere. A row of a voice that does not exist breaks this rule, too.
//
// Reads mc and pc, a second time only to name the rows of what does not hold. An archive that cannot be read
// is a violation.
std::vector<Violation> checkJournal(Session& session);

// "numbers are given once": in a register no two entries of the journal have one protocol (purchase invoices
// and supplier credit notes) or one receipt number (its last five digits).
//
// Reads mc, a second time only to name the rows of what does not hold.
std::vector<Violation> checkNumbers(Session& session);

}  // namespace tarvex
