// What always holds between the VAT rows and the journal.
#pragma once

#include <span>

#include "session/session.h"
#include "session/violation.h"

namespace tarvex {

// "VAT rows equal the VAT line": the imposta of the VAT rows of an entry adds up, to the cent, to what it
// holds on the voices of the tax: 00012 of sales, 00011 and 00014 of purchases, 00013 of receipts. An entry
// and its rows share the register, the five digits of the number (of the protocol) and the date of
// registration. Rows without any entry are those of the manual registration, which writes no journal, and are
// passed over.
//
// "kept balances are those of their settlement", a notice: each balance of si is what its month or quarter
// comes to, in cents or in whole Euros. One that was typed in, or that comes from ventilated receipts, is
// told, too.
//
// Reads mc, iv, ia and ic, a second time only to name the records of what does not hold. An archive that
// cannot be read is a violation.
std::span<const Rule> vatRules();

}  // namespace tarvex
