// What always holds between the VAT rows and the journal.
#pragma once

#include <vector>

#include "session/session.h"
#include "session/violation.h"

namespace tarvex {

// "VAT rows equal the VAT line": the imposta of the iv rows of a sales invoice or customer credit note adds
// up, to the cent, to what its entry holds on "Iva vendite" (00012), avere less dare. An entry and its rows
// share the register, the last five digits of the number and the date of registration. Rows without any entry
// are those of the manual registration, which writes no journal, and are passed over.
//
// Reads mc and iv, a second time only to name the records of what does not hold. An archive that cannot be
// read is a violation.
std::vector<Violation> checkVatRows(Session& session);

}  // namespace tarvex
