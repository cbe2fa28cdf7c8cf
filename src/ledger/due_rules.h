// What always holds between the ledgers of due dates and the journal.
#pragma once

#include <span>

#include "session/session.h"
#include "session/violation.h"

namespace tarvex {

// "instalments sum to their invoice": those of one account, number and date come to the amount of its entry.
// Instalments without an entry are those entered by hand or carried over, and are passed over.
//
// "a closed instalment has its collection": on the day on which it was closed the account was collected from
// or paid.
std::span<const Rule> dueRules();

}  // namespace tarvex
