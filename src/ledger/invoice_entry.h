// The documents with VAT that are registered by hand, as values, and the entry that each becomes: invoices
// and credit notes of sales and purchases, and receipts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ledger/posting.h"
#include "vat/totals.h"

namespace tarvex {

// What tells the kinds of document apart, and the screens on which each is registered.
struct InvoiceKind {
  std::string_view unit, title;  // of the form
  std::string_view causale;
  VatSide side;
  bool creditNote = false;  // the sides of the journal and the signs of the VAT rows are turned round
  bool revision = false;    // opened on an entry, which it replaces
  bool lire = false;        // amounts are typed in Lire and posted in Euro
};

struct InvoiceRow {
  std::string contropartita;  // code of the voice; empty in a row without one
  double imponibile = 0;
  std::string codiva;
  double imposta = 0;
  bool deductible = true;  // by the table of codes as it is now
  EntryRow typed = {};
};

// Dates as on the screen, dd/mm/yyyy.
struct InvoiceDocument {
  std::string datareg, datadoc;
  std::string numero;      // as typed
  std::string protocollo;  // as typed; of purchases
  std::string registro;
  std::string conto;  // code of the customer, of the supplier, of the account of a receipt
  std::string descrizione;
  double importo = 0;
  std::vector<InvoiceRow> rows;
};

// One of the voices that the VAT of a document goes to by itself; with a line of another making on it the VAT
// rows would never agree with the journal.
bool isVatVoice(std::string_view code);

// `importo` less the taxable amounts and the VAT of the rows, rounded as balances are.
double imbalance(const InvoiceDocument& document);

// Each amount converted by itself, at `rate` Lire for one Euro. The cents by which the parts then miss the
// whole are put on the row with the greatest taxable amount: what balanced in Lire balances in Euro.
void convertFromLire(InvoiceDocument& document, double rate);

// The lines on the account, on the contropartite (one for each, with the sum of its rows) and on the VAT; the
// VAT rows; the rows of the screen; the counter of the register.
Entry invoiceEntry(const InvoiceKind& kind, const InvoiceDocument& document);

}  // namespace tarvex
