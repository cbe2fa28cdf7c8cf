// What always holds between the journal, the chart of accounts, the counters and the rows of the screens.
#pragma once

#include <span>

#include "session/session.h"
#include "session/violation.h"

namespace tarvex {

// "entries balance": the rows of each entry (mc.nummov) have equal sums of dare and avere, to the cent.
//
// "progressives equal the journal": dare and avere of each voice are, to the cent, the sums of the journal
// rows of the voices whose code, mastro or conto it is (a voice counts once on each level), and its saldo is
// saldoiniziale + dare - avere. Where the opening entry is posted, its amounts are taken out of the voices of
// the balance sheet again.
//
// Both pass over rows that are registered in another year: open items that came over from the year before
// stand by themselves.
//
// "numbers are given once": in a register no two entries of the journal have one protocol (purchase invoices
// and supplier credit notes) or one receipt number (its last five digits).
//
// "references exist": the voice of each row, mastro and conto of each voice, customer, supplier, VAT code and
// register of each VAT row, account of each due date.
//
// "screen rows belong to an entry": each row of tt bears the number of an entry of the journal.
//
// "counters are not behind" (a notice: a draw passes over the numbers that are taken): of mc, tt, iv, ia, ic
// and pc, the counter of pr that their keys are drawn from.
//
// "numbers have no gaps" (a notice): the numbers of the sales and of the protocols of each register.
//
// Each reads the archives that it compares, the journal a second time only to name the rows of what does not
// hold. An archive that cannot be read is a violation.
std::span<const Rule> ledgerRules();

}  // namespace tarvex
