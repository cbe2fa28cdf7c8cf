// What entries have to do with the ledgers of due dates: an invoice falls due, a collection or a payment
// closes instalments, and taking an entry back undoes either.
#pragma once

#include <string>
#include <vector>

#include "duedates/generate.h"
#include "ledger/invoice_entry.h"
#include "ledger/removal.h"

namespace tarvex {

// How a document with VAT falls due by the condition of its customer or supplier: invoices always, credit
// notes as a negative instalment where the parameters ask for it, receipts never. A sale from its
// registration, a purchase from the supplier's date. Writes nothing.
DueDates fallingDue(Session& session, const InvoiceKind& kind, const InvoiceDocument& document);

// An instalment as the screens of collections and payments name it, and as `tt` keeps it. Dates dd/mm/yyyy.
struct ClosedRow {
  std::string numero, datafatt, scadenza;  // an empty scadenza: the first one that is open
};
DueLedger closedLedger(std::string_view causale);  // of "if" the customers', of "pf" the suppliers'

// The instalments that a row may mean, the likelier first. A sale's bear the date of its registration, its
// lines in the journal and the collections under it the date of the document: either is understood.
std::vector<InstalmentRef> instalmentsOf(Session& session, DueLedger ledger, const std::string& conto,
                                         const ClosedRow& row);

// The number of a purchase as it was typed, of which its lines have the last six digits: its instalments keep
// it whole. Without any the six digits.
std::string supplierNumber(Session& session, const rec::mc& firstLine);

// The number and the date of the document that an instalment belongs to; its own where the journal has none.
void bearDocument(Session& session, DueDate& due);

// Takes an entry's traces out of the ledgers: the instalments of a document, those that a collection or
// payment had closed are open again. Those removed: a revision writes them anew with what had closed them.
// Part of a group that the caller has opened.
std::vector<DueDate> takeDuesBack(Session& session, const JournalEntry& entry);

}  // namespace tarvex
