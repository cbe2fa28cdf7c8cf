// What always holds between the books and the rows from which they are printed.
#pragma once

#include <span>

#include "session/session.h"
#include "session/violation.h"

namespace tarvex {

// "registers and settlement hold every VAT row": the rows of iv, ia and ic add up, in cents, to the totals of
// their registers and to the figures of the year's settlement. A row whose code has left the table stands in
// no total.
//
// "the journal prints every row": each row of mc is registered on a day that exists. A row of another year,
// carried over with an open item, stands in the journal of that year.
std::span<const Rule> bookRules();

}  // namespace tarvex
